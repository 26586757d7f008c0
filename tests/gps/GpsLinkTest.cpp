#include <gmock/gmock.h>

#include "common/SettingsFiles.h"
#include "support/PortWorld.h"

namespace ornivane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string Fix = Sentence("GPRMC,123519,A,,,,,,,") + "\r\n";
const std::string NoFixYet = Sentence("GPRMC,123519,V,,,,,,,") + "\r\n";
const std::string Text = Sentence("GPTXT,hello") + "\r\n";

class GpsLinkTest : public testing::Test, protected PortWorld, protected NmeaListener {
protected:
    GpsLinkTest() {
        Shared.EnglishUI = 1;
        WriteComSettings(Folder.Path(), {"7", "9600"});
        Link.Form_Activate();
    }

    void Do(LinkAction action) {
        if (action == LinkAction::ShowLoss) Calls += "lost ";
        if (action == LinkAction::ClearDisplays) Calls += "nothing ";
        if (action == LinkAction::RefreshRouteList && RouteIsDamaged)
            throw RuntimeError(ErrorNumber::TypeMismatch);
        if (action == LinkAction::RefreshRouteList) Calls += "routes ";
        if (action == LinkAction::FocusMap) Calls += "focus ";
    }
    void FixObtained() override { Link.ShowFix(true); }
    void FixLost() override { Link.ShowFix(false); }

    // "0", "1" or "2" for the indicator that shows, "-" for none; then what lblStatus shows.
    std::string Signs() const {
        const GpsLink::Signs signs = Link.Shown();
        return (signs.picGPSCheck ? std::to_string(*signs.picGPSCheck) : "-") +
               (signs.lblStatus.empty() ? "" : " " + signs.lblStatus);
    }
    void Run() {
        Link.cmdGPS_Click();
        Port.Receive(Fix);
        Timer.Fire(2);
        Calls.clear();
    }

    std::string Calls;
    bool RouteIsDamaged = false;
    NmeaInterpreter gps{*this};
    NmeaSink Sentences{gps, Clock, Shared};
    PortSource Com{Port, Shared, Shared};
    GpsLink Link{Com, Sentences, Timer, Dialogs, Shared, [this](LinkAction action) { Do(action); }};
};

TEST_F(GpsLinkTest, ADamagedRouteEndsTheCheckAllTheSame) {
    RouteIsDamaged = true;
    Link.cmdGPS_Click();
    EXPECT_THROW(Timer.Fire(2), RuntimeError);
    EXPECT_EQ(Signs(), "- No Signal an COM 7");
    EXPECT_EQ(Timer.Interval(), 0);
}

TEST_F(GpsLinkTest, ChecksTwoSecondsAndRunsWhenDataCame) {
    Link.cmdGPS_Click();
    EXPECT_EQ(Signs(), "0 Checking COM 7");
    EXPECT_EQ(Calls, "focus ");
    EXPECT_TRUE(Link.Shown().Hourglass);
    EXPECT_EQ(Timer.Interval(), 1000);
    EXPECT_EQ(Port.Settings, "9600,n,8,1");
    Port.Receive(NoFixYet);
    EXPECT_EQ(Signs(), "0");
    Timer.Fire();
    EXPECT_TRUE(Link.Shown().Hourglass);
    Timer.Fire();
    EXPECT_FALSE(Link.Shown().Hourglass);
    EXPECT_EQ(Timer.Interval(), 0);
    EXPECT_EQ(Signs(), "0");
    EXPECT_THAT(Port.Attempts, ElementsAre(7));
}

TEST_F(GpsLinkTest, ListensOnAfterNoSignalAndStartsWithLateData) {
    Link.cmdGPS_Click();
    Timer.Fire(2);
    EXPECT_EQ(Signs(), "- No Signal an COM 7");
    EXPECT_THAT(Port.Attempts, ElementsAre(7, 7));
    EXPECT_TRUE(Port.IsOpen());
    EXPECT_EQ(Timer.Interval(), 0);
    EXPECT_FALSE(Link.Shown().Hourglass);
    EXPECT_EQ(Calls, "focus routes ");
    Port.Receive(Text);
    EXPECT_EQ(Signs(), "- No Signal an COM 7"); // data without a word on the fix
    Port.Receive(Fix);
    EXPECT_EQ(Signs(), "1");
}

