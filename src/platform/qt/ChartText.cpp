#include "platform/qt/ChartText.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <cmath>

namespace ornivane {

namespace {

constexpr int LatinLetters = 0x250;
// A hostile text of endless different letters must not fill the memory.
constexpr std::size_t MostOthers = 4096;

// One character of UTF-8, and the place behind it. Damaged bytes give U+FFFD each.
char32_t NextCode(std::string_view text, std::size_t& at) {
    const auto byte = [&](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
    };
    const unsigned first = byte(at++);
    if (first < 0x80) return first;
    const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC2 ? 1 : 0;
    if (more == 0 || first > 0xF4) return 0xFFFD;
    char32_t code = first & (0x3FU >> more);
    for (int i = 0; i < more; ++i) {
        if ((byte(at + i) & 0xC0U) != 0x80U) return 0xFFFD;
        code = code << 6 | (byte(at + i) & 0x3FU);
    }
    at += more;
    return code;
}

// Three quarters white, one quarter chart.
void LayPlate(const PixelBlock& target, const QRect& plate) {
    const QRect inside = plate & QRect(0, 0, target.Width, target.Height);
    for (int row = inside.top(); row <= inside.bottom(); ++row) {
        std::uint32_t* pixels = target.Row(row);
        for (int i = inside.left(); i <= inside.right(); ++i)
            pixels[i] = 0xFFC0C0C0U + ((pixels[i] >> 2) & 0x3F3F3FU);
    }
}

} // namespace

ChartText::ChartText(double devicePixelRatio)
    : font("DejaVu Sans"), lineHeight(static_cast<int>(std::lround(LineHeight * devicePixelRatio))),
      latin(LatinLetters), latinKnown(LatinLetters) {
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(static_cast<int>(std::lround(14 * devicePixelRatio)));
    font.setHintingPreference(QFont::PreferFullHinting); // whole advances, letters the same everywhere
    font.setStyleStrategy(
        static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
}

ChartText::Letter ChartText::Render(char32_t code) const {
    const QString text = QString::fromUcs4(&code, 1);
    const QFontMetricsF metrics(font);
    Letter letter;
    letter.Advance = static_cast<int>(std::lround(metrics.horizontalAdvance(text)));
    const int margin = lineHeight / 4;
    QImage image(letter.Advance + 2 * margin, lineHeight, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setFont(font);
    painter.setPen(Qt::black);
    const double slack = lineHeight - metrics.ascent() - metrics.descent();
    painter.drawText(QPointF(margin, std::round(slack / 2 + metrics.ascent())), text);
    painter.end();
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (const int coverage = qAlpha(image.pixel(x, y)))
                letter.Ink.push_back({static_cast<std::int16_t>(x - margin), static_cast<std::int16_t>(y),
                                      static_cast<std::uint8_t>(coverage)});
    return letter;
}

const ChartText::Letter& ChartText::LetterOf(char32_t code) {
    if (code < LatinLetters) {
        if (!latinKnown[code]) latin[code] = Render(code);
        latinKnown[code] = true;
        return latin[code];
    }
    if (others.size() >= MostOthers) others.clear();
    const auto [place, isNew] = others.try_emplace(code);
    if (isNew) place->second = Render(code);
    return place->second;
}

int ChartText::WidthOf(std::string_view text) {
    int width = 0;
    for (std::size_t at = 0; at < text.size();) {
        const char32_t code = NextCode(text, at);
        if (code >= 0x20) width += LetterOf(code).Advance;
    }
    return width;
}

void ChartText::Draw(const PixelBlock& target, int x, int y, std::string_view text, std::uint32_t colour) {
    if (x >= target.Width || y >= target.Height || y + lineHeight <= 0) return;
    const int width = WidthOf(text);
    if (x + width <= 0) return;
    LayPlate(target, {x, y, width, lineHeight});
    for (std::size_t at = 0; at < text.size() && x < target.Width;) {
        const char32_t code = NextCode(text, at);
        if (code < 0x20) continue;
        const Letter& letter = LetterOf(code);
        DrawLetter(target, x, y, letter, colour);
        x += letter.Advance;
    }
}

void ChartText::DrawLetter(const PixelBlock& target, int x, int y, const Letter& letter,
                           std::uint32_t colour) const {
    const int reach = lineHeight; // no letter is inked farther than this beside its place
    const bool inside =
        x >= reach && y >= 0 && x + letter.Advance + reach < target.Width && y + lineHeight <= target.Height;
    for (const Inked& ink : letter.Ink) {
        const int column = x + ink.X, row = y + ink.Y;
        if (!inside && (column < 0 || row < 0 || column >= target.Width || row >= target.Height)) continue;
        std::uint32_t& pixel = target.Row(row)[column];
        pixel = Blend(pixel, {colour, ink.Coverage});
    }
}

} // namespace ornivane
