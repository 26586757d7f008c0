#include "gps/NmeaInterpreter.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "base/Strings.h"

namespace ornivane {

namespace {

constexpr int Channels = 12;            // of GSA
constexpr int SatellitesPerMessage = 4; // of GSV, four fields each

unsigned ChecksumOf(std::string_view sentence) {
    unsigned sum = 0;
    for (const char c : sentence) {
        if (c == '*') break;
        if (c != '$') sum ^= static_cast<unsigned char>(c);
    }
    return sum;
}

// The first six characters in pairs; fractions of a second and what else follows are dropped.
std::string InPairs(const std::string& value, char separator) {
    const std::string_view text(value);
    const auto pair = [&](std::size_t at) {
        return at < text.size() ? DecodeText(text.substr(at, 2)) : std::string();
    };
    return pair(0) + separator + pair(2) + separator + pair(4);
}

std::string CoordinateText(const std::string& hemisphere, std::string_view value, std::size_t degreeDigits) {
    const std::size_t cut = std::min(degreeDigits, value.size());
    return DecodeText(hemisphere) + " " + DecodeText(value.substr(0, cut)) + "° " +
           DecodeText(value.substr(cut)) + "'";
}

} // namespace

bool NmeaInterpreter::Parse(std::string_view sentence) {
    if (!IsValid(sentence)) return false;
    // The star and the two digits of the checksum go, whatever these three characters are.
    constexpr std::size_t tail = 3;
    const std::string_view body =
        sentence.size() > tail ? sentence.substr(0, sentence.size() - tail) : sentence;
    const std::string_view id = body.substr(0, body.find(','));

    void (NmeaInterpreter::*handler)() = nullptr;
    if (id == "$GPGGA") handler = &NmeaInterpreter::ParseGPGGA;
    if (id == "$GPGLL") handler = &NmeaInterpreter::ParseGPGLL;
    if (id == "$GPGSA") handler = &NmeaInterpreter::ParseGPGSA;
    if (id == "$GPGSV") handler = &NmeaInterpreter::ParseGPGSV;
    if (id == "$GPRMC") handler = &NmeaInterpreter::ParseGPRMC;
    if (handler == nullptr) return false;

    GetWords(body);
    (this->*handler)();
    return true;
}

std::string NmeaInterpreter::GetChecksum(std::string_view sentence) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const unsigned sum = ChecksumOf(sentence);
    return {digits[sum >> 4 & 0xF], digits[sum & 0xF]};
}

bool NmeaInterpreter::IsValid(std::string_view sentence) { return sentence.ends_with(GetChecksum(sentence)); }

// Fills the texts that are there already: a receiver's stream then needs no memory of its own for its fields.
void NmeaInterpreter::GetWords(std::string_view body) {
    Words.resize(static_cast<std::size_t>(std::count(body.begin(), body.end(), ',')) + 1);
    for (std::string& word : Words) {
        const auto comma = body.find(',');
        word.assign(body.substr(0, comma));
        if (comma != std::string_view::npos) body.remove_prefix(comma + 1);
    }
}

const std::string& NmeaInterpreter::Word(std::size_t index) const {
    if (index >= Words.size()) throw RuntimeError(ErrorNumber::SubscriptOutOfRange, "NMEA");
    return Words[index];
}

double NmeaInterpreter::DoubleIn(std::size_t index) const {
    const auto number = ParsePlainNumber(Word(index));
    if (!number) throw RuntimeError(ErrorNumber::TypeMismatch, "NMEA");
    return *number;
}

void NmeaInterpreter::ParseGPGGA() {
    SetTime(Word(1));
    SetPosition(2);
    SetPositionFix(Word(6));
    Raise(7, &NmeaListener::SatellitesUsedReceived);
    Raise(8, &NmeaListener::HDOPReceived);
    Raise(9, &NmeaListener::AltitudeReceived);
    Raise(10, &NmeaListener::AltitudeUnitsReceived);
    Raise(11, &NmeaListener::GeoidSeparationReceived);
    Raise(12, &NmeaListener::GeoidSeparationUnitsReceived);
    Raise(13, &NmeaListener::DGPSageReceived);
    Raise(14, &NmeaListener::DGPSstationIDReceived);
}

void NmeaInterpreter::ParseGPGLL() {
    SetPosition(1);
    SetTime(Word(5));
    SetFixStatus(Word(6));
}

