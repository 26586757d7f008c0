#pragma once

#include <array>
#include <string>

#include "common/Variablen.h"
#include "planning/PlanAirspace.h"

namespace ornivane {

// The dialog that chooses which airspace the planning map shows. It has no state that outlives it: it reads
// and writes tLRHoehe and tPR of the map.
class LuftraumSettings {
public:
    // Feet, offered in cmbHoehe.
    static constexpr std::array<int, 15> Heights{1000, 2000, 3000, 4000, 5000, 5500, 6000, 6500,
                                                 7000, 7500, 8000, 8500, 9000, 9500, 10000};

    LuftraumSettings(const Variablen& shared, PlanAirspace& airspace);

    void Form_Load();
    void Option1_Click(); // all airspaces
    void Option2_Click(); // none
    void Option3_Click(); // those at the height in cmbHoehe
    // Takes what is chosen. A height that is no number or negative switches airspace off, without a message.
    void cmdExit_Click();

    bool Option1 = false, Option2 = false, Option3 = false;
    std::string cmbHoehe; // as typed
    bool chkPL = false;
    std::string lblLR; // the date of the store

private:
    const Variablen& shared;
    PlanAirspace& airspace;
};

} // namespace ornivane
