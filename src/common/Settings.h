#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include "common/Date.h"

namespace ornivane {

// What the settings files and the settings screen decide for the whole program.
struct Settings {
    std::filesystem::path ProgramFolder; // the portable folder: program, stores, charts, settings files
    std::int16_t SymbolType = 0;         // 1 arrow, any other value the aeroplane
    bool TrackEnabled = false;
    int TrackInterval = 0; // milliseconds
    bool TrackAuto = false;
    bool TrackWasRunning = false; // when the flying screen was left
    std::optional<Date> LuftraumDate;
    bool UpdateAvailable = false;
};

} // namespace ornivane
