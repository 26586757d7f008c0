#include "nav/QnhReadout.h"

#include "base/Numbers.h"
#include "common/Qnh.h"
#include "common/SettingsFiles.h"

namespace ornivane {

QnhReadout::QnhReadout(Variablen& variablen, const Clock& systemClock, std::function<void()> updateMap)
    : shared(variablen), clock(systemClock), redraw(std::move(updateMap)) {}

void QnhReadout::Show() { lblQNH = "QNH " + std::to_string(shared.QNH); }

void QnhReadout::Form_Activate() {
    if (shared.QNHDate != DateOf(clock.Now()))
        shared.QNH = ToInt16(ParseNumber(shared.tQNH).value_or(StandardPressure));
    Show();
}

void QnhReadout::lblQNH_Click() { frmEnterQNH = true; }

void QnhReadout::tEnterQNH_Enter(const std::string& text) {
    frmEnterQNH = false;
    EnterQnh(shared, text, DateOf(clock.Now()));
    Show();
    redraw();
    WriteQnhSettings(shared.ProgramFolder, {shared.QNH, shared.QNHDate});
}

} // namespace ornivane
