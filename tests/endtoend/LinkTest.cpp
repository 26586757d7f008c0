#include "ProgramUnderTest.h"
#include "support/PtyLine.h"

namespace ornivane {

class Link : public ProgramUnderTest {
protected:
    void Connect() {
        Start();
        program->Click("cmdGPS");
    }
    void Fly() {
        StartReceiver();
        Connect();
        ASSERT_TRUE(Becomes("visible picGPSCheck1", "yes"));
        ASSERT_NE(program->Text("lblSpeed"), "---");
    }
};

TEST_F(Link, ChecksThePortAndShowsTheFlight) {
    const PtyLine line(Folder() / "Ports/COM1"); // silent: the first sentence takes the status away
    Connect();
    EXPECT_TRUE(program->Visible("picGPSCheck0"));
    EXPECT_FALSE(program->Visible("cmdGPS"));
    EXPECT_EQ(program->Text("lblStatus"), "Checking COM 1");
    line.Send("$GPRMC,120000,A,5030.000,N,00700.000,E,100.0,090.0,221126,,*13\r\n");
    EXPECT_TRUE(Becomes("visible picGPSCheck1", "yes"));
    EXPECT_FALSE(program->Visible("picGPSCheck0"));
    EXPECT_TRUE(Becomes("visible lblStatus", "no"));
    EXPECT_EQ(program->Text("lblLat"), "N 50° 30.000'");

    program->Click("picGPSCheck1");
    EXPECT_TRUE(program->Visible("cmdGPS"));
    EXPECT_FALSE(program->Visible("picGPSCheck1"));
}

TEST_F(Link, TellsThatThereIsNoSuchPort) {
    WriteFile("data.crm", "\"16\"\r\n\"4800\"\r\n");
    Connect();
    EXPECT_EQ(program->Text("lblStatus"), "Checking COM 16");
    EXPECT_TRUE(Becomes("text lblStatus", "COM 16 does not exist"));
    EXPECT_TRUE(Becomes("visible cmdGPS", "yes"));
}

TEST_F(Link, TellsOfASilentPortAndStartsWhenDataComesLater) {
    StartReceiver({"--at", "0", "silence 60"});
    Connect();
    EXPECT_TRUE(Becomes("text lblStatus", "No Signal an COM 1"));
    EXPECT_TRUE(Becomes("visible cmdGPS", "yes"));
    receiver->Tell("resume");
    EXPECT_TRUE(Becomes("visible picGPSCheck1", "yes")) << "without another click";
}

TEST_F(Link, LosesThePulledPlugAndFindsItAgain) {
    Fly();
    receiver->Tell("hangup 2");
    EXPECT_TRUE(Becomes("visible picGPSCheck2", "yes"));
    EXPECT_EQ(program->Text("lblSpeed"), "---");
    EXPECT_TRUE(Becomes("visible picGPSCheck1", "yes", 20));
    EXPECT_TRUE(WaitUntil([this] { return program->Text("lblSpeed") != "---"; }));
}

TEST_F(Link, FliesOnThroughSilenceNoiseAndTornSentences) {
    Fly();
    for (const char* fault : {"silence 2", "noise 2", "cut"}) {
        receiver->Tell(fault);
        EXPECT_TRUE(Stays("visible picGPSCheck1", "yes", 3)) << fault;
    }
    receiver->Tell("resume");
    const std::string before = program->Text("lblLat");
    EXPECT_TRUE(WaitUntil([&] { return program->Text("lblLat") != before; }));
    EXPECT_FALSE(program->Visible("noticeBar"));
    EXPECT_FALSE(program->Visible("messageBox"));
}

TEST_F(Link, ShowsThatTheFixIsLostAndBack) {
    Fly();
    receiver->Tell("nofix 3");
    EXPECT_TRUE(Becomes("visible picGPSCheck0", "yes"));
    EXPECT_TRUE(Becomes("visible picGPSCheck1", "yes"));
}

TEST_F(Link, ReturnsWithTheFlyingScreen) {
    Fly();
    program->Click("button3");
    program->Click("button1");
    EXPECT_TRUE(program->Visible("picGPSCheck1"));
    const std::string before = program->Text("lblLat");
    EXPECT_TRUE(WaitUntil([&] { return program->Text("lblLat") != before; }));
}

} // namespace ornivane
