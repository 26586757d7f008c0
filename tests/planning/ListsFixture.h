#pragma once

#include <map>
#include <string>
#include <vector>

#include "planning/RouteEditing.h"
#include "planning/WaypointEditing.h"
#include "store/Statement.h"
#include "support/FlightFolder.h"
#include "support/PressedNotice.h"
#include "support/ScriptedDialogs.h"

namespace ornivane {

// A screen without a chart: counts what the lists ask of it.
struct CountingScreen : PlanningOwner {
    std::map<std::string, int> Asked;
    void CenterOnWaypoint() override { ++Asked["centre"]; }
    void RedrawPlan() override { ++Asked["redraw"]; }
    void FocusMap() override { ++Asked["map"]; }
    void FocusWaypoints() override { ++Asked["waypoints"]; }
    void FocusRoutes() override { ++Asked["routes"]; }
};

// Both lists of planning on a store with four waypoints of two categories.
struct PlanningLists : FlightFolder {
    PlanningLists() {
        Shared.EnglishUI = 1;
        Sql("INSERT INTO Kategorie (Nummer, Kategorie) VALUES (2, 'See'), (1, 'Feld')");
        Sql("INSERT INTO Waypoints (Name, Lat, Long, Kategorie) VALUES ('Bonn', 50.44, 7.06, ''), "
            "('Zug', 47.1, 8.31, 'See'), ('aachen', 50.4633, 6.0512, 'Feld'), ('Cork', -33.5, -8.3, 'See')");
    }
    void Load() {
        Points.Form_Load();
        Routes.Form_Load();
        Points.FillCategories();
    }
    // The rows of a query, fields parted by blanks.
    std::vector<std::string> Rows(const std::string& sql) {
        std::vector<std::string> rows;
        for (Statement query(Shared.DataConn, sql); query.Step();) {
            std::string row;
            for (int i = 0; i < query.ColumnCount(); ++i)
                row += (i ? " " : "") + (query.IsNull(i) ? "null" : std::string(query.Text(i)));
            rows.push_back(row);
        }
        return rows;
    }
    std::vector<std::string> Numbers(const std::string& table) {
        return Rows("SELECT CAST(Nummer AS INTEGER), Name FROM " + table + " ORDER BY Nummer");
    }

    CountingScreen Screen;
    ScriptedDialogs Boxes;
    PressedNotice Bar;
    Undo LastDeed{Bar, Shared, {}};
    WaypointEditing Points{Shared, Boxes, LastDeed, Screen};
    RouteEditing Routes{Shared, Boxes, LastDeed, Points.WaypointsSet, Screen};
};

} // namespace ornivane
