#include "platform/qt/GridBinding.h"

#include <QHeaderView>
#include <QItemSelectionModel>

#include "base/Flagged.h"
#include "base/RuntimeError.h"

namespace ornivane {

GridBinding::GridBinding(RecordsetModel& of, QTableView& view) : model(of), grid(view) {
    grid.setModel(&model);
    grid.setSelectionBehavior(QAbstractItemView::SelectRows);
    grid.setSelectionMode(QAbstractItemView::SingleSelection);
    grid.setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid.setTabKeyNavigation(false); // Tab leaves the list
    grid.setWordWrap(false);         // a long number would break behind its point
    grid.verticalHeader()->hide();
    connect(&model, &RecordsetModel::CurrentMoved, this, &GridBinding::FollowRecordset);
    connect(&model, &QAbstractItemModel::modelReset, this, &GridBinding::FollowRecordset);
    connect(grid.selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) { FollowGrid(current); });
    FollowRecordset(); // which may be open already
}

void GridBinding::FollowRecordset() {
    if (following) return;
    const Flagged now(following);
    const Recordset& rows = model.Rows();
    const int row = rows.IsOpen() && !rows.Eof() && !rows.Bof() ? rows.AbsolutePosition() - 1 : -1;
    grid.selectionModel()->setCurrentIndex(model.index(row, 0), QItemSelectionModel::NoUpdate);
    if (row >= 0) grid.scrollTo(model.index(row, 0));
}

void GridBinding::FollowGrid(const QModelIndex& current) {
    if (following || !current.isValid()) return;
    const auto move = [&] {
        const Flagged now(following);
        model.Rows().SetAbsolutePosition(current.row() + 1);
    };
    RestoreOnError(move,
                   [this] { FollowRecordset(); }); // the row was not left: its change could not be written
    emit RowChosen();
}

void GridBinding::SelectRow() {
    const QModelIndex current = grid.selectionModel()->currentIndex();
    if (current.isValid())
        grid.selectionModel()->select(current,
                                      QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    else
        ClearRowSelection();
}

void GridBinding::ClearRowSelection() { grid.selectionModel()->clearSelection(); }

} // namespace ornivane
