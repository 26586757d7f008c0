#include "settings/AirfieldTransfer.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "base/RuntimeError.h"
#include "data/WaypointCategories.h"
#include "data/Waypoints.h"
#include "geo/Position.h"
#include "store/Connection.h"
#include "store/Statement.h"

namespace ornivane {

namespace {

// Empty when the store has none there, or no number.
std::optional<double> Coordinate(const Statement& airfield, int column) {
    std::optional<double> degrees;
    // Null or a text is no coordinate: that is what empty says.
    IgnoreErrors([&] { degrees = airfield.Number(column); });
    return degrees && std::isfinite(*degrees) ? degrees : std::nullopt;
}

// Title and text of what an import tells.
std::pair<std::string, std::string> ReportOf(int added) {
    if (added == 0)
        return {"Nichts hinzugefügt",
                "Es wurden keine Flughäfen hinzugefügt. Flughäfen sind schon vorhanden."};
    if (added == 1) return {"Flughafen hinzugefügt", "Es wurde ein Flughafen hinzugefügt."};
    const std::string count = std::to_string(added);
    return {count + " Flughäfen hinzugefügt", "Es wurden " + count + " Flughäfen hinzugefügt."};
}

} // namespace

AirfieldTransfer::AirfieldTransfer(const Language& shownIn, OpenStores& openStores, Dialogs& messages)
    : language(shownIn), stores(openStores), dialogs(messages) {}

void AirfieldTransfer::Form_Load() {
    Categories = WaypointCategories(stores.DataConn).Names();
    cmbKategorie_Click(Categories.empty() ? std::string() : Categories.front());
    listAP = ReadAirfieldCountries(stores.AirfieldConn);
    listAP_Click({});
}

void AirfieldTransfer::cmbKategorie_Click(const std::string& category) {
    cmbKategorie = category;
    cmdTransfer = "Flughäfen in Kategorie " + category + " importieren";
}

const AirfieldCountry& AirfieldTransfer::Named(const std::string& name) const {
    // The names are those of the list.
    return *std::ranges::lower_bound(listAP, name, TextBefore(), &AirfieldCountry::Name);
}

void AirfieldTransfer::listAP_Click(const std::vector<std::size_t>& selected) {
    long total = 0;
    for (const std::size_t place : selected) total += Named(listAP.at(place).Name).Anzahl;
    lblCount = std::to_string(total) + (total == 1 ? " Flughafen" : " Flughäfen");
}

void AirfieldTransfer::cmdTransfer_Click(const std::vector<std::size_t>& selected) {
    added = 0;
    withoutPlace.clear();
    if (!selected.empty()) {
        taken = WaypointNames();
        Names prefixes;
        for (const std::size_t place : selected) prefixes.insert(Named(listAP.at(place).Name).Icao);
        Transaction transaction(stores.DataConn);
        for (const std::string& prefix : prefixes) ImportCountry(prefix);
        transaction.Commit();
    }
    Report();
}

AirfieldTransfer::Names AirfieldTransfer::WaypointNames() const {
    Names names;
    const auto take = [&names](std::string_view name) { names.emplace_hint(names.end(), name); };
    if (!Waypoints(stores.DataConn).ForEachName(take))
        throw RuntimeError(ErrorNumber::NoCurrentRecord,
                           language.Text("es gibt noch keinen Wegpunkt; bitte zuerst einen eingeben",
                                         "there is no waypoint yet; please enter one first"));
    return names;
}

// Reads by the index of the codes from the first one of the prefix on, so that every airport of the world
// takes about a second. Between the codes of a prefix there may be others, as "édaa" is between "EDAA" and
// "EDAB".
void AirfieldTransfer::ImportCountry(const std::string& prefix) {
    const std::string behindAll = prefix + '\xFF'; // no UTF-8: behind every letter
    Statement airfields(stores.AirfieldConn,
                        "SELECT ICAO, WGS_DLAT, WGS_DLONG FROM ARPT WHERE ICAO >= ? ORDER BY ICAO ASC");
    airfields.Bind(1, prefix);
    Waypoints waypoints(stores.DataConn);
    while (airfields.Step()) {
        const std::string icao(airfields.Text(0));
        if (CompareText(icao, behindAll) > 0) break;
        if (!StartsWith(icao, prefix) || taken.contains(icao)) continue;
        const auto latitude = Coordinate(airfields, 1), longitude = Coordinate(airfields, 2);
        if (!latitude || !longitude) {
            withoutPlace.push_back(icao);
            continue;
        }
        waypoints.Add(icao, ToDegMinValue(Position{Latitude(*latitude), Longitude(*longitude)}),
                      cmbKategorie);
        taken.insert(icao);
        ++added;
    }
}

void AirfieldTransfer::Report() {
    const auto [title, text] = ReportOf(added);
    if (withoutPlace.empty()) return dialogs.Message(title, text);
    const std::size_t left = withoutPlace.size();
    dialogs.MessageWithList(
        title,
        text + "\n" +
            (left == 1 ? "1 Flughafen ohne Koordinaten wurde ausgelassen:"
                       : std::to_string(left) + " Flughäfen ohne Koordinaten wurden ausgelassen:"),
        withoutPlace);
}

} // namespace ornivane
