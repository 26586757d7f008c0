#pragma once

#include <QWidget>

#include "nav/WindCalculator.h"
#include "platform/qt/SurfaceWidget.h"

class QLabel;

namespace ornivane {

class EventGuard;
struct Language;

// Heading and airspeed as typed, the wind, and its arrow.
class frmWindPanel : public QWidget {
    Q_OBJECT

public:
    frmWindPanel(QWidget* parent, const Language& languageOfTexts, EventGuard& eventGuard);

    PictureSurface& Surface() { return picWind->Surface(); }
    void Attach(WindCalculator& toShow);
    void ShowState();
    void ApplyLanguage();

protected:
    void changeEvent(QEvent* event) override;

private:
    QLabel* Field(const char* name, QLabel*& caption);
    void TakePalette();

    const Language& language;
    EventGuard& guard;
    WindCalculator* wind = nullptr;
    QLabel *lblHeading = nullptr, *lblIAS = nullptr, *lblWind = nullptr;
    QLabel *headingCaption = nullptr, *iasCaption = nullptr, *windCaption = nullptr;
    SurfaceWidget* picWind = nullptr;
    QString iasTip;
};

} // namespace ornivane
