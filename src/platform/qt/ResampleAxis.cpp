#include "platform/qt/ResampleAxis.h"

#include <algorithm>
#include <cmath>

namespace ornivane {

namespace {

// The first whole pixel whose middle is not before x.
int FirstMiddleFrom(double x, int limit) {
    return static_cast<int>(std::clamp(std::ceil(x - 0.5), 0.0, static_cast<double>(limit)));
}

} // namespace

ResampleAxis::ResampleAxis(const Stretch& target, const Stretch& source, double pictureLength) {
    const double step = source.Length / target.Length;
    const double pictureStart = target.Start - source.Start / step;
    const double pictureEnd = target.Start + (pictureLength - source.Start) / step;
    Begin = FirstMiddleFrom(std::max(target.Start, pictureStart), target.Pixels);
    End = FirstMiddleFrom(std::min(target.Start + target.Length, pictureEnd), target.Pixels);
    if (IsEmpty()) return;

    const double width = std::max(1.0, step);
    Taps = std::min(static_cast<int>(std::ceil(width)) + 1, source.Pixels);
    First.reserve(End - Begin);
    Weights.reserve(static_cast<std::size_t>(End - Begin) * Taps);
    for (int pixel = Begin; pixel < End; ++pixel) {
        const double middle = source.Start + (pixel + 0.5 - target.Start) * step;
        AddTarget({middle - width / 2, width, source.Pixels});
    }
}

void ResampleAxis::AddTarget(const Stretch& covered) {
    const int firstCovered = static_cast<int>(std::floor(covered.Start));
    const int lastCovered = static_cast<int>(std::ceil(covered.Start + covered.Length)) - 1;
    const int first = std::clamp(firstCovered, 0, covered.Pixels - Taps);
    First.push_back(first);
    const std::size_t base = Weights.size();
    Weights.resize(base + Taps, 0);
    // Rounding the running total keeps the sum at exactly 256. Beyond the border the border pixel stands in.
    int given = 0;
    for (int pixel = firstCovered; pixel <= lastCovered; ++pixel) {
        const double part = std::clamp((pixel + 1 - covered.Start) / covered.Length, 0.0, 1.0);
        const int total = pixel == lastCovered ? 256 : static_cast<int>(std::lround(part * 256));
        const int slot = std::clamp(pixel - first, 0, Taps - 1);
        Weights[base + slot] = static_cast<std::uint16_t>(Weights[base + slot] + total - given);
        given = total;
    }
}

} // namespace ornivane
