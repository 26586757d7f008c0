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
    KeptRows(Connection& of, const std::string& table, const std::string& where,
             const std::vector<Value>& parameters);

    // Both in a transaction of the caller's. RuntimeError StoreError, DiskFull.
    void PutBack() const;     // rows that were deleted; a key that another row has by now is a StoreError
    void PutBackOver() const; // rows that were changed: they have their key still, and are replaced

    // Deleted rows from another store, without keeping them in memory. Returns how many they were.
    struct Between {
        Connection& From;
        Connection& To;
    };
    static std::int64_t Copy(const Between& stores, const std::string& table, const std::string& where,
                             const std::vector<Value>& parameters);

private:
    void Write(const std::string& verb) const;

    Connection* connection;
    std::string into; // an INSERT without its verb
    std::vector<std::vector<Value>> rows;
};

} // namespace ornivane
