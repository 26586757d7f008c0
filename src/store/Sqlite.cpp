#include "store/Sqlite.h"

#include <sqlite3.h>

#include "base/RuntimeError.h"
#include "store/TextOrder.h"

namespace ornivane {

namespace {

int Collate(void*, int lengthA, const void* a, int lengthB, const void* b) {
    return CompareText({static_cast<const char*>(a), static_cast<std::size_t>(lengthA)},
                       {static_cast<const char*>(b), static_cast<std::size_t>(lengthB)});
}

std::string_view TextOf(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return text ? std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)))
                : std::string_view();
}

void StartsWithFunction(sqlite3_context* context, int, sqlite3_value** values) {
    sqlite3_result_int(context, StartsWith(TextOf(values[0]), TextOf(values[1])) ? 1 : 0);
}

} // namespace

void RegisterTextOrder(sqlite3* handle) {
    sqlite3_create_collation_v2(handle, "ORNIVANE", SQLITE_UTF8, nullptr, Collate, nullptr);
    sqlite3_create_function_v2(handle, "STARTSWITH", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                               StartsWithFunction, nullptr, nullptr, nullptr);
}

void ThrowSqliteError(sqlite3* handle) {
    const bool full = sqlite3_errcode(handle) == SQLITE_FULL;
    throw RuntimeError(full ? ErrorNumber::DiskFull : ErrorNumber::StoreError, sqlite3_errmsg(handle));
}

} // namespace ornivane
