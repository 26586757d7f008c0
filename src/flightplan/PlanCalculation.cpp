#include "flightplan/PlanCalculation.h"

#include <cmath>
#include <cstdlib>

#include "base/Format.h"
#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "geo/NavigationMaths.h"

namespace ornivane {

ClockTime TimeOf(double minutes) {
    const double hours = minutes / 60;
    ClockTime time;
    time.Hours = Int(hours);
    time.Minutes = Round((hours - time.Hours) * 60, 0);
    time.Text = Format(time.Hours, "0#", {}) + ":" + Format(time.Minutes, "0#", {});
    return time;
}

std::string WindText(const LegInputs& inputs, const LocaleText& locale) {
    return NumberText(inputs.Windrichtung, locale) + " / " + NumberText(inputs.Windstärke, locale);
}

void CompleteLeg(PlanRow& row, const LegFlown& leg, PlanSums& sums, const LocaleText& locale) {
    row.Wind = WindText(row, locale);
    if (row.Wind.size() > WindSize)
        throw RuntimeError(ErrorNumber::Overflow, row.Name + ": Wind " + row.Wind);
    const double angle = DegToRad(row.Windrichtung - row.TC);
    const double cross = Round(std::sin(angle) * row.Windstärke, 2);
    const double tail = -Round(std::cos(angle) * row.Windstärke, 2);
    const double correction = CheckedDivide(cross * 60, row.TAS);
    row.GS = row.TAS + tail;
    row.MH = row.TC + correction - row.VAR;

    const double minutes = CheckedDivide(leg.Distance * 60, row.GS);
    row.Zeit = Round(minutes, 2);
    const ClockTime time = TimeOf(minutes);
    row.ZeitDisplay = time.Text;
    sums.Minutes += time.Hours * 60 + time.Minutes;
    row.FFm = Round(leg.FuelPerHour / 60 * minutes, 1);
    sums.Fuel += row.FFm;
    row.FFmAcc = Round(sums.Fuel, 1);
    sums.Wind = ToInt16(minutes * tail + sums.Wind);
    row.ZeitAcc = TimeOf(sums.Minutes).Text;
}

std::int16_t AverageWind(const PlanSums& sums) { return ToInt16(CheckedDivide(sums.Wind, sums.Minutes)); }

std::string WindInfo(std::int16_t average) {
    const int speed = std::abs(average);
    return (average >= 0 ? "TWC " : "HWC ") + std::to_string(speed) + (speed == 1 ? " kt" : " kts");
}

} // namespace ornivane
