#pragma once

#include <map>

#include "planning/RouteEditing.h"
#include "planning/WaypointEditing.h"
#include "support/FlightFolder.h"
#include "support/PressedNotice.h"
#include "support/Rows.h"
#include "support/ScriptedDialogs.h"

namespace ornivane {

// Both lists of planning on a store with four waypoints of two categories, and what they leave to a screen.
struct PlanningLists : FlightFolder {
    PlanningLists() {
        Shared.EnglishUI = 1;
        Sql("INSERT INTO Kategorie (Nummer, Kategorie) VALUES (2, 'See'), (1, 'Feld')");
        AddWaypoint("Bonn", 50.44, 7.06);
        AddWaypoint("Zug", 47.1, 8.31, "See");
        AddWaypoint("aachen", 50.4633, 6.0512, "Feld");
        AddWaypoint("Cork", -33.5, -8.3, "See");
    }
    void Load() {
        Points.Form_Load();
        Routes.Form_Load();
        Points.FillCategories();
    }
    std::vector<std::string> Rows(const std::string& sql) { return RowsOf(Shared.DataConn, sql); }
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
