#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "geo/Position.h"
#include "store/Recordset.h"

namespace ornivane {

// What a leg is planned with: an entry field of the screen and a column of the grid each, in this order.
enum class PlanEntry { tVAR, tFF, tSpeed, tWinddir, tWindspeed };
constexpr std::size_t PlanEntryCount = 5;

struct LegInputs {
    double VAR = 0;          // degrees, east positive
    double FFh = 0;          // fuel per hour
    double TAS = 0;          // knots
    double Windrichtung = 0; // degrees true, from
    double Windstärke = 0;   // knots
    bool operator==(const LegInputs&) const = default;

    double& operator[](PlanEntry entry);
    static const char* FieldOf(PlanEntry entry); // its name in the plan file
};

// Characters of the field that shows direction and speed of the wind.
constexpr std::size_t WindSize = 10;

// One row of a flight plan: a route point with the leg that leads to it. The members are the fields of the
// plan file under their names there. Row 1 is the place of departure: its leg is zeros, its sums are empty.
struct PlanRow : LegInputs {
    std::string Id; // of the waypoint, by which a saved plan knows its rows again
    int Nr = 1;
    std::string Name;
    double TC = 0;      // true course, whole degrees
    double Distanz = 0; // nautical miles, 2 decimals
    std::optional<double> DistanzAcc;
    std::string Wind = "0 / 0";
    double GS = 0;   // knots
    double Zeit = 0; // minutes, 2 decimals
    std::string ZeitDisplay = "00:00";
    std::optional<std::string> ZeitAcc;
    double FFm = 0; // fuel of the leg, 1 decimal
    std::optional<double> FFmAcc;
    double MH = 0; // magnetic heading, neither rounded nor brought into 0..360
    std::optional<StoredLatitude> LAT;
    std::optional<StoredLongitude> LONG;
    bool operator==(const PlanRow&) const = default;
};

// Makes a closed recordset a plan with these rows, standing on the first.
void FillPlan(Recordset& plan, const std::vector<PlanRow>& rows);

// The rows of a plan. RuntimeError FieldNotFound, InvalidNull, TypeMismatch when it is none.
std::vector<PlanRow> PlanRows(const Recordset& plan);

// Writes rows back after a calculation, each in its place; the current row stays.
void UpdatePlan(Recordset& plan, const std::vector<PlanRow>& rows);

} // namespace ornivane
