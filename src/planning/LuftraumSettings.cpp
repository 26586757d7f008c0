#include "planning/LuftraumSettings.h"

#include "base/Format.h"
#include "base/Numbers.h"

namespace ornivane {

namespace {

std::string DateOfStore(const Variablen& shared) {
    if (!shared.LuftraumConn.IsOpen() || !shared.LuftraumDate)
        return shared.Text("Keine Luftraumdaten", "No airspace data");
    const Date& date = *shared.LuftraumDate;
    const auto part = [&](int value, const char* picture) { return Format(value, picture, shared.Locale); };
    return shared.Text("Luftraumdaten vom ", "Airspace data of ") + part(date.Day, "00") + "." +
           part(date.Month, "00") + "." + part(date.Year, "0000");
}

} // namespace

LuftraumSettings::LuftraumSettings(const Variablen& variablen, PlanAirspace& planAirspace)
    : shared(variablen), airspace(planAirspace) {}

void LuftraumSettings::Form_Load() {
    cmbHoehe = std::to_string(Heights.front());
    const double height = ParseNumber(airspace.tLRHoehe).value_or(PlanAirspace::None);
    if (height >= 0) {
        Option3_Click();
        cmbHoehe = airspace.tLRHoehe;
    }
    if (height == PlanAirspace::All) Option1_Click();
    if (height == PlanAirspace::None) Option2_Click();
    chkPL = ParseNumber(airspace.tPR) == 1.0;
    lblLR = DateOfStore(shared);
}

void LuftraumSettings::Option1_Click() {
    Option1 = true;
    Option2 = Option3 = false;
}

void LuftraumSettings::Option2_Click() {
    Option2 = true;
    Option1 = Option3 = false;
}

void LuftraumSettings::Option3_Click() {
    Option3 = true;
    Option1 = Option2 = false;
}

void LuftraumSettings::cmdExit_Click() {
    if (Option1) airspace.tLRHoehe = NumberText(PlanAirspace::All);
    if (Option2) airspace.tLRHoehe = NumberText(PlanAirspace::None);
    if (Option3) {
        const bool isHeight = ParseNumber(cmbHoehe).value_or(-1) >= 0;
        airspace.tLRHoehe = isHeight ? cmbHoehe : NumberText(PlanAirspace::None);
    }
    airspace.tPR = chkPL ? "1" : "0";
}

} // namespace ornivane
