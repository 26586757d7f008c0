#pragma once

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

#include "planning/ListsFixture.h"
#include "planning/frmRoutePanel.h"
#include "planning/frmWaypointPanel.h"
#include "platform/qt/Events.h"
#include "platform/qt/QtNotice.h"

namespace ornivane {

// Both panels of planning beside a place for the chart, on the lists of a small store.
class PlanningPanelsTest : public testing::Test, protected PlanningLists {
protected:
    // The focus goes where the lists want it.
    struct PanelScreen : CountingScreen {
        explicit PanelScreen(PlanningPanelsTest& of) : test(of) {}
        void FocusMap() override { test.Map->setFocus(); }
        void FocusWaypoints() override { test.Left->FocusList(); }
        void FocusRoutes() override { test.Right->FocusList(); }
        PlanningPanelsTest& test;
    };

    PlanningPanelsTest() {
        WaypointRoom.Form_Load();
        RouteRoom.Form_Load();
        WaypointRoom.FillCategories();
        auto* row = new QHBoxLayout(&Window);
        row->setContentsMargins(0, 0, 0, 0);
        Left = new frmWaypointPanel(
            &Window, WaypointRoom, Shared, Guard, [this] { RouteRoom.cmdAddwaypoint(); },
            [this] { ShowBoth(); });
        Map = new QWidget(&Window);
        Map->setFocusPolicy(Qt::StrongFocus);
        Right = new frmRoutePanel(
            &Window, RouteRoom, Shared, Guard, [this] { Left->FocusList(); }, [this] { ShowBoth(); });
        row->addWidget(Left);
        row->addWidget(Map, 1);
        row->addWidget(Right);
        Window.resize(1024, 640);
        Window.show();
        QApplication::setActiveWindow(&Window);
        Left->FocusEntry();
    }
    void ShowBoth() {
        if (Left) Left->ShowState();
        if (Right) Right->ShowState();
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
    EventGuard Guard{Notices, [this] { return Shared.EnglishUI == 1; }};
    PanelScreen Owner{*this};
    WaypointEditing WaypointRoom{Shared, Boxes, Owner};
    RouteEditing RouteRoom{Shared, Boxes, WaypointRoom.WaypointsSet, Owner};
    QWidget Window;
    QWidget* Map = nullptr;
    frmWaypointPanel* Left = nullptr;
    frmRoutePanel* Right = nullptr;
};

} // namespace ornivane
