#pragma once

#include <QObject>
#include <QTableView>

#include "platform/qt/RecordsetModel.h"

namespace ornivane {

// Binds a grid to a recordset: the grid follows the current row, and the current row follows the grid.
class GridBinding : public QObject {
    Q_OBJECT

public:
    GridBinding(RecordsetModel& of, QTableView& view);

    // The current row shows as selected; no row does without one.
    void SelectRow();
    void ClearRowSelection();

signals:
    // The user chose another row in the grid, and the recordset stands on it.
    void RowChosen();

private:
    void FollowRecordset();
    void FollowGrid(const QModelIndex& current);

    RecordsetModel& model;
    QTableView& grid;
    bool following = false;
};

} // namespace ornivane
