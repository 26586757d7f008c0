#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

#include "base/Strings.h"
#include "planning/frmWaypointPanel.h"
#include "platform/qt/LampButton.h"
#include "platform/qt/RecordsetModel.h"

namespace ornivane {

void frmWaypointPanel::ApplyLanguage() {
    searchCaption->setText(Text("Schnellsuche", "Quickfind"));
    nameCaption->setText(Text("Wegpunkt", "Waypoint"));
    latCaption->setText(Text("Breitengrad", "Latitude"));
    longCaption->setText(Text("Längengrad", "Longitude"));
    cmdNew->setText(Text(" Wegpunkt hinzufügen ", " Add Waypoint "));
    cmdDelete->setText(Text(" Wegpunkt löschen ", " Delete Waypoint "));
    model->HeadersChanged();
    ApplyToolTips();
}

QString frmWaypointPanel::ChangeCaption(const std::optional<std::string>& otherTarget) const {
    constexpr std::size_t characters = 60;
    if (!otherTarget) return Text(" Wegpunkt ändern ", " Change Waypoint ");
    const QString name = QString::fromStdString(Shortened(*otherTarget, characters)).replace("&", "&&");
    return Text(" Wegpunkt ändern: ", " Change Waypoint: ") + name + " ";
}

void frmWaypointPanel::ApplyToolTips() {
    tquickfind->setToolTip(
        Text("Findet den ersten Namen ab dem Text; Pfeile gehen weiter, Doppelklick leert",
             "Finds the first name from the text on; arrows step, a double click empties"));
    cmbKat->setToolTip(Text("Zeigt nur die Wegpunkte einer Kategorie; neue bekommen sie auch",
                            "Shows the waypoints of one category; new ones get it, too"));
    gridWaypoints->setToolTip(Text("Eingabe hängt den Wegpunkt an die Strecke, Pfeile gehen weiter",
                                   "Enter adds the waypoint to the route, arrows step"));
    cmdPrev->setToolTip(Text("Voriger Wegpunkt", "Previous waypoint"));
    cmdNext->setToolTip(Text("Nächster Wegpunkt", "Next waypoint"));
    lblCount->setToolTip(
        Text("Platz in der Liste / Zahl der Wegpunkte", "Place in the list / number of waypoints"));
    tWaypoint[1]->setToolTip(Text("Name; Eingabe fügt hinzu, Esc verwirft, Doppelklick leert",
                                  "Name; Enter adds, Esc discards, a double click empties"));
    tWaypoint[2]->setToolTip(Text("Grad, Minuten hinter dem Komma. Bsp.: N 47°40': 47,4",
                                  "Degrees, minutes behind the point. E.g. N 47°40': 47.4"));
    tWaypoint[3]->setToolTip(Text("Grad, Minuten hinter dem Komma. Bsp.: E 8°31': 8,31",
                                  "Degrees, minutes behind the point. E.g. E 8°31': 8.31"));
    tNS->setToolTip(
        Text("Nord oder Süd: Klick, Leertaste, N oder S", "North or south: click, space, N or S"));
    tEW->setToolTip(Text("Ost oder West: Klick, Leertaste, E oder W", "East or west: click, space, E or W"));
    cmdNew->setToolTip(
        Text("Speichert die Eingabe als neuen Wegpunkt", "Stores the entry as a new waypoint"));
    cmdChange->setToolTip(Text("Schreibt die Eingabe, Süd und West mit Minus, in den gewählten Wegpunkt",
                               "Writes the entry, south and west with a minus, into the chosen waypoint"));
    cmdDelete->setToolTip(Text("Löscht den gewählten Wegpunkt ohne Rückfrage; Strecken behalten ihn",
                               "Deletes the chosen waypoint without asking; routes keep it"));
}

} // namespace ornivane
