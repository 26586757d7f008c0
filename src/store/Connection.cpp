#include "store/Connection.h"

#include <array>
#include <fstream>
#include <string_view>
#include <unistd.h>

#include <sqlite3.h>

#include "base/RuntimeError.h"
#include "store/Sqlite.h"
#include "store/Statement.h"

namespace ornivane {

namespace {

namespace fs = std::filesystem;

constexpr int BusyMilliseconds = 250; // a store that another program holds is told, not waited for
// Pages kept in memory: enough that a list of a hundred thousand points is read in the order of its index
// without reading its pages again and again.
constexpr const char* Setup = "PRAGMA trusted_schema = OFF; PRAGMA cache_size = -16384";
constexpr std::uintmax_t LargestToCheck = 8u << 20; // bytes; checking these takes some hundredths of a second

[[noreturn]] void Refuse(const std::string& reason) { throw RuntimeError(ErrorNumber::StoreError, reason); }

void Run(sqlite3* handle, const char* sql) {
    if (sqlite3_exec(handle, sql, nullptr, nullptr, nullptr) != SQLITE_OK) ThrowSqliteError(handle);
}

void CheckFile(const fs::path& file, Connection::Mode mode) {
    std::error_code error;
    if (!fs::exists(file, error)) throw RuntimeError(ErrorNumber::FileNotFound, file.string());
    if (!fs::is_regular_file(file, error)) Refuse("not a file");
    std::array<char, 16> start{};
    std::ifstream stream(file, std::ios::binary);
    if (!stream) Refuse("the file may not be read");
    stream.read(start.data(), start.size());
    if (!stream || std::string_view(start.data(), 15) != "SQLite format 3") Refuse("not a data store");
    // The journal of a change is a file beside the store.
    if (mode == Connection::Mode::ReadWrite && access(fs::absolute(file).parent_path().c_str(), W_OK) != 0)
        Refuse("the folder is read-only");
}

std::uintmax_t BytesByHeader(const fs::path& file) {
    std::array<char, 32> header{};
    std::ifstream(file, std::ios::binary).read(header.data(), header.size());
    const auto at = [&](std::size_t i) { return static_cast<unsigned char>(header[i]); };
    const unsigned pageSize = at(16) * 256u + at(17);
    const unsigned pages = ((at(28) * 256u + at(29)) * 256u + at(30)) * 256u + at(31);
    return static_cast<std::uintmax_t>(pages) * (pageSize == 1 ? 65536u : pageSize);
}

// The first look into a store brings back one whose last change a crash cut off, so nothing is said of its
// size before. A damage elsewhere would only come out at the first use of that place, in flight: a store of
// usual size is looked through.
void CheckContent(sqlite3* handle, const fs::path& file) {
    const int result = sqlite3_exec(handle, "SELECT count(*) FROM sqlite_schema", nullptr, nullptr, nullptr);
    std::error_code error;
    const std::uintmax_t size = fs::file_size(file, error);
    if ((result == SQLITE_OK || result == SQLITE_CORRUPT) && size < BytesByHeader(file))
        Refuse("the file is cut short");
    if (result != SQLITE_OK) ThrowSqliteError(handle);
    if (size > LargestToCheck) return;
    std::string found;
    const auto take = [](void* to, int, char** values, char**) {
        *static_cast<std::string*>(to) = values[0];
        return 0;
    };
    if (sqlite3_exec(handle, "PRAGMA quick_check(1)", take, &found, nullptr) != SQLITE_OK)
        ThrowSqliteError(handle);
    if (found != "ok") Refuse("the file is damaged: " + found);
}

} // namespace

void Connection::Closer::operator()(sqlite3* toClose) const { sqlite3_close_v2(toClose); }

Connection::Connection() = default;
Connection::~Connection() = default;
Connection::Connection(Connection&&) noexcept = default;
Connection& Connection::operator=(Connection&&) noexcept = default;

void Connection::Open(const fs::path& file, Mode mode) {
    handle.reset();
    CheckFile(file, mode);
    sqlite3* raw = nullptr;
    // Each connection is used by one thread only: its locks would cost a tenth of a crowded redraw.
    const int flags =
        SQLITE_OPEN_NOMUTEX | (mode == Mode::ReadWrite ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY);
    const int result = sqlite3_open_v2(file.c_str(), &raw, flags, nullptr);
    std::unique_ptr<sqlite3, Closer> opened(raw);
    if (result != SQLITE_OK) ThrowSqliteError(raw);
    sqlite3_busy_timeout(raw, BusyMilliseconds);
    RegisterTextOrder(raw);
    CheckContent(raw, file);
    Run(raw, Setup);
    if (mode == Mode::ReadWrite) {
        if (sqlite3_db_readonly(raw, "main") == 1) Refuse("the file is read-only");
        Run(raw, "PRAGMA journal_mode = DELETE; PRAGMA synchronous = FULL; BEGIN IMMEDIATE; ROLLBACK");
    }
    handle = std::move(opened);
}

int Connection::Execute(const std::string& sql, const std::vector<Value>& parameters) {
    Statement statement(*this, sql, parameters);
    while (statement.Step()) {
    }
    return sqlite3_changes(handle.get());
}

std::int64_t Connection::LastRowId() const { return sqlite3_last_insert_rowid(Handle()); }

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
