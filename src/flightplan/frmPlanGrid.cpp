#include "flightplan/frmPlanGrid.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QTimer>

#include "platform/qt/FittedRuns.h"

namespace ornivane {

namespace {

constexpr int NameColumn = 1;
constexpr int LongestLarge = 6; // characters that every column has room for

} // namespace

PlanModel::PlanModel(Recordset& plan, std::vector<Column> shown, Editing how)
    : RecordsetModel(plan, std::move(shown)), editing(std::move(how)) {}

Qt::ItemFlags PlanModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags flags = RecordsetModel::flags(index);
    return index.isValid() && editing.IsEditable(index) ? flags | Qt::ItemIsEditable : flags;
}

QVariant PlanModel::data(const QModelIndex& index, int role) const {
    if (role == Qt::EditRole) return RecordsetModel::data(index, Qt::DisplayRole);
    if (role == Qt::ToolTipRole) {
        if (const QString tip = editing.ToolTip(index.column()); !tip.isEmpty()) return tip;
        // Names may be cut, long numbers are small; over the others the grid's own shows.
        const QVariant text = RecordsetModel::data(index, role);
        return text.toString().size() > LongestLarge ? text : QVariant();
    }
    if (role == Qt::TextAlignmentRole && index.column() != NameColumn)
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    return RecordsetModel::data(index, role);
}

QVariant PlanModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role == Qt::ToolTipRole && orientation == Qt::Horizontal) return editing.ToolTip(section);
    return RecordsetModel::headerData(section, orientation, role);
}

bool PlanModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !index.isValid()) return false;
    return editing.Edit(index, value.toString().toStdString());
}

frmPlanGrid::frmPlanGrid(QWidget* parent) : QTableView(parent) { setItemDelegate(new PlanDelegate(this)); }

void PlanDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const QStyle* style = cell.widget ? cell.widget->style() : QApplication::style();
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, &cell, cell.widget) + 1;
    const QRect place = style->subElementRect(QStyle::SE_ItemViewItemText, &cell, cell.widget)
                            .adjusted(margin, 0, -margin, 0);
    const auto runs = FitInWidth(cell.text, cell.font, place.width());
    if (index.column() == NameColumn || (runs.front().Text == cell.text && runs.front().Font == cell.font))
        return QStyledItemDelegate::paint(painter, option, index);

    cell.text.clear();
    style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);
    const QFontMetricsF metrics(cell.font);
    const double width =
        runs.back().Left + QFontMetricsF(runs.back().Font).horizontalAdvance(runs.back().Text);
    const double baseline = place.center().y() + (metrics.ascent() - metrics.descent()) / 2;
    const bool selected = cell.state & QStyle::State_Selected;
    painter->save();
    painter->setPen(cell.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
    for (const FittedRun& run : runs) {
        painter->setFont(run.Font);
        painter->drawText(QPointF(place.right() + 1 - width + run.Left, baseline), run.Text);
    }
    painter->restore();
}

QWidget* PlanDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const {
    auto* field = new QLineEdit(parent);
    field->setObjectName("cell");
    field->setFrame(false);
    field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    field->setStyleSheet("QLineEdit { font-size: 16px; padding: 0 2px; border-radius: 0; }");
    return field;
}

// The next cell that can be edited, from left to right and on in the next row; backwards with step -1.
QModelIndex frmPlanGrid::NextEditable(int step) const {
    const int columns = model()->columnCount(), cells = columns * model()->rowCount();
    const QModelIndex at = currentIndex();
    for (int cell = at.row() * columns + at.column() + step; cell >= 0 && cell < cells; cell += step) {
        const QModelIndex index = model()->index(cell / columns, cell % columns);
        if (index.flags() & Qt::ItemIsEditable) return index;
    }
    return at;
}

QModelIndex frmPlanGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    if (action == MoveNext) return NextEditable(1);
    if (action == MovePrevious) return NextEditable(-1);
    return QTableView::moveCursor(action, modifiers);
}

void frmPlanGrid::commitData(QWidget* editor) {
    auto* field = qobject_cast<QLineEdit*>(editor);
    const QModelIndex index = indexAt(editor->pos() + QPoint(2, 2));
    if (!field || !index.isValid()) return QTableView::commitData(editor);
    const QString text = field->text();
    // A cell left as it was is no edit: it would only be rounded.
    refused = text != index.data(Qt::EditRole).toString() && !model()->setData(index, text, Qt::EditRole);
    if (refused) EditAgain(index, text);
}

void frmPlanGrid::EditAgain(const QModelIndex& index, const QString& text) {
    constexpr int aMoment = 50;                                          // milliseconds
    const bool boxStands = QApplication::activeModalWidget() != nullptr; // it says why, and has the keys
    QTimer::singleShot(boxStands ? aMoment : 0, this, [this, place = QPersistentModelIndex(index), text] {
        if (!place.isValid() || !isVisible()) return;
        if (QApplication::activeModalWidget()) return EditAgain(place, text);
        setCurrentIndex(place);
        edit(place);
        if (auto* field = qobject_cast<QLineEdit*>(indexWidget(place))) {
            field->setText(text);
            field->selectAll();
        }
    });
}

void frmPlanGrid::EndEdit() {
    QWidget* editor = state() == EditingState ? indexWidget(currentIndex()) : nullptr;
    if (!editor) return;
    commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
}

void frmPlanGrid::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    using enum QAbstractItemDelegate::EndEditHint;
    if (refused) {
        refused = false;
        return QTableView::closeEditor(editor, NoHint);
    }
    QTableView::closeEditor(editor, hint);
    // Only Enter ends an edit with this hint.
    if (hint != SubmitModelCache) return;
    const QModelIndex below = currentIndex().siblingAtRow(currentIndex().row() + 1);
    if (below.isValid()) setCurrentIndex(below);
}

// Enter on a cell opens it, as F2 does.
void frmPlanGrid::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && state() != EditingState && (currentIndex().flags() & Qt::ItemIsEditable))
        return edit(currentIndex());
    QTableView::keyPressEvent(event);
}

} // namespace ornivane
