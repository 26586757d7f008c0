#pragma once

#include <cstdint>
#include <vector>

namespace ornivane {

// For one axis of a stretch: which source pixels each target pixel is mixed of, and how.
//
// A target pixel is the average over the stretch of source that it covers, at least one source pixel wide.
// So nothing thin falls between two target pixels when the picture is reduced, and when it is enlarged the
// same rule is linear interpolation. Positions count from the border of a pixel, not from its middle, as in
// all drawing.
struct ResampleAxis {
    // Target: where the rectangle begins and how long it is, and how many pixels there are. Source: likewise;
    // sourceExtent is how far the picture reaches, in pixels, the last of which may be part of one.
    // All lengths must be finite and above 0.
    ResampleAxis(double targetStart, double targetLength, int targetPixels, double sourceStart,
                 double sourceLength, int sourcePixels, double sourceExtent);

    int Begin = 0, End = 0;             // target pixels that the source reaches
    int Taps = 0;                       // source pixels for each target pixel
    std::vector<int> First;             // the first of them, from Begin on
    std::vector<std::uint16_t> Weights; // Taps for each target pixel, together 256

    bool IsEmpty() const { return Begin >= End; }
    const std::uint16_t* WeightsOf(int target) const { return Weights.data() + (target - Begin) * Taps; }
    int FirstOf(int target) const { return First[target - Begin]; }

private:
    void AddTarget(double from, double width, int sourcePixels);
};

} // namespace ornivane
