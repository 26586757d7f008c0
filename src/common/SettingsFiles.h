#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>

#include "common/Date.h"

namespace ornivane {

// The .crm files beside the program: one reader and one writer for each. A reader changes only the values
// that it could read, in order, up to the first damage, and returns whether it read all. A missing file is
// normal. Writers replace the whole file, old or new and never half; RuntimeError when that fails.

// data.crm: the receiver's port and line speed. A port that is no number of 1 to 32,767 or a line speed that
// is no number counts as unreadable.
struct ComSettings {
    std::string Port = "1";
    std::string Baud = "4800";
    bool operator==(const ComSettings&) const = default;
};
std::optional<ComSettings> ReadComSettings(const std::filesystem::path& folder);
void WriteComSettings(const std::filesystem::path& folder, const ComSettings& settings);

// VOR.crm: the instrument. An unknown mode is read as the heading indicator.
enum class DialMode { Heading, Vor, Hsi };
struct InstrumentSettings {
    std::string Vor;
    DialMode Mode = DialMode::Heading;
    std::string Course;
    bool operator==(const InstrumentSettings&) const = default;
};
bool ReadInstrumentSettings(const std::filesystem::path& folder, InstrumentSettings& settings);
void WriteInstrumentSettings(const std::filesystem::path& folder, const InstrumentSettings& settings);

// track.crm: the track logger. The file holds 1 or 0 for the booleans; anything but 1 is off.
struct TrackSettings {
    bool On = false;
    int Seconds = 0;
    bool Automatic = false;
    bool operator==(const TrackSettings&) const = default;
};
bool ReadTrackSettings(const std::filesystem::path& folder, TrackSettings& settings);
void WriteTrackSettings(const std::filesystem::path& folder, const TrackSettings& settings);

// lang.crm: 1 English, 0 German. symbol.crm: 1 or 2.
std::optional<int> ReadLanguage(const std::filesystem::path& folder);
void WriteLanguage(const std::filesystem::path& folder, int language);
std::optional<int> ReadSymbol(const std::filesystem::path& folder);
void WriteSymbol(const std::filesystem::path& folder, int symbol);

// LR.crm: the QNH in hPa and the day on which it was entered; 1899-12-30 when none ever was.
struct QnhSettings {
    int Qnh = 0;
    std::optional<Date> Entered;
    bool operator==(const QnhSettings&) const = default;
};
bool ReadQnhSettings(const std::filesystem::path& folder, QnhSettings& settings);
void WriteQnhSettings(const std::filesystem::path& folder, const QnhSettings& settings);

// kartendaten.crm: the last map and route. The route is left out where only a map is known.
struct LastChoice {
    std::optional<std::string> Map;
    std::optional<std::string> Route;
    bool operator==(const LastChoice&) const = default;
};
LastChoice ReadLastChoice(const std::filesystem::path& folder);
void WriteLastChoice(const std::filesystem::path& folder, const LastChoice& choice);

// planung.crm: the height of the planning map's airspace view.
std::optional<std::string> ReadPlanningHeight(const std::filesystem::path& folder);
void WritePlanningHeight(const std::filesystem::path& folder, const std::string& height);

// fplan.crm: tVAR, tFF, tSpeed, tWinddir, tWindspeed as entered. The reader returns those up to the damage.
std::array<std::optional<std::string>, 5> ReadFlightPlanEntries(const std::filesystem::path& folder);
void WriteFlightPlanEntries(const std::filesystem::path& folder, const std::array<std::string, 5>& entries);

// version.crm: for the update tool.
void WriteVersion(const std::filesystem::path& folder, const std::string& version);

} // namespace ornivane
