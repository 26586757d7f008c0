#pragma once

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

#include "planning/ListsFixture.h"
#include "planning/frmPlanung.h"
#include "planning/frmWaypointPanel.h"
#include "platform/qt/Events.h"
#include "platform/qt/QtNotice.h"

namespace ornivane {

// The planning screen on the lists of a small store.
class PlanningPanelsTest : public testing::Test, protected PlanningLists {
protected:
    PlanningPanelsTest() {
        Window.resize(1024, 640);
        Window.show();
        Window.Form_Activate();
        QApplication::setActiveWindow(&Window);
        Left->FocusEntry();
    }
    template <typename Widget>
    Widget& Find(const char* name) {
        auto* widget = Window.findChild<Widget*>(name);
        if (!widget) throw std::runtime_error(std::string("no widget ") + name);
        return *widget;
    }
    std::string Text(const char* name) { return Find<QLineEdit>(name).text().toStdString(); }
    void Click(const char* name) { QTest::mouseClick(&Find<QWidget>(name), Qt::LeftButton); }
    void ClickRow(const char* grid, int row) {
        auto& view = Find<QTableView>(grid);
        const QModelIndex index = view.model()->index(row, 1);
        view.scrollTo(index);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
    }
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

    QtNotice Notices;
    EventGuard Guard{Notices, Shared};
    frmPlanung Window{Shared, Boxes, Guard};
    WaypointEditing& Entry = Window.Logic().Waypoints;
    RouteEditing& Route = Window.Logic().Routes;
    QWidget* Map = &Find<QWidget>("picMap");
    frmWaypointPanel* Left = Window.findChild<frmWaypointPanel*>();
};

} // namespace ornivane
