#include "calibration/FrameCheck.h"

#include <cmath>

#include "base/Format.h"
#include "geo/NavigationMaths.h"
#include "geo/Position.h"

namespace ornivane {

namespace {

constexpr double MetresPerDegree = 60 * 1000 * KilometresPerNauticalMile;
// Charts of conformal projections and those drawn for their middle latitude stay below; a minute mistyped on
// a chart of one degree does not.
constexpr double SuspiciousPercent = 3;
constexpr double FarthestPixel = 1e7; // metres; no frame on the earth has larger ones

} // namespace

std::string FrameCheck(const FrameEdges& edges, const ImageSize& size, const Language& language) {
    if (size.Width <= 0 || size.Height <= 0) return {};
    const double bottom = ToDecimalDegrees(StoredLatitude(edges[0])).Degrees();
    const double top = ToDecimalDegrees(StoredLatitude(edges[1])).Degrees();
    const double left = ToDecimalDegrees(StoredLongitude(edges[2])).Degrees();
    const double right = ToDecimalDegrees(StoredLongitude(edges[3])).Degrees();
    if (top <= bottom || right <= left)
        return language.Text(
            "Der Rahmen steht verkehrt: Oben muss über Unten liegen, Rechts östlich von Links.",
            "The frame is the wrong way round: upper must lie above lower, right east of left.");
    const double across =
        (right - left) * MetresPerDegree * std::cos(DegToRad((top + bottom) / 2)) / size.Width;
    const double down = (top - bottom) * MetresPerDegree / size.Height;
    const double differ = 200 * std::abs(across - down) / (across + down);
    if (!std::isfinite(across) || !std::isfinite(down) || across > FarthestPixel || down > FarthestPixel)
        return {};
    const auto number = [&language](double value) { return Format(value, "0.0", language.Locale); };
    std::string text = language.Text("Ein Bildpunkt: %1 m breit, %2 m hoch. Unterschied %3\u00a0%.",
                                     "One pixel: %1 m across, %2 m down. They differ by %3\u00a0%.",
                                     {number(across), number(down), number(differ)});
    if (differ > SuspiciousPercent)
        text += language.Text(" Bitte die Koordinaten prüfen.", " Please check the coordinates.");
    return text;
}

} // namespace ornivane
