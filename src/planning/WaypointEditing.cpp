#include "planning/WaypointEditing.h"

#include <cmath>

#include "base/Flagged.h"
#include "base/Format.h"
#include "base/Numbers.h"
#include "base/RuntimeError.h"

namespace ornivane {

namespace {

// A coordinate as its field shows it: absolute, at most four decimals, no trailing zeros.
std::string CoordinateText(double value, const LocaleText& locale) {
    return NumberText(NumberIn(Format(std::fabs(value), "####.###0", locale)), locale);
}

} // namespace

WaypointEditing::WaypointEditing(Variablen& variablen, Dialogs& messages, Undo& lastDeed,
                                 PlanningOwner& screen)
    : shared(variablen), dialogs(messages), undo(lastDeed), owner(screen), shown(Entry()) {
    WaypointsSet.AddObserver(this);
}

WaypointEditing::~WaypointEditing() { WaypointsSet.RemoveObserver(this); }

bool WaypointEditing::OnRow() const { return WaypointsSet.IsOpen() && WaypointsSet.AbsolutePosition() > 0; }

std::array<std::string, 5> WaypointEditing::Entry() const {
    return {tWaypoint[1], tWaypoint[2], tWaypoint[3], tNS, tEW};
}

bool WaypointEditing::IsEdited() const { return Entry() != shown; }

void WaypointEditing::Form_Load() {
    const Flagged now(moving);
    Open(AllWaypoints);
    ShowWaypoint();
}

void WaypointEditing::Open(const std::string& category) {
    if (category == AllWaypoints)
        WaypointsSet.Open(shared.DataConn, "SELECT * From Waypoints Order by NAME ASC");
    else
        WaypointsSet.Open(shared.DataConn, "SELECT * From Waypoints WHERE Kategorie = ? ORDER by NAME ASC",
                          {category});
    cmbKat = category; // not before: the text must be that of the rows
    lblCount = OnRow() ? "1 / " + std::to_string(WaypointsSet.RecordCount()) : "0 / 0";
}

void WaypointEditing::FillCategories() {
    Categories = {AllWaypoints};
    Recordset categories;
    categories.Open(shared.DataConn, "SELECT * From Kategorie Order by NUMMER ASC");
    for (; !categories.Eof(); categories.MoveNext())
        if (const Value name = categories.Get("Kategorie"); !name.IsNull()) Categories.push_back(name.Text());

    // Other screens may have changed the table; the waypoint that was looked at stays the current one.
    const Flagged now(moving);
    const Value current = OnRow() ? WaypointsSet.Get("PointID") : Value();
    Open(AllWaypoints);
    tKat = cmbKat;
    tKatVisible = true;
    if (!WaypointsSet.Find("PointID", Comparison::Equal, current)) WaypointsSet.MoveFirst();
    cmdNextEnabled = cmdPrevEnabled = true;
    ShowUnlessTyped();
}

void WaypointEditing::ReadAgain() {
    if (!WaypointsSet.IsOpen()) return;
    const Flagged now(moving);
    const Value current = OnRow() ? WaypointsSet.Get("PointID") : Value();
    WaypointsSet.Requery();
    if (!WaypointsSet.Find("PointID", Comparison::Equal, current)) WaypointsSet.MoveFirst();
    cmdNextEnabled = cmdPrevEnabled = true;
    ShowUnlessTyped();
}

// An entry that is being typed is not taken away by a change of the list.
void WaypointEditing::ShowUnlessTyped() {
    if (IsEdited())
        ShowCount();
    else
        ShowWaypoint();
}

void WaypointEditing::ShowCount() {
    lblCount = OnRow() ? std::to_string(WaypointsSet.AbsolutePosition()) + " / " +
                             std::to_string(WaypointsSet.RecordCount())
                       : "0 / 0";
}

void WaypointEditing::ShowWaypoint() {
    if (!OnRow()) return;
    const auto show = [this](const char* column, std::string& field, std::string& hemisphere,
                             const char* positive, const char* negative) {
        field.clear(); // a damaged value shows as nothing: all fields must be those of one row
        hemisphere = positive;
        try {
            const double value = WaypointsSet.Number(column);
            field = CoordinateText(value, shared.Locale);
            if (value < 0) hemisphere = negative;
        } catch (const RuntimeError&) {
            return;
        }
    };
    show("Long", tWaypoint[3], tEW, "E", "W");
    show("Lat", tWaypoint[2], tNS, "N", "S");
    tWaypoint[1] = WaypointsSet.TextOrEmpty("Name");
    shown = Entry();
    shownPoint = WaypointsSet.Get("PointID");
    ShowCount();
}

void WaypointEditing::CancelEntry() {
    if (OnRow()) {
        ShowWaypoint();
        return;
    }
    tWaypoint = {};
    shown = Entry();
    shownPoint = {};
}

void WaypointEditing::BeginEntry(const std::string& lat, const std::string& longitude, const std::string& ns,
                                 const std::string& ew) {
    tWaypoint = {"", "", lat, longitude};
    tNS = ns;
    tEW = ew;
    shownPoint = {}; // no waypoint of the list: a change would move one that nobody looked at
}

bool WaypointEditing::Refuse(int field, const char* german, const char* english) {
    FaultyField = field;
    dialogs.Message(shared.Text("Datenfehler", "Data error"), shared.Text(german, english));
    return false;
}

bool WaypointEditing::CheckEntry(const char* germanNameMessage) {
    if (tWaypoint[1].empty())
        return Refuse(1, germanNameMessage, "Please enter a name in the waypoint field");
    if (!ParseNumber(tWaypoint[2]))
        return Refuse(2, "Bitte Nummer für den Breitengrad eingeben",
                      "Please enter a numeric value in the latitude field");
    if (!ParseNumber(tWaypoint[3]))
        return Refuse(3, "Bitte Nummer für den Längengrad eingeben",
                      "Please enter a numeric value in the longitude field");
    return true;
}

// Asks the list as it is filtered: a name of another category is free.
bool WaypointEditing::IsTaken(const std::string& name) {
    if (WaypointsSet.RecordCount() == 0) return false;
    WaypointsSet.MoveFirst();
    return WaypointsSet.Find("Name", Comparison::Equal, name);
}

bool WaypointEditing::cmdNew() {
    if (!CheckEntry("Bitte Name für den Waypoint eingeben")) return false;
    const Flagged now(moving);
    const int before = WaypointsSet.AbsolutePosition();
    if (IsTaken(tWaypoint[1])) {
        cmdNextEnabled = cmdPrevEnabled = true;
        ShowCount(); // the waypoint of that name is current now; what was typed stays
        return Refuse(1, "Der Wegpunkt existiert schon. Bitte einen anderen Namen vergeben.",
                      "The waypoint already exists. Please choose another name.");
    }
    try {
        InsertEntry();
    } catch (...) {
        WaypointsSet.CancelUpdate();
        if (before > 0) WaypointsSet.SetAbsolutePosition(before);
        throw;
    }
    cmdNextEnabled = cmdPrevEnabled = true;
    ShowWaypoint();
    owner.CenterOnWaypoint();
    return true;
}

void WaypointEditing::InsertEntry() {
    const std::string name = tWaypoint[1];
    const double latitude = NumberIn(tWaypoint[2]), longitude = NumberIn(tWaypoint[3]);
    WaypointsSet.AddNew();
    WaypointsSet.Set("Name", name);
    WaypointsSet.Set("Lat", tNS == "S" ? -latitude : latitude);
    WaypointsSet.Set("Long", tEW == "W" ? -longitude : longitude);
    WaypointsSet.Set("Kategorie", cmbKat == AllWaypoints ? std::string() : cmbKat);
    WaypointsSet.Update();
    WaypointsSet.Sort("Name");
    if (!WaypointsSet.Find("Name", Comparison::Equal, name)) WaypointsSet.MoveFirst();
}

std::optional<std::string> WaypointEditing::OtherTarget() const {
    if (!OnRow() || shownPoint == WaypointsSet.Get("PointID")) return std::nullopt;
    return WaypointsSet.TextOrEmpty("Name");
}

// The current row as it is now. `german`, `english`: what is going to be done with it.
Undo::Deed WaypointEditing::KeepCurrent(const char* german, const char* english,
                                        void (KeptRows::*putBack)() const) {
    const Value point = WaypointsSet.Get("PointID");
    const std::string name = Undo::NameOf(WaypointsSet);
    const KeptRows kept(shared.DataConn, "Waypoints", "PointID = ?", {point});
    return {"Wegpunkt " + name + " " + german, "Waypoint " + name + " " + english, shared.DataConn,
            [kept, putBack] { (kept.*putBack)(); },
            [this, point, category = cmbKat] { ShowAgain(point, category); }};
}

// The waypoint is current again, in the list that shows or else in the one in which it was current.
void WaypointEditing::ShowAgain(const Value& point, const std::string& category) {
    {
        const Flagged now(moving);
        WaypointsSet.Requery();
        if (!WaypointsSet.Find("PointID", Comparison::Equal, point)) {
            FilterBy(category);
            if (!WaypointsSet.Find("PointID", Comparison::Equal, point)) WaypointsSet.MoveFirst();
        }
        cmdNextEnabled = cmdPrevEnabled = true;
    }
    ShowUnlessTyped();
    owner.CenterOnWaypoint();
}

bool WaypointEditing::cmdChange() {
    if (!CheckEntry("Bitte Name für den Wegpunkt eingeben")) return false;
    Undo::Deed deed = KeepCurrent("geändert", "changed", &KeptRows::PutBackOver);
    bool isOther = false;
    const auto set = [&](const char* field, const Value& value) {
        isOther = isOther || WaypointsSet.Get(field) != value;
        WaypointsSet.Set(field, value);
    };
    try {
        set("Name", tWaypoint[1]);
        set("Lat", NumberIn(tWaypoint[2]));
        set("Long", NumberIn(tWaypoint[3]));
        WaypointsSet.Update();
    } catch (...) {
        WaypointsSet.CancelUpdate(); // or the next step would write half of it
        throw;
    }
    if (isOther) undo.Offer(std::move(deed)); // the same again must not take the offer before away
    ShowWaypoint();
    owner.CenterOnWaypoint();
    return true;
}

void WaypointEditing::cmdDelete() {
    if (OnRow()) {
        const Flagged now(moving);
        Undo::Deed deed = KeepCurrent("gelöscht", "deleted", &KeptRows::PutBack);
        WaypointsSet.Delete();
        undo.Offer(std::move(deed));
        if (WaypointsSet.Eof()) WaypointsSet.MoveLast(); // a list with rows stands on one
        cmdNextEnabled = cmdPrevEnabled = true;
        ShowCount();
    }
    ShowWaypoint();
    owner.CenterOnWaypoint();
}

void WaypointEditing::cmdNext() {
    const int count = WaypointsSet.RecordCount();
    if (count > 0 && WaypointsSet.AbsolutePosition() < count) {
        WaypointsSet.MoveNext();
        cmdPrevEnabled = true;
    } else if (count < 2) {
        cmdPrevEnabled = true;
    } else {
        cmdNextEnabled = false;
    }
}

void WaypointEditing::cmdPrev() {
    if (WaypointsSet.AbsolutePosition() >= 2) {
        WaypointsSet.MovePrevious();
        cmdNextEnabled = true;
    } else if (WaypointsSet.RecordCount() < 2) {
        cmdNextEnabled = true;
    } else {
        cmdPrevEnabled = false;
    }
}

void WaypointEditing::CurrentRowChanged() {
    if (!moving) GridRowChanged();
}

void WaypointEditing::GridRowChanged() {
    cmdNextEnabled = cmdPrevEnabled = true;
    ShowWaypoint();
    if (OnRow())
        owner.CenterOnWaypoint();
    else
        ShowCount();
}

void WaypointEditing::QuickFind(int key) {
    if (key == KeyDown) return cmdNext();
    if (key == KeyUp) return cmdPrev();
    if (!OnRow()) return;
    const Bookmark before = WaypointsSet.CurrentBookmark();
    {
        // One redraw for a letter, not one for the way back to the first row as well.
        const Flagged now(moving);
        WaypointsSet.MoveFirst();
        if (!WaypointsSet.Find("Name", Comparison::GreaterOrEqual, tquickfind)) WaypointsSet.MoveFirst();
    }
    if (WaypointsSet.CurrentBookmark() != before)
        GridRowChanged();
    else
        ShowWaypoint();
}

void WaypointEditing::ChooseCategory(const std::string& text) {
    {
        const Flagged now(moving);
        FilterBy(text);
        cmdNextEnabled = cmdPrevEnabled = true;
    }
    owner.FocusMap();
}

// The fields stay as they are: what is being typed outlives a look at another category.
void WaypointEditing::FilterBy(const std::string& category) {
    Open(category);
    if (tKat == cmbKat) return;
    tKatVisible = true;
    tKat = cmbKat;
}

void WaypointEditing::tKat_Click() { tKatVisible = false; }
void WaypointEditing::cmbKat_LostFocus() { tKatVisible = true; }
void WaypointEditing::tNS_Click() { tNS = tNS == "N" ? "S" : "N"; }
void WaypointEditing::tEW_Click() { tEW = tEW == "W" ? "E" : "W"; }

} // namespace ornivane
