#include "platform/qt/LampButton.h"

#include <QPainter>
#include <QStyleOptionToolButton>
#include <QStylePainter>

namespace ornivane {

constexpr int LeastSize = 44; // pixels: for gloves
constexpr int IconSize = 28;

LampButton::LampButton(QWidget* parent) : QToolButton(parent) {
    setCheckable(true);
    setMinimumSize(LeastSize, LeastSize);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void LampButton::SetIcon(const QString& file) {
    picture = QIcon(file);
    update();
}

void LampButton::SetLit(bool on) {
    lit = on;
    setChecked(on);
}

void LampButton::SetStage(Dots toShow) {
    dots = toShow;
    update();
}

QSize LampButton::sizeHint() const {
    const int textWidth = text().isEmpty() ? 0 : fontMetrics().horizontalAdvance(text()) + 10;
    return {IconSize + textWidth + 24, LeastSize};
}

QPixmap LampButton::Tinted(const QColor& colour, int size) const {
    QPixmap pixmap = picture.pixmap(QSize(size, size), devicePixelRatioF());
    if (pixmap.isNull()) return pixmap;
    QPainter painter(&pixmap);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), colour);
    return pixmap;
}

void LampButton::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    option.text.clear();
    option.icon = QIcon();
    painter.drawComplexControl(QStyle::CC_ToolButton, option);
    const QColor ink = !isEnabled() ? palette().color(QPalette::Mid)
                       : lit        ? palette().color(QPalette::HighlightedText)
                                    : palette().color(QPalette::ButtonText);
    const QPixmap pixmap = Tinted(ink, IconSize);
    const int textWidth = text().isEmpty() ? 0 : fontMetrics().horizontalAdvance(text()) + 8;
    const int left = (width() - IconSize - textWidth) / 2;
    if (!pixmap.isNull())
        painter.drawPixmap(QRect(left, (height() - IconSize) / 2, IconSize, IconSize), pixmap);
    painter.setPen(ink);
    if (textWidth > 0)
        painter.drawText(QRect(left + IconSize + 6, 0, textWidth + 4, height()), Qt::AlignVCenter, text());
    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 0; i < dots.All; ++i) {
        painter.setBrush(i < dots.Filled ? QBrush(ink) : QBrush(Qt::NoBrush));
        painter.drawEllipse(QPointF(width() - 26.0 + 12 * i, height() - 10.0), 3.5, 3.5);
    }
    if (lit) { // the lamp
        painter.setBrush(lamp);
        painter.drawEllipse(QPointF(width() - 11.0, 11.0), 4.5, 4.5);
    }
}

} // namespace ornivane
