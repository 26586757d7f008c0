#include "common/SettingsFiles.h"

#include "base/AtomicFile.h"
#include "base/Numbers.h"
#include "common/SettingsText.h"

namespace ornivane {

namespace {

using std::filesystem::path;

// An absent or unreadable file reads like an empty one: every value is missing.
SettingsReader Reader(const path& folder, const char* name) {
    return SettingsReader(ReadWholeFile(folder / name).value_or(""));
}

void Write(const path& folder, const char* name, const SettingsWriter& writer) {
    WriteFileAtomically(folder / name, writer.Bytes());
}

// The day number 0 of the calendar in which older installations count days.
constexpr Date NeverEntered{1899, 12, 30};

template <typename Target, typename Source>
bool Take(Target& target, const std::optional<Source>& value) {
    if (value) target = *value;
    return value.has_value();
}

const char* const DialModes[] = {"Kurs", "VOR", "HSI"}; // in the order of DialMode

} // namespace

std::optional<ComSettings> ReadComSettings(const path& folder) {
    SettingsReader reader = Reader(folder, "data.crm");
    ComSettings settings;
    if (!Take(settings.Port, reader.Text()) || !Take(settings.Baud, reader.Text())) return std::nullopt;
    // The digits alone: who edits the file writes " 9600" or "9600.0", and no port is set by that.
    const auto takeNumberUpTo = [](std::string& text, double most) {
        const auto number = ParsePlainNumber(text);
        if (!number || *number < 1 || *number > most || Int(*number) != *number) return false;
        text = std::to_string(static_cast<int>(*number));
        return true;
    };
    if (!takeNumberUpTo(settings.Port, 32767) || !takeNumberUpTo(settings.Baud, 4e6)) return std::nullopt;
    return settings;
}

void WriteComSettings(const path& folder, const ComSettings& settings) {
    Write(folder, "data.crm", SettingsWriter().Text(settings.Port).Text(settings.Baud));
}

bool ReadInstrumentSettings(const path& folder, InstrumentSettings& settings) {
    SettingsReader reader = Reader(folder, "VOR.crm");
    std::string mode;
    if (!Take(settings.Vor, reader.Text()) || !Take(mode, reader.Text())) return false;
    settings.Mode = mode == DialModes[1]   ? DialMode::Vor
                    : mode == DialModes[2] ? DialMode::Hsi
                                           : DialMode::Heading;
    return Take(settings.Course, reader.Text());
}

void WriteInstrumentSettings(const path& folder, const InstrumentSettings& settings) {
    const char* const mode = DialModes[static_cast<std::size_t>(settings.Mode)];
    Write(folder, "VOR.crm", SettingsWriter().Text(settings.Vor).Text(mode).Text(settings.Course));
}

bool ReadTrackSettings(const path& folder, TrackSettings& settings) {
    SettingsReader reader = Reader(folder, "track.crm");
    const auto on = reader.WholeNumber();
    if (on) settings.On = *on == 1;
    Take(settings.Seconds, reader.WholeNumber());
    const auto automatic = reader.WholeNumber();
    if (automatic) settings.Automatic = *automatic == 1;
    return automatic.has_value();
}

void WriteTrackSettings(const path& folder, const TrackSettings& settings) {
    Write(folder, "track.crm",
          SettingsWriter()
              .WholeNumber(settings.On ? 1 : 0)
              .WholeNumber(settings.Seconds)
              .WholeNumber(settings.Automatic ? 1 : 0));
}

std::optional<int> ReadLanguage(const path& folder) { return Reader(folder, "lang.crm").WholeNumber(); }
void WriteLanguage(const path& folder, int language) {
    Write(folder, "lang.crm", SettingsWriter().WholeNumber(language));
}
std::optional<int> ReadSymbol(const path& folder) { return Reader(folder, "symbol.crm").WholeNumber(); }
void WriteSymbol(const path& folder, int symbol) {
    Write(folder, "symbol.crm", SettingsWriter().WholeNumber(symbol));
}

bool ReadQnhSettings(const path& folder, QnhSettings& settings) {
    SettingsReader reader = Reader(folder, "LR.crm");
    return Take(settings.Qnh, reader.WholeNumber()) && Take(settings.Entered, reader.DateValue());
}

void WriteQnhSettings(const path& folder, const QnhSettings& settings) {
    Write(folder, "LR.crm",
          SettingsWriter().WholeNumber(settings.Qnh).DateValue(settings.Entered.value_or(NeverEntered)));
}

LastChoice ReadLastChoice(const path& folder) {
    SettingsReader reader = Reader(folder, "kartendaten.crm");
    LastChoice choice;
    choice.Map = reader.Text();
    choice.Route = reader.Text();
    return choice;
}

void WriteLastChoice(const path& folder, const LastChoice& choice) {
    SettingsWriter writer;
    if (choice.Map) writer.Text(*choice.Map);
    if (choice.Map && choice.Route) writer.Text(*choice.Route);
    Write(folder, "kartendaten.crm", writer);
}

std::optional<std::string> ReadPlanningHeight(const path& folder) {
    return Reader(folder, "planung.crm").Text();
}
void WritePlanningHeight(const path& folder, const std::string& height) {
    Write(folder, "planung.crm", SettingsWriter().Text(height));
}

std::array<std::optional<std::string>, 5> ReadFlightPlanEntries(const path& folder) {
    SettingsReader reader = Reader(folder, "fplan.crm");
    std::array<std::optional<std::string>, 5> entries;
    for (auto& entry : entries) entry = reader.Text();
    return entries;
}

void WriteFlightPlanEntries(const path& folder, const std::array<std::string, 5>& entries) {
    SettingsWriter writer;
    for (const auto& entry : entries) writer.Text(entry);
    Write(folder, "fplan.crm", writer);
}

void WriteVersion(const path& folder, const std::string& version) {
    Write(folder, "version.crm", SettingsWriter().Text(version));
}

} // namespace ornivane
