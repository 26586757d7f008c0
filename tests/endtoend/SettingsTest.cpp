#include "ProgramUnderTest.h"

namespace ornivane {

// What the settings screen of the program itself keeps over its end.
class Settings : public ProgramUnderTest {};

TEST_F(Settings, KeepsAllOverARestart) {
    StartReceiver();
    Start();
    program->Click("button5");
    program->Do("select cmbBaud 9600");
    program->Do("select cmbCom 1");
    program->Click("cmdCheck");
    EXPECT_TRUE(Becomes("text lblStatus", "OK - Data saved"));
    EXPECT_EQ(program->Text("LabelStatus"), "GPS Fix");
    program->Click("Option1");
    program->Click("chkTrack");
    program->Click("chkAutoOn");
    program->Do("select cmbTrack 20");
    for (int i = 0; i < 4; ++i) program->Do("key tQNH Backspace");
    program->Do("type tQNH 1021");
    program->Do("key tKategorie Delete");
    program->Do("type tKategorie Stadt");
    program->Do("key tKategorie Return");
    program->Click("OptGer");
    program->Do("close"); // with the screen in front
    ASSERT_TRUE(program->Process().WaitForEnd(std::chrono::seconds(5)).has_value());

    EXPECT_EQ(FileBytes("data.crm"), "\"1\"\r\n\"9600\"\r\n");
    EXPECT_EQ(FileBytes("lang.crm"), "0\r\n");
    EXPECT_EQ(FileBytes("symbol.crm"), "1\r\n");
    EXPECT_EQ(FileBytes("track.crm"), "1\r\n20\r\n1\r\n");
    EXPECT_EQ(FileBytes("LR.crm").substr(0, 7), "1021\r\n#");

    receiver.reset();
    StartReceiver();
    Start();
    program->Click("button5");
    const std::pair<const char*, const char*> kept[] = {{"property OptGer checked", "true"},
                                                        {"property Option1 checked", "true"},
                                                        {"property chkTrack checked", "true"},
                                                        {"property chkAutoOn checked", "true"},
                                                        {"text cmbTrack", "20"},
                                                        {"text tQNH", "1021"},
                                                        {"text tKategorie", "Stadt"},
                                                        {"text gridKategorie", "1 Stadt"},
                                                        {"text cmbCom", "1"},
                                                        {"text cmbBaud", "9600"}};
    for (const auto& [question, answer] : kept) EXPECT_EQ(program->Ask(question), answer) << question;

    const std::pair<const char*, const char*> dialogs[] = {
        {"cmdManager", "frmManager"}, {"cmdGetWaypoint", "frmGetWaypoints"}, {"cmdTrack", "frmTrack"}};
    for (const auto& [button, dialog] : dialogs) {
        program->Click(button);
        EXPECT_TRUE(program->Visible(dialog)) << dialog;
        program->Click(dialog == std::string("frmTrack") ? "cmdExit" : "cmdEnd");
    }
}

} // namespace ornivane
