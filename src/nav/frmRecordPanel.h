#pragma once

#include <QWidget>
#include <functional>

#include "nav/TrackLogger.h"
#include "platform/Dialogs.h"

namespace ornivane {

class EventGuard;
class FittedText;
class LampButton;

// The three states of the track logger on one place: a ring to start by hand, a ring with an A that waits for
// the speed, and the lit button with the count of samples while it runs.
class frmRecordPanel : public QWidget {
    Q_OBJECT

public:
    frmRecordPanel(QWidget* parent, const Variablen& shared, EventGuard& guard, Notice& notices);

    void Attach(TrackLogger& logger, std::function<void()> changed);
    void ShowState();
    void ApplyLanguage();

private:
    LampButton* Stage(const char* name, const char* icon, const std::function<void()>& click);

    const Variablen& shared;
    EventGuard& guard;
    Notice& notices;
    TrackLogger* logger = nullptr;
    std::function<void()> stateChanged;
    LampButton *cmdRecord = nullptr, *cmdRecordAuto = nullptr, *picRecord = nullptr;
    FittedText* lblRecord = nullptr;
};

} // namespace ornivane
