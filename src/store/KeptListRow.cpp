#include "store/KeptListRow.h"

#include <algorithm>

#include "store/Connection.h"
#include "store/Lists.h"

namespace ornivane {

namespace {

using Cells = std::vector<KeptColumn::Cell>;

bool SameRows(const Cells& a, const Cells& b) {
    return std::ranges::equal(a, b, {}, &KeptColumn::Cell::RowId, &KeptColumn::Cell::RowId);
}

Cells::const_iterator FindRow(const Cells& cells, std::int64_t rowId) {
    return std::ranges::find(cells, rowId, &KeptColumn::Cell::RowId);
}

} // namespace

KeptListRow::KeptListRow(Connection& of, std::string inTable, std::string ofList, std::vector<Value> values,
                         std::int64_t rowId)
    : connection(&of), table(std::move(inTable)), where(std::move(ofList)), parameters(std::move(values)),
      row(of, table, "rowid = ?", {rowId}), others(Numbers()) {
    const auto at = FindRow(others.Cells(), rowId);
    if (at != others.Cells().end() && at + 1 != others.Cells().end()) follower = (at + 1)->RowId;
    others.Leave(rowId);
}

std::int64_t KeptListRow::PutBack() const {
    const KeptColumn present = Numbers();
    row.PutBack();
    const std::int64_t rowId = connection->LastRowId();
    if (SameRows(present.Cells(), others.Cells()))
        others.PutBack();
    else
        PutBetween(rowId, present);
    return rowId;
}

void KeptListRow::PutBetween(std::int64_t rowId, const KeptColumn& present) const {
    const Cells& rows = present.Cells();
    const auto before = follower ? FindRow(rows, *follower) : rows.end();
    const double number = before != rows.end() ? before->Content.Number() - 0.5
                          : rows.empty()       ? 1
                                               : rows.back().Content.Number() + 1;
    connection->Execute("UPDATE " + table + " SET Nummer = ? WHERE rowid = ?", {number, rowId});
    Renumber(*connection, "SELECT * From " + table + " WHERE " + where, parameters);
}

} // namespace ornivane
