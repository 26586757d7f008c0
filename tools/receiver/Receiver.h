#pragma once

#include <deque>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "receiver/BurstSource.h"
#include "receiver/Faults.h"
#include "receiver/Options.h"
#include "receiver/PtyLine.h"

namespace ornivane::receiver {

// Everything at once into a stream, with the faults as they fall.
void WriteAll(BurstSource& source, Faults& faults, const Options& options, std::ostream& out);

// A receiver at its line, in real time: sends the bursts when they are due and hears commands.
class Receiver {
public:
    Receiver(BurstSource& source, Faults& faults, const Options& options);
    // Until the end of the source, "quit" or a signal to end.
    void Run();

private:
    // A descriptor that commands come in by.
    struct CommandInput {
        int Descriptor;
        bool EndsAtEof; // standard input does, a fifo gets other writers
        std::string Line;
    };
    struct Piece {
        double Due; // s
        std::string Bytes;
    };

    void OpenFifo();
    void WaitForListener();
    void TakeBurst(double now);
    void SendDue(double now);
    void SendNoise(double now);
    void FollowPlug(double now);
    bool AtEnd() const { return !burst && pieces.empty(); }
    double NextDue(double now) const;
    void Wait(double seconds, double now);
    void ReadCommands(CommandInput& input, double now);
    double Seconds() const;

    BurstSource& source;
    Faults& faults;
    Options options;
    PtyLine line;
    std::mt19937 chance;
    std::vector<CommandInput> inputs;
    std::optional<Burst> burst; // the next one
    std::deque<Piece> pieces;
    double started = 0;
    double noiseSent = 0; // s
};

} // namespace ornivane::receiver
