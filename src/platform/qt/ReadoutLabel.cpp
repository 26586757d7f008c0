#include "platform/qt/ReadoutLabel.h"

#include <QGridLayout>
#include <QLabel>

#include "platform/qt/Clicked.h"
#include "platform/qt/FittedText.h"

namespace ornivane {

namespace {

QLabel* Part(const char* role, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setProperty("role", role);
    label->setTextFormat(Qt::PlainText);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    return label;
}

// Pixels.
int FontSize(ReadoutLabel::Size size) {
    switch (size) {
    case ReadoutLabel::Size::Large:
        return 34;
    case ReadoutLabel::Size::Wide:
        return 26;
    case ReadoutLabel::Size::Medium:
        break;
    }
    return 18;
}

} // namespace

ReadoutLabel::ReadoutLabel(const Names& names, Size size, QWidget* parent)
    : QFrame(parent), caption(Part("caption", this)), unit(Part("unit", this)) {
    setProperty("role", "readout");
    value = new FittedText(FontSize(size), this);
    value->setAttribute(Qt::WA_TransparentForMouseEvents);
    value->setObjectName(names.Value);
    unit->setObjectName(names.Unit);
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(6, 2, 6, 2);
    grid->setHorizontalSpacing(size == Size::Medium ? 0 : 4);
    grid->setVerticalSpacing(0);
    grid->addWidget(caption, 0, 0, 1, 2);
    grid->addWidget(value, 1, 0);
    grid->addWidget(unit, 1, 1, Qt::AlignBottom);
    grid->setColumnStretch(0, 1);
}

void ReadoutLabel::SetCaption(const QString& text) { caption->setText(text); }

void ReadoutLabel::Show(const QString& valueText, const QString& unitText) {
    if (value->text() != valueText) value->setText(valueText);
    if (unit->text() != unitText) unit->setText(unitText);
}

void ReadoutLabel::Show(const Readout& readout, const LocaleText& locale) {
    Show(QString::fromStdString(readout.Text(locale)), QString::fromStdString(readout.Unit()));
}

void ReadoutLabel::mouseReleaseEvent(QMouseEvent* event) {
    if (IsClick(*this, *event)) emit Clicked();
}

} // namespace ornivane
