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

ResampleAxis::ResampleAxis(double targetStart, double targetLength, int targetPixels, double sourceStart,
                           double sourceLength, int sourcePixels, double sourceExtent) {
    const double step = sourceLength / targetLength;
    const double pictureStart = targetStart - sourceStart / step;
    const double pictureEnd = targetStart + (sourceExtent - sourceStart) / step;
    Begin = FirstMiddleFrom(std::max(targetStart, pictureStart), targetPixels);
    End = FirstMiddleFrom(std::min(targetStart + targetLength, pictureEnd), targetPixels);
    if (IsEmpty()) return;

    const double width = std::max(1.0, step);
    Taps = std::min(static_cast<int>(std::ceil(width)) + 1, sourcePixels);
    First.reserve(End - Begin);
    Weights.reserve(static_cast<std::size_t>(End - Begin) * Taps);
    for (int target = Begin; target < End; ++target) {
        const double middle = sourceStart + (target + 0.5 - targetStart) * step;
        AddTarget(middle - width / 2, width, sourcePixels);
    }
}

void ResampleAxis::AddTarget(double from, double width, int sourcePixels) {
    const int firstCovered = static_cast<int>(std::floor(from));
    const int lastCovered = static_cast<int>(std::ceil(from + width)) - 1;
    const int first = std::clamp(firstCovered, 0, sourcePixels - Taps);
    First.push_back(first);
    const std::size_t base = Weights.size();
    Weights.resize(base + Taps, 0);
    // Rounding the running total keeps the sum at exactly 256. Beyond the border the border pixel stands in.
    int given = 0;
    for (int pixel = firstCovered; pixel <= lastCovered; ++pixel) {
        const double covered = std::clamp((pixel + 1 - from) / width, 0.0, 1.0);
        const int total = pixel == lastCovered ? 256 : static_cast<int>(std::lround(covered * 256));
        const int slot = std::clamp(pixel - first, 0, Taps - 1);
        Weights[base + slot] = static_cast<std::uint16_t>(Weights[base + slot] + total - given);
        given = total;
    }
}

} // namespace ornivane
