#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace ornivane {

class Processes {
public:
    virtual ~Processes() = default;
    // Ends every other process of this user whose executable is the same file as this program's.
    virtual void EndSiblings() = 0;
    // Starts a program in a normal window; false when it cannot be started.
    virtual bool Start(const std::filesystem::path& program) = 0;
};

class Web {
public:
    virtual ~Web() = default;
    // The text at the address; empty optional when it does not come within the given time. Blocks that long.
    virtual std::optional<std::string> Fetch(const std::string& address, int milliseconds) = 0;
};

class Shell {
public:
    virtual ~Shell() = default;
    // Opens a link or file in the user's program for it.
    virtual void Open(const std::string& address) = 0;
};

} // namespace ornivane
