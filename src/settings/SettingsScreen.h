#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "common/Variablen.h"
#include "gps/PortTest.h"
#include "platform/Clock.h"
#include "settings/Categories.h"

namespace ornivane {

// What of the program and of the system the settings screen works with. Port and timer are its own, not those
// of the flying screen.
struct SettingsWorld {
    Variablen& Shared;
    SerialPort& MSComm1;
    Timer& timerCheck;
    const PortList& Ports;
    const Clock& SystemClock;
    Dialogs& Messages;
};

// The settings screen without its form, which owns it: test of the receiver's port, language, aircraft
// symbol, track logger, QNH, categories. Language and symbol are saved at the click, QNH and logger when the
// screen is left, the port by a test that went well.
class SettingsScreen {
public:
    // What the form does when something changes.
    struct Form {
        std::function<void()> ShowState;
        std::function<void()> ShowLanguage; // of every caption of the program
    };
    SettingsScreen(const SettingsWorld& settingsWorld, Notice& notices, Form settingsForm);

    void Form_Load() { CategoryList.Form_Load(); }
    void Form_Activate();
    // Takes what was entered, closes the port, saves. What was entered holds though a file cannot be written;
    // RuntimeError then.
    void Form_Deactivate();
    // Every text of the logic in the language of this moment.
    void ApplyLanguage();

    // OptGer and OptEng: 0 German, 1 English.
    void ChooseLanguage(std::int16_t language);
    void Option_Click(std::int16_t symbol); // 1 or 2
    void chkTrack_Click(bool ticked);
    void chkAutoOn_Click(bool ticked) { chkAutoOn = world.Shared.TrackAuto = ticked; }
    // Whether the import of airfields may be shown; without their store the user is told.
    bool cmdGetWaypoint_Click();

    PortTest Port;
    Undo LastDeed; // of the categories
    Categories CategoryList;

    static constexpr std::array<const char*, 5> Intervals{"10", "15", "20", "30", "60"}; // s
    std::string cmbTrack = Intervals.front(); // one of them, or as typed
    bool chkTrack = false, chkAutoOn = false;
    bool TrackEnabledControls = false; // cmbTrack and chkAutoOn are available
    bool Frame4 = true;                // the logger's frame is there: the tracks have a store
    bool frmLuftraumShows = true;      // so is the airspace's
    std::string frmLuftraum;           // its caption

private:
    void ReadTrack();
    void TakeTrack();
    void SaveAll();

    SettingsWorld world;
    Form form;
};

} // namespace ornivane
