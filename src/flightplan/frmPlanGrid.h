#pragma once

#include <QStyledItemDelegate>
#include <QTableView>
#include <functional>

#include "platform/qt/RecordsetModel.h"

namespace ornivane {

// The plan as a table whose cells can be edited, as far as the plan allows.
class PlanModel : public RecordsetModel {
    Q_OBJECT

public:
    struct Editing {
        std::function<bool(const QModelIndex& cell)> IsEditable;
        // False when the text was refused; the user has been told.
        std::function<bool(const QModelIndex& cell, const std::string& text)> Edit;
        // Of a column's head and cells; empty where the grid's own shows.
        std::function<QString(int column)> ToolTip;
    };

    PlanModel(Recordset& plan, std::vector<Column> shown, Editing how);

    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
    Editing editing;
};

// Edits as in a spreadsheet: typing begins, Tab goes on to the next cell that can be edited, Enter to the one
// below, Escape takes back what was typed. A refused text stays in its cell, which keeps the focus.
class frmPlanGrid : public QTableView {
    Q_OBJECT

public:
    explicit frmPlanGrid(QWidget* parent = nullptr);

    // Takes what stands in the open cell, as if it had been left.
    void EndEdit();

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void commitData(QWidget* editor) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QModelIndex NextEditable(int step) const;
    void EditAgain(const QModelIndex& index, const QString& text);

    bool refused = false;
};

// Cells whose numbers are never cut, and fields for them whose Enter key goes down.
class PlanDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
};

} // namespace ornivane
