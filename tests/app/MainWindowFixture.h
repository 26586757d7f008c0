#pragma once

#include <gmock/gmock.h>

#include <QDialog>
#include <QToolButton>
#include <memory>

#include "Fakes.h"
#include "Stores.h"
#include "app/MainForm.h"
#include "gps/GpsFakes.h"
#include "settings/frmSettings.h"
#include "support/Widgets.h"

namespace ornivane::test {

// The main window, its screens made as a test wants them.
class MainWindowTest : public testing::Test {
protected:
    MainWindowTest() {
        MakeStores(folder.Path());
        variablen.ProgramFolder = folder.Path();
        MainForm::Services services;
        services.Boxes = &boxes;
        services.Guard = &guard;
        services.Programs = &programs;
        services.Links = &links;
        services.MakeScreen = [this](Mode mode) { return Make(mode); };
        services.SetNight = [this](bool on) { night = on; };
        services.Ended = [this] { calls.push_back("ended"); };
        form = std::make_unique<MainForm>(variablen, services);
    }
    virtual Screen* Make(Mode mode) = 0;
    Screen* MakeSettings() {
        return new frmSettings({{variablen, settingsPort, settingsTimer, ports, clock, boxes},
                                guard,
                                [this] { form->ApplyLanguage(); },
                                {}});
    }
    template <typename Widget>
    Widget& Find(const char* name) {
        return In<Widget>(*form, name);
    }
    void Click(const char* name, Qt::MouseButton button = Qt::LeftButton) {
        ClickOn(Find<QWidget>(name), button);
    }
    void Key(Qt::Key key) {
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
        QTest::keyClick(form->focusWidget() ? form->focusWidget() : form.get(), key);
    }

    TemporaryFolder folder;
    Variablen variablen;
    ScriptedDialogs boxes;
    FakePort port, settingsPort;
    FakeTimer timer, trackTimer, settingsTimer;
    FakePortList ports;
    SetClock clock;
    RecordedNotice notices;
    EventGuard guard{notices, variablen};
    ScriptedProcesses programs;
    RecordedShell links;
    Texts calls;
    bool night = false;
    std::unique_ptr<MainForm> form;
};

} // namespace ornivane::test