TEST_F(GpsLinkTest, SpeaksBothLanguagesAndTellsWhyAPortDoesNotOpen) {
    struct Case {
        std::int16_t English;
        ErrorNumber Error;
        const char *Detail, *Status;
    };
    for (const Case& c : {Case{1, ErrorNumber::FileNotFound, "", "- COM 7 does not exist"},
                          Case{0, ErrorNumber::DeviceError, "busy", "- COM 7 existiert nicht"},
                          Case{1, ErrorNumber::PermissionDenied, "dialout",
                               "- COM 7: permission denied - join the group dialout"},
                          Case{0, ErrorNumber::PermissionDenied, "dialout",
                               "- COM 7: Zugriff verweigert - Gruppe beitreten: dialout"}}) {
        Shared.EnglishUI = c.English;
        Port.Failure = c.Error;
        Port.FailureDetail = c.Detail;
        Link.cmdGPS_Click();
        EXPECT_EQ(Signs(), c.English ? "0 Checking COM 7" : "0 COM 7 wird überprüft");
        Timer.Fire(2);
        EXPECT_EQ(Signs(), c.Status);
        EXPECT_EQ(Timer.Interval(), 0); // it waits for the next click
        EXPECT_FALSE(Link.Shown().Hourglass);
    }
    Port.Failure.reset();
    Link.cmdGPS_Click();
    Timer.Fire(2);
    EXPECT_EQ(Signs(), "- Kein Signal an COM 7");
}

TEST_F(GpsLinkTest, ReopensThePortEveryFiveSecondsUntilDataReturns) {
    Run();
    Port.HangUp();
    EXPECT_EQ(Signs(), "2");
    EXPECT_EQ(Calls, "lost ");
    EXPECT_EQ(Timer.Interval(), 5000);

    Port.Failure = ErrorNumber::FileNotFound;
    Timer.Fire(3);
    EXPECT_EQ(Signs(), "2 COM 7 does not exist");
    EXPECT_EQ(Timer.Interval(), 5000);
    Port.Failure.reset();
    Calls.clear();
    Timer.Fire();
    EXPECT_EQ(Signs(), "2 No Signal an COM 7");
    EXPECT_EQ(Calls, "nothing routes ");
    EXPECT_EQ(Port.Attempts.size(), 5u);

    Port.Receive(Fix);
    EXPECT_EQ(Signs(), "1");
    Timer.Fire();
    EXPECT_EQ(Timer.Interval(), 0);
    EXPECT_EQ(Port.Attempts.size(), 5u);
}

TEST_F(GpsLinkTest, TakesABreakAsALineEventWithOneMessage) {
    Run();
    Port.Callback(SerialEvent::Break);
    EXPECT_THAT(Dialogs.Shown, ElementsAre("Ornivane GPS|Break"));
    EXPECT_EQ(Signs(), "2");
    Port.Receive(Fix);
    Timer.Fire();
    EXPECT_EQ(Signs(), "1");
    EXPECT_EQ(Timer.Interval(), 0);
}

TEST_F(GpsLinkTest, StartsNothingOnAGapAndIgnoresAReceiveEventWithoutBytes) {
    Link.cmdGPS_Click();
    Port.Callback(SerialEvent::Receive);
    EXPECT_EQ(Signs(), "0 Checking COM 7");
    EXPECT_THAT(Dialogs.Shown, IsEmpty());
}

TEST_F(GpsLinkTest, PassesASecondCheckAtOnceAndStillFindsTheWayBackWhenThePortWasGone) {
    Run();
    Link.picGPSCheck_Click(1);
    Port.Failure = ErrorNumber::FileNotFound;
    Link.cmdGPS_Click();
    Timer.Fire(2);
    EXPECT_EQ(Signs(), "0");
    EXPECT_FALSE(Link.Shown().Hourglass);
    Timer.Fire(2);
    EXPECT_EQ(Signs(), "0");
    Port.Failure.reset();
    Timer.Fire();
    EXPECT_TRUE(Port.IsOpen());
    EXPECT_EQ(Timer.Interval(), 0);
}

