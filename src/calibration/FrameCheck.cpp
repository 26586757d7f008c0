#include "calibration/FrameCheck.h"

#include <cmath>

#include "base/Format.h"

namespace ornivane {

// Charts of conformal projections and those drawn for their middle latitude stay below; a minute mistyped on
// a chart of one degree does not.
constexpr double SuspiciousPercent = 3;
constexpr double FarthestPixel = 1e7; // metres; no frame on the earth has larger ones

std::string FrameCheck(const ChartPlacement& placement, const Language& language) {
    if (placement.Frame().Breite <= 0 || placement.Frame().Höhe <= 0) return {};
    const auto pixel = placement.GroundOfPixel();
    if (!pixel)
        return language.Text(
            "Der Rahmen steht verkehrt: Oben muss über Unten liegen, Rechts östlich von Links.",
            "The frame is the wrong way round: upper must lie above lower, right east of left.");
    const auto [across, down] = *pixel;
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
