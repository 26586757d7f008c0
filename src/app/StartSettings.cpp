#include "app/StartSettings.h"

#include <algorithm>
#include <limits>

#include "common/SettingsFiles.h"

namespace ornivane {

namespace {

// 0 for what no 16-bit number can hold: the file comes from outside and may say anything.
std::int16_t Int16OrZero(int value) {
    const bool fits = value >= std::numeric_limits<std::int16_t>::min() &&
                      value <= std::numeric_limits<std::int16_t>::max();
    return fits ? static_cast<std::int16_t>(value) : std::int16_t{0};
}

// Seconds of the file to the milliseconds of the timer.
int Milliseconds(int seconds) {
    return std::clamp(seconds, 0, std::numeric_limits<int>::max() / 1000) * 1000;
}

} // namespace

void ReadStartSettings(Variablen& variablen) {
    const std::filesystem::path& folder = variablen.ProgramFolder;
    variablen.Choose(ReadLanguage(folder).value_or(0));
    variablen.SymbolType = Int16OrZero(ReadSymbol(folder).value_or(0));

    TrackSettings track;
    ReadTrackSettings(folder, track);
    variablen.TrackEnabled = track.On;
    variablen.TrackInterval = Milliseconds(track.Seconds);
    variablen.TrackAuto = track.Automatic;
}

void ReadQnh(Variablen& variablen) {
    QnhSettings settings;
    ReadQnhSettings(variablen.ProgramFolder, settings);
    variablen.QNH = Int16OrZero(settings.Qnh);
    variablen.QNHDate = settings.Entered;
}

} // namespace ornivane
