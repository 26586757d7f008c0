#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace ornivane {

// A program that this one started. It ends with this object, and with this process should that die.
class ChildProcess {
public:
    struct Options {
        std::vector<std::string> Arguments;
        std::map<std::string, std::string> Environment; // added to that of this process
        std::filesystem::path Output; // of standard output and error; empty: as this process
    };

    // std::runtime_error when it cannot be started.
    ChildProcess(const std::filesystem::path& program, const Options& options);
    // Ends it in the orderly way, after five seconds by force.
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    void Signal(int signal) const;
    // A line to its standard input.
    void Tell(const std::string& line) const;
    // The exit status, 128 + the signal for one that was ended by a signal; empty when it still runs after
    // the given time.
    std::optional<int> WaitForEnd(std::chrono::milliseconds timeout);
    bool IsRunning() { return !WaitForEnd(std::chrono::milliseconds(0)); }
    // Processor time used so far, of all its threads.
    std::chrono::milliseconds CpuTime() const;

private:
    pid_t pid = -1;
    int handle = -1; // pidfd
    int input = -1;  // the writing end of its standard input
    std::optional<int> status;
};

} // namespace ornivane
