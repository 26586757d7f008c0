#include "store/KeptRows.h"

#include "store/Connection.h"
#include "store/Statement.h"

namespace ornivane {

namespace {

// In the order in which they were stored, which decides between rows of one number.
Statement Select(Connection& connection, const std::string& table, const std::string& where,
                 const std::vector<Value>& parameters) {
    return {connection, "SELECT * FROM " + table + " WHERE " + where + " ORDER BY rowid", parameters};
}

std::string IntoLike(const Statement& select, const std::string& table) {
    std::string names, places;
    for (int i = 0; i < select.ColumnCount(); ++i) {
        names += (i > 0 ? ", \"" : "\"") + select.ColumnName(i) + "\"";
        places += i > 0 ? ", ?" : "?";
    }
    return " INTO " + table + " (" + names + ") VALUES (" + places + ")";
}

} // namespace

KeptRows::KeptRows(Connection& of, const std::string& table, const std::string& where,
                   const std::vector<Value>& parameters)
    : connection(&of) {
    Statement select = Select(of, table, where, parameters);
    into = IntoLike(select, table);
    while (select.Step()) {
        std::vector<Value>& row = rows.emplace_back();
        for (int i = 0; i < select.ColumnCount(); ++i) row.push_back(select.ColumnValue(i));
    }
}

void KeptRows::PutBack() const { Write("INSERT"); }

void KeptRows::PutBackOver() const { Write("INSERT OR REPLACE"); }

void KeptRows::Write(const std::string& verb) const {
    for (const auto& row : rows) connection->Execute(verb + into, row);
}

std::int64_t KeptRows::Copy(const Between& stores, const std::string& table, const std::string& where,
                            const std::vector<Value>& parameters) {
    Statement select = Select(stores.From, table, where, parameters);
    Statement copy(stores.To, "INSERT" + IntoLike(select, table));
    std::int64_t count = 0;
    for (; select.Step(); ++count) {
        const StatementRun run(copy);
        for (int i = 0; i < select.ColumnCount(); ++i) copy.Bind(i + 1, select.ColumnValue(i));
        copy.Step();
    }
    return count;
}

} // namespace ornivane
