#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "base/LocaleText.h"
#include "common/Date.h"
#include "common/Event.h"
#include "store/Connection.h"

namespace ornivane {

inline constexpr std::int16_t StandardPressure = 1013; // hPa: what an unset QNH stands for

// The state that screens share: one of it for a running program, made by main and handed to whoever needs it.
struct Variablen {
    std::filesystem::path ProgramFolder; // the portable folder: program, stores, charts, settings files
    LocaleText Locale;

    Connection DataConn;
    Connection TrackConn;
    Connection LuftraumConn;
    Connection AirfieldConn;
    bool AirfieldStoreOpen = false;
    // The catalogue of charts is another one: a row or a tick of the table Maps has changed.
    Event ChartsChanged;

    std::int16_t EnglishUI = 0;  // 1 English, 0 German
    std::int16_t SymbolType = 0; // 1 arrow, any other value the aeroplane
    bool TrackEnabled = false;
    int TrackInterval = 0; // milliseconds
    bool TrackAuto = false;
    bool TrackWasRunning = false;
    std::optional<Date> LuftraumDate;
    std::int16_t QNH = 0; // hPa
    std::optional<Date> QNHDate;
    // The QNH as it stands in the settings screen: what holds on a day for which none was entered.
    std::string tQNH = "1013";
    bool UpdateAvailable = false;

    // The text in the language in use at this moment.
    const char* Text(const char* german, const char* english) const {
        return EnglishUI == 1 ? english : german;
    }
};

} // namespace ornivane
