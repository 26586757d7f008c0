#pragma once

#include <string>
#include <vector>

#include "store/Connection.h"
#include "store/Statement.h"

namespace ornivane {

// How numbers are written: as the store has them (7.0 in a fractional column) or as the program's texts (7).
enum class NumbersAs { Stored, Shown };

// The rows of a query, a text each, their values parted.
inline std::vector<std::string> RowsOf(Connection& store, const std::string& sql,
                                       NumbersAs numbers = NumbersAs::Stored,
                                       const std::string& between = " ") {
    std::vector<std::string> rows;
    for (Statement query(store, sql); query.Step();) {
        std::string& row = rows.emplace_back();
        for (int i = 0; i < query.ColumnCount(); ++i)
            row += (i > 0 ? between : "") + (query.IsNull(i)               ? "null"
                                             : numbers == NumbersAs::Shown ? query.ColumnValue(i).Text()
                                                                           : std::string(query.Text(i)));
    }
    return rows;
}

} // namespace ornivane
