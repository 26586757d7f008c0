#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "store/KeptColumn.h"
#include "store/KeptListRow.h"
#include "store/Recordset.h"

namespace ornivane {

// The list of the categories of waypoints: all SQL on the table Kategorie of data.ovd. Every routine throws
// RuntimeError StoreError when the store refuses.
class WaypointCategories {
public:
    explicit WaypointCategories(Connection& data) : connection(data) {}

    void Open(Recordset& categories) const;            // all columns, in the order of the list
    std::vector<std::string> Names() const;            // in the same order; empty for Null
    int CountOf(const std::string& name) const;        // more than one when a rename made two alike
    std::int64_t RowOf(const std::string& name) const; // identity of the first; 0 without one

    // Behind the current row of the list; see InsertAfterCurrent in Lists.h.
    void InsertAfterCurrent(Recordset& categories, const std::string& name) const;
    void Renumber() const;

    // As they are now, to be put back.
    KeptColumn KeepName(std::int64_t rowId) const;
    KeptListRow Keep(std::int64_t rowId) const;

private:
    Connection& connection;
};

} // namespace ornivane
