#include "receiver/Faults.h"

#include <algorithm>
#include <sstream>

#include "receiver/SentenceMaker.h"

namespace ornivane::receiver {

double* Faults::SpanOf(const std::string& word) {
    if (word == "hangup") return &hungUpUntil;
    if (word == "silence") return &silentUntil;
    if (word == "noise") return &noisyUntil;
    if (word == "nofix") return &withoutFixUntil;
    return nullptr;
}

bool Faults::Command(const std::string& line, double now) {
    std::istringstream words(line);
    std::string word, value;
    words >> word;
    if (double* until = SpanOf(word)) {
        double seconds = 0;
        if (!(words >> seconds) || seconds < 0) return false;
        *until = now + seconds;
        return true;
    }
    if (word == "chunk") return (words >> value) && Chunks.Read(value);
    if (word == "cut")
        cutting = true;
    else if (word == "quit")
        quit = true;
    else if (word == "resume") {
        hungUpUntil = silentUntil = noisyUntil = withoutFixUntil = 0;
        cutting = false;
    } else
        return false;
    return true;
}

bool Faults::At(double seconds, const std::string& line) {
    if (!Faults(*this).Command(line, 0)) return false;
    scheduled.push_back({seconds, line});
    std::ranges::stable_sort(scheduled, {}, &Scheduled::Seconds);
    return true;
}

void Faults::Advance(double now) {
    while (!scheduled.empty() && scheduled.front().Seconds <= now) {
        // Spans count from the planned moment.
        const Scheduled due = scheduled.front();
        scheduled.erase(scheduled.begin());
        Command(due.Line, due.Seconds);
    }
}

std::vector<std::string> Faults::Apply(std::vector<std::string> sentences, double now,
                                       std::mt19937& chance) const {
    if (HungUp(now) || Silent(now) || Noisy(now) || sentences.empty()) return {};
    if (WithoutFix(now))
        for (std::string& sentence : sentences) sentence = receiver::WithoutFix(sentence);
    if (cutting) {
        // Bytes that an overrun swallows: one sentence of the burst loses its end.
        std::string& victim = sentences[chance() % sentences.size()];
        victim.resize(chance() % victim.size());
    }
    return sentences;
}

std::string Noise(std::size_t bytes, std::mt19937& chance) {
    std::string noise(bytes, '\0');
    for (char& c : noise) c = static_cast<char>(chance() & 0xFF);
    return noise;
}

} // namespace ornivane::receiver
