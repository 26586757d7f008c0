#include "settings/CategoryNames.h"

#include "store/Statement.h"

namespace ornivane {

std::vector<std::string> CategoryNames(Connection& dataConn) {
    Statement rows(dataConn, "SELECT Kategorie FROM Kategorie ORDER BY Nummer ASC");
    std::vector<std::string> names;
    while (rows.Step()) names.emplace_back(rows.Text(0));
    return names;
}

} // namespace ornivane
