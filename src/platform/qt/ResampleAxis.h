#pragma once

#include <cstddef>
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
    // Where the rectangle begins and how long it is, in pixels, and how many there are.
    struct Stretch {
        double Start, Length;
        int Pixels;
    };

    // `pictureLength` is how far the source's picture reaches, in pixels, the last of which may be part of
    // one. All lengths must be finite and above 0.
    ResampleAxis(const Stretch& target, const Stretch& source, double pictureLength);

    int Begin = 0, End = 0;             // target pixels that the source reaches
    int Taps = 0;                       // source pixels for each target pixel
    std::vector<int> First;             // the first of them, from Begin on
    std::vector<std::uint16_t> Weights; // Taps for each target pixel, together 256

    bool IsEmpty() const { return Begin >= End; }
    const std::uint16_t* WeightsOf(int target) const {
        return Weights.data() + static_cast<std::ptrdiff_t>(target - Begin) * Taps;
    }
    int FirstOf(int target) const { return First[target - Begin]; }

private:
    void AddTarget(const Stretch& covered);
};

} // namespace ornivane
