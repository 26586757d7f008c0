#include "gps/HeardSentences.h"

#include <algorithm>

namespace ornivane {

void HeardSentences::Add(std::string_view talker, bool isRight) {
    const long long now = Now();
    Second& second = seconds[static_cast<unsigned long long>(now) % seconds.size()];
    if (second.Number != now) second = {now, {}};
    ++second.Heard.Sentences;
    if (!isRight) ++second.Heard.Bad;

    if (isRight && !talker.empty() && talkers.size() < MostTalkers &&
        std::find(talkers.begin(), talkers.end(), talker) == talkers.end())
        talkers.emplace_back(talker);
}

HeardSentences::Count HeardSentences::LastMinute() const {
    const long long now = Now();
    Count sum;
    for (const Second& second : seconds) {
        if (second.Number > now || now - second.Number >= static_cast<long long>(seconds.size())) continue;
        sum.Sentences += second.Heard.Sentences;
        sum.Bad += second.Heard.Bad;
    }
    return sum;
}

} // namespace ornivane
