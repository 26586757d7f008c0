#include "platform/qt/ReadoutLabel.h"

#include <QGridLayout>
#include <QLabel>
#include <QMouseEvent>

namespace ornivane {

namespace {

QLabel* Part(const char* role, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setProperty("role", role);
    label->setTextFormat(Qt::PlainText);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    return label;
}

int ValueSize(ReadoutLabel::Size size) { // pixels
    return size == ReadoutLabel::Size::Large ? 34 : size == ReadoutLabel::Size::Medium ? 18 : 17;
}

} // namespace

ReadoutLabel::ReadoutLabel(const char* valueName, const char* unitName, Size size, QWidget* parent)
    : QFrame(parent), caption(Part("caption", this)), value(Part("value", this)), unit(Part("unit", this)) {
    setProperty("role", "readout");
    value->setObjectName(valueName);
    unit->setObjectName(unitName);
    value->setStyleSheet(QString("font-size: %1px; font-family: 'DejaVu Sans';").arg(ValueSize(size)));
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    // A long value is cut rather than that it widens the panel and moves everything beside it.
    value->setMinimumWidth(10);
    value->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(8, 2, 8, 2);
    grid->setHorizontalSpacing(5);
    grid->setVerticalSpacing(0);
    if (size == Size::Small) {
        grid->addWidget(caption, 0, 0);
        grid->addWidget(value, 0, 1);
        unit->hide();
    } else {
        grid->addWidget(caption, 0, 0, 1, 2);
        grid->addWidget(value, 1, 0);
        grid->addWidget(unit, 1, 1, Qt::AlignBottom);
    }
    grid->setColumnStretch(size == Size::Small ? 1 : 0, 1);
}

void ReadoutLabel::SetCaption(const QString& text) { caption->setText(text); }

void ReadoutLabel::Show(const QString& valueText, const QString& unitText) {
    if (value->text() != valueText) value->setText(valueText);
    if (unit->text() != unitText) unit->setText(unitText);
}

void ReadoutLabel::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) emit Clicked();
}

} // namespace ornivane
