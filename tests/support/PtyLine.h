#pragma once

#include <filesystem>
#include <pty.h>
#include <stdexcept>
#include <string>
#include <unistd.h>

#include <gtest/gtest.h>

namespace ornivane {

// A line with a receiver at the other end, linked as a numbered port.
class PtyLine {
public:
    explicit PtyLine(const std::filesystem::path& portLink) : link(portLink) { PlugIn(); }
    ~PtyLine() { HangUp(); }
    PtyLine(const PtyLine&) = delete;
    PtyLine& operator=(const PtyLine&) = delete;
    void PlugIn() {
        int slave = -1;
        char name[128];
        if (openpty(&master, &slave, name, nullptr, nullptr) != 0)
            throw std::runtime_error("no pseudo-terminal");
        close(slave);
        std::filesystem::create_directories(link.parent_path());
        std::filesystem::remove(link);
        std::filesystem::create_symlink(name, link);
    }
    void Send(const std::string& bytes) const {
        ASSERT_EQ(write(master, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }
    void HangUp() {
        if (master >= 0) close(master);
        master = -1;
    }

private:
    std::filesystem::path link;
    int master = -1;
};

} // namespace ornivane
