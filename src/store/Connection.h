#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "store/Value.h"

struct sqlite3;

namespace ornivane {

// An open store: one SQLite file. Rollback journal, synchronous FULL; the collation ORNIVANE is registered.
class Connection {
public:
    enum class Mode { ReadWrite, ReadOnly };

    Connection();
    ~Connection();
    Connection(Connection&&) noexcept;
    Connection& operator=(Connection&&) noexcept;

    // RuntimeError FileNotFound when there is no such file (it is never created), StoreError with the reason
    // when it is no store, damaged, locked, or (ReadWrite) may not be written.
    void Open(const std::filesystem::path& file, Mode mode);
    void Close() { handle.reset(); }
    bool IsOpen() const { return handle != nullptr; }

    // One statement with values bound to its ?; returns how many rows an INSERT, UPDATE or DELETE has written
    // or deleted. RuntimeError StoreError (DiskFull when that is the reason).
    int Execute(const std::string& sql, const std::vector<Value>& parameters = {});
    // The identity of the row that was inserted last.
    std::int64_t LastRowId() const;

    // The handle for Statement and Recordset. RuntimeError ObjectClosed when not open.
    sqlite3* Handle() const;

private:
    struct Closer {
        void operator()(sqlite3* toClose) const;
    };
    std::unique_ptr<sqlite3, Closer> handle;
};

// Rolls back by itself unless committed. Nests as savepoints.
class Transaction {
public:
    explicit Transaction(Connection& of);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void Commit();

private:
    Connection* connection;
};

} // namespace ornivane
