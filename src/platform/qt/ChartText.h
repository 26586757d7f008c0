#pragma once

#include <QFont>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/qt/PixelBlock.h"

namespace ornivane {

// Texts on a chart: letters on a light plate that lets a quarter of the chart through, so that they can be
// read over forests, towns and contour lines. The blanks that texts begin and end with are the plate's
// margin. Letters are rendered once and then stamped.
class ChartText {
public:
    // Height of a plate: lines of text follow one another at this distance and join.
    static constexpr int LineHeight = 17;

    explicit ChartText(double devicePixelRatio = 1);

    // (x, y) is the top left corner in device pixels.
    void Draw(const PixelBlock& target, int x, int y, std::string_view text, std::uint32_t colour);
    // In device pixels.
    int WidthOf(std::string_view text);

private:
    struct Inked {
        std::int16_t X, Y;
        std::uint8_t Coverage;
    };
    struct Letter {
        int Advance = 0;
        std::vector<Inked> Ink;
    };

    const Letter& LetterOf(char32_t code);
    Letter Render(char32_t code) const;
    void DrawLetter(const PixelBlock& target, int x, int y, const Letter& letter, std::uint32_t colour) const;

    QFont font;
    int lineHeight; // device pixels
    std::vector<Letter> latin;
    std::vector<bool> latinKnown;
    std::unordered_map<char32_t, Letter> others;
};

} // namespace ornivane
