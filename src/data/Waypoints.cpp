#include "data/Waypoints.h"

#include "common/StoredPositions.h"
#include "store/Connection.h"

namespace ornivane {

const char* const Table = "Waypoints";

void Waypoints::Open(Recordset& waypoints) const {
    waypoints.Open(connection, "SELECT * From Waypoints Order by NAME ASC");
}

void Waypoints::OpenCategory(Recordset& waypoints, const std::string& category) const {
    waypoints.Open(connection, "SELECT * From Waypoints WHERE Kategorie = ? ORDER by NAME ASC", {category});
}

void Waypoints::OpenBeginningWith(Recordset& waypoints, const std::string& text) const {
    waypoints.Open(connection, "SELECT * FROM Waypoints WHERE ? <> '' AND STARTSWITH(Name, ?) ORDER BY Name",
                   {text, text});
}

std::optional<DegMin> Waypoints::PlaceOf(const std::string& name) {
    const StatementRun run(byName, connection,
                           "SELECT Lat, Long FROM Waypoints WHERE Name = ? ORDER BY Name ASC LIMIT 1",
                           {name});
    if (!byName.Step()) return std::nullopt;
    return DegMinOf(byName, 0);
}

std::string Waypoints::FirstNameFrom(const std::string& text) {
    const StatementRun run(fromName, connection,
                           "SELECT Name FROM Waypoints WHERE Name >= ? ORDER BY Name ASC LIMIT 1", {text});
    return fromName.Step() ? std::string(fromName.Text(0)) : std::string();
}

bool Waypoints::ForEachName(const std::function<void(std::string_view)>& action) const {
    Statement rows(connection, "SELECT Name FROM Waypoints ORDER BY Name ASC");
    bool any = false;
    for (; rows.Step(); any = true)
        if (!rows.IsNull(0)) action(rows.Text(0));
    return any;
}

void Waypoints::Add(const std::string& name, const DegMin& place, const std::string& category) {
    const StatementRun run(insert, connection,
                           "INSERT INTO Waypoints (Name, Lat, Long, Kategorie) VALUES (?, ?, ?, ?)",
                           {name, place.Lat.Value(), place.Long.Value(), category});
    insert.Step();
}

void Waypoints::SetCategory(const Value& pointID, const std::string& category) {
    const StatementRun run(setCategory, connection, "UPDATE Waypoints SET Kategorie = ? WHERE PointID = ?",
                           {category, pointID});
    setCategory.Step();
}

void Waypoints::MoveCategory(const std::string& from, const std::string& to) const {
    connection.Execute("UPDATE Waypoints SET Kategorie = ? WHERE Kategorie = ?", {to, from});
}

KeptRows Waypoints::Keep(const Value& pointID) const { return {connection, Table, "PointID = ?", {pointID}}; }

KeptColumn Waypoints::KeepCategory(const std::string& category) const {
    return {connection, {Table, "Kategorie"}, "Kategorie = ?", {category}};
}

} // namespace ornivane
