#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "common/Undo.h"
#include "common/Variablen.h"
#include "planning/PlanningOwner.h"
#include "platform/Dialogs.h"
#include "store/KeptRows.h"
#include "store/Recordset.h"

namespace ornivane {

// The list of waypoints, the entry fields for one of them, quick search and categories. The current row of
// WaypointsSet is the waypoint that is looked at: fields, counter and chart follow it, whoever moves it, and
// it always shows as selected. Members carry the names of the controls that show them.
class WaypointEditing : private RecordsetObserver {
public:
    // Also the text that is stored nowhere and compared with: it has no English form.
    static constexpr const char* AllWaypoints = "Alle Wegpunkte";
    // What QuickFind and the keys of the screen know keys by.
    static constexpr int KeyUp = 38, KeyDown = 40;

    // `undo`: takes back the last change or deletion of the screen.
    WaypointEditing(Variablen& shared, Dialogs& dialogs, Undo& undo, PlanningOwner& owner);
    ~WaypointEditing() override;
    WaypointEditing(const WaypointEditing&) = delete;
    WaypointEditing& operator=(const WaypointEditing&) = delete;

    void Form_Load(); // opens the list; moves no chart
    // At each activation: cmbKat anew, on all waypoints, and the list too when a category was chosen.
    void FillCategories();

    // Another form has added rows: the list anew, on the waypoint that was looked at. What is being typed
    // stays.
    void ReadAgain();

    // The current row into fields and counter; without rows they stay as they are.
    void ShowWaypoint();
    // What was typed is given up: the current row again, or empty fields without one.
    void CancelEntry();
    // A new waypoint at a position of the chart: its name is to be typed.
    void BeginEntry(const std::string& lat, const std::string& longitude, const std::string& ns,
                    const std::string& ew);

    // False when a message says what is wrong with the entry: it stays as typed.
    bool cmdNew();
    // Writes the fields to the current row, whichever waypoint they were shown from. The hemisphere fields
    // are not looked at, so a value without a minus sign becomes north or east. RuntimeError NoCurrentRecord
    // without a waypoint.
    bool cmdChange();
    // The waypoint that cmdChange would write, when it is not the one that the fields were shown from.
    std::optional<std::string> OtherTarget() const;
    void cmdDelete(); // without a question; routes keep their copies
    void cmdNext();
    void cmdPrev();
    void GridRowChanged(); // runs by itself when the current row moves

    // `key` was let go in tquickfind: the arrows step, any other key searches its text.
    void QuickFind(int key);
    void ChooseCategory(const std::string& text);
    void tKat_Click();
    void cmbKat_LostFocus();
    void tNS_Click();
    void tEW_Click();

    Recordset WaypointsSet;
    std::array<std::string, 4> tWaypoint; // 1 name, 2 latitude, 3 longitude (absolute DegMinValue); 0 unused
    std::string tNS = "N", tEW = "E";
    std::string lblCount = "0 / 0";
    std::string tquickfind;
    std::vector<std::string> Categories; // entries of cmbKat
    std::string cmbKat = AllWaypoints;
    std::string tKat = AllWaypoints; // lies over cmbKat, so that keys do not change the list by accident
    bool tKatVisible = true;
    bool cmdNextEnabled = true, cmdPrevEnabled = true;
    int FaultyField = 1; // of tWaypoint, where the last refused entry is to be corrected

private:
    void RowsReset() override {}
    void RowInserted(int) override {}
    void RowRemoved(int) override {}
    void RowChanged(int) override {}
    void CurrentRowChanged() override;

    bool OnRow() const;
    bool Refuse(int field, const char* german, const char* english);
    bool CheckEntry(const char* germanNameMessage);
    bool IsTaken(const std::string& name);
    void InsertEntry();
    void Open(const std::string& category);
    void FilterBy(const std::string& category);
    void ShowCount();
    void ShowUnlessTyped();
    bool IsEdited() const;
    Undo::Deed KeepCurrent(const char* german, const char* english, void (KeptRows::*putBack)() const);
    void ShowAgain(const Value& point, const std::string& category);
    std::array<std::string, 5> Entry() const;

    Variablen& shared;
    Dialogs& dialogs;
    Undo& undo;
    PlanningOwner& owner;
    std::array<std::string, 5> shown; // what ShowWaypoint wrote last
    Value shownPoint;                 // and of which waypoint
    bool moving = false;              // a routine moves the list through rows that nobody is to see
};

} // namespace ornivane
