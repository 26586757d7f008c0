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

// Both lists of planning on a store with four waypoints of two categories, and what they leave to a screen.
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

    void Act(const PlanEffects& effects) {
        for (const PlanEffect effect : effects) ++Asked[effect];
    }
    bool Taken(const PlanEffects& effects) { // an entry
        Act(effects);
        return effects.front() == PlanEffect::CentreOnEntry;
    }
    void AddCurrent() { Act(Routes.cmdAddwaypoint(Points.Current())); }

    std::map<PlanEffect, int> Asked;
    ScriptedDialogs Boxes;
    PressedNotice Bar;
    Undo LastDeed{Bar, Shared, {}};
    PlanEvents Events{[this](const PlanEffects& effects) { Act(effects); }};
    WaypointEditing Points{Shared, Shared.DataConn, Boxes, LastDeed, Events};
    RouteEditing Routes{Shared, Shared.DataConn, Boxes, LastDeed, Events};
};

} // namespace ornivane
