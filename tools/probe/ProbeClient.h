#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>

namespace ornivane {

// Asks again and again until it is so. False when that does not happen in time.
bool WaitUntil(const std::function<bool()>& isSo,
               std::chrono::milliseconds patience = std::chrono::seconds(10));

// The other end of the probe: asks the running program. Throws std::runtime_error when the program is gone.
class ProbeClient {
public:
    // Waits for the program to come up.
    explicit ProbeClient(const std::filesystem::path& socket,
                         std::chrono::milliseconds patience = std::chrono::seconds(15));
    ~ProbeClient();
    ProbeClient(const ProbeClient&) = delete;
    ProbeClient& operator=(const ProbeClient&) = delete;

    // One line, its answer; line ends in the answer come as \n.
    std::string Ask(const std::string& line);
    std::string Text(const std::string& name) { return Ask("text " + name); }
    bool Visible(const std::string& name) { return Ask("visible " + name) == "yes"; }
    // Asks until the answer is the wanted one; false when that does not happen in time.
    bool WaitFor(const std::string& line, const std::string& answer,
                 std::chrono::milliseconds patience = std::chrono::seconds(10));

private:
    int descriptor = -1;
    std::string received;
};

} // namespace ornivane
