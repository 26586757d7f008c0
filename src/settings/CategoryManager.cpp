#include "settings/CategoryManager.h"

#include "data/WaypointCategories.h"
#include "store/Connection.h"
#include "store/TextOrder.h"

namespace ornivane {

CategoryManager::CategoryManager(Connection& mainStore, Dialogs& messages)
    : dataConn(mainStore), dialogs(messages) {}

void CategoryManager::Form_Load() {
    Waypoints(dataConn).Open(waypointsSet);
    FillLists();
    Categories = WaypointCategories(dataConn).Names();
}

void CategoryManager::FillLists() {
    listWegpunkt.clear();
    listKategorie.clear();
    for (int row = 0; row < waypointsSet.RecordCount(); ++row) {
        listWegpunkt.push_back(waypointsSet.ValueAt(row, "Name").TextOrEmpty());
        listKategorie.push_back(waypointsSet.ValueAt(row, "Kategorie").TextOrEmpty());
    }
}

// The rows are in the order by which names compare, so the first of a name is found without walking: tens of
// thousands may be selected.
bool CategoryManager::Assign(Waypoints& waypoints, const std::string& waypoint) {
    const auto nameAt = [this](int row) { return waypointsSet.ValueAt(row, "Name").TextOrEmpty(); };
    int first = 0, behind = waypointsSet.RecordCount();
    while (first < behind) {
        const int middle = first + (behind - first) / 2;
        if (CompareText(nameAt(middle), waypoint) < 0)
            first = middle + 1;
        else
            behind = middle;
    }
    if (first == waypointsSet.RecordCount() || CompareText(nameAt(first), waypoint) != 0) return false;
    waypoints.SetCategory(waypointsSet.ValueAt(first, "PointID"), cmbKategorie);
    return true;
}

void CategoryManager::cmdZuweisen_Click(const std::vector<std::size_t>& selected) {
    Transaction transaction(dataConn);
    Waypoints waypoints(dataConn);
    for (const std::size_t row : selected) {
        const std::string& waypoint = listWegpunkt.at(row);
        if (Assign(waypoints, waypoint)) continue;
        transaction.Commit(); // those before it keep what they got
        return dialogs.Message("Datenbankfehler", "Wegpunkt - " + waypoint +
                                                      " - wurde nicht gefunden. Bitte Datenbank überprüfen.");
    }
    transaction.Commit();
    waypointsSet.Requery();
    FillLists();
}

} // namespace ornivane
