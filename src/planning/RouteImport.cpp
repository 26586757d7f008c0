#include "planning/RouteImport.h"

#include <algorithm>
#include <set>

#include "base/Paths.h"
#include "base/Strings.h"
#include "common/StoredPositions.h"
#include "data/RoutePoints.h"
#include "data/Routes.h"
#include "data/WaypointBook.h"
#include "data/Waypoints.h"

namespace ornivane {

namespace {

// Each point that differs has a box of its own; nobody answers thousands of them.
constexpr std::size_t MostDifferenceBoxes = 10;

// Characters of a waypoint's name, as in the schema of a route file.
constexpr std::size_t LongestName = 255;

} // namespace

RouteImport::RouteImport(const Language& texts, const Settings& ofProgram, Connection& dataConn,
                         Dialogs& dialogs, ImportSteps toShow)
    : language(texts), settings(ofProgram), data(dataConn), boxes(dialogs), steps(std::move(toShow)) {}

void RouteImport::GetRoute() {
    const auto path = boxes.OpenFile(Question());
    if (!path) return;
    const std::string name = RouteNameOf(path->string());
    const auto noRoute = ErrorOf([&] {
        rows.OpenFile(*path);
        ImportWaypoints();
        routeID = Routes(data).Append(name);
        if (steps.RouteAdded) Show([this] { steps.RouteAdded(routeID); });
    });
    if (noRoute) return; // no route file, or no place for the route: there is nothing to tell of
    ImportRoutePoints();
    boxes.Message(
        language.Text("Datenimport", "Data imported"),
        language.Text("Strecke: %1 wurde hinzugefügt", "Route: %1 was added to the database", {name}));
    if (notShown) throw RuntimeError(*notShown);
}

FileQuestion RouteImport::Question() const {
    FileQuestion question;
    question.Title = language.Text("Ornivane Route importieren ", "Import Ornivane Route");
    const auto folder = settings.ProgramFolder / "Route";
    question.Start = DirExists(folder) ? folder : settings.ProgramFolder;
    question.Filters = {{"All files (*.*)", "*.*"}, {"Ornivane Route", "*.ovr"}};
    question.Preselected = 1;
    question.DefaultExtension = "ovr";
    return question;
}

std::string RouteImport::RouteNameOf(const std::string& path) {
    const std::string cut = path.substr(0, path.find('.'));
    const auto separator = cut.find_last_of("/\\"); // files and their paths come from other systems too
    return separator == std::string::npos ? std::string() : DecodeText(cut.substr(separator + 1));
}

void RouteImport::ImportWaypoints() {
    std::vector<std::string> differing;
    const auto error = ErrorOf([&] { MergeWaypoints(differing); });
    TellDifferences(differing);
    if (!error) return;
    const bool hasReason = error->Number() == ErrorNumber::Overflow;
    boxes.Message(language.Text("Datenfehler", "Data error"),
                  language.Text("Fehler beim Einlesen der Wegpunkte", "Error reading waypoint data") +
                      (hasReason ? "\n" + error->Detail() : ""));
}

// The row of the file, and how the name begins: all of it would fill the screen.
std::string RouteImport::LongName(const std::string& name) const {
    constexpr std::size_t beginning = 20; // characters
    std::size_t end = 0;
    while (end < name.size() && CharacterCount(std::string_view(name).substr(0, end + 1)) <= beginning) ++end;
    return language.Text("Zeile %1: Der Name hat %2 Zeichen, möglich sind %3: %4...",
                         "Row %1: The name has %2 characters, %3 are possible: %4...",
                         {std::to_string(rows.AbsolutePosition()), std::to_string(CharacterCount(name)),
                          std::to_string(LongestName), name.substr(0, end)});
}

// Into an empty table nothing is taken: the route then stays without points.
void RouteImport::MergeWaypoints(std::vector<std::string>& differing) {
    WaypointBook waypoints(data);
    if (waypoints.IsEmpty()) return;
    Transaction transaction(data);
    Waypoints table(data);
    std::set<const WaypointBook::Waypoint*> told;
    for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
        const std::string name = rows.Text("Name");
        const Value lat = rows.Number("Lat"), lon = rows.Number("Long");
        const WaypointBook::Waypoint* stored = waypoints.Find(name);
        if (!stored) {
            if (CharacterCount(name) > LongestName) throw RuntimeError(ErrorNumber::Overflow, LongName(name));
            table.Add(name, DegMinOf(rows), {});
            waypoints.Add({{}, name, lat, lon});
        } else if ((stored->Lat != lat || stored->Long != lon) && told.insert(stored).second) {
            differing.push_back(name);
        }
    }
    transaction.Commit();
    Show(steps.WaypointsAdded);
}

// The box of a single point is German in either language, as its readers know it.
void RouteImport::TellDifferences(const std::vector<std::string>& differing) {
    const std::size_t single = std::min(differing.size(), MostDifferenceBoxes);
    for (std::size_t i = 0; i < single; ++i)
        boxes.Message("Datenunterschied",
                      "Der Punkt: " + differing[i] +
                          " unterscheidet sich von dem schon vorhandenem Punkt. Die alten Koordinaten werden "
                          "beibehalten - Bitte den Streckenpunkt überprüfen.");
    const std::vector<std::string> others(differing.begin() + static_cast<std::ptrdiff_t>(single),
                                          differing.end());
    if (others.empty()) return;
    boxes.MessageWithList(
        language.Text("Datenunterschied", "Data difference"),
        language.Text("Weitere Punkte, die sich von den schon vorhandenen unterscheiden: %1. Die alten "
                      "Koordinaten werden beibehalten - Bitte die Strecke überprüfen.",
                      "More points that differ from those already there: %1. The old coordinates are kept - "
                      "please check the route.",
                      {std::to_string(others.size())}),
        others);
}

void RouteImport::ImportRoutePoints() {
    // After an error the route stays without points; a file that leads here has had its message with the
    // waypoints.
    if (!ErrorOf([this] { CopyPoints(); })) Show(steps.PointsAdded);
}

// The points are copies of the stored waypoints, not of the file's: where they differ, the store is right.
void RouteImport::CopyPoints() {
    const WaypointBook waypoints(data);
    Transaction transaction(data);
    RoutePoints points(data);
    double number = 0;
    for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
        if (const WaypointBook::Waypoint* point = waypoints.Find(rows.Text("Name")))
            points.Add(routeID, ++number, *point);
    }
    transaction.Commit();
}

void RouteImport::Show(const std::function<void()>& step) {
    // What is stored is stored: a screen that cannot show it must not leave the route without its points.
    if (const auto error = step ? ErrorOf(step) : std::nullopt) notShown = error;
}

} // namespace ornivane
