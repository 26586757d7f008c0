#pragma once

#include <utility>

#include "platform/System.h"
#include "platform/qt/Screen.h"
#include "support/MapFakes.h"
#include "support/TemporaryFolder.h"

namespace ornivane::test {

using Texts = std::vector<std::string>;

struct ScriptedWeb : Web {
    std::optional<std::string> Answer;
    Texts Asked;
    std::optional<std::string> Fetch(const std::string& address, int) override {
        Asked.push_back(address);
        return Answer;
    }
};

struct ScriptedProcesses : Processes {
    Texts Calls;
    bool CanStart = false;
    void EndSiblings() override { Calls.push_back("EndSiblings"); }
    bool Start(const std::filesystem::path& program) override {
        Calls.push_back("Start " + program.string());
        return CanStart;
    }
};

struct RecordedShell : Shell {
    Texts Opened;
    void Open(const std::string& address) override { Opened.push_back(address); }
};

// Writes what it is told into a list that several share; fails where it is told to.
class RecordedScreen : public Screen {
public:
    RecordedScreen(std::string nameOf, Texts& callsOf, std::string failsInOf = {})
        : name(std::move(nameOf)), calls(callsOf), failsIn(std::move(failsInOf)) {}
    void Form_Activate() override { Record("activate"); }
    void Form_Deactivate() override { Record("deactivate"); }
    void Form_Unload() override { Record("unload"); }

private:
    void Record(const std::string& call) {
        calls.push_back(name + " " + call);
        if (call == failsIn) throw std::runtime_error(call + " failed");
    }

    std::string name;
    Texts& calls;
    std::string failsIn;
};

} // namespace ornivane::test
