#include <csignal>

#include "ProgramUnderTest.h"

namespace ornivane {

using namespace std::chrono_literals;

using StartAndEnd = ProgramUnderTest;

TEST_F(StartAndEnd, EndsWithAMessageWithoutItsMainStore) {
    std::filesystem::remove(Folder() / "data.ovd");
    std::filesystem::remove(Folder() / "lang.crm");
    program = Launch();
    ASSERT_TRUE(Becomes("visible messageBox", "yes"));
    EXPECT_EQ(program->Text("messageBox"),
              "Datenfehler|Die Datei - data.ovd - wurde nicht im Programmordner gefunden.");
    program->Do("key messageBox Return");
    EXPECT_EQ(program->Process().WaitForEnd(5s), 1);
    EXPECT_FALSE(std::filesystem::exists(Folder() / "data.ovd"));
}

TEST_F(StartAndEnd, TellsWhyADamagedMainStoreCannotBeUsedAndLeavesItAsItIs) {
    const std::string damaged(5000, 'x');
    WriteFile("data.ovd", damaged);
    program = Launch();
    ASSERT_TRUE(Becomes("visible messageBox", "yes"));
    const std::string text = program->Text("messageBox"),
                      start = "Data error|File - data.ovd - was not found.";
    EXPECT_EQ(text.substr(0, start.size()), start);
    EXPECT_GT(text.size(), start.size() + 10) << text;
    program->Process().Signal(SIGTERM);
    EXPECT_TRUE(program->Process().WaitForEnd(5s).has_value());
    EXPECT_EQ(FileBytes("data.ovd"), damaged);
}

TEST_F(StartAndEnd, WritesItsVersionAndTheSettingsThatWereMissing) {
    Start();
    EXPECT_EQ(FileBytes("version.crm"), "\"1.0.0\"\r\n");
    EXPECT_EQ(FileBytes("data.crm"), "\"1\"\r\n\"4800\"\r\n");
    std::string flags;
    for (int i = 0; i < 7; ++i) flags += "#FALSE#\r\n";
    EXPECT_EQ(FileBytes("Set.crm"), flags);
}

TEST_F(StartAndEnd, SwitchesScreensAndLanguage) {
    Start();
    EXPECT_EQ(program->Text("button7"), "  Map  Data  ");
    constexpr std::pair<const char*, const char*> screens[] = {{"button3", "frmPlanung"},
                                                               {"button5", "frmSettings"},
                                                               {"button7", "frmCalibrate"},
                                                               {"button9", "frmFlugPlan"},
                                                               {"button1", "frmGPSmain"}};
    for (const auto& [button, screen] : screens) {
        program->Click(button);
        EXPECT_TRUE(program->Visible(screen)) << screen;
        EXPECT_EQ(program->Ask(std::string("property ") + button + " checked"), "true") << screen;
    }
    program->Click("button5");
    program->Click("OptGer");
    EXPECT_EQ(program->Text("button1"), "Flug");
    EXPECT_EQ(FileBytes("lang.crm"), "0\r\n");
    program->Click("button1");
    EXPECT_TRUE(program->Visible("frmGPSmain")) << "the new captions are keys";
}

TEST_F(StartAndEnd, SavesWhenTheSystemEndsIt) {
    Start();
    std::filesystem::remove(Folder() / "Set.crm");
    program->Click("button5"); // the flying screen is not even in front
    program->Process().Signal(SIGTERM);
    EXPECT_EQ(program->Process().WaitForEnd(5s), 0);
    EXPECT_TRUE(std::filesystem::exists(Folder() / "Set.crm"));
}

TEST_F(StartAndEnd, EndsItsOtherInstancesToo) {
    Start();
    const auto first = std::move(program);
    Start();
    program->Do("close");
    EXPECT_EQ(program->Process().WaitForEnd(5s), 0);
    EXPECT_EQ(first->Process().WaitForEnd(5s), 0);
}

TEST_F(StartAndEnd, LeavesTheProcessorAloneWhileItWaits) {
    Start();
    const auto before = program->Process().CpuTime();
    constexpr std::chrono::milliseconds idle{3000};
    EXPECT_FALSE(program->Process().WaitForEnd(idle).has_value());
    EXPECT_LE((program->Process().CpuTime() - before).count(), idle.count() / 50) << "ms of 3000";
}

} // namespace ornivane
