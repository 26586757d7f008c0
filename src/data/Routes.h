#pragma once

#include <cstdint>
#include <string>

#include "store/KeptListRow.h"
#include "store/Recordset.h"

namespace ornivane {

// The list of routes: all SQL on the table Route of data.ovd. Every routine throws RuntimeError StoreError
// when the store refuses.
class Routes {
public:
    explicit Routes(Connection& data) : connection(data) {}

    void Open(Recordset& routes) const; // all columns, in the order of the list
    // Behind the current row of the list; see InsertAfterCurrent in Lists.h.
    void InsertAfterCurrent(Recordset& routes, const std::string& name) const;
    Value Append(const std::string& name) const; // returns its RouteID
    KeptListRow Keep(std::int64_t rowId) const;  // as it is now, to be put back

private:
    Connection& connection;
};

} // namespace ornivane
