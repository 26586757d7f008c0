#pragma once

#include <QHeaderView>

#include "planning/ListsFixture.h"
#include "planning/frmPlanung.h"
#include "planning/frmWaypointPanel.h"
#include "screens/FormFixture.h"

namespace ornivane {

// The planning screen on the lists of a small store.
class PlanningPanelsTest : public FormOn<PlanningLists> {
protected:
    PlanningPanelsTest() {
        Front = &Show(Window);
        QApplication::setActiveWindow(&Window);
        Left->FocusEntry();
    }
    void ClickRow(const char* grid, int row) { ornivane::ClickRow(Find<QTableView>(grid), row, 1); }
    // Keys go where the focus is.
    void Key(int key) { QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key)); }
    void Type(const char* text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    std::string Focus() {
        return QApplication::focusWidget() ? QApplication::focusWidget()->objectName().toStdString() : "";
    }
    // What the pilot sees: fields, the row that is marked, and the counter, when they tell of one waypoint.
    std::string Seen() {
        auto& grid = Find<QTableView>("gridWaypoints");
        const auto rows = grid.selectionModel()->selectedRows();
        const std::string marked = rows.size() == 1 ? rows[0].data().toString().toStdString() : "none";
        const std::string field = Text("tWaypoint1");
        const std::string count = Find<QLabel>("lblCount").text().toStdString();
        const std::string place = rows.size() == 1 ? std::to_string(rows[0].row() + 1) : "0";
        if (marked != field || !count.starts_with(place + " / "))
            return field + " but " + marked + " at " + count;
        return field + " " + count;
    }

    frmPlanung Window{Shared, Boxes, Guard, Charts};
    WaypointEditing& Entry = Window.Logic().Waypoints;
    RouteEditing& Route = Window.Logic().Routes;
    QWidget* Map = &In<QWidget>(Window, "picMap");
    frmWaypointPanel* Left = Window.findChild<frmWaypointPanel*>();
};

} // namespace ornivane
