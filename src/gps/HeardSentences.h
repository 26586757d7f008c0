#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Clock.h"

namespace ornivane {

// What a receiver said of late: its talkers, and how many sentences in the last minute.
class HeardSentences {
public:
    // More talkers than a receiver has.
    static constexpr std::size_t MostTalkers = 12;
    struct Count {
        unsigned long long Sentences = 0, Bad = 0; // the bad ones are among the sentences
    };

    explicit HeardSentences(const Clock& systemClock) : clock(systemClock) {}

    // The talker of a wrong sentence is not noted: it may be damaged. An empty one is none.
    void Add(std::string_view talker, bool isRight);
    void Forget() {
        talkers.clear();
        seconds = {};
    }

    // In the order in which they were heard first, since the start or since Forget.
    const std::vector<std::string>& Talkers() const { return talkers; }
    // Of the second under way and the 59 before it.
    Count LastMinute() const;

private:
    // Each second has its own counts, so a clock that stands still or jumps leaves nothing behind that would
    // have to be cleared.
    struct Second {
        long long Number = 0;
        Count Heard;
    };
    long long Now() const { return clock.Ticks() / 1000; }

    const Clock& clock;
    std::vector<std::string> talkers;
    std::array<Second, 60> seconds{};
};

} // namespace ornivane
