#pragma once

#include <optional>
#include <string>
#include <vector>

#include "store/RecordsetRows.h"

namespace ornivane {

class Connection;

// Where the rows of a recordset come from and go back to: one query over one table of a store.
class TableSource {
public:
    // "SELECT fields FROM table [WHERE ...] [ORDER BY ...]". RuntimeError StoreError when it is not of that
    // form.
    TableSource(Connection& of, const std::string& sql, std::vector<Value> values);

    struct Result {
        std::vector<FieldInfo> Fields;
        std::vector<Row> Rows;
    };
    Result Load() const;

    // The values that were assigned, by column; the others keep what the store gives them. Both return the
    // row as the store has it afterwards, its counter and defaults included.
    using Assigned = std::vector<std::optional<Value>>;
    Row Insert(const std::vector<FieldInfo>& fields, const Assigned& assigned) const;
    Row Update(const std::vector<FieldInfo>& fields, std::int64_t rowId, const Assigned& assigned) const;
    void Delete(std::int64_t rowId) const;

private:
    Row Reread(const std::vector<FieldInfo>& fields, std::int64_t rowId) const;

    Connection* connection;
    std::string query; // with the row's identity as its first column
    std::string columns, table;
    std::vector<Value> parameters;
};

} // namespace ornivane
