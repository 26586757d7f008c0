#include "nav/WindCalculator.h"

#include <algorithm>
#include <cmath>

#include "base/Format.h"
#include "base/Numbers.h"
#include "geo/NavigationMaths.h"

namespace ornivane {

namespace {

constexpr const char* WholeAirspeed = "000";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Three places, those without a digit shown as "-".
std::string Filled(std::string digits) {
    digits.resize(std::max<std::size_t>(digits.size(), 3), '-');
    return digits;
}

// The side of the drift decides: the wind comes from behind the heading where the track lies to its left. All
// in degrees.
double WindDirection(double heading, double drift, double angle, bool tailwind) {
    if (drift < 0) return heading + angle > 360 ? heading + angle - 360 : heading + angle;
    const double direction = drift > 0 ? heading - angle : tailwind ? heading - 180 : heading;
    const bool isTurned = drift > 0 || tailwind;
    return isTurned && direction <= 0 ? direction + 360 : direction;
}

} // namespace

WindCalculator::WindCalculator(const FlightState& flightState, const LocaleText& localeText,
                               PictureSurface& surface)
    : state(flightState), locale(localeText), picWind(surface) {}

bool WindCalculator::IsComplete() const { return lblIAS.size() == 3 && IsDigit(lblIAS[2]); }

void WindCalculator::KeyUp(int keyCode) {
    if (IsComplete()) {
        lblHeading = lblIAS = NoValue;
        lblIASToolTip.clear();
    }
    std::string& field = lblHeading.size() == 3 && IsDigit(lblHeading[2]) ? lblIAS : lblHeading;
    std::string digits = field.substr(0, field.find('-'));
    if (keyCode == Backspace && !digits.empty()) digits.pop_back();
    if (keyCode >= '0' && keyCode <= '9') digits += static_cast<char>(keyCode);
    field = Filled(digits);
    const auto heading = ParseNumber(lblHeading.substr(0, lblHeading.find('-')));
    lblHeadingColour = heading && *heading > 360 ? WrongHeading : PlainHeading;
    if (!IsComplete()) return;
    airspeed = NumberIn(lblIAS);
    UpdateWind();
}

WindCalculator::TrueAirspeed WindCalculator::TasAt(double altitudeFeet) const {
    const double percent = altitudeFeet / (altitudeFeet > 30000 ? 500 : 600);
    const double ias = NumberAsShown(airspeed, WholeAirspeed);
    return {ias + ias * percent / 100, ias + ias * (percent + 2) / 100, ias + ias * (percent - 2) / 100};
}

std::string WindCalculator::TasText(const TrueAirspeed& tas) const {
    const auto shown = [&](double value) { return "TAS " + Format(value, "###", locale); };
    return shown(tas.Colder) + " (ISA-10)  |  " + shown(tas.Isa) + " (ISA)  |  " + shown(tas.Warmer) +
           " (ISA+10)";
}

void WindCalculator::UpdateTAS(double altitudeFeet) {
    // While an entry is under way there is no airspeed to compute with.
    lblIASToolTip = IsComplete() ? " " + TasText(TasAt(altitudeFeet)) + " " : std::string();
}

void WindCalculator::SpeedUnitChanged() {
    const double factor = state.SpeedInKnots ? 1 / KilometresPerNauticalMile : KilometresPerNauticalMile;
    windSpeed *= factor;
    if (windSpeed != 0) ShowWind();
    if (!IsComplete()) return;
    airspeed *= factor;
    lblIAS = Format(airspeed, WholeAirspeed, locale);
    if (lblIAS.size() > 3) lblIAS = NoValue;
    if (!lblIASToolTip.empty()) UpdateTAS(state.ShownFeet());
}

void WindCalculator::ShowWind() {
    lblWind = windSpeed == 0
                  ? "--- / ---"
                  : Format(windDirection, "00#", locale) + " / " + Format(windSpeed, "##0", locale);
}

void WindCalculator::UpdateWind() {
    if (!state.lblSpeed.HasNumber() || !state.lblBearing.HasNumber()) return;
    const TrueAirspeed values = TasAt(state.ShownFeet());
    lblIASToolTip = TasText(values);

    const double tas = values.Isa;
    const double groundSpeed = state.lblSpeed.Number();
    const double heading = NumberIn(lblHeading), track = state.lblBearing.Number();
    double drift = track - heading;
    // Only this wrap is made; beyond +300 the cosine is the same and the side follows the sign.
    if (drift < -300) drift += 360;
    const double wind = std::sqrt(std::max(0.0, groundSpeed * groundSpeed + tas * tas -
                                                    2 * tas * groundSpeed * std::cos(DegToRad(drift))));
    double angle = 0;
    if (wind != 0 && tas != 0)
        angle = RadToDeg(Arccos((wind * wind + tas * tas - groundSpeed * groundSpeed) / (2 * tas * wind)));
    const double direction = WindDirection(heading, drift, angle, groundSpeed > tas);
    windDirection = direction;
    windSpeed = direction == 0 ? 0 : wind;
    ShowWind();
    if (windSpeed == 0) return;
    arrow = direction - heading;
    RedrawArrow();
}

void WindCalculator::RedrawArrow() {
    picWind.Cls();
    if (arrow) DrawArrow(*arrow);
    picWind.Refresh();
}

// Seen from above with the nose up, on a scale of 100 by 100: the shaft comes from the side of the wind, the
// barbs are at the centre.
void WindCalculator::DrawArrow(double relativeDegrees) {
    picWind.SetDrawWidth(5);
    const auto line = [&](double reach, double degrees) {
        const double angle = DegToRad(degrees);
        picWind.Line(50 + reach * std::cos(angle), 50 + reach * std::sin(angle), 50, 50, ArrowColour);
    };
    line(50, relativeDegrees - 90);
    line(20, relativeDegrees - 45);
    line(-20, relativeDegrees + 45);
}

} // namespace ornivane
