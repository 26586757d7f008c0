#include "platform/qt/FittedRuns.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QRegularExpression>
#include <algorithm>

namespace ornivane {

namespace {

constexpr double SmallestDecimals = 0.3; // of the size of the whole part

double Advance(const QString& text, const QFont& font) { return QFontMetricsF(font).horizontalAdvance(text); }

QFont Sized(QFont font, int pixels) {
    font.setPixelSize(pixels);
    return font;
}

} // namespace

int FittedPixelSize(const QString& text, const QFont& font, double width) {
    const int largest = QFontInfo(font).pixelSize();
    const double advance = Advance(text, font);
    if (advance <= width) return largest;
    int pixels = std::max(1, static_cast<int>(largest * std::max(width, 0.0) / advance) + 1);
    while (pixels > 1 && Advance(text, Sized(font, pixels)) > width) --pixels;
    return pixels;
}

std::vector<FittedRun> FitInWidth(const QString& text, const QFont& font, double width) {
    if (Advance(text, font) <= width) return {{text, font, 0}};
    static const QRegularExpression number(R"(^(-?\d+[.,])(\d+)$)");
    if (const auto match = number.match(text); match.hasMatch()) {
        const QString whole = match.captured(1), decimals = match.captured(2);
        const double left = Advance(whole, font);
        const int pixels = FittedPixelSize(decimals, font, width - left);
        if (pixels >= SmallestDecimals * QFontInfo(font).pixelSize())
            return {{whole, font, 0}, {decimals, Sized(font, pixels), left}};
    }
    return {{text, Sized(font, FittedPixelSize(text, font, width)), 0}};
}

} // namespace ornivane
