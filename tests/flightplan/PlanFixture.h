#pragma once

#include <map>
#include <memory>
#include <utility>

#include <gtest/gtest.h>

#include "flightplan/FlightPlan.h"
#include "support/FlightFolder.h"
#include "support/MapFakes.h"

namespace ornivane {

// Flight plans of the routes in a real store.
class FlightPlanTest : public testing::Test, protected FlightFolder {
protected:
    using Places = std::vector<std::pair<double, double>>;

    // Points are named after their number; their ids are 1, 2 ...
    void AddPlan(const std::string& route, const Places& places) {
        AddRoute(route, std::vector<double>(places.size()));
        for (std::size_t i = 0; i < places.size(); ++i)
            Shared.DataConn.Execute("UPDATE GpsPoints SET Lat = ?, Long = ? WHERE Nummer = ? AND RouteID = "
                                    "(SELECT max(RouteID) FROM Route)",
                                    {places[i].first, places[i].second, static_cast<int>(i + 1)});
    }
    FlightPlan& Start() {
        Plan = std::make_unique<FlightPlan>(Shared, Shared, Shared.DataConn, Boxes, Notices);
        Plan->Form_Load();
        Plan->Form_Activate();
        return *Plan;
    }
    void Enter(const std::array<std::string, PlanEntryCount>& entries) { Plan->Entries = entries; }
    std::string Cell(int row, const char* field) const {
        const Value value = Plan->PlanSet.ValueAt(row - 1, field);
        return value.IsNull() ? "" : value.Text();
    }
    void ExpectRow(int row, const std::map<std::string, std::string>& cells) const {
        for (const auto& [field, text] : cells)
            EXPECT_EQ(Cell(row, field.c_str()), text) << field << " of row " << row;
    }
    std::filesystem::path PlanFile(const std::string& route) const {
        return Folder.Path() / "Flugplan" / route;
    }

    ScriptedDialogs Boxes;
    RecordedNotice Notices;
    std::unique_ptr<FlightPlan> Plan;
};

} // namespace ornivane