TEST_F(GpsLinkTest, ReopensAPortThatVanishedOutsideTheRunningStateAtTheSameRhythm) {
    // While listening after "No signal".
    Link.cmdGPS_Click();
    Timer.Fire(2);
    Port.HangUp();
    EXPECT_EQ(Signs(), "- No Signal an COM 7");
    EXPECT_EQ(Timer.Interval(), 5000);
    Timer.Fire();
    EXPECT_TRUE(Port.IsOpen());
    EXPECT_EQ(Timer.Interval(), 0);

    // In the data-lost watch between data that told nothing of a fix and the tick that would end the watch.
    Port.Receive(Fix);
    Port.HangUp();
    Timer.Fire();
    Port.Receive(Text);
    Port.HangUp();
    EXPECT_EQ(Signs(), "2 No Signal an COM 7");
    Timer.Fire();
    EXPECT_EQ(Timer.Interval(), 5000);
    Timer.Fire();
    EXPECT_TRUE(Port.IsOpen());
}

TEST_F(GpsLinkTest, DisconnectsByAClickOnAnyIndicatorEvenWithoutAPort) {
    Run();
    Port.HangUp();
    Timer.Fire();
    Port.HangUp();
    Calls.clear();
    Link.picGPSCheck_Click(2);
    EXPECT_EQ(Signs(), "-");
    EXPECT_EQ(Timer.Interval(), 0);
    EXPECT_FALSE(Port.IsOpen());
    EXPECT_EQ(Calls, "routes ");
}

TEST_F(GpsLinkTest, SurvivesAVisitToAnotherScreenInEveryState) {
    // Off.
    Link.Form_Deactivate();
    Link.Form_Activate();
    EXPECT_FALSE(Port.IsOpen());

    // Checking: the check goes on and ends.
    Link.cmdGPS_Click();
    Link.Form_Deactivate();
    EXPECT_FALSE(Port.IsOpen());
    EXPECT_FALSE(Link.Shown().Hourglass);
    EXPECT_EQ(Timer.Interval(), 0);
    Link.Form_Activate();
    EXPECT_EQ(Timer.Interval(), 1000);
    Port.Receive(Fix);
    Timer.Fire(2);

    // Running, with another port chosen meanwhile.
    Link.Form_Deactivate();
    WriteComSettings(Folder.Path(), {"3", "57600"});
    Link.Form_Activate();
    EXPECT_EQ(Port.Attempts.back(), 3);
    EXPECT_EQ(Port.Settings, "57600,n,8,1");
    EXPECT_EQ(Signs(), "1");
    EXPECT_EQ(Timer.Interval(), 0);

    // Running, but the device has gone: no stale fix, and the watch waits for it.
    Link.Form_Deactivate();
    Port.Failure = ErrorNumber::FileNotFound;
    Link.Form_Activate();
    EXPECT_EQ(Signs(), "2");

    // Data lost: the watch goes on.
    Link.Form_Deactivate();
    Link.Form_Activate();
    EXPECT_EQ(Timer.Interval(), 5000);
    Port.Failure.reset();
    Timer.Fire();
    EXPECT_TRUE(Port.IsOpen());
}

TEST_F(GpsLinkTest, LeavesNoWordOfThePortBehindWhenTheScreenIsLeft) {
    Link.cmdGPS_Click();
    Timer.Fire(2);
    EXPECT_EQ(Signs(), "- No Signal an COM 7");
    Link.Form_Deactivate();
    Link.Form_Activate();
    EXPECT_EQ(Signs(), "-");

    Run();
    Port.HangUp();
    Timer.Fire();
    EXPECT_EQ(Signs(), "2 No Signal an COM 7");
    Link.Form_Deactivate();
    Link.Form_Activate();
    EXPECT_EQ(Signs(), "2");
    Timer.Fire();
    EXPECT_EQ(Signs(), "2 No Signal an COM 7"); // the watch goes on

    Link.cmdGPS_Click();
    Link.Form_Deactivate();
    Link.Form_Activate();
    EXPECT_EQ(Signs(), "0 Checking COM 7"); // so does a check
}