void NmeaInterpreter::ParseGPGSA() {
    SetAutoManMode(Word(1));
    SetMode3D(Word(2));
    // Every channel is told, so that a consumer sees the ones that went dark.
    for (int channel = 1; channel <= Channels; ++channel) {
        const std::size_t field = static_cast<std::size_t>(channel) + 2;
        listener.ChSatReceived(channel, Word(field).empty() ? std::int16_t{0} : IntegerIn(field));
    }
    Raise(15, &NmeaListener::PDOPReceived);
    Raise(16, &NmeaListener::HDOPReceived);
    Raise(17, &NmeaListener::VDOPReceived);
}

void NmeaInterpreter::ParseGPGSV() {
    if (!Word(1).empty()) TotalMessages = IntegerIn(1);
    if (!Word(2).empty()) MessageNumber = IntegerIn(2);
    if (!Word(3).empty()) {
        SatellitesInView = IntegerIn(3);
        listener.SatellitesInViewReceived(SatellitesInView);
    }
    for (std::int16_t count = 1; count <= SatellitesPerMessage; ++count) ParseSatellite(count);
}

void NmeaInterpreter::ParseSatellite(std::int16_t count) {
    if (MessageNumber != 0)
        Satellite.Number =
            ToInt16(ToInt16((MessageNumber - 1.0) * SatellitesPerMessage) + static_cast<double>(count));
    const std::size_t first = static_cast<std::size_t>(count) * 4;
    // The last message of a series has as many groups as satellites are left.
    if (first + 3 >= Words.size()) return;
    if (std::any_of(Words.begin() + first, Words.begin() + first + 4,
                    [](const std::string& word) { return word.empty(); }))
        return;
    Satellite.PseudoRandomCode = IntegerIn(first);
    Satellite.Elevation = IntegerIn(first + 1);
    Satellite.Azimuth = IntegerIn(first + 2);
    Satellite.SignalToNoiseRatio = IntegerIn(first + 3);
    listener.SatelliteReceived(Satellite.Number, Satellite.PseudoRandomCode, Satellite.Azimuth,
                               Satellite.Elevation, Satellite.SignalToNoiseRatio);
}

// A position is told whatever the status says: a receiver that lost its fix may go on sending the old one,
// and the consumers guard themselves.
void NmeaInterpreter::ParseGPRMC() {
    SetTime(Word(1));
    SetFixStatus(Word(2));
    SetPosition(3);
    Raise(7, &NmeaListener::SpeedReceived);
    Raise(8, &NmeaListener::BearingReceived);
    SetDate(Word(9));
}

void NmeaInterpreter::SetTime(const std::string& value) {
    if (value.empty()) return;
    Time = InPairs(value, ':');
    listener.TimeChanged(Time);
}

void NmeaInterpreter::SetDate(const std::string& value) {
    if (value.empty()) return;
    SatDate = InPairs(value, '/');
    listener.DateChanged(SatDate);
}

// Latitude, its hemisphere, longitude and its hemisphere from the given field on. All four are looked up
// before they are compared, so that a sentence that ends among them is too short even if it has no position.
void NmeaInterpreter::SetPosition(std::size_t firstField) {
    const std::string& lat = Word(firstField);
    const std::string& northSouth = Word(firstField + 1);
    const std::string& longitude = Word(firstField + 2);
    const std::string& eastWest = Word(firstField + 3);
    if (lat.empty() || northSouth.empty() || longitude.empty() || eastWest.empty()) return;
    Latitude = CoordinateText(northSouth, lat, 2);
    Longitude = CoordinateText(eastWest, longitude, 3);
    listener.PositionReceived({Latitude, Longitude, lat, longitude});
}

void NmeaInterpreter::SetPositionFix(const std::string& value) {
    if (value.empty()) return;
    PositionFix = value == "1"   ? "Valid SPS"
                  : value == "2" ? "Valid DGPS"
                  : value == "3" ? "Valid PPS"
                                 : "Invalid";
    listener.PositionFixReceived(PositionFix);
}

void NmeaInterpreter::SetFixStatus(const std::string& value) {
    if (value == "A") listener.FixObtained();
    if (value == "V") listener.FixLost();
}

void NmeaInterpreter::SetAutoManMode(const std::string& value) {
    if (value.empty()) return;
    AutoManMode = value == "A" ? "Auto 2D/3D" : value == "M" ? "Forced 2D/3D" : "Unknown";
    listener.AutoManModeReceived(AutoManMode);
}

void NmeaInterpreter::SetMode3D(const std::string& value) {
    if (value.empty()) return;
    Mode3D = value == "2" ? "2D" : value == "3" ? "3D" : "No Fix";
    listener.Mode3DReceived(Mode3D);
}

} // namespace ornivane
