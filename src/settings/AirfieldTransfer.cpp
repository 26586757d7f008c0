#include "settings/AirfieldTransfer.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "geo/NavigationMaths.h"
#include "settings/CategoryNames.h"
#include "store/Connection.h"
#include "store/Statement.h"
#include "store/TextOrder.h"

namespace ornivane {

bool AirfieldTransfer::Before::operator()(const std::string& a, const std::string& b) const {
    return CompareText(a, b) < 0;
}

AirfieldTransfer::AirfieldTransfer(Variablen& variables, Dialogs& messages)
    : shared(variables), dialogs(messages) {}

void AirfieldTransfer::Form_Load() {
    Categories = CategoryNames(shared.DataConn);
    cmbKategorie_Click(Categories.empty() ? std::string() : Categories.front());
    listAP = ReadAirfieldCountries(shared.AirfieldConn);
    listAP_Click({});
}

void AirfieldTransfer::cmbKategorie_Click(const std::string& category) {
    cmbKategorie = category;
    cmdTransfer = "Flughäfen in Kategorie " + category + " importieren";
}

const AirfieldCountry& AirfieldTransfer::Named(const std::string& name) const {
    const auto at = std::lower_bound(listAP.begin(), listAP.end(), name,
                                     [](const AirfieldCountry& country, const std::string& text) {
                                         return CompareText(country.Name, text) < 0;
                                     });
    return *at; // the names are those of the list
}

void AirfieldTransfer::listAP_Click(const std::vector<std::size_t>& selected) {
    long total = 0;
    for (const std::size_t place : selected) total += Named(listAP.at(place).Name).Anzahl;
    lblCount = std::to_string(total) + (total == 1 ? " Flughafen" : " Flughäfen");
}

void AirfieldTransfer::cmdTransfer_Click(const std::vector<std::size_t>& selected) {
    Names prefixes;
    for (const std::size_t place : selected) prefixes.insert(Named(listAP.at(place).Name).Icao);
    Report(prefixes.empty() ? 0 : ImportCountries(prefixes));
}

AirfieldTransfer::Names AirfieldTransfer::WaypointNames() const {
    Statement rows(shared.DataConn, "SELECT Name FROM Waypoints ORDER BY Name ASC");
    Names names;
    bool any = false;
    while (rows.Step()) {
        any = true;
        if (!rows.IsNull(0)) names.emplace_hint(names.end(), rows.Text(0));
    }
    if (!any)
        throw RuntimeError(ErrorNumber::NoCurrentRecord,
                           shared.Text("es gibt noch keinen Wegpunkt; bitte zuerst einen eingeben",
                                       "there is no waypoint yet; please enter one first"));
    return names;
}

// One walk over the airfields for all countries, and the names of the waypoints read once: the same as a
// search for each airfield, and with every airport of the world a matter of a second.
int AirfieldTransfer::ImportCountries(const Names& prefixes) {
    Names taken = WaypointNames();
    Transaction transaction(shared.DataConn);
    Statement airfields(shared.AirfieldConn, "SELECT ICAO, WGS_DLAT, WGS_DLONG FROM ARPT ORDER BY ICAO ASC");
    Statement insert(shared.DataConn,
                     "INSERT INTO Waypoints (Name, Lat, Long, Kategorie) VALUES (?, ?, ?, ?)");
    insert.Bind(4, cmbKategorie);
    int added = 0;
    while (airfields.Step()) {
        const std::string icao(airfields.Text(0));
        if (icao.empty() || !prefixes.contains(CountryPrefix(icao)) || !taken.insert(icao).second) continue;
        const StatementRun run(insert);
        insert.Bind(1, icao);
        insert.Bind(2, ToDegMinValue(airfields.Number(1)));
        insert.Bind(3, ToDegMinValue(airfields.Number(2)));
        insert.Step();
        ++added;
    }
    transaction.Commit();
    return added;
}

void AirfieldTransfer::Report(int added) {
    if (added == 0)
        return dialogs.Message("Nichts hinzugefügt",
                               "Es wurden keine Flughäfen hinzugefügt. Flughäfen sind schon vorhanden.");
    if (added == 1) return dialogs.Message("Flughafen hinzugefügt", "Es wurde ein Flughafen hinzugefügt.");
    const std::string count = std::to_string(added);
    dialogs.Message(count + " Flughäfen hinzugefügt", "Es wurden " + count + " Flughäfen hinzugefügt.");
}

} // namespace ornivane
