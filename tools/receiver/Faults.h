#pragma once

#include <random>
#include <string>
#include <vector>

#include "receiver/Chunks.h"

namespace ornivane::receiver {

// What goes wrong with the line, by command and by the clock. Times are seconds since the start, given by the
// caller.
class Faults {
public:
    // "hangup S", "silence S", "noise S", "nofix S" (S seconds), "cut", "chunk MODE", "resume" (all faults
    // end), "quit". False when it is none of them; nothing changes then.
    bool Command(const std::string& line, double now);
    // A command for later. False when it is none.
    bool At(double seconds, const std::string& line);
    // Carries out what is due.
    void Advance(double now);

    bool HungUp(double now) const { return now < hungUpUntil; }
    bool Silent(double now) const { return now < silentUntil; }
    bool Noisy(double now) const { return now < noisyUntil; }
    bool WithoutFix(double now) const { return now < withoutFixUntil; }
    bool Quit() const { return quit; }
    ChunkMode Chunks;

    // The sentences as the faults of this moment leave them; without any when nothing is sent.
    std::vector<std::string> Apply(std::vector<std::string> sentences, double now,
                                   std::mt19937& chance) const;

private:
    double* SpanOf(const std::string& word);

    struct Scheduled {
        double Seconds;
        std::string Line;
    };
    std::vector<Scheduled> scheduled;
    double hungUpUntil = 0, silentUntil = 0, noisyUntil = 0, withoutFixUntil = 0;
    bool cutting = false, quit = false;
};

// As from a line at the wrong speed: any byte.
std::string Noise(std::size_t bytes, std::mt19937& chance);

} // namespace ornivane::receiver
