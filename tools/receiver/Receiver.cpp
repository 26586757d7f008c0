#include "receiver/Receiver.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <iostream>
#include <poll.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace ornivane::receiver {

namespace {

volatile std::sig_atomic_t endAsked = 0;

constexpr double NoiseStep = 0.02;     // s
constexpr double BitsPerByte = 10;     // with start and stop bit
constexpr int DefaultNoiseBaud = 4800; // when no line speed was asked for
constexpr double LongestWait = 0.2;    // s; a plug pulled by somebody else is noticed this late

double NowInSeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

} // namespace

void WriteAll(BurstSource& source, Faults& faults, const Options& options, std::ostream& out) {
    std::mt19937 chance(options.Seed);
    while (const auto burst = source.Next()) {
        if (options.For && burst->Seconds > *options.For) return;
        faults.Advance(burst->Seconds);
        if (faults.Quit()) return;
        if (faults.Noisy(burst->Seconds))
            out << Noise(static_cast<std::size_t>(DefaultNoiseBaud / BitsPerByte), chance);
        for (const std::string& sentence : faults.Apply(burst->Sentences, burst->Seconds, chance))
            out << sentence;
    }
}

Receiver::Receiver(BurstSource& burstSource, Faults& lineFaults, const Options& receiverOptions)
    : source(burstSource), faults(lineFaults), options(receiverOptions), line(options.Link),
      chance(options.Seed) {
    inputs.push_back({STDIN_FILENO, true, {}});
    if (!options.Fifo.empty()) OpenFifo();
}

void Receiver::OpenFifo() {
    if (mkfifo(options.Fifo.c_str(), 0600) != 0 && errno != EEXIST)
        throw std::system_error(errno, std::generic_category(), options.Fifo.string());
    // Open for writing as well, so that it does not end when a writer goes.
    const int fifo = open(options.Fifo.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    if (fifo < 0) throw std::system_error(errno, std::generic_category(), options.Fifo.string());
    inputs.push_back({fifo, false, {}});
}

double Receiver::Seconds() const { return NowInSeconds() - started; }

void Receiver::Run() {
    struct sigaction action {};
    action.sa_handler = [](int) { endAsked = 1; };
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaction(signal, &action, nullptr);
    std::cout << line.Device() << std::endl;
    started = NowInSeconds();
    if (options.OnceOpen) WaitForListener();
    started = NowInSeconds();
    burst = source.Next();
    while (!endAsked && !faults.Quit()) {
        const double now = Seconds();
        faults.Advance(now);
        FollowPlug(now);
        TakeBurst(now);
        SendNoise(now);
        SendDue(now);
        line.Drain();
        if (AtEnd() && !options.Stay) return;
        Wait(std::clamp(NextDue(now) - Seconds(), 0.0, LongestWait), now);
    }
}

void Receiver::WaitForListener() {
    while (!endAsked && !faults.Quit() && !line.Heard()) Wait(0.02, 0);
}

void Receiver::FollowPlug(double now) {
    if (faults.HungUp(now) && line.PluggedIn()) {
        line.HangUp();
    } else if (!faults.HungUp(now) && !line.PluggedIn()) {
        line.PlugIn();
        std::cout << line.Device() << std::endl;
    }
}

// Cuts the burst that is due into pieces with their moments; they are out before the next burst begins.
void Receiver::TakeBurst(double now) {
    while (burst && burst->Seconds / options.Pace <= now) {
        if (options.For && burst->Seconds > *options.For) return burst.reset();
        double due = std::max(burst->Seconds / options.Pace, pieces.empty() ? 0 : pieces.back().Due);
        const double begin = due;
        const auto sentences = faults.Apply(burst->Sentences, now, chance);
        const double seconds = burst->Seconds;
        burst = source.Next();
        const double room = burst ? (burst->Seconds - seconds) / options.Pace : 1;
        const auto chunks = ChunksOf(sentences, faults.Chunks, chance);
        const double gap = std::min(options.Gap / 1000, 0.8 * room / static_cast<double>(chunks.size() + 1));
        std::size_t sent = 0;
        for (const std::string& chunk : chunks) {
            if (chunk.empty()) continue;
            sent += chunk.size();
            // A chunk has arrived when its last byte has.
            if (options.Baud > 0)
                due = std::max(due, begin + static_cast<double>(sent) * BitsPerByte / options.Baud);
            pieces.push_back({due, chunk});
            due += gap;
        }
    }
}

void Receiver::SendDue(double now) {
    for (; !pieces.empty() && pieces.front().Due <= now; pieces.pop_front()) {
        if (faults.HungUp(now) || faults.Silent(now) || faults.Noisy(now)) continue;
        line.Write(pieces.front().Bytes);
    }
}

void Receiver::SendNoise(double now) {
    if (!faults.Noisy(now) || faults.HungUp(now)) {
        noiseSent = now;
        return;
    }
    const int baud = options.Baud > 0 ? options.Baud : DefaultNoiseBaud;
    const auto bytes = static_cast<std::size_t>((now - noiseSent) * baud / BitsPerByte);
    if (bytes == 0) return;
    line.Write(Noise(bytes, chance));
    noiseSent = now;
}

double Receiver::NextDue(double now) const {
    double due = now + LongestWait;
    if (faults.Noisy(now)) due = now + NoiseStep;
    if (!pieces.empty()) due = std::min(due, pieces.front().Due);
    if (burst) due = std::min(due, burst->Seconds / options.Pace);
    return due;
}

void Receiver::Wait(double seconds, double now) {
    std::vector<pollfd> entries;
    for (const CommandInput& input : inputs) entries.push_back({input.Descriptor, POLLIN, 0});
    const timespec span{0, static_cast<long>(std::min(seconds, 0.999) * 1e9)};
    if (ppoll(entries.data(), entries.size(), &span, nullptr) <= 0) return;
    for (std::size_t i = entries.size(); i-- > 0;)
        if (entries[i].revents != 0) ReadCommands(inputs[i], now);
    std::erase_if(inputs, [](const CommandInput& input) { return input.Descriptor < 0; });
}

void Receiver::ReadCommands(CommandInput& input, double now) {
    char bytes[512];
    const ssize_t count = read(input.Descriptor, bytes, sizeof bytes);
    if (count <= 0) {
        if (input.EndsAtEof && (count == 0 || errno != EINTR)) input.Descriptor = -1;
        return;
    }
    input.Line.append(bytes, static_cast<std::size_t>(count));
    for (auto end = input.Line.find('\n'); end != std::string::npos; end = input.Line.find('\n')) {
        const std::string command = input.Line.substr(0, end);
        input.Line.erase(0, end + 1);
        if (!command.empty() && !faults.Command(command, now))
            std::cerr << "not understood: " << command << std::endl;
    }
}

} // namespace ornivane::receiver
