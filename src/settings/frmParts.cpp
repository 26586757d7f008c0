#include "settings/frmParts.h"

#include <QItemSelectionModel>
#include <algorithm>

namespace ornivane::parts {

constexpr int PressHeight = 44; // pixels

const char* const SectionStyle = R"(
QGroupBox { margin-top: 11px; padding: 14px 6px 4px 6px; }
QRadioButton, QCheckBox { font-size: 17px; }
QListView { outline: 0; background: palette(base); color: palette(text); border: 2px solid palette(mid); font-size: 17px; }
QListView::item { min-height: 34px; }
QListView::item:focus { border: 2px solid palette(text); }
QListView::item:selected { background: palette(highlight); color: palette(highlighted-text); }
)";

QPushButton* Button(const char* name) {
    auto* button = Named(new QPushButton, name);
    button->setMinimumHeight(PressHeight);
    button->setAutoDefault(false); // Enter belongs to the entry fields
    return button;
}

QComboBox* Combo(const char* name) {
    auto* combo = Named(new QComboBox, name);
    combo->setMinimumHeight(PressHeight);
    return combo;
}

QLabel* Label(const char* name, const QString& text) {
    auto* label = Named(new QLabel(text), name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QListView* ChoiceList(const char* name) {
    auto* list = Named(new QListView, name);
    list->setSelectionMode(QAbstractItemView::MultiSelection);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setUniformItemSizes(true); // tens of thousands of rows
    list->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    return list;
}

std::vector<std::size_t> ChosenRows(const QListView& list) {
    std::vector<std::size_t> rows;
    for (const QItemSelectionRange& range : list.selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(static_cast<std::size_t>(row));
    std::sort(rows.begin(), rows.end());
    return rows;
}

QStringList Texts(const std::vector<std::string>& texts) {
    QStringList items;
    items.reserve(static_cast<qsizetype>(texts.size()));
    for (const std::string& text : texts) items << QString::fromStdString(text);
    return items;
}

} // namespace ornivane::parts
