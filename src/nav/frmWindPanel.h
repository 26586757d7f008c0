#pragma once

#include <QWidget>

#include "base/Language.h"
#include "nav/WindCalculator.h"
#include "platform/qt/SurfaceWidget.h"

class QLabel;

namespace ornivane {

class EventGuard;

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
    QString Text(const char* german, const char* english) const { return language.Text(german, english); }

    const Language& language;
    EventGuard& guard;
    WindCalculator* wind = nullptr;
    QLabel *lblHeading = nullptr, *lblIAS = nullptr, *lblWind = nullptr;
    QLabel *headingCaption = nullptr, *iasCaption = nullptr, *windCaption = nullptr;
    SurfaceWidget* picWind = nullptr;
    QString iasTip;
};

} // namespace ornivane
