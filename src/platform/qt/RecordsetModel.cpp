#include "platform/qt/RecordsetModel.h"

namespace ornivane {

RecordsetModel::RecordsetModel(Recordset& recordset, std::vector<Column> shown)
    : rows(recordset), columns(std::move(shown)) {
    rows.AddObserver(this);
}

RecordsetModel::~RecordsetModel() { rows.RemoveObserver(this); }

int RecordsetModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || !rows.IsOpen() ? 0 : rows.RecordCount();
}

int RecordsetModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns.size());
}

QVariant RecordsetModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
    const Column& column = columns[static_cast<std::size_t>(index.column())];
    const Value value = rows.ValueAt(index.row(), column.Field);
    if (column.Format) return column.Format(value);
    return value.IsNull() ? QString() : QString::fromStdString(value.Text());
}

QVariant RecordsetModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section >= columnCount()) return {};
    return columns[static_cast<std::size_t>(section)].Header();
}

void RecordsetModel::HeadersChanged() {
    if (!columns.empty()) emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

void RecordsetModel::RowsReset() {
    beginResetModel();
    endResetModel();
}

// The recordset tells when it has changed already: the model's two steps come together.
void RecordsetModel::RowInserted(int) { RowsReset(); }

} // namespace ornivane
