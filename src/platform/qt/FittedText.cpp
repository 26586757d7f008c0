#include "platform/qt/FittedText.h"

#include <QPainter>

namespace ornivane {

constexpr int SmallestSize = 8; // pixels

FittedText::FittedText(int pixelSize, QWidget* parent) : QLabel(parent), largest(pixelSize) {
    setTextFormat(Qt::PlainText);
    // It takes the width that there is and never asks for more: nothing beside it moves.
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

QFont FittedText::FontOf(int pixels) const {
    QFont font("DejaVu Sans");
    font.setPixelSize(pixels);
    font.setBold(true);
    return font;
}

void FittedText::SetLargest(int pixelSize) {
    if (pixelSize == largest) return;
    largest = pixelSize;
    updateGeometry();
    update();
}

void FittedText::paintEvent(QPaintEvent*) {
    QFont font = FontOf(largest);
    while (font.pixelSize() > SmallestSize && QFontMetrics(font).horizontalAdvance(text()) > width())
        font.setPixelSize(font.pixelSize() - 1);
    QPainter painter(this);
    painter.setFont(font);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect(), static_cast<int>(alignment()), text());
}

} // namespace ornivane
