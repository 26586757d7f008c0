#include "platform/qt/FillCombo.h"

#include <QComboBox>

namespace ornivane {

void FillCombo(QComboBox& combo, const std::vector<std::string>& names, const std::string& current) {
    QStringList texts;
    for (const std::string& name : names) texts << QString::fromStdString(name);
    QStringList shown;
    for (int i = 0; i < combo.count(); ++i) shown << combo.itemText(i);
    if (texts != shown) {
        combo.clear();
        combo.addItems(texts);
    }
    combo.setCurrentIndex(static_cast<int>(texts.indexOf(QString::fromStdString(current))));
}

} // namespace ornivane
