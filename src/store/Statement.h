#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "store/Value.h"

struct sqlite3_stmt;

namespace ornivane {

class Connection;

// A prepared statement, for queries that run at every redraw: prepared once, bound and stepped often.
// Errors are RuntimeError StoreError. Must not outlive its connection's being open.
class Statement {
public:
    Statement() = default;
    // The values are bound to its ?.
    Statement(Connection& connection, std::string_view sql, std::span<const Value> parameters = {});

    bool IsPrepared() const { return statement != nullptr; }
    // Ends the last run and forgets its rows; bound values stay.
    void Reset();
    // Parameters count from 1; all of them, or one.
    void Bind(std::span<const Value> parameters);
    void Bind(int parameter, const Value& value);
    // True while there is a row.
    bool Step();
    int ColumnCount() const;
    std::string ColumnName(int column) const;
    // The type in the table's declaration; empty when the column is no field of a table.
    std::string DeclaredType(int column) const;
    // Columns count from 0. Number() and Integer() of Null are a RuntimeError InvalidNull.
    bool IsNull(int column) const;
    double Number(int column) const;
    std::int64_t Integer(int column) const;
    std::string_view Text(int column) const; // valid until the next Step or Reset; empty for Null
    Value ColumnValue(int column) const;

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* toFinalize) const;
    };
    std::unique_ptr<sqlite3_stmt, Finalizer> statement;
};

// One run of a statement: resets it at the start and, also when an error ends the run, at the end, so that no
// forgotten row keeps the store locked for other programs.
class StatementRun {
public:
    explicit StatementRun(Statement& of) : statement(of) { statement.Reset(); }
    // Prepares the statement unless that has been done, and binds the values to its ?.
    StatementRun(Statement& of, Connection& connection, std::string_view sql,
                 std::initializer_list<Value> parameters);
    ~StatementRun() { statement.Reset(); }
    StatementRun(const StatementRun&) = delete;
    StatementRun& operator=(const StatementRun&) = delete;

private:
    Statement& statement;
};

} // namespace ornivane
