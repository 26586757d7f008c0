#include "receiver/SentenceMaker.h"

#include <array>
#include <cmath>
#include <cstdio>

#include "base/Strings.h"

namespace ornivane::receiver {

namespace {

struct Satellite {
    int Prn, Elevation, Azimuth, Strength; // a strength of 0 is not tracked
};
constexpr std::array<Satellite, 10> Sky{{{2, 45, 120, 42},
                                         {5, 70, 210, 45},
                                         {7, 22, 300, 36},
                                         {9, 15, 45, 31},
                                         {12, 60, 80, 44},
                                         {15, 33, 160, 38},
                                         {18, 50, 260, 41},
                                         {21, 10, 330, 28},
                                         {24, 28, 20, 35},
                                         {26, 8, 190, 0}}};

template <typename... Values>
std::string Printed(const char* picture, Values... values) {
    char text[128];
    std::snprintf(text, sizeof text, picture, values...);
    return text;
}

// Degrees and minutes as 4807.0380; rounded as a whole, so that the minutes never show 60.
template <int degreeDigits>
std::string Coordinate(double degrees) {
    const long long parts = std::llround(std::fabs(degrees) * 60 * 10'000);
    const long long perDegree = 60LL * 10'000;
    return Printed("%0*lld%02lld.%04lld", degreeDigits, parts / perDegree, parts % perDegree / 10'000,
                   parts % 10'000);
}

std::string Position(const Fix& fix) {
    return Coordinate<2>(fix.Lat) + (fix.Lat < 0 ? ",S," : ",N,") + Coordinate<3>(fix.Long) +
           (fix.Long < 0 ? ",W" : ",E");
}

std::string SatellitesInUse() {
    std::string text;
    int used = 0;
    for (const Satellite& satellite : Sky)
        if (satellite.Strength > 0) {
            text += Printed(",%02d", satellite.Prn);
            ++used;
        }
    for (; used < 12; ++used) text += ',';
    return text;
}

void AddSatellitesInView(std::vector<std::string>& sentences) {
    const std::size_t messages = (Sky.size() + 3) / 4;
    for (std::size_t message = 0; message < messages; ++message) {
        std::string body = Printed("GPGSV,%zu,%zu,%02zu", messages, message + 1, Sky.size());
        for (std::size_t i = message * 4; i < Sky.size() && i < message * 4 + 4; ++i) {
            body += Printed(",%02d,%02d,%03d,", Sky[i].Prn, Sky[i].Elevation, Sky[i].Azimuth);
            if (Sky[i].Strength > 0) body += Printed("%02d", Sky[i].Strength);
        }
        sentences.push_back(Sentence(body));
    }
}

// The field that states the fix, what it holds without one, and the fields that are empty then.
struct FixField {
    std::string_view Kind;
    std::size_t Field;
    const char* NoFix;
    std::size_t EmptyFrom, EmptyTo;
};
constexpr std::array<FixField, 4> FixFields{
    {{"GGA", 6, "0", 2, 5}, {"GSA", 2, "1", 3, 14}, {"RMC", 2, "V", 3, 8}, {"GLL", 6, "V", 1, 4}}};

} // namespace

std::string Sentence(std::string_view body) {
    unsigned sum = 0;
    for (const char c : body) sum ^= static_cast<unsigned char>(c);
    return "$" + std::string(body) + Printed("*%02X\r\n", sum);
}

std::vector<std::string> SentencesOf(const Fix& fix) {
    const auto day = std::chrono::floor<std::chrono::days>(fix.Time);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(fix.Time - day);
    const std::string time =
        Printed("%02d%02d%02d.00", static_cast<int>(clock.hours().count()),
                static_cast<int>(clock.minutes().count()), static_cast<int>(clock.seconds().count()));
    const std::string dateText =
        Printed("%02u%02u%02d", static_cast<unsigned>(date.day()), static_cast<unsigned>(date.month()),
                static_cast<int>(date.year()) % 100);
    const std::string position = Position(fix);

    std::vector<std::string> sentences;
    sentences.push_back(Sentence("GPGGA," + time + "," + position +
                                 Printed(",1,09,0.9,%.1f,M,47.0,M,,", fix.AltitudeMetres)));
    sentences.push_back(Sentence("GPGSA,A,3" + SatellitesInUse() + ",1.8,0.9,1.5"));
    AddSatellitesInView(sentences);
    sentences.push_back(Sentence("GPRMC," + time + ",A," + position +
                                 Printed(",%.1f,%05.1f,", fix.SpeedKnots, fix.TrackDegrees) + dateText +
                                 ",1.2,E"));
    sentences.push_back(Sentence("GPGLL," + position + "," + time + ",A"));
    return sentences;
}

std::string WithoutFix(const std::string& sentence) {
    if (sentence.size() < 6 || sentence.front() != '$') return sentence;
    for (const FixField& kind : FixFields) {
        if (std::string_view(sentence).substr(3, 3) != kind.Kind) continue;
        std::vector<std::string> fields =
            Split(std::string_view(sentence).substr(1, sentence.find('*') - 1), ",");
        if (fields.size() <= kind.Field) return sentence;
        for (std::size_t i = kind.EmptyFrom; i <= kind.EmptyTo && i < fields.size(); ++i) fields[i].clear();
        fields[kind.Field] = kind.NoFix;
        if (kind.Kind == "GGA" && fields.size() > 9) {
            fields[7] = "00";
            fields[9].clear();
        }
        std::string body;
        for (const std::string& field : fields) body += (body.empty() ? "" : ",") + field;
        return Sentence(body);
    }
    return sentence;
}

} // namespace ornivane::receiver
