#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "store/KeptColumn.h"
#include "store/KeptRows.h"

namespace ornivane {

// A row of an ordered list (see Lists.h) before it is deleted, and the numbers of the list, to be put back in
// its place.
class KeptListRow {
public:
    // `ofList`: the condition of the list's rows, "1" for a whole table. `rowId`: of the row that goes.
    // RuntimeError StoreError.
    KeptListRow(Connection& of, std::string inTable, std::string ofList, std::vector<Value> values,
                std::int64_t rowId);

    // The list has the numbers that it had. Where it took rows since then, those stay: the row comes before
    // the one that it stood before, else at the end, and the list is renumbered. Returns the row's identity,
    // which may be a new one in a table without a key. The transaction is the caller's. RuntimeError
    // StoreError, DiskFull.
    std::int64_t PutBack() const;

private:
    KeptColumn Numbers() const { return {*connection, {table, "Nummer"}, where, parameters}; }
    void PutBetween(std::int64_t rowId, const KeptColumn& present) const;

    Connection* connection;
    std::string table, where;
    std::vector<Value> parameters;
    KeptRows row;
    KeptColumn others; // numbers of the rows that stay
    std::optional<std::int64_t> follower;
};

} // namespace ornivane
