#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "base/Language.h"
#include "common/Undo.h"
#include "data/WaypointBook.h"
#include "planning/PlanEffects.h"
#include "planning/ShownPosition.h"
#include "platform/Dialogs.h"
#include "store/KeptRows.h"
#include "store/Recordset.h"

namespace ornivane {

// What the controls of the waypoint list show besides the rows; members carry their names.
struct WaypointControls {
    // Also the text that is stored nowhere and compared with: it has no English form.
    static constexpr const char* AllWaypoints = "Alle Wegpunkte";

    std::array<std::string, 4> tWaypoint; // 1 name, 2 latitude, 3 longitude (absolute DegMinValue); 0 unused
    NorthSouth tNS = NorthSouth::North;
    EastWest tEW = EastWest::East;
    std::string lblCount = "0 / 0";
    std::string tquickfind;
    std::vector<std::string> Categories; // entries of cmbKat
    std::string cmbKat = AllWaypoints;
    std::string tKat = AllWaypoints; // lies over cmbKat, so that keys do not change the list by accident
    bool tKatVisible = true;
    bool cmdNextEnabled = true, cmdPrevEnabled = true;

    bool operator==(const WaypointControls&) const = default;
};

// The list of waypoints, the entry fields for one of them, quick search and categories. The current row of
// WaypointsSet is the waypoint that is looked at: fields, counter and chart follow it, whoever moves it, and
// it always shows as selected.
class WaypointEditing : public WaypointControls, private RecordsetObserver {
public:
    // `lastDeed`: takes back the last change or deletion of the screen. `onEvents`: what follows from a row
    // that became current, or from an undo.
    WaypointEditing(const Language& texts, Connection& dataConn, Dialogs& messages, Undo& lastDeed,
                    PlanEvents onEvents);
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
    void BeginEntry(const ShownPosition& at);

    // An entry with a mistake stays as typed: a message says what is wrong, and the focus goes there.
    PlanEffects cmdNew();
    // Writes the fields to the current row, whichever waypoint they were shown from. The hemisphere fields
    // are not looked at, so a value without a minus sign becomes north or east. RuntimeError NoCurrentRecord
    // without a waypoint.
    PlanEffects cmdChange();
    // The waypoint that cmdChange would write, when it is not the one that the fields were shown from.
    std::optional<std::string> OtherTarget() const;
    PlanEffects cmdDelete(); // without a question; routes keep their copies
    void cmdNext();
    void cmdPrev();
    void QuickFind(); // the first name from the text in tquickfind on
    PlanEffects ChooseCategory(const std::string& text);
    void tKat_Click() { tKatVisible = false; }
    void cmbKat_LostFocus() { tKatVisible = true; }
    void tNS_Click();
    void tEW_Click();

    // What routes copy: the current row, none without one.
    std::optional<WaypointBook::Waypoint> Current() const;
    // Of the entry fields; none when they hold no name or no position.
    std::optional<DegMin> EntryPosition() const;
    std::optional<DegMin> TypedPosition() const; // without the hemispheres

    Recordset WaypointsSet;

private:
    void CurrentRowChanged() override;

    bool OnRow() const;
    void GridRowChanged();
    PlanEffects Refuse(PlanEffect focus, const char* german, const char* english);
    PlanEffects CheckEntry(const char* germanNameMessage);
    bool IsTaken(const std::string& name);
    void InsertEntry();
    void Open(const std::string& category);
    void FilterBy(const std::string& category);
    void StandOn(const Value& point);
    void ShowCount();
    void ShowUnlessTyped();
    double ShowCoordinate(const char* column, std::string& field);
    Undo::Deed KeepCurrent(const Bilingual& deed, void (KeptRows::*putBack)() const);
    void ShowAgain(const Value& point, const std::string& category);

    // What is typed for one waypoint.
    struct Entry {
        std::array<std::string, 4> Fields;
        NorthSouth NS;
        EastWest EW;
        bool operator==(const Entry&) const = default;
    };
    Entry Typed() const { return {tWaypoint, tNS, tEW}; }

    const Language& language;
    Connection& data;
    Dialogs& dialogs;
    Undo& undo;
    PlanEvents events;
    Entry shown = Typed(); // what ShowWaypoint wrote last
    Value shownPoint;      // and of which waypoint
    bool moving = false;   // a routine moves the list through rows that nobody is to see
};

} // namespace ornivane
