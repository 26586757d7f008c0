#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "store/Value.h"

namespace ornivane {

class Connection;

// One column of some rows of a table as it is now, to be put back when it has been changed.
class KeptColumn {
public:
    struct Cell {
        std::int64_t RowId = 0; // the row's identity in its table
        Value Content;
    };

    struct Place {
        std::string Table, Column;
    };

    // In the order of the column. `where`: the condition of the rows. RuntimeError StoreError.
    KeptColumn(Connection& of, Place at, const std::string& where, const std::vector<Value>& parameters);

    const std::vector<Cell>& Cells() const { return cells; }
    void Leave(std::int64_t rowId); // without this row from here on
    // Into the rows that are still there. The transaction is the caller's. RuntimeError StoreError, DiskFull.
    void PutBack() const { Write({}, {}); }
    // Only into those that hold this value now: what was given to a row since then stays.
    void PutBackOver(const Value& present) const;

private:
    void Write(const std::string& condition, const std::vector<Value>& present) const;

    Connection* connection;
    Place place;
    std::vector<Cell> cells;
};

} // namespace ornivane
