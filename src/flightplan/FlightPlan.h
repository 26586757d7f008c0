#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/Language.h"
#include "base/RuntimeError.h"
#include "common/Settings.h"
#include "flightplan/PlanCalculation.h"
#include "flightplan/PlanRow.h"
#include "platform/Dialogs.h"

namespace ornivane {

// What an entry field's background tells.
enum class EntryState { Untouched, Right, Wrong };

// The navigation log of a route: one row a point, with wind, heading, time and fuel. Members carry the names
// of the controls that show them.
//
// The plan that is shown stays until another one is complete: an entry that is no number, a route without
// points or an error of the calculation leaves it, and tDatei names the route that it belongs to.
class FlightPlan {
public:
    FlightPlan(const Language& texts, const Settings& program, Connection& dataConn, Dialogs& messages,
               Notice& bar);

    void Form_Load();
    void Form_Activate();
    void Form_Deactivate();
    void Form_QueryUnload() { SavePlan(); }

    // Another route was chosen: the plan shown until now is saved, the route's plan computed.
    void cmbRoute_Click(int index);
    // Every leg anew from the entry fields.
    void cmdCalc_Click() { CalcPlan(true); }
    // Back to what the plan file has.
    void cmdRevert_Click() { CalcPlan(false); }

    // A cell of the grid, its row counted from 0. True when the edit may be made; otherwise what is wrong
    // with it was shown.
    bool gridFlug_BeforeColUpdate(PlanEntry column, int row, const std::string& text);
    // Takes the value (already tested) into the row and computes all rows anew. An error leaves the plan as
    // it was.
    void gridFlug_AfterColUpdate(PlanEntry column, int row, const std::string& text);
    // The place of departure has no leg.
    static bool IsEditable(int row) { return row > 0; }

    std::string& Entry(PlanEntry entry) { return Entries[static_cast<std::size_t>(entry)]; }
    const std::string& Entry(PlanEntry entry) const { return Entries[static_cast<std::size_t>(entry)]; }

    std::array<std::string, PlanEntryCount> Entries{"-5", "20", "120", "124", "20"};
    std::array<EntryState, PlanEntryCount> EntryStates{};
    std::optional<PlanEntry> FocusEntry; // the field in error, until the form has taken it
    std::vector<std::string> RouteNames; // list of cmbRoute
    int ListIndex = -1;                  // of cmbRoute
    std::string tDatei;                  // the route of the plan that is shown
    Recordset PlanSet;
    std::string lblDistanz, lblZeit, lblFF, lblAvgWind;

private:
    void ReadEntries();
    void OpenRoutes();
    std::string RouteName() const;
    std::filesystem::path PlanFolder() const { return settings.ProgramFolder / "Flugplan"; }
    void SavePlan();
    void Tell(const RuntimeError& error);
    void SaveBeforeAnother();
    void LoadSavedPlan();
    std::optional<PlanEntry> WrongEntry() const;
    bool EntriesAreRight();
    void CalcPlan(bool recalcAll);
    bool OpenRoutePoints(const std::string& route);
    PlanRow RowOfPoint() const;
    std::vector<PlanRow> ComputeRows(bool recalcAll, PlanSums& sums);
    LegInputs InputsOf(const std::string& id, bool recalcAll);
    LegInputs EnteredInputs() const;
    double Number(PlanEntry entry) const;
    bool WindFits(const LegInputs& inputs) const;
    void RecalcPlan(std::vector<PlanRow> rows);
    static void CheckFits(const std::vector<PlanRow>& rows);
    void ShowSums(const PlanSums& sums, std::int16_t averageWind);

    const Language& language;
    const Settings& settings;
    Connection& data;
    Dialogs& dialogs;
    Notice& notices;
    Recordset RoutesSet, RoutePointsSet, SavedPlanSet;
    std::string LastRoute;
    bool hasEdits = false; // cells of the plan that no file has
};

} // namespace ornivane
