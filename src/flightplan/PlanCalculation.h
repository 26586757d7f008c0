#pragma once

#include <cstdint>
#include <string>

#include "base/LocaleText.h"
#include "flightplan/PlanRow.h"

namespace ornivane {

// Dead reckoning by the 1-in-60 rule: the wind correction is cross wind x 60 / TAS degrees, the ground speed
// TAS plus tail wind. It is what can be checked by hand in the air, and what kept plans were made with.

// Running sums over the legs.
struct PlanSums {
    double Distance = 0; // nautical miles
    double Fuel = 0;
    double Minutes = 0;    // as shown, whole minutes
    std::int16_t Wind = 0; // tail wind x minutes, rounded at every leg
};

// "hh:mm" of minutes. A minute value of 60 is not carried: 59.6 minutes are 00:60, and count as 60.
struct ClockTime {
    double Hours = 0, Minutes = 0; // whole numbers
    std::string Text;
};
ClockTime TimeOf(double minutes);

// "270 / 15", with the decimals of both.
std::string WindText(const LegInputs& inputs, const LocaleText& locale);

struct LegFlown {
    double Distance = 0;    // nautical miles
    double FuelPerHour = 0; // in the unit of the entry
};

// Ground speed, heading, time, fuel and sums of a leg, from the row's own course, wind, TAS and variation.
// RuntimeError DivisionByZero or Overflow for a ground speed or TAS of 0, Overflow when the weighted wind
// leaves 16 bits or the wind's text its field.
void CompleteLeg(PlanRow& row, const LegFlown& leg, PlanSums& sums, const LocaleText& locale);

// The tail wind of the flight, weighted by time; negative is a head wind. RuntimeError Overflow or
// DivisionByZero for a plan of no minutes.
std::int16_t AverageWind(const PlanSums& sums);
// "TWC 12 kts", "HWC 1 kt".
std::string WindInfo(std::int16_t average);

} // namespace ornivane
