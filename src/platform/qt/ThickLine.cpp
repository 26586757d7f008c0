#include "platform/qt/ThickLine.h"

#include <algorithm>
#include <cmath>

namespace ornivane {

namespace {

// What a row of pixels has of a shape.
struct Interval {
    double From = 0, To = -1; // empty when From > To
    bool IsEmpty() const { return From > To; }
};

// All points within a distance of a segment. Convex, so every row meets it in one interval.
struct Capsule {
    double X1, Y1, X2, Y2;                 // Y1 <= Y2
    double DirectionX, DirectionY, Length; // unit vector from the first point to the second

    double DistanceTo(double x, double y) const {
        const double along = std::clamp((x - X1) * DirectionX + (y - Y1) * DirectionY, 0.0, Length);
        return std::hypot(x - X1 - along * DirectionX, y - Y1 - along * DirectionY);
    }

    Interval RowOf(double y, double radius) const {
        Interval row;
        const auto add = [&](double from, double to) {
            if (row.IsEmpty())
                row = {from, to};
            else
                row = {std::min(row.From, from), std::max(row.To, to)};
        };
        const auto addEnd = [&](double centreX, double centreY) {
            const double square = radius * radius - (y - centreY) * (y - centreY);
            if (square >= 0) add(centreX - std::sqrt(square), centreX + std::sqrt(square));
        };
        addEnd(X1, Y1);
        addEnd(X2, Y2);
        if (DirectionY * Length < 1e-9) { // level: the body lies between the ends
            return row;
        }
        // The two long sides, each as far as it reaches up and down.
        for (const double side : {radius, -radius}) {
            const double fromY = Y1 + side * DirectionX, toY = Y2 + side * DirectionX;
            if (y < fromY || y > toY) continue;
            const double x = X1 - side * DirectionY + (y - fromY) * DirectionX / DirectionY;
            add(x, x);
        }
        return row;
    }
};

} // namespace

void DrawThickLine(const PixelBlock& target, const LineEnds& ends, double width, std::uint32_t colour) {
    const auto [x1, y1, x2, y2] = ends.Y1 > ends.Y2 ? LineEnds{ends.X2, ends.Y2, ends.X1, ends.Y1} : ends;
    const double length = std::hypot(x2 - x1, y2 - y1);
    const Capsule line{
        x1, y1, x2, y2, length > 0 ? (x2 - x1) / length : 1, length > 0 ? (y2 - y1) / length : 0, length};
    const double outer = width / 2 + 0.5, inner = width / 2 - 0.5;
    const auto within = [](double at, int limit) {
        return static_cast<int>(std::clamp(at, 0.0, static_cast<double>(limit)));
    };
    const int bottom = within(std::ceil(y2 + outer), target.Height);
    for (int row = within(std::floor(y1 - outer), target.Height); row < bottom; ++row) {
        const double y = row + 0.5;
        const Interval reach = line.RowOf(y, outer);
        if (reach.IsEmpty()) continue;
        const int begin = within(std::ceil(reach.From - 0.5), target.Width);
        const int end = within(std::floor(reach.To - 0.5) + 1, target.Width);
        const Interval solid = inner > 0 ? line.RowOf(y, inner) : Interval();
        const int solidBegin =
            solid.IsEmpty() ? end : std::clamp(within(std::ceil(solid.From - 0.5), target.Width), begin, end);
        const int solidEnd =
            solid.IsEmpty()
                ? end
                : std::clamp(within(std::floor(solid.To - 0.5) + 1, target.Width), solidBegin, end);
        std::uint32_t* pixels = target.Row(row);
        const auto blend = [&](int from, int to) {
            for (int column = from; column < to; ++column) {
                const double coverage = outer - line.DistanceTo(column + 0.5, y);
                if (coverage > 0)
                    pixels[column] = Blend(
                        pixels[column],
                        {colour, static_cast<std::uint32_t>(std::lround(std::min(coverage, 1.0) * 255))});
            }
        };
        blend(begin, solidBegin);
        std::fill(pixels + solidBegin, pixels + solidEnd, colour);
        blend(solidEnd, end);
    }
}

} // namespace ornivane
