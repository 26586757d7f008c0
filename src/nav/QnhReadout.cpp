#include "nav/QnhReadout.h"

#include "base/Numbers.h"
#include "common/SettingsFiles.h"

namespace ornivane {

QnhReadout::QnhReadout(DayQnh& dayQnh, const Settings& programSettings, const Clock& systemClock,
                       std::function<void()> updateMap)
    : qnh(dayQnh), settings(programSettings), clock(systemClock), redraw(std::move(updateMap)) {}

void QnhReadout::Show() { lblQNH = "QNH " + std::to_string(qnh.QNH); }

void QnhReadout::Form_Activate() {
    if (qnh.QNHDate != DateOf(clock.Now()))
        qnh.QNH = ToInt16(ParseNumber(qnh.tQNH).value_or(StandardPressure));
    Show();
}

void QnhReadout::tEnterQNH_Enter(const std::string& text) {
    frmEnterQNH = false;
    EnterQnh(qnh, text, DateOf(clock.Now()));
    Show();
    redraw();
    WriteQnhSettings(settings.ProgramFolder, {qnh.QNH, qnh.QNHDate});
}

} // namespace ornivane
