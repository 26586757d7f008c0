#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "launch/ChildProcess.h"
#include "probe/ProbeClient.h"

namespace ornivane {

// A new folder for temporary files; its name begins with this.
std::filesystem::path MakeTemporaryFolder(const std::string& name);

// Ornivane GPS as it is, started from a portable folder and driven through the probe.
class RunningProgram {
public:
    struct Options {
        bool OnScreen = false;          // on the user's display; else off screen
        int Width = 1280, Height = 800; // of the screen that is not there, in pixels of the device
        int Scale = 1;                  // QT_SCALE_FACTOR
        std::filesystem::path Output;   // of its standard output and error; empty: as this process
        std::string Locale;             // LC_ALL; empty: the user's
    };

    // The folder holds the program.
    RunningProgram(const std::filesystem::path& folder, const Options& options);
    ~RunningProgram();

    ChildProcess& Process() { return *process; }
    // Waits for the program to come up when it is asked for the first time.
    ProbeClient& Probe();

    std::string Ask(const std::string& line) { return Probe().Ask(line); }
    std::string Text(const std::string& name) { return Probe().Text(name); }
    bool Visible(const std::string& name) { return Probe().Visible(name); }
    // Throws std::runtime_error when the probe cannot do it.
    void Do(const std::string& line);
    void Click(const std::string& name) { Do("click " + name); }

private:
    std::filesystem::path scratch; // socket and screen description
    std::unique_ptr<ChildProcess> process;
    std::unique_ptr<ProbeClient> probe;
};

// The simulated receiver.
class RunningReceiver {
public:
    // Flies the points of the file behind the port in the program's folder.
    RunningReceiver(const std::filesystem::path& folder, int port, const std::filesystem::path& flight,
                    std::vector<std::string> arguments);
    ~RunningReceiver();

    ChildProcess& Process() { return *process; }
    // A fault, "silence 3" or "hangup 2", as the receiver takes it from its standard input.
    void Tell(const std::string& command) { process->Tell(command); }
    const std::filesystem::path& Link() const { return link; }

private:
    std::filesystem::path link;
    std::unique_ptr<ChildProcess> process;
};

} // namespace ornivane
