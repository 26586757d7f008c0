#include "planning/RouteImport.h"

#include <algorithm>
#include <set>

#include "base/Paths.h"
#include "base/RuntimeError.h"
#include "base/Strings.h"
#include "planning/WaypointBook.h"
#include "store/Statement.h"

namespace ornivane {

namespace {

// Each point that differs has a box of its own; nobody answers thousands of them.
constexpr std::size_t MostDifferenceBoxes = 10;

// Characters of a waypoint's name, as in the schema of a route file.
constexpr std::size_t LongestName = 255;

void Insert(Statement& statement, std::initializer_list<Value> values) {
    StatementRun run(statement);
    int parameter = 0;
    for (const Value& value : values) statement.Bind(++parameter, value);
    statement.Step();
}

} // namespace

RouteImport::RouteImport(Variablen& variablen, Dialogs& dialogs, PlanningSets planning)
    : shared(variablen), boxes(dialogs), sets(planning) {}

void RouteImport::GetRoute() {
    const auto path = boxes.OpenFile(Question());
    if (!path) return;
    const std::string name = RouteNameOf(path->string());
    try {
        rows.OpenFile(*path);
        ImportWaypoints();
        ImportRouteRow(name);
    } catch (const RuntimeError&) {
        return; // no route file, or no place for the route: there is nothing to tell of
    }
    ImportRoutePoints();
    boxes.Message(shared.Text("Datenimport", "Data imported"),
                  shared.Text("Strecke: ", "Route: ") + name +
                      shared.Text(" wurde hinzugefügt", " was added to the database"));
    if (notShown) std::rethrow_exception(notShown);
}

FileQuestion RouteImport::Question() const {
    FileQuestion question;
    question.Title = shared.Text("Ornivane Route importieren ", "Import Ornivane Route");
    const auto folder = shared.ProgramFolder / "Route";
    question.Start = DirExists(folder) ? folder : shared.ProgramFolder;
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
    bool failed = false;
    std::string reason;
    try {
        MergeWaypoints(differing);
    } catch (const RuntimeError& error) {
        failed = true;
        if (error.Number() == ErrorNumber::Overflow) reason = "\n" + error.Detail();
    }
    TellDifferences(differing);
    if (failed)
        boxes.Message(shared.Text("Datenfehler", "Data error"),
                      shared.Text("Fehler beim Einlesen der Wegpunkte", "Error reading waypoint data") +
                          reason);
}

// The row of the file, and how the name begins: all of it would fill the screen.
std::string RouteImport::LongName(const std::string& name) const {
    constexpr std::size_t beginning = 20; // characters
    std::size_t end = 0;
    while (end < name.size() && CharacterCount(std::string_view(name).substr(0, end + 1)) <= beginning) ++end;
    return shared.Text("Zeile ", "Row ") + std::to_string(rows.AbsolutePosition()) +
           shared.Text(": Der Name hat ", ": The name has ") + std::to_string(CharacterCount(name)) +
           shared.Text(" Zeichen, möglich sind ", " characters, ") + std::to_string(LongestName) +
           shared.Text(": ", " are possible: ") + name.substr(0, end) + "...";
}

// Into an empty table nothing is taken: the route then stays without points.
void RouteImport::MergeWaypoints(std::vector<std::string>& differing) {
    WaypointBook waypoints(shared.DataConn);
    if (waypoints.IsEmpty()) return;
    Transaction transaction(shared.DataConn);
    Statement insert(shared.DataConn,
                     "INSERT INTO Waypoints (Name, Lat, Long, Kategorie) VALUES (?, ?, ?, '')");
    std::set<const WaypointBook::Waypoint*> told;
    for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
        const std::string name = rows.Text("Name");
        const Value lat = rows.Number("Lat"), lon = rows.Number("Long");
        const WaypointBook::Waypoint* stored = waypoints.Find(name);
        if (!stored) {
            if (CharacterCount(name) > LongestName) throw RuntimeError(ErrorNumber::Overflow, LongName(name));
            Insert(insert, {name, lat, lon});
            waypoints.Add({{}, name, lat, lon});
        } else if ((stored->Lat != lat || stored->Long != lon) && told.insert(stored).second) {
            differing.push_back(name);
        }
    }
    transaction.Commit();
    Show(sets.WaypointsChanged);
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
        shared.Text("Datenunterschied", "Data difference"),
        shared.Text("Weitere Punkte, die sich von den schon vorhandenen unterscheiden: ",
                    "More points that differ from those already there: ") +
            std::to_string(others.size()) +
            shared.Text(". Die alten Koordinaten werden beibehalten - Bitte die Strecke überprüfen.",
                        ". The old coordinates are kept - please check the route."),
        others);
}

void RouteImport::ImportRouteRow(const std::string& name) {
    Transaction transaction(shared.DataConn);
    Recordset routes;
    routes.Open(shared.DataConn, "SELECT * From Route Order by NUMMER ASC");
    routes.MoveLast();
    const double number = routes.RecordCount() > 0 ? routes.Number("Nummer") + 1 : 1;
    routes.AddNew();
    routes.Set("Nummer", number);
    routes.Set("Name", name);
    routes.Update();
    routeID = routes.Get("RouteID");
    transaction.Commit();
    Show([this] { ShowRoute(); });
}

void RouteImport::ShowRoute() {
    if (!sets.RoutesSet || !sets.RoutesSet->IsOpen()) return;
    sets.RoutesSet->Requery();
    if (!sets.RoutesSet->Find("RouteID", Comparison::Equal, routeID)) sets.RoutesSet->MoveFirst();
}

void RouteImport::ImportRoutePoints() {
    try {
        CopyPoints();
    } catch (const RuntimeError&) {
        // The route stays without points; a file that leads here has had its message with the waypoints.
        return;
    }
    Show([this] {
        if (sets.RoutePointsSet && sets.RoutePointsSet->IsOpen()) sets.RoutePointsSet->Requery();
    });
}

// The points are copies of the stored waypoints, not of the file's: where they differ, the store is right.
void RouteImport::CopyPoints() {
    const WaypointBook waypoints(shared.DataConn);
    Transaction transaction(shared.DataConn);
    Statement insert(
        shared.DataConn,
        "INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long) VALUES (?, ?, ?, ?, ?, ?)");
    double number = 0;
    for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
        if (const WaypointBook::Waypoint* point = waypoints.Find(rows.Text("Name")))
            Insert(insert, {++number, routeID, point->PointID, point->Name, point->Lat, point->Long});
    }
    transaction.Commit();
}

void RouteImport::Show(const std::function<void()>& list) {
    try {
        if (list) list();
    } catch (const RuntimeError&) {
        // What is stored is stored: a screen that cannot show it must not leave the route without its points.
        notShown = std::current_exception();
    }
}

} // namespace ornivane
