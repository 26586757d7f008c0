#include "platform/qt/CircleStamp.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace ornivane {

namespace {

// How much of a pixel at this distance from the middle lies in a disc.
double CoverageOfDisc(double radius, double distance) {
    if (radius <= 0) return 0;
    const double area = std::numbers::pi * radius * radius;
    return std::min(std::clamp(radius - distance + 0.5, 0.0, 1.0), area);
}

} // namespace

CircleStamp::CircleStamp(double radius, double penWidth) {
    const double width = std::max(penWidth, 1.0);
    const double outer = std::max(radius, 0.0) + width / 2;
    const double inner = radius - width / 2;
    reach = static_cast<int>(std::ceil(outer));
    for (int y = -reach; y <= reach; ++y) {
        bool running = false;
        for (int x = -reach; x <= reach; ++x) {
            const double distance = std::hypot(x, y);
            const auto coverage = static_cast<std::uint32_t>(
                std::lround(255 * (CoverageOfDisc(outer, distance) - CoverageOfDisc(inner, distance))));
            if (coverage == 255) {
                if (!running) runs.push_back({x, y, 0});
                ++runs.back().Length;
            } else if (coverage > 0) {
                edges.push_back({x, y, coverage});
            }
            running = coverage == 255;
        }
    }
}

void CircleStamp::Draw(const PixelBlock& target, int x, int y, std::uint32_t colour) const {
    if (x + reach < 0 || y + reach < 0 || x - reach >= target.Width || y - reach >= target.Height) return;
    const bool inside = x >= reach && y >= reach && x + reach < target.Width && y + reach < target.Height;
    inside ? DrawInside(target, {x, y}, colour) : DrawClipped(target, {x, y}, colour);
}

void CircleStamp::DrawInside(const PixelBlock& target, PixelPlace middle, std::uint32_t colour) const {
    std::uint32_t* pixels = target.Row(middle.Y) + middle.X;
    for (const Run& run : runs) std::fill_n(pixels + run.Y * target.Stride + run.X, run.Length, colour);
    for (const Edge& edge : edges) {
        std::uint32_t& pixel = pixels[edge.Y * target.Stride + edge.X];
        pixel = Blend(pixel, {colour, edge.Coverage});
    }
}

void CircleStamp::DrawClipped(const PixelBlock& target, PixelPlace middle, std::uint32_t colour) const {
    for (const Run& run : runs) {
        if (middle.Y + run.Y < 0 || middle.Y + run.Y >= target.Height) continue;
        const int from = std::max(middle.X + run.X, 0);
        const int to = std::min(middle.X + run.X + run.Length, target.Width);
        if (from < to)
            std::fill(target.Row(middle.Y + run.Y) + from, target.Row(middle.Y + run.Y) + to, colour);
    }
    for (const Edge& edge : edges) {
        const int column = middle.X + edge.X, row = middle.Y + edge.Y;
        if (column < 0 || row < 0 || column >= target.Width || row >= target.Height) continue;
        std::uint32_t& pixel = target.Row(row)[column];
        pixel = Blend(pixel, {colour, edge.Coverage});
    }
}

} // namespace ornivane
