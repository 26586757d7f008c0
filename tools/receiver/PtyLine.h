#pragma once

#include <filesystem>
#include <string>

namespace ornivane::receiver {

// The receiver's end of a serial line: a pseudo-terminal, and a link to it under a fixed name. Failures of
// the system are std::system_error.
class PtyLine {
public:
    // An empty path makes no link. Parent folders are made.
    explicit PtyLine(std::filesystem::path linkPath);
    ~PtyLine();
    PtyLine(const PtyLine&) = delete;
    PtyLine& operator=(const PtyLine&) = delete;

    // A pulled plug: who has the line open gets a hang-up, and the link leads nowhere until the line is back,
    // under a device of its own.
    void HangUp();
    void PlugIn();
    bool PluggedIn() const { return master >= 0; }
    const std::string& Device() const { return device; }

    // Somebody has the line open.
    bool Heard() const;
    // Bytes that nobody hears are gone, as on a real line. A reader that is behind is waited for a second,
    // then what does not fit is gone as well.
    void Write(const std::string& bytes);
    // Throws away what the other end says.
    void Drain();

private:
    void Link() const;

    std::filesystem::path link;
    std::string device;
    int master = -1;
};

} // namespace ornivane::receiver
