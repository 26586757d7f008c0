#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "launch/RunningProgram.h"
#include "store/Schema.h"
#include "support/TemporaryFolder.h"

namespace ornivane {

// The program itself, in a portable folder of its own, without a display and with a simulated receiver.
class ProgramUnderTest : public testing::Test {
protected:
    ProgramUnderTest() {
        // A copy: the end of the program ends all that run the same file, and tests run side by side.
        std::filesystem::copy_file(PROGRAM, Folder() / "ornivane-gps");
        for (const StoreKind kind :
             {StoreKind::Data, StoreKind::Track, StoreKind::Luftraum, StoreKind::Airfields})
            CreateStore(Folder() / StoreFileName(kind), kind);
        for (const char* name : {"Karten", "Route", "Flugplan", "Ports"})
            std::filesystem::create_directory(Folder() / name);
        WriteFile("lang.crm", "1\r\n");
    }

    const std::filesystem::path& Folder() const { return folder.Path(); }
    void WriteFile(const char* name, const std::string& bytes) const { folder.Write(name, bytes); }
    std::string FileBytes(const char* name) const { return folder.Bytes(name); }

    // Starts it without waiting for anything.
    std::unique_ptr<RunningProgram> Launch() const {
        RunningProgram::Options options;
        options.Output = Folder() / "output.txt";
        options.Locale = "C.UTF-8";
        return std::make_unique<RunningProgram>(Folder(), options);
    }
    // Starts it and passes the splash; the flying screen is in front then.
    void Start() {
        program = Launch();
        ASSERT_TRUE(program->Probe().WaitFor("visible frmSplash", "yes"));
        program->Click("frmSplash");
        ASSERT_TRUE(Becomes("visible Main", "yes")) << FileBytes("output.txt");
        for (const char* hint : {"frmInfo1", "frmInfo3"})
            if (program->Visible(hint)) program->Click("cmdClose");
    }
    // The receiver stands at port 1; it starts when the port is opened.
    void StartReceiver(std::vector<std::string> arguments = {}) {
        WriteFile("flight.txt", "A 50.0 7.0\nB 50.5 7.5\n");
        arguments.push_back("--once-open");
        receiver =
            std::make_unique<RunningReceiver>(Folder(), 1, Folder() / "flight.txt", std::move(arguments));
    }
    bool Becomes(const std::string& question, const std::string& answer, int seconds = 10) {
        return program->Probe().WaitFor(question, answer, std::chrono::seconds(seconds));
    }
    // Whether it is so all the time.
    bool Stays(const std::string& question, const std::string& answer, int seconds) {
        return !WaitUntil([&] { return program->Ask(question) != answer; }, std::chrono::seconds(seconds));
    }

    TemporaryFolder folder;
    std::unique_ptr<RunningReceiver> receiver;
    std::unique_ptr<RunningProgram> program;
};

} // namespace ornivane
