#include "data/Routes.h"

#include "store/Connection.h"
#include "store/Lists.h"

namespace ornivane {

const char* const Select = "SELECT * From Route";

void Routes::Open(Recordset& routes) const {
    routes.Open(connection, std::string(Select) + " Order by NUMMER ASC");
}

void Routes::InsertAfterCurrent(Recordset& routes, const std::string& name) const {
    ornivane::InsertAfterCurrent(connection, routes, Select, {},
                                 [&](Recordset& route) { route.Set("Name", name); });
}

Value Routes::Append(const std::string& name) const {
    Transaction transaction(connection);
    Recordset routes;
    Open(routes);
    routes.MoveLast();
    const double number = routes.RecordCount() > 0 ? routes.Number("Nummer") + 1 : 1;
    routes.AddNew();
    routes.Set("Nummer", number);
    routes.Set("Name", name);
    routes.Update();
    transaction.Commit();
    return routes.Get("RouteID");
}

KeptListRow Routes::Keep(std::int64_t rowId) const { return {connection, "Route", "1", {}, rowId}; }

} // namespace ornivane
