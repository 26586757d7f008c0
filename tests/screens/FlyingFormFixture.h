#pragma once

#include "gps/GpsFakes.h"
#include "nav/frmGPSmain.h"
#include "platform/qt/LampButton.h"
#include "platform/qt/QtTimer.h"
#include "platform/qt/SystemClock.h"
#include "screens/FormFixture.h"

namespace ornivane {

// A receiver that the test speaks for.
struct SpokenPort : FakePort, PortList {
    bool Exists(int) const override { return true; }
    std::string Description(int) const override { return "a test"; }
    void Say(const std::string& body) { Receive(Sentence(body) + "\r\n"); }
};

class FlyingFormTest : public FormTest {
protected:
    FlyingFormTest() {
        WriteCharts(WhiteChart(), {"alpha.jpg", "zulu.jpg"});
        AddRoute("R", {6.3, 7.0, 7.3});
        AddRoute("S", {6.4});
        Front = &Form;
    }
    void Show(int width = 1024, int height = 640) { FormTest::Show(Form, width, height); }
    std::string Entry() { return Text("lblHeading") + " " + Text("lblIAS"); }
    void Fix() {
        Port.Say("GPRMC,120000,A,5030.000,N,00700.000,E,100.0,090.0,221126,,");
        Port.Say("GPGGA,120000,5030.000,N,00700.000,E,1,07,1.2,300.0,M,46.0,M,,");
    }

    SpokenPort Port;
    SystemClock Clock;
    QtDialogs Dialogs;
    QtTimer Timer{Guard}, TrackTimer{Guard};
    frmGPSmain Form{{Shared, {Port, Timer, TrackTimer, Clock}, Port, Dialogs, Notices, Guard, Charts}};
};

} // namespace ornivane
