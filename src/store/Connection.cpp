#include "store/Connection.h"

#include <array>
#include <fstream>
#include <string_view>

#include <sqlite3.h>

#include "base/RuntimeError.h"
#include "store/Sqlite.h"
#include "store/Statement.h"

namespace ornivane {

namespace {

constexpr int BusyMilliseconds = 250; // a store that another program holds is told, not waited for

void Run(sqlite3* handle, const char* sql) {
    if (sqlite3_exec(handle, sql, nullptr, nullptr, nullptr) != SQLITE_OK) ThrowSqliteError(handle);
}

// SQLite would read a file that was cut short up to the missing page, and only then complain: in flight.
void CheckWhole(const std::filesystem::path& file) {
    std::array<unsigned char, 32> header{};
    std::ifstream stream(file, std::ios::binary);
    stream.read(reinterpret_cast<char*>(header.data()), header.size());
    if (!stream || std::string_view(reinterpret_cast<char*>(header.data()), 15) != "SQLite format 3")
        throw RuntimeError(ErrorNumber::StoreError, "not a data store");
    const unsigned pageSize = header[16] * 256u + header[17] == 1 ? 65536u : header[16] * 256u + header[17];
    const unsigned pages = (header[28] * 256u + header[29]) * 65536u + header[30] * 256u + header[31];
    // The page count is only valid where the two change counters agree (SQLite file format, 1.3.8).
    std::error_code error;
    if (std::filesystem::file_size(file, error) < static_cast<std::uintmax_t>(pages) * pageSize)
        throw RuntimeError(ErrorNumber::StoreError, "the file is cut short");
}

} // namespace

void Connection::Closer::operator()(sqlite3* toClose) const { sqlite3_close_v2(toClose); }

Connection::Connection() = default;
Connection::~Connection() = default;
Connection::Connection(Connection&&) noexcept = default;
Connection& Connection::operator=(Connection&&) noexcept = default;

void Connection::Open(const std::filesystem::path& file, Mode mode) {
    handle.reset();
    std::error_code error;
    if (!std::filesystem::exists(file, error)) throw RuntimeError(ErrorNumber::FileNotFound, file.string());
    if (!std::filesystem::is_regular_file(file, error))
        throw RuntimeError(ErrorNumber::StoreError, "not a file");
    CheckWhole(file);
    sqlite3* raw = nullptr;
    const int flags = mode == Mode::ReadWrite ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY;
    const int result = sqlite3_open_v2(file.c_str(), &raw, flags, nullptr);
    std::unique_ptr<sqlite3, Closer> opened(raw);
    if (result != SQLITE_OK) ThrowSqliteError(raw);
    sqlite3_busy_timeout(raw, BusyMilliseconds);
    RegisterTextOrder(raw);
    Run(raw, "PRAGMA trusted_schema = OFF; SELECT count(*) FROM sqlite_schema");
    if (mode == Mode::ReadWrite) {
        if (sqlite3_db_readonly(raw, "main") == 1)
            throw RuntimeError(ErrorNumber::StoreError, "the file is read-only");
        Run(raw, "PRAGMA journal_mode = DELETE; PRAGMA synchronous = FULL; BEGIN IMMEDIATE; ROLLBACK");
    }
    handle = std::move(opened);
}

void Connection::Close() { handle.reset(); }

bool Connection::IsOpen() const { return handle != nullptr; }

void Connection::Execute(const std::string& sql, const std::vector<Value>& parameters) {
    Statement statement(*this, sql);
    for (std::size_t i = 0; i < parameters.size(); ++i)
        statement.Bind(static_cast<int>(i) + 1, parameters[i]);
    while (statement.Step()) {
    }
}

sqlite3* Connection::Handle() const {
    if (!handle) throw RuntimeError(ErrorNumber::ObjectClosed);
    return handle.get();
}

Transaction::Transaction(Connection& of) : connection(&of) { connection->Execute("SAVEPOINT ornivane"); }

Transaction::~Transaction() {
    if (!connection) return;
    try {
        connection->Execute("ROLLBACK TO ornivane");
        connection->Execute("RELEASE ornivane");
    } catch (const RuntimeError&) {
        // SQLite has rolled back by itself, as it does when the disk is full.
    }
}

void Transaction::Commit() {
    connection->Execute("RELEASE ornivane");
    connection = nullptr;
}

} // namespace ornivane
