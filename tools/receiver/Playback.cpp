#include "receiver/Playback.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "base/Strings.h"

namespace ornivane::receiver {

namespace {

constexpr double SecondsPerDay = 86'400;
// A longer step is a receiver that has just learnt the time, and plays as one second.
constexpr double LongestPause = 3600;

struct TimeField {
    std::string_view Kind;
    std::size_t Field;
};
constexpr std::array<TimeField, 4> TimeFields{{{"GGA", 1}, {"RMC", 1}, {"ZDA", 1}, {"GLL", 5}}};

} // namespace

std::optional<double> TimeIn(const std::string& sentence) {
    if (sentence.size() < 7) return std::nullopt;
    for (const TimeField& kind : TimeFields) {
        if (std::string_view(sentence).substr(3, 3) != kind.Kind) continue;
        const auto fields = Split(sentence, ",");
        if (fields.size() <= kind.Field) return std::nullopt;
        const std::string field = fields[kind.Field].substr(0, fields[kind.Field].find('*'));
        if (field.size() < 6 || field.find_first_not_of("0123456789.") != std::string::npos)
            return std::nullopt;
        return std::stod(field.substr(0, 2)) * 3600 + std::stod(field.substr(2, 2)) * 60 +
               std::stod(field.substr(4));
    }
    return std::nullopt;
}

Playback::Playback(std::istream& in, bool again) : loop(again) {
    std::vector<std::string> sentences;
    for (std::string line; std::getline(in, line);) {
        line.erase(line.find_last_not_of(" \r\n") + 1);
        if (line.starts_with('$') || line.starts_with('!')) sentences.push_back(line + "\r\n");
    }
    const bool timed =
        std::ranges::any_of(sentences, [](const auto& each) { return TimeIn(each).has_value(); });
    for (const std::string& sentence : sentences) {
        if (bursts.empty()) bursts.emplace_back();
        if (timed)
            AddByTime(sentence);
        else
            AddByKind(sentence);
    }
}

void Playback::NewBurst(double secondsLater) {
    const double seconds = bursts.back().Seconds + secondsLater;
    bursts.emplace_back();
    bursts.back().Seconds = seconds;
}

void Playback::AddByTime(const std::string& sentence) {
    if (const auto time = TimeIn(sentence)) {
        if (lastTime && *time != *lastTime) {
            const double step = std::fmod(*time - *lastTime + SecondsPerDay, SecondsPerDay);
            NewBurst(step > LongestPause ? 1 : step);
        }
        lastTime = time;
    }
    bursts.back().Sentences.push_back(sentence);
}

void Playback::AddByKind(const std::string& sentence) {
    const auto kind = [](const std::string& text) {
        return std::string_view(text).substr(0, text.find(','));
    };
    const auto& burst = bursts.back().Sentences;
    if (!burst.empty() && kind(burst.front()) == kind(sentence)) NewBurst(1);
    bursts.back().Sentences.push_back(sentence);
}

std::optional<Burst> Playback::Next() {
    if (at == bursts.size()) {
        if (!loop || bursts.empty()) return std::nullopt;
        loopStart += bursts.back().Seconds + 1;
        at = 0;
    }
    Burst burst = bursts[at++];
    burst.Seconds += loopStart;
    return burst;
}

} // namespace ornivane::receiver
