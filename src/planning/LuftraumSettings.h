#pragma once

#include <array>
#include <optional>
#include <string>

#include "base/Language.h"
#include "common/OpenStores.h"
#include "common/Settings.h"
#include "planning/AirspaceChoice.h"

namespace ornivane {

// The dialog that chooses which airspace the planning map shows. It has no state that outlives it: it reads
// and writes tLRHoehe and tPR of the map.
class LuftraumSettings {
public:
    // Feet, offered in cmbHoehe.
    static constexpr std::array<int, 15> Heights{1000, 2000, 3000, 4000, 5000, 5500, 6000, 6500,
                                                 7000, 7500, 8000, 8500, 9000, 9500, 10000};

    LuftraumSettings(const Language& texts, const OpenStores& openStores, const Settings& ofProgram,
                     AirspaceChoice& choice);

    void Form_Load();
    // Takes what is chosen. A height that is no number or negative switches airspace off, without a message.
    void cmdExit_Click();

    std::optional<AirspaceChoice::Which> Chosen; // of Option1 to Option3; none with a height below 0
    std::string cmbHoehe;                        // as typed
    bool chkPL = false;
    std::string lblLR; // the date of the store

private:
    const Language& language;
    const OpenStores& stores;
    const Settings& settings;
    AirspaceChoice& airspace;
};

} // namespace ornivane
