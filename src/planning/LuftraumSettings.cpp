#include "planning/LuftraumSettings.h"

#include "base/Format.h"
#include "base/Numbers.h"

namespace ornivane {

namespace {

using Which = AirspaceChoice::Which;

std::string DateText(const Date& date, const Language& language) {
    const auto part = [&](int value, const char* picture) { return Format(value, picture, language.Locale); };
    return language.Text("Luftraumdaten vom ", "Airspace data of ") + part(date.Day, "00") + "." +
           part(date.Month, "00") + "." + part(date.Year, "0000");
}

} // namespace

LuftraumSettings::LuftraumSettings(const Language& texts, const OpenStores& openStores,
                                   const Settings& ofProgram, AirspaceChoice& choice)
    : language(texts), stores(openStores), settings(ofProgram), airspace(choice) {}

void LuftraumSettings::Form_Load() {
    Chosen = airspace.Shown();
    if (Chosen == Which::AtHeight && airspace.Height() < 0) Chosen.reset();
    cmbHoehe = Chosen == Which::AtHeight ? airspace.tLRHoehe : std::to_string(Heights.front());
    chkPL = airspace.tPR;
    const bool hasData = stores.LuftraumConn.IsOpen() && settings.LuftraumDate;
    lblLR = hasData ? DateText(*settings.LuftraumDate, language)
                    : language.Text("Keine Luftraumdaten", "No airspace data");
}

void LuftraumSettings::cmdExit_Click() {
    airspace.tPR = chkPL;
    if (!Chosen) return;
    const bool isHeight = *Chosen == Which::AtHeight && ParseNumber(cmbHoehe).value_or(-1) >= 0;
    airspace.tLRHoehe =
        isHeight ? cmbHoehe : NumberText(*Chosen == Which::All ? AirspaceChoice::All : AirspaceChoice::None);
}

} // namespace ornivane
