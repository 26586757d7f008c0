#pragma once

#include <functional>
#include <string>

#include "common/Qnh.h"
#include "common/Settings.h"
#include "platform/Clock.h"

namespace ornivane {

// The QNH at the dial, and its entry there: the pressure changes on the way, and leaving the flying screen
// for the settings would close the port.
class QnhReadout {
public:
    // `updateMap`: airspace is chosen by another pressure now.
    QnhReadout(DayQnh& dayQnh, const Settings& programSettings, const Clock& systemClock,
               std::function<void()> updateMap);

    // The screen is back in front. A QNH holds for the day on which it was entered; on another day it is what
    // stands in the settings: the standard pressure after a start, and after midnight the one that this
    // flight was begun with.
    void Form_Activate();

    void lblQNH_Click() { frmEnterQNH = true; }
    // By the rules of the settings, and kept as they keep it. What was entered holds though the file cannot
    // be written; RuntimeError then.
    void tEnterQNH_Enter(const std::string& text);
    void tEnterQNH_Escape() { frmEnterQNH = false; }

    std::string lblQNH;       // "QNH 1013"
    bool frmEnterQNH = false; // the entry is open

private:
    void Show();

    DayQnh& qnh;
    const Settings& settings;
    const Clock& clock;
    std::function<void()> redraw;
};

} // namespace ornivane
