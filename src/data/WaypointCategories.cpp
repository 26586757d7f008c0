#include "data/WaypointCategories.h"

#include "store/Connection.h"
#include "store/Lists.h"
#include "store/Statement.h"

namespace ornivane {

const char* const Table = "Kategorie";
const char* const Select = "SELECT * From Kategorie";

void WaypointCategories::Open(Recordset& categories) const {
    categories.Open(connection, std::string(Select) + " Order by NUMMER ASC");
}

std::vector<std::string> WaypointCategories::Names() const {
    Statement rows(connection, "SELECT Kategorie FROM Kategorie ORDER BY Nummer ASC");
    std::vector<std::string> names;
    while (rows.Step()) names.emplace_back(rows.Text(0));
    return names;
}

int WaypointCategories::CountOf(const std::string& name) const {
    Statement rows(connection, "SELECT count(*) FROM Kategorie WHERE Kategorie = ?");
    rows.Bind(1, name);
    rows.Step();
    return static_cast<int>(rows.Integer(0));
}

std::int64_t WaypointCategories::RowOf(const std::string& name) const {
    Statement row(connection, "SELECT rowid FROM Kategorie WHERE Kategorie = ?");
    row.Bind(1, name);
    return row.Step() ? row.Integer(0) : 0;
}

void WaypointCategories::InsertAfterCurrent(Recordset& categories, const std::string& name) const {
    ornivane::InsertAfterCurrent(connection, categories, Select, {},
                                 [&](Recordset& category) { category.Set("Kategorie", name); });
}

void WaypointCategories::Renumber() const { ornivane::Renumber(connection, Select, {}); }

KeptColumn WaypointCategories::KeepName(std::int64_t rowId) const {
    return {connection, {Table, "Kategorie"}, "rowid = ?", {rowId}};
}

KeptListRow WaypointCategories::Keep(std::int64_t rowId) const { return {connection, Table, "1", {}, rowId}; }

} // namespace ornivane
