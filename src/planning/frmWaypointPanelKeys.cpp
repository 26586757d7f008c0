#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <algorithm>

#include "planning/frmWaypointPanel.h"
#include "platform/qt/Clicked.h"

namespace ornivane {

namespace {

constexpr int ListArrow = 30; // pixels of the category list's own arrow, which stays in sight
constexpr int FocusFrame = 3; // pixels of its border

} // namespace

bool frmWaypointPanel::IsEntry(const QObject* watched) const {
    return watched && std::ranges::find(tWaypoint, watched) != tWaypoint.end();
}

bool frmWaypointPanel::TakesHemisphereKey(const QObject* watched, int key) const {
    if (watched == tNS) return key == Qt::Key_N || key == Qt::Key_S || key == Qt::Key_Space;
    return watched == tEW && (key == Qt::Key_E || key == Qt::Key_W || key == Qt::Key_Space);
}

bool frmWaypointPanel::TakesKey(QObject* watched, int key) const {
    const bool isStep = key == Qt::Key_Up || key == Qt::Key_Down;
    const bool isEnd = IsEnter(key) || key == Qt::Key_Escape;
    if (IsEntry(watched) || watched == tquickfind) return isStep || isEnd;
    if (watched == tNS || watched == tEW) return isEnd || TakesHemisphereKey(watched, key);
    if (watched == gridWaypoints || watched == map) return isStep || IsEnter(key);
    // The arrows open the list of categories: stepping through it closed would filter at each step.
    return watched == cmbKat && (isStep || isEnd || key == Qt::Key_Space);
}

void frmWaypointPanel::KeyDone(QObject* watched, int key) {
    if (watched == tquickfind) return SearchKey(key);
    if (watched == gridWaypoints || watched == map) return ListKey(key);
    if (watched == cmbKat) return key == Qt::Key_Escape ? FocusList() : cmbKat->showPopup();
    if (TakesHemisphereKey(watched, key)) return HemisphereKey(watched, key);
    if (IsEnter(key)) return Do([this] { return waypoints.cmdNew(); });
    if (key == Qt::Key_Escape) return Do([this] { waypoints.CancelEntry(); });
    FocusList();
    ListKey(key);
}

void frmWaypointPanel::ListKey(int key) {
    if (IsEnter(key)) return Do(addToRoute);
    Do([&] { key == Qt::Key_Down ? waypoints.cmdNext() : waypoints.cmdPrev(); });
}

void frmWaypointPanel::SearchKey(int key) {
    if (key == Qt::Key_Down) return Do([this] { waypoints.cmdNext(); });
    if (key == Qt::Key_Up) return Do([this] { waypoints.cmdPrev(); });
    if (IsEnter(key)) return FocusList(); // what was found; the next Enter puts it into the route
    Do([this] { waypoints.tquickfind.clear(); });
}

void frmWaypointPanel::HemisphereKey(const QObject* watched, int key) {
    Do([&] {
        if (key == Qt::Key_Space)
            watched == tNS ? waypoints.tNS_Click() : waypoints.tEW_Click();
        else if (watched == tNS)
            waypoints.tNS = key == Qt::Key_S ? NorthSouth::South : NorthSouth::North;
        else
            waypoints.tEW = key == Qt::Key_W ? EastWest::West : EastWest::East;
    });
}

bool frmWaypointPanel::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonDblClick:
        if (EmptyField(watched)) return true;
        break;
    case QEvent::MouseButtonRelease:
        if (watched == tNS && IsClick(*tNS, *event)) Do([this] { waypoints.tNS_Click(); });
        if (watched == tEW && IsClick(*tEW, *event)) Do([this] { waypoints.tEW_Click(); });
        break;
    default:
        if (watched == cmbKat && FilterCategory(*event)) return true;
    }
    return frmListPanel::eventFilter(watched, event);
}

bool frmWaypointPanel::EmptyField(const QObject* watched) {
    if (!IsEntry(watched) && watched != tquickfind) return false;
    Do([&] {
        for (std::size_t i = 1; i < tWaypoint.size(); ++i)
            if (watched == tWaypoint[i]) waypoints.tWaypoint[i].clear();
        if (watched == tquickfind) waypoints.tquickfind.clear();
    });
    return true;
}

// tKat masks the list but for its arrow; the mouse goes through it.
bool frmWaypointPanel::FilterCategory(QEvent& event) {
    switch (event.type()) {
    case QEvent::Resize:
        tKat->setGeometry(FocusFrame, FocusFrame, cmbKat->width() - ListArrow - FocusFrame,
                          cmbKat->height() - 2 * FocusFrame);
        return false;
    case QEvent::MouseButtonPress:
        Do([this] { waypoints.tKat_Click(); });
        return false;
    case QEvent::FocusOut:
        if (static_cast<QFocusEvent&>(event).reason() != Qt::PopupFocusReason)
            Do([this] { waypoints.cmbKat_LostFocus(); });
        return false;
    default:
        return false;
    }
}

} // namespace ornivane
