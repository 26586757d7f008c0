#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "store/Value.h"

namespace ornivane {

class Connection;

// Rows of a table as they are now, with all their columns as they are stored, to be put back when they have
// been changed or deleted.
class KeptRows {
public:
    // `where`: the condition of the rows, its ? bound to the parameters. RuntimeError StoreError.
    KeptRows(Connection& connection, const std::string& table, const std::string& where,
             const std::vector<Value>& parameters);

    // Rows of a table with a key replace those that hold it now; the others are added. The transaction is the
    // caller's. RuntimeError StoreError, DiskFull.
    void PutBack() const;

    // The same from another store, without keeping the rows in memory. Returns how many they were.
    static std::int64_t Copy(Connection& from, Connection& to, const std::string& table,
                             const std::string& where, const std::vector<Value>& parameters);

private:
    Connection* connection;
    std::string insert;
    std::vector<std::vector<Value>> rows;
};

} // namespace ornivane
