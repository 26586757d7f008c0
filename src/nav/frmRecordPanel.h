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
    frmRecordPanel(QWidget* parent, const Language& languageOfTexts, EventGuard& eventGuard,
                   Notice& noticeBar);

    // `onBegin` and `onEnd`: the pilot's clicks; `changed`: show the state.
    void Attach(const TrackLoggerShown& toShow, std::function<void()> onBegin, std::function<void()> onEnd,
                std::function<void()> changed);
    void ShowState();
    void ApplyLanguage();

private:
    QString Text(const char* german, const char* english) const { return language.Text(german, english); }
    LampButton* Stage(const char* name, const std::function<void()>& click);

    const Language& language;
    EventGuard& guard;
    Notice& notices;
    const TrackLoggerShown* logger = nullptr;
    std::function<void()> begin, end, stateChanged;
    LampButton *cmdRecord = nullptr, *cmdRecordAuto = nullptr, *picRecord = nullptr;
    FittedText* lblRecord = nullptr;
};

} // namespace ornivane
