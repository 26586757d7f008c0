#pragma once

#include <QObject>
#include <QTableView>

#include "platform/qt/RecordsetModel.h"

namespace ornivane {

// Binds a grid to a recordset: the grid follows the current row, and the current row follows the grid.
class GridBinding : public QObject {
    Q_OBJECT

public:
    GridBinding(RecordsetModel& model, QTableView& grid);

    // The current row shows as selected, or no row does.
    void SelectRow();
    void ClearRowSelection();

private:
    void FollowRecordset();
    void FollowGrid(const QModelIndex& current);

    RecordsetModel& model;
    QTableView& grid;
    bool following = false;
};

} // namespace ornivane
