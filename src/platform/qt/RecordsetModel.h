#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <vector>

#include "store/Recordset.h"

namespace ornivane {

// A recordset as a display list: its rows in their order, nothing can be edited.
class RecordsetModel : public QAbstractTableModel, private RecordsetObserver {
    Q_OBJECT

public:
    struct Column {
        std::string Field;
        std::function<QString()> Header;             // asked anew at each HeadersChanged
        std::function<QString(const Value&)> Format; // left out: the value's text, empty for Null
    };

    // The recordset must outlive the model; it may be closed and reopened.
    RecordsetModel(Recordset& recordset, std::vector<Column> shown);
    ~RecordsetModel() override;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    void HeadersChanged();
    Recordset& Rows() { return rows; }

signals:
    // The recordset stands on another row, or on none.
    void CurrentMoved();

private:
    void RowsReset() override;
    void RowInserted(int row) override;
    void RowRemoved(int) override { RowsReset(); }
    void RowChanged(int row) override { emit dataChanged(index(row, 0), index(row, columnCount() - 1)); }
    void CurrentRowChanged() override { emit CurrentMoved(); }

    Recordset& rows;
    std::vector<Column> columns;
};

} // namespace ornivane
