#pragma once

#include <QWidget>
#include <functional>

#include "nav/Instrument.h"
#include "nav/QnhReadout.h"
#include "platform/qt/CompassCard.h"
#include "platform/qt/SurfaceWidget.h"

class QFrame;
class QLabel;
class QLineEdit;

namespace ornivane {

class EventGuard;

// The round instrument with its labels, the QNH, and the entry frames of both, which open over the map beside
// it.
class frmInstrumentPanel : public QWidget {
    Q_OBJECT

public:
    frmInstrumentPanel(QWidget* parent, const Language& languageOfTexts, const DayQnh& qnhOfDay,
                       EventGuard& eventGuard);

    PictureSurface& Surface() { return Kurskreisel->Surface(); }
    const Picture& Card() const { return Picture1; }
    // Before anything is shown. `done`: an entry has ended, the keys go back to the map; `changed`: show the
    // state.
    void Attach(Instrument& toShow, QnhReadout& qnhToShow, std::function<void()> done,
                std::function<void()> changed);

    // Escape, wherever the keys are: an open entry closes and takes nothing.
    void CancelEntry();
    // The QNH is shown while airspace is, on a ground that tells how many airspaces there are.
    void ShowState(bool qnhShows, Colour qnhGround);
    void ApplyLanguage();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QLabel* Label(const char* name);
    QFrame* Entry(const char* name, QLabel*& caption, QLineEdit*& field, const char* fieldName);
    bool IsEntering() const { return instrument->IsEntering() || qnh->frmEnterQNH; }
    void Pressed(Qt::MouseButton button);
    void AskQnh();
    void EndEntry(const QObject* field, bool isEnter);
    void ShowEntry(QFrame& entry, QLineEdit& field, bool visible);
    void Do(const std::function<void()>& event);
    QString Text(const char* german, const char* english) const { return language.Text(german, english); }

    const Language& language;
    const DayQnh& dayQnh;
    EventGuard& guard;
    Instrument* instrument = nullptr;
    QnhReadout* qnh = nullptr;
    std::function<void()> entryDone, stateChanged;
    CompassCard Picture1;
    SurfaceWidget* Kurskreisel = nullptr;
    QLabel *lblVOR1 = nullptr, *lbldistVOR = nullptr, *lblKurs = nullptr, *lblQNH = nullptr;
    QFrame *frmVOR = nullptr, *frmKurs = nullptr, *frmEnterQNH = nullptr;
    QLabel *vorCaption = nullptr, *courseCaption = nullptr, *lblResult = nullptr, *qnhCaption = nullptr;
    Colour qnhGroundShown = 0;
    QLineEdit *tVOR1 = nullptr, *tKurs = nullptr, *tEnterQNH = nullptr;
};

} // namespace ornivane
