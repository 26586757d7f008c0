#include <QComboBox>
#include <QLabel>
#include <QProgressBar>

#include "planning/frmPlanung.h"
#include "planning/frmRoutePanel.h"
#include "planning/frmWaypointPanel.h"
#include "platform/qt/LampButton.h"
#include "platform/qt/ReadoutLabel.h"
#include "platform/qt/SurfaceWidget.h"
#include "platform/qt/ZoomSlider.h"

namespace ornivane {

QString frmPlanung::Text(const char* german, const char* english) const {
    return QString::fromUtf8(shared.Text(german, english));
}

void frmPlanung::ApplyLanguage() {
    setWindowTitle(Text("Planung", "Plan mode"));
    distance->SetCaption(Text("Distanz", "Distance"));
    course->SetCaption(Text("Kurs", "Bearing"));
    latitude->SetCaption(Text("Breitengrad", "Latitude"));
    longitude->SetCaption(Text("Längengrad", "Longitude"));
    cmdMessen->setText(Text(" Messen An ", " Measure On "));
    picMessen->setText(Text(" Messen Aus ", " Measure Off "));
    ApplyToolTips();
    waypoints->ApplyLanguage();
    routes->ApplyLanguage();
    shown.reset();
    ShowState();
}

void frmPlanung::ApplyToolTips() {
    const std::pair<QWidget*, QString> tips[] = {
        {picMap, Text("Ziehen verschiebt, Doppelklick beginnt einen Wegpunkt; Pfeiltasten auf/ab: voriger "
                      "und nächster Wegpunkt, Eingabe hängt ihn an die Strecke",
                      "Drag to move, double-click to begin a waypoint; arrow keys up/down: previous and "
                      "next waypoint, Enter adds it to the route")},
        {SlideMap, Text("Maßstab", "Zoom")},
        {cmbMaps, Text("Karte wählen", "Choose the chart")},
        {progBar, Text("Karte wird geladen", "Loading the chart")},
        {latitude, Text("Breite unter dem Mauszeiger: Grad, Minuten hinter dem Komma",
                        "Latitude under the cursor: degrees, minutes behind the point")},
        {longitude, Text("Länge unter dem Mauszeiger: Grad, Minuten hinter dem Komma",
                         "Longitude under the cursor: degrees, minutes behind the point")},
        {distance, Text("Gemessene Entfernung", "Measured distance")},
        {course, Text("Gemessener rechtweisender Kurs", "Measured true bearing")},
        {cmdMessen, Text("Entfernung und Kurs vom eingegebenen Wegpunkt zum Mauszeiger messen",
                         "Measure distance and bearing from the waypoint entered to the cursor")},
        {picMessen, Text("Messen beenden", "Stop measuring")},
    };
    for (const auto& [widget, tip] : tips) widget->setToolTip(tip);
}

} // namespace ornivane
