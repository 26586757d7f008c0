#pragma once

#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

#include "nav/frmGPSmain.h"
#include "platform/qt/Events.h"
#include "platform/qt/QtDialogs.h"
#include "platform/qt/QtNotice.h"
#include "platform/qt/QtTimer.h"
#include "platform/qt/SystemClock.h"
#include "support/FlightFolder.h"

namespace ornivane {

// A receiver that the test speaks for.
class SpokenPort : public SerialPort, public PortList {
public:
    void SetSettings(const std::string&) override {}
    void Open(int) override { open = true; }
    void Close() override { open = false; }
    bool IsOpen() const override { return open; }
    std::string ReadAll() override { return std::exchange(waiting, {}); }
    void OnEvent(std::function<void(SerialEvent)> handler) override { callback = std::move(handler); }
    bool Exists(int) const override { return true; }
    std::string Description(int) const override { return "a test"; }

    void Say(const std::string& body) {
        waiting = "$" + body + "*" + NmeaInterpreter::GetChecksum("$" + body) + "\r\n";
        callback(SerialEvent::Receive);
    }
    void Tell(SerialEvent event) { callback(event); }

private:
    bool open = false;
    std::string waiting;
    std::function<void(SerialEvent)> callback;
};

class FlyingFormTest : public testing::Test, protected FlightFolder {
protected:
    FlyingFormTest() {
        QImage chart(2000, 1000, QImage::Format_RGB32);
        chart.fill(Qt::white);
        for (const char* name : {"alpha.jpg", "zulu.jpg"})
            chart.save(QString::fromStdString((Folder.Path() / "Karten" / name).string()), "JPG");
        AddRoute("R", {6.3, 7.0, 7.3});
        AddRoute("S", {6.4});
    }
    void Show(int width = 1024, int height = 640) {
        Form.resize(width, height);
        Form.show();
        Form.Form_Activate();
    }
    template <typename Widget>
    Widget& Find(const char* name) {
        auto* widget = Form.findChild<Widget*>(name);
        if (!widget) throw std::runtime_error(std::string("no widget ") + name);
        return *widget;
    }
    std::string Text(const char* name) { return Find<QLabel>(name).text().toStdString(); }
    void Click(const char* name) { QTest::mouseClick(&Find<QWidget>(name), Qt::LeftButton); }
    void Fix() {
        Port.Say("GPRMC,120000,A,5030.000,N,00700.000,E,100.0,090.0,221126,,");
        Port.Say("GPGGA,120000,5030.000,N,00700.000,E,1,07,1.2,300.0,M,46.0,M,,");
    }

    SpokenPort Port;
    SystemClock Clock;
    QtNotice Notices;
    QtDialogs Dialogs;
    EventGuard Guard{Notices, Shared};
    QtTimer Timer{Guard}, TrackTimer{Guard};
    frmGPSmain Form{{Shared, {Port, Timer, TrackTimer, Clock}, Port, Dialogs, Notices, Guard}};
};

} // namespace ornivane
