#include "store/TableSource.h"

#include "base/RuntimeError.h"
#include "base/Strings.h"
#include "store/Connection.h"
#include "store/Statement.h"

namespace ornivane {

namespace {

std::string Quoted(const std::string& name) {
    std::string quoted = "\"";
    for (const char c : name) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + "\"";
}

FieldType TypeOf(std::string_view declared) {
    const std::string type = LowerAscii(declared);
    if (type.find("bool") != std::string::npos) return FieldType::Boolean;
    if (type.find("int") != std::string::npos || type == "long") return FieldType::Integer;
    if (type.find("doub") != std::string::npos || type.find("real") != std::string::npos ||
        type.find("floa") != std::string::npos)
        return FieldType::Double;
    return type == "date" ? FieldType::Date : FieldType::Text;
}

// A value that the field's type does not fit is kept as it stands: the row can be read, and using that one
// value is the error.
Value Fitting(const FieldInfo& field, Value value) {
    IgnoreErrors([&] { value = ConvertFor(field, value); });
    return value;
}

std::vector<FieldInfo> FieldsOf(const Statement& statement) {
    std::vector<FieldInfo> fields;
    for (int i = 1; i < statement.ColumnCount(); ++i)
        fields.push_back({statement.ColumnName(i), TypeOf(statement.DeclaredType(i)), 0, true});
    return fields;
}

// Of a statement that has the row's identity as its first column.
Row RowIn(const Statement& statement, const std::vector<FieldInfo>& fields) {
    Row row;
    row.RowId = statement.Integer(0);
    row.Values.reserve(fields.size());
    for (std::size_t i = 0; i < fields.size(); ++i)
        row.Values.push_back(Fitting(fields[i], statement.ColumnValue(static_cast<int>(i) + 1)));
    return row;
}

} // namespace

TableSource::TableSource(Connection& of, const std::string& sql, std::vector<Value> values)
    : connection(&of), parameters(std::move(values)) {
    const std::string lower = LowerAscii(sql);
    const auto from = lower.find(" from ");
    if (!lower.starts_with("select ") || from == std::string::npos)
        throw RuntimeError(ErrorNumber::StoreError, sql);
    columns = sql.substr(7, from - 7);
    const auto start = lower.find_first_not_of(' ', from + 6);
    if (start == std::string::npos) throw RuntimeError(ErrorNumber::StoreError, sql);
    table = sql.substr(start, lower.find_first_of(" \r\n;", start) - start);
    query = "SELECT rowid, " + columns + sql.substr(from);
}

TableSource::Result TableSource::Load() const {
    Statement statement(*connection, query, parameters);
    Result result;
    result.Fields = FieldsOf(statement);
    while (statement.Step()) result.Rows.push_back(RowIn(statement, result.Fields));
    return result;
}

Row TableSource::Reread(const std::vector<FieldInfo>& fields, std::int64_t rowId) const {
    Statement statement(*connection, "SELECT rowid, " + columns + " FROM " + table + " WHERE rowid = ?");
    statement.Bind(1, rowId);
    if (!statement.Step()) throw RuntimeError(ErrorNumber::NoCurrentRecord, "the row was deleted");
    return RowIn(statement, fields);
}

Row TableSource::Insert(const std::vector<FieldInfo>& fields, const Assigned& assigned) const {
    std::string names, places;
    std::vector<Value> values;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (!assigned[i]) continue;
        names += (names.empty() ? "" : ", ") + Quoted(fields[i].Name);
        places += places.empty() ? "?" : ", ?";
        values.push_back(*assigned[i]);
    }
    if (values.empty())
        connection->Execute("INSERT INTO " + table + " DEFAULT VALUES");
    else
        connection->Execute("INSERT INTO " + table + " (" + names + ") VALUES (" + places + ")", values);
    return Reread(fields, connection->LastRowId());
}

Row TableSource::Update(const std::vector<FieldInfo>& fields, std::int64_t rowId,
                        const Assigned& assigned) const {
    std::string sets;
    std::vector<Value> values;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (!assigned[i]) continue;
        sets += (sets.empty() ? "" : ", ") + Quoted(fields[i].Name) + " = ?";
        values.push_back(*assigned[i]);
    }
    if (!values.empty()) {
        values.emplace_back(rowId);
        connection->Execute("UPDATE " + table + " SET " + sets + " WHERE rowid = ?", values);
    }
    return Reread(fields, rowId);
}

void TableSource::Delete(std::int64_t rowId) const {
    connection->Execute("DELETE FROM " + table + " WHERE rowid = ?", {rowId});
}

} // namespace ornivane
