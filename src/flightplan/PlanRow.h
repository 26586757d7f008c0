#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/LocaleText.h"
#include "store/Recordset.h"

namespace ornivane {

// Characters of the field that shows direction and speed of the wind.
constexpr std::size_t WindSize = 10;

// One row of a flight plan: a route point with the leg that leads to it. The members are the fields of the
// plan file under their names there. Row 1 is the place of departure: its leg is zeros, its sums are empty.
struct PlanRow {
    std::string Id; // of the waypoint, by which a saved plan knows its rows again
    int Nr = 1;
    std::string Name;
    double TC = 0;      // true course, whole degrees
    double Distanz = 0; // nautical miles, 2 decimals
    std::optional<double> DistanzAcc;
    double TAS = 0; // knots
    std::string Wind = "0 / 0";
    double Windrichtung = 0; // degrees true, from
    double Windstärke = 0;   // knots
    double GS = 0;           // knots
    double Zeit = 0;         // minutes, 2 decimals
    std::string ZeitDisplay = "00:00";
    std::string ZeitAcc;
    double FFh = 0; // fuel per hour
    double FFm = 0; // fuel of the leg, 1 decimal
    std::optional<double> FFmAcc;
    double MH = 0;                   // magnetic heading, neither rounded nor brought into 0..360
    double VAR = 0;                  // east positive
    std::optional<double> LAT, LONG; // DegMinValue
    bool operator==(const PlanRow&) const = default;
};

// Makes a closed recordset a plan with these rows, standing on the first.
void FillPlan(Recordset& plan, const std::vector<PlanRow>& rows);

// The rows of a plan. RuntimeError FieldNotFound, InvalidNull, TypeMismatch when it is none.
std::vector<PlanRow> PlanRows(const Recordset& plan);

// Writes back what a calculation changes, row by row; the current row stays.
void UpdatePlan(Recordset& plan, const std::vector<PlanRow>& rows);

} // namespace ornivane
