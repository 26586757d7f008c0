#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QProgressBar>
#include <QTableView>

#include "nav/frmGPSmain.h"
#include "nav/frmInstrumentPanel.h"
#include "nav/frmRecordPanel.h"
#include "nav/frmStageButton.h"
#include "nav/frmWindPanel.h"
#include "platform/qt/LampButton.h"
#include "platform/qt/ReadoutLabel.h"
#include "platform/qt/RecordsetModel.h"
#include "platform/qt/SurfaceWidget.h"
#include "platform/qt/ZoomSlider.h"

namespace ornivane {

void frmGPSmain::ApplyLanguage() {
    ApplyCaptions();
    ApplyToolTips();
    ApplyPanelTexts();
    instruments->ApplyLanguage();
    wind->ApplyLanguage();
    record->ApplyLanguage();
    pointsModel->HeadersChanged();
    PlaceOverMap();
    ShowState();
}

void frmGPSmain::ApplyCaptions() {
    speed->SetCaption(Text("Geschwindigkeit", "Speed"));
    bearing->SetCaption(Text("Kurs", "Track"));
    altitude->SetCaption(Text("Höhe", "Altitude"));
    distance->SetCaption(Text("Distanz", "Distance"));
    course->SetCaption(Text("Zielkurs", "Course"));
    time->SetCaption(screen->State.ShowETE ? Text("Dauer", "Time") : Text("Ankunft", "Arrival"));
    remaining->SetCaption(Text("Rest", "Remaining"));
    lampTips = {Text("Verbindung wird geprüft oder kein Fix – Klick trennt",
                     "Checking, or no fix – click to disconnect"),
                Text("GPS-Fix – Klick trennt", "GPS fix – click to disconnect"),
                Text("Daten verloren – Klick trennt", "Data lost – click to disconnect")};
    cmdShowPoints->setText(Text("Nur Strecke", "Route only"));
}

QString frmGPSmain::WhyNoMap() const {
    if (screen->Map.HasRows()) return QString::fromStdString(screen->Map.MapError());
    return Text(
        "Keine Karte. Legen Sie ein Kartenbild in den Ordner Karten und geben Sie ihm unter Kartendaten "
        "seinen Rahmen.",
        "No chart. Put a chart image into the folder Karten and give it its frame under Map Data.");
}

void frmGPSmain::ApplyToolTips() {
    const QString device = QString::fromStdString(services.Ports.Description(screen->Com.ComPort));
    connectTip = Text("Mit dem GPS-Empfänger an COM %1 verbinden", "Connect to the GPS receiver on COM %1")
                     .arg(screen->Com.ComPort) +
                 (device.isEmpty() ? device : "\n" + device);
    const std::pair<QWidget*, QString> tips[] = {
        {picMap, Text("Karte: ziehen verschiebt, Pfeiltasten auf/ab ändern den Maßstab",
                      "Chart: drag to move, arrow keys up/down to zoom")},
        {SlideMap, Text("Maßstab", "Zoom")},
        {progBar, Text("Karte wird geladen", "Loading the chart")},
        {lblStatus, Text("Zustand der GPS-Verbindung", "State of the GPS link")},
        {cmbMaps, Text("Karte wählen", "Choose the chart")},
        {cmbRoute, Text("Strecke wählen", "Choose the route")},
        {lblRoute, Text("Länge der Strecke; Klick blendet sie auf der Karte aus",
                        "Length of the route; a click hides it on the chart")},
        {gridWaypoints, Text("Punkte der Strecke; ein Klick macht einen Punkt aktiv",
                             "Points of the route; a click makes one active")},
        {cmdKartezentrieren,
         Text("Karte auf das Flugzeug zentrieren", "Keep the chart centred on the aircraft")},
        {cmdMapScroll,
         Text("Karten am Rand von selbst wechseln; Leertaste oder linke Maustaste: nächste Karte",
              "Change charts by themselves at their edge; space bar or left button: next chart")},
        {tNextMap, Text("Die nächste Karte; ein Klick blendet den Namen aus",
                        "The next chart; a click hides the name")},
        {LblMapNumber, Text("Karten, die das Flugzeug decken", "Charts that cover the aircraft")},
        {cmdSet, Text("Anzeige einstellen", "What the chart shows")},
        {cmdPrev, Text("Voriger Punkt (Pfeil links)", "Previous point (left arrow)")},
        {cmdNext, Text("Nächster Punkt (Pfeil rechts)", "Next point (right arrow)")},
        {cmdActivateGoto, Text("Strecke abfliegen", "Fly the route")},
        {cmdDirectFly, Text("Direktflug: Ziel mit der rechten Maustaste auf der Karte wählen",
                            "Direct Fly: choose the target on the chart with the right button")},
        {cmdShowPoints, Text("Nur die Punkte der Strecke zeigen", "Show only the points of the route")},
        {speed, Text("Geschwindigkeit über Grund; Klick wechselt kts und km/h",
                     "Ground speed; click for kts or km/h")},
        {bearing, Text("Kurs über Grund", "Track over ground")},
        {altitude, Text("GPS-Höhe; Klick wechselt ft und m", "GPS altitude; click for ft or m")},
        {lblLat, Text("Geografische Breite", "Latitude")},
        {lblLong, Text("Geografische Länge", "Longitude")},
        {distance, Text("Entfernung zum nächsten Punkt", "Distance to the next point")},
        {course, Text("Rechtweisender Kurs zum nächsten Punkt", "True course to the next point")},
        {time, Text("Zeit bis zum nächsten Punkt; Klick wechselt zur Ankunftszeit",
                    "Time to the next point; click for the time of arrival")},
        {remaining, Text("Reststrecke bis zum letzten Punkt", "Remaining distance to the last point")},
        {lblLatx, Text("Breite des Direktflugziels, Grad und Minuten",
                       "Latitude of the Direct Fly target, degrees and minutes")},
        {lblLongx, Text("Länge des Direktflugziels, Grad und Minuten",
                        "Longitude of the Direct Fly target, degrees and minutes")},
    };
    for (const auto& [widget, tip] : tips) widget->setToolTip(tip);
}

void frmGPSmain::ApplyPanelTexts() {
    for (const auto& [entry, lamp] : flagLamps) {
        lamp->setText(Text(entry.German, entry.English));
        lamp->setToolTip(Text(entry.GermanTip, entry.EnglishTip));
    }
    airspaceButton->SetTexts(
        Text("Luftraum", "Airspace"),
        {Text("Lufträume in Flughöhe zeigen", "Show the airspace at the present height"),
         Text("Lufträume sind an; Klick: mit Höhen", "Airspace is on; click: with heights"),
         Text("Lufträume mit Höhen sind an; Klick: aus", "Airspace with heights is on; click: off")});
    airfieldButton->SetTexts(Text("Flugplätze", "Airfields"),
                             {Text("Flugplätze mit Piste zeigen", "Show airfields with their runway"),
                              Text("Flugplätze sind an; Klick: mit Piste und Funk",
                                   "Airfields are on; click: with runway and radio"),
                              Text("Flugplätze mit Piste und Funk sind an; Klick: aus",
                                   "Airfields with runway and radio are on; click: off")});
    const auto line = [](const char* colours, const QString& text) {
        // On the white of a chart, by night too.
        return QString("<tr><td style='background: #ffffff'>%1</td><td>&nbsp;%2</td></tr>")
            .arg(colours, text);
    };
    lblLegend->setText(
        "<table>" +
        line("<span style='color:#ff0000'>━</span><span style='color:#000000'>━</span>",
             Text("A, B, C, D, CTR und übrige", "A, B, C, D, CTR and all others")) +
        line("<span style='color:#00c8c8'>━━</span>", "TMZ") +
        line("<span style='color:#ff8000'>━━</span>", Text("Gefahrengebiet", "Danger area")) +
        line("<span style='color:#8f35d9'>━━</span>", Text("Platzrunden", "Traffic patterns")) + "</table>");
    lblLegend->setToolTip(Text("Farben der Lufträume auf der Karte", "Colours of airspace on the chart"));
}

} // namespace ornivane
