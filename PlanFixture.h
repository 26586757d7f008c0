#pragma once

#include <gtest/gtest.h>

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "common/SettingsFiles.h"
#include "flightplan/FlightPlan.h"
#include "support/FlightFolder.h"
#include "support/ScriptedDialogs.h"

namespace ornivane {

// The flight plan on a folder with a store, and what it asked of its form.
class PlanTest : public testing::Test, protected FlightFolder, protected FlightPlanOwner {
protected:
    void FocusEntry(PlanEntry entry) override { Focused = entry; }
    void ShowReport(const FlightPlanReport&, const std::string& route) override { Reported.push_back(route); }
    void ShowPrintHint() override { Reported.push_back("hint"); }

    // Loads the form and shows the plan of the first route.
    void Open() {
        Plan.Form_Load();
        Plan.Form_Activate();
    }
    void Enter(const std::array<std::string, PlanEntryCount>& texts) { Plan.Entries.Texts = texts; }
    std::string Cell(int row, const char* field) const {
        const Value value = Plan.PlanSet.ValueAt(row, field);
        return value.IsNull() ? "-" : value.Text();
    }
    std::string Column(const char* field) const {
        std::string all;
        for (int row = 0; row < Plan.PlanSet.RecordCount(); ++row) all += (row ? " " : "") + Cell(row, field);
        return all;
    }
    std::string ErrorOf(const std::function<void()>& event) {
        try {
            event();
        } catch (const RuntimeError& error) {
            return DescribeError(error, true);
        }
        return "no error";
    }
    std::filesystem::path PlanFile(const std::string& route) { return Folder.Path() / "Flugplan" / route; }
    std::string Bytes(const std::string& route) { return ReadWholeFile(PlanFile(route)).value_or("none"); }

    ScriptedDialogs Boxes;
    std::optional<PlanEntry> Focused;
    std::vector<std::string> Reported;
    FlightPlan Plan{Shared, Boxes, *this};
};

} // namespace ornivane
