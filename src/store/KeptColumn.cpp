#include "store/KeptColumn.h"

#include "store/Connection.h"
#include "store/Statement.h"

namespace ornivane {

KeptColumn::KeptColumn(Connection& of, Place at, const std::string& where,
                       const std::vector<Value>& parameters)
    : connection(&of), place(std::move(at)) {
    Statement select(of,
                     "SELECT rowid, " + place.Column + " FROM " + place.Table + " WHERE " + where +
                         " ORDER BY " + place.Column + " ASC",
                     parameters);
    while (select.Step()) cells.push_back({select.Integer(0), select.ColumnValue(1)});
}

void KeptColumn::Leave(std::int64_t rowId) {
    std::erase_if(cells, [rowId](const Cell& cell) { return cell.RowId == rowId; });
}

void KeptColumn::PutBackOver(const Value& present) const {
    Write(" AND " + place.Column + " = ?", {present});
}

void KeptColumn::Write(const std::string& condition, const std::vector<Value>& present) const {
    Statement update(*connection,
                     "UPDATE " + place.Table + " SET " + place.Column + " = ? WHERE rowid = ?" + condition);
    for (const Cell& cell : cells) {
        const StatementRun run(update);
        update.Bind(1, cell.Content);
        update.Bind(2, cell.RowId);
        if (!present.empty()) update.Bind(3, present.front());
        update.Step();
    }
}

} // namespace ornivane
