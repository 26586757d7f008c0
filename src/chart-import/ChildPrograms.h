#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace ornivane {

// What a child may use. It is killed when it goes beyond.
struct ChildLimits {
    std::chrono::seconds Silent{600};     // without a byte on its pipes
    std::chrono::seconds Total{6 * 3600}; // until its end
    std::uint64_t MemoryBytes = 4ULL << 30;
    std::uint64_t FileBytes = 8ULL << 30; // of each file that it writes
};

struct ChildCall {
    std::filesystem::path Program;      // where it is
    std::vector<std::string> Arguments; // as they are: no shell reads them
    // The whole environment, "NAME=value"; nothing of this program's comes to it.
    std::vector<std::string> Environment;
    std::string Input; // on its standard input
    ChildLimits Limits;
};

struct ChildEnd {
    enum class How { Exited, Signalled, Stopped, TookTooLong, CouldNotStart };
    How Ended = How::CouldNotStart;
    int Status = 0;             // of Exited: its exit status; of Signalled: the signal
    std::string Output, Errors; // their last part when there was more than a million bytes

    bool Succeeded() const { return Ended == How::Exited && Status == 0; }
};

// Programs outside, started one after another.
class ChildPrograms {
public:
    // Told what came on the standard output, as it comes.
    using Listener = std::function<void(std::string_view)>;

    virtual ~ChildPrograms() = default;
    // Where a program of that name is; empty when it is not installed.
    virtual std::optional<std::filesystem::path> Find(const std::string& name) = 0;
    // Returns when the child and all of its own children are gone.
    virtual ChildEnd Run(const ChildCall& call, const std::stop_token& stop, const Listener& heard) = 0;
};

} // namespace ornivane