TEST_F(GpsLinkTest, FliesABaudRateThatNoListOffers) {
    WriteComSettings(Folder.Path(), {"7", "115200"});
    Link.Form_Activate();
    Link.cmdGPS_Click();
    EXPECT_EQ(Port.Settings, "115200,n,8,1");
    Link.Form_Deactivate();
    EXPECT_EQ(ReadComSettings(Folder.Path()), (ComSettings{"7", "115200"}));
    // By hand into the file: what is a whole number is one for the port, too.
    for (const char* baud : {" 9600 ", "9600.0", "+9600", "9.6e3"}) {
        WriteComSettings(Folder.Path(), {"07", baud});
        Com.TakeSettings();
        EXPECT_EQ(Com.LineSettings, "9600,n,8,1") << baud;
        EXPECT_EQ(Com.ComPort, 7);
    }
}

TEST_F(GpsLinkTest, MakesTheSettingsFileAnewWhenItCannotBeRead) {
    for (const char* damage : {"", "\"COM7\",\"4800\"\r\n", "\"7\"\r\n", "\"7\"\r\n\"fast\"\r\n"}) {
        Folder.Write("data.crm", damage);
        Com.TakeSettings();
        EXPECT_EQ(Com.ComPort, 1) << damage;
        EXPECT_EQ(Com.LineSettings, "9600,n,8,1") << damage;
        EXPECT_EQ(ReadComSettings(Folder.Path()), (ComSettings{"1", "4800"})) << damage;
    }
    // A folder that is gone stops nothing.
    Shared.ProgramFolder = Folder.Path() / "gone";
    Com.ComPort = 5;
    Link.Form_Activate();
    EXPECT_EQ(Com.ComPort, 1);
}

TEST_F(GpsLinkTest, UnderstandsReceiversOfSeveralSystemsAndTellsWhatItHears) {
    Link.cmdGPS_Click();
    EXPECT_EQ(Link.LinkToolTip(), "");
    Port.Receive("$GNRMC*00\r\n");
    EXPECT_EQ(Link.LinkToolTip(), "Talkers: -\nlast minute: 1 sentence, 1 bad checksum");
    const std::string rmc = Sentence("GNRMC,123519,A,,,,,,,") + "\r\n";
    Port.Receive(Sentence("GLGSV,1") + "\r\n" + rmc.substr(0, 3));
    EXPECT_EQ(Signs(), "0");
    Port.Receive(rmc.substr(3));
    EXPECT_EQ(Signs(), "1");
    EXPECT_EQ(Link.LinkToolTip(), "Talkers: GL, GN\nlast minute: 3 sentences, 1 bad checksum");
    Clock.Milliseconds = 60'000;
    Shared.EnglishUI = 0;
    EXPECT_EQ(Link.LinkToolTip(), "Talker: GL, GN\nletzte Minute: 0 Sätze, 0 falsche Prüfsummen");

    // Right, but too short to be read.
    Port.Receive(Sentence("GPRMC,1") + "\r\n");
    EXPECT_EQ(Link.LinkToolTip(), "Talker: GL, GN, GP\nletzte Minute: 1 Satz, 0 falsche Prüfsummen\n"
                                  "unlesbar seit dem Start: 1");
    Shared.EnglishUI = 1;
    EXPECT_THAT(Link.LinkToolTip(), testing::EndsWith("0 bad checksums\nunreadable since the start: 1"));

    // A receiver that sends both twins, and behind it one on the same port that does not.
    Port.Receive(Fix + rmc);
    Link.picGPSCheck_Click(1);
    Link.cmdGPS_Click();
    EXPECT_EQ(Link.LinkToolTip(), "");
    Port.Receive(rmc);
    EXPECT_EQ(Signs(), "1");
}

} // namespace
} // namespace ornivane
