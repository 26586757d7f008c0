#include "store/Statement.h"

#include <sqlite3.h>

#include "base/RuntimeError.h"
#include "store/Connection.h"
#include "store/Sqlite.h"

namespace ornivane {

void Statement::Finalizer::operator()(sqlite3_stmt* toFinalize) const { sqlite3_finalize(toFinalize); }

Statement::Statement(Connection& connection, std::string_view sql, std::span<const Value> parameters) {
    sqlite3_stmt* raw = nullptr;
    sqlite3* handle = connection.Handle();
    if (sqlite3_prepare_v3(handle, sql.data(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT, &raw,
                           nullptr) != SQLITE_OK)
        ThrowSqliteError(handle);
    statement.reset(raw);
    Bind(parameters);
}

void Statement::Reset() { sqlite3_reset(statement.get()); }

void Statement::Bind(std::span<const Value> parameters) {
    int number = 0;
    for (const Value& value : parameters) Bind(++number, value);
}

void Statement::Bind(int parameter, const Value& value) {
    sqlite3_stmt* s = statement.get();
    struct Binder {
        sqlite3_stmt* Statement;
        int Parameter;
        int operator()(std::monostate) const { return sqlite3_bind_null(Statement, Parameter); }
        int operator()(bool boolean) const { return sqlite3_bind_int(Statement, Parameter, boolean ? 1 : 0); }
        int operator()(std::int64_t integer) const {
            return sqlite3_bind_int64(Statement, Parameter, integer);
        }
        int operator()(double number) const { return sqlite3_bind_double(Statement, Parameter, number); }
        int operator()(const std::string& text) const {
            return sqlite3_bind_text64(Statement, Parameter, text.data(), text.size(), SQLITE_TRANSIENT,
                                       SQLITE_UTF8);
        }
    };
    if (std::visit(Binder{s, parameter}, value.Raw()) != SQLITE_OK) ThrowSqliteError(sqlite3_db_handle(s));
}

bool Statement::Step() {
    if (!statement) throw RuntimeError(ErrorNumber::ObjectClosed);
    const int result = sqlite3_step(statement.get());
    if (result == SQLITE_ROW) return true;
    if (result == SQLITE_DONE) return false;
    ThrowSqliteError(sqlite3_db_handle(statement.get()));
}

int Statement::ColumnCount() const { return sqlite3_column_count(statement.get()); }

std::string Statement::ColumnName(int column) const { return sqlite3_column_name(statement.get(), column); }

std::string Statement::DeclaredType(int column) const {
    const char* declared = sqlite3_column_decltype(statement.get(), column);
    return declared ? declared : "";
}

bool Statement::IsNull(int column) const {
    return sqlite3_column_type(statement.get(), column) == SQLITE_NULL;
}

double Statement::Number(int column) const {
    const int type = sqlite3_column_type(statement.get(), column);
    if (type == SQLITE_FLOAT || type == SQLITE_INTEGER) return sqlite3_column_double(statement.get(), column);
    return ColumnValue(column).Number();
}

std::int64_t Statement::Integer(int column) const {
    if (sqlite3_column_type(statement.get(), column) == SQLITE_INTEGER)
        return sqlite3_column_int64(statement.get(), column);
    return ColumnValue(column).Integer();
}

std::string_view Statement::Text(int column) const {
    const auto* text = sqlite3_column_text(statement.get(), column);
    if (!text) return {};
    return {reinterpret_cast<const char*>(text),
            static_cast<std::size_t>(sqlite3_column_bytes(statement.get(), column))};
}

Value Statement::ColumnValue(int column) const {
    switch (sqlite3_column_type(statement.get(), column)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return static_cast<std::int64_t>(sqlite3_column_int64(statement.get(), column));
    case SQLITE_FLOAT:
        return sqlite3_column_double(statement.get(), column);
    default:
        return std::string(Text(column));
    }
}

StatementRun::StatementRun(Statement& of, Connection& connection, std::string_view sql,
                           std::initializer_list<Value> parameters)
    : statement(of) {
    if (!statement.IsPrepared()) statement = Statement(connection, sql);
    statement.Reset();
    statement.Bind({parameters.begin(), parameters.size()});
}

} // namespace ornivane
