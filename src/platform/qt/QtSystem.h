#pragma once

#include "base/LocaleText.h"
#include "platform/System.h"

namespace ornivane {

class QtWeb : public Web {
public:
    std::optional<std::string> Fetch(const std::string& address, int milliseconds) override;
};

class QtShell : public Shell {
public:
    void Open(const std::string& address) override;
};

// The processes are those of /proc.
class QtProcesses : public Processes {
public:
    void EndSiblings() override;
    bool Start(const std::filesystem::path& program) override;
};

// The system's decimal separator and month names.
LocaleText ReadSystemLocale();

} // namespace ornivane
