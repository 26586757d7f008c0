#include "platform/qt/FittedButton.h"

#include <QFontInfo>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace ornivane {

constexpr int SmallestSize = 9, Margin = 3; // pixels

void FittedButton::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const QString caption = text().replace("&&", "&").trimmed();
    option.text.clear();
    painter.drawControl(QStyle::CE_PushButton, option);
    const QRect place = rect().adjusted(Margin, Margin, -Margin, -Margin);
    QFont fitted = font();
    int flags = Qt::AlignCenter | Qt::TextWordWrap;
    const auto fits = [&] {
        return place.contains(QFontMetrics(fitted).boundingRect(place, flags, caption));
    };
    for (int size = QFontInfo(fitted).pixelSize(); size > SmallestSize && !fits();)
        fitted.setPixelSize(--size);
    if (!fits()) flags = Qt::AlignCenter | Qt::TextWrapAnywhere;
    painter.setFont(fitted);
    painter.setPen(palette().color(isEnabled() ? QPalette::ButtonText : QPalette::Mid));
    painter.drawText(place, flags, caption);
}

} // namespace ornivane
