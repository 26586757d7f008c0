#pragma once

#include <QWidget>

#include "nav/WindCalculator.h"
#include "platform/qt/SurfaceWidget.h"

class QLabel;

namespace ornivane {

class EventGuard;
struct Variablen;

// Heading and airspeed as typed, the wind, and its arrow.
class frmWindPanel : public QWidget {
    Q_OBJECT

public:
    frmWindPanel(QWidget* parent, const Variablen& shared, EventGuard& guard);

    PictureSurface& Surface() { return picWind->Surface(); }
    void Attach(WindCalculator& wind);
    void ShowState();
    void ApplyLanguage();

protected:
    void changeEvent(QEvent* event) override;

private:
    QLabel* Field(const char* name, QLabel*& caption);
    void TakePalette();

    const Variablen& shared;
    EventGuard& guard;
    WindCalculator* wind = nullptr;
    QLabel *lblHeading = nullptr, *lblIAS = nullptr, *lblWind = nullptr;
    QLabel *headingCaption = nullptr, *iasCaption = nullptr, *windCaption = nullptr;
    SurfaceWidget* picWind = nullptr;
    QString iasTip;
};

} // namespace ornivane
