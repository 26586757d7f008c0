#include "planning/WaypointEditing.h"

#include <cmath>

#include "base/Flagged.h"
#include "base/Numbers.h"
#include "base/Readout.h"
#include "base/RuntimeError.h"
#include "data/WaypointCategories.h"
#include "data/Waypoints.h"

namespace ornivane {

namespace {

// A coordinate as its field shows it: absolute, at most four decimals, no trailing zeros.
std::string CoordinateText(double value, const LocaleText& locale) {
    return NumberText(NumberAsShown(std::fabs(value), "####.###0"), locale);
}

} // namespace

WaypointEditing::WaypointEditing(const Language& texts, Connection& dataConn, Dialogs& messages,
                                 Undo& lastDeed, PlanEvents onEvents)
    : language(texts), data(dataConn), dialogs(messages), undo(lastDeed), events(std::move(onEvents)) {
    WaypointsSet.AddObserver(this);
}

WaypointEditing::~WaypointEditing() { WaypointsSet.RemoveObserver(this); }

bool WaypointEditing::OnRow() const { return WaypointsSet.IsOpen() && WaypointsSet.AbsolutePosition() > 0; }

void WaypointEditing::Form_Load() {
    const Flagged now(moving);
    Open(AllWaypoints);
    ShowWaypoint();
}

void WaypointEditing::Open(const std::string& category) {
    if (category == AllWaypoints)
        Waypoints(data).Open(WaypointsSet);
    else
        Waypoints(data).OpenCategory(WaypointsSet, category);
    cmbKat = category; // not before: the text must be that of the rows
    lblCount = OnRow() ? "1 / " + std::to_string(WaypointsSet.RecordCount()) : "0 / 0";
}

void WaypointEditing::FillCategories() {
    Categories = {AllWaypoints};
    Recordset categories;
    WaypointCategories(data).Open(categories);
    for (; !categories.Eof(); categories.MoveNext())
        if (const Value name = categories.Get("Kategorie"); !name.IsNull()) Categories.push_back(name.Text());

    // Other screens may have changed the table; the waypoint that was looked at stays the current one.
    const Flagged now(moving);
    const Value current = OnRow() ? WaypointsSet.Get("PointID") : Value();
    Open(AllWaypoints);
    tKat = cmbKat;
    tKatVisible = true;
    StandOn(current);
}

void WaypointEditing::ReadAgain() {
    if (!WaypointsSet.IsOpen()) return;
    const Flagged now(moving);
    const Value current = OnRow() ? WaypointsSet.Get("PointID") : Value();
    WaypointsSet.Requery();
    StandOn(current);
}

void WaypointEditing::StandOn(const Value& point) {
    if (!WaypointsSet.Find("PointID", Comparison::Equal, point)) WaypointsSet.MoveFirst();
    cmdNextEnabled = cmdPrevEnabled = true;
    ShowUnlessTyped();
}

// An entry that is being typed is not taken away by a change of the list.
void WaypointEditing::ShowUnlessTyped() {
    if (Typed() != shown)
        ShowCount();
    else
        ShowWaypoint();
}

void WaypointEditing::ShowCount() {
    lblCount = OnRow() ? std::to_string(WaypointsSet.AbsolutePosition()) + " / " +
                             std::to_string(WaypointsSet.RecordCount())
                       : "0 / 0";
}

// Its number. A damaged value shows as nothing and counts as 0: all fields must be those of one row.
double WaypointEditing::ShowCoordinate(const char* column, std::string& field) {
    field.clear();
    double value = 0;
    IgnoreErrors([&] {
        const double number = WaypointsSet.Number(column);
        field = CoordinateText(number, language.Locale);
        value = number;
    });
    return value;
}

void WaypointEditing::ShowWaypoint() {
    if (!OnRow()) return;
    tEW = ShowCoordinate("Long", tWaypoint[3]) < 0 ? EastWest::West : EastWest::East;
    tNS = ShowCoordinate("Lat", tWaypoint[2]) < 0 ? NorthSouth::South : NorthSouth::North;
    tWaypoint[1] = WaypointsSet.TextOrEmpty("Name");
    shown = Typed();
    shownPoint = WaypointsSet.Get("PointID");
    ShowCount();
}

void WaypointEditing::CancelEntry() {
    if (OnRow()) {
        ShowWaypoint();
        return;
    }
    tWaypoint = {};
    shown = Typed();
    shownPoint = {};
}

void WaypointEditing::BeginEntry(const ShownPosition& at) {
    tWaypoint = {"", "", NumberText(at.Lat.Value(), language.Locale),
                 NumberText(at.Long.Value(), language.Locale)};
    tNS = at.NS;
    tEW = at.EW;
    shownPoint = {}; // no waypoint of the list: a change would move one that nobody looked at
}

std::optional<DegMin> WaypointEditing::TypedPosition() const {
    const auto lat = ParseNumber(tWaypoint[2]), longitude = ParseNumber(tWaypoint[3]);
    if (!lat || !longitude) return std::nullopt;
    return DegMin{StoredLatitude(*lat), StoredLongitude(*longitude)};
}

std::optional<DegMin> WaypointEditing::EntryPosition() const {
    const auto typed = TypedPosition();
    if (!typed || tWaypoint[1].empty()) return std::nullopt;
    return ShownPosition{typed->Lat, typed->Long, tNS, tEW}.Stored();
}

PlanEffects WaypointEditing::Refuse(PlanEffect focus, const char* german, const char* english) {
    dialogs.Message(language.Text("Datenfehler", "Data error"), language.Text(german, english));
    return {focus};
}

// Empty for an entry without a mistake.
PlanEffects WaypointEditing::CheckEntry(const char* germanNameMessage) {
    if (tWaypoint[1].empty())
        return Refuse(PlanEffect::FocusName, germanNameMessage, "Please enter a name in the waypoint field");
    if (!ParseNumber(tWaypoint[2]))
        return Refuse(PlanEffect::FocusLatitude, "Bitte Nummer für den Breitengrad eingeben",
                      "Please enter a numeric value in the latitude field");
    if (!ParseNumber(tWaypoint[3]))
        return Refuse(PlanEffect::FocusLongitude, "Bitte Nummer für den Längengrad eingeben",
                      "Please enter a numeric value in the longitude field");
    return {};
}

// Asks the list as it is filtered: a name of another category is free.
bool WaypointEditing::IsTaken(const std::string& name) {
    if (WaypointsSet.RecordCount() == 0) return false;
    WaypointsSet.MoveFirst();
    return WaypointsSet.Find("Name", Comparison::Equal, name);
}

PlanEffects WaypointEditing::cmdNew() {
    if (auto refused = CheckEntry("Bitte Name für den Waypoint eingeben"); !refused.empty()) return refused;
    const Flagged now(moving);
    const int before = WaypointsSet.AbsolutePosition();
    if (IsTaken(tWaypoint[1])) {
        cmdNextEnabled = cmdPrevEnabled = true;
        ShowCount(); // the waypoint of that name is current now; what was typed stays
        return Refuse(PlanEffect::FocusName,
                      "Der Wegpunkt existiert schon. Bitte einen anderen Namen vergeben.",
                      "The waypoint already exists. Please choose another name.");
    }
    RestoreOnError([&] { InsertEntry(); },
                   [&] {
                       WaypointsSet.CancelUpdate();
                       if (before > 0) WaypointsSet.SetAbsolutePosition(before);
                   });
    cmdNextEnabled = cmdPrevEnabled = true;
    ShowWaypoint();
    return {PlanEffect::CentreOnEntry, PlanEffect::FocusWaypoints};
}

void WaypointEditing::InsertEntry() {
    const std::string name = tWaypoint[1];
    const DegMin at = EntryPosition().value(); // CheckEntry has found one
    WaypointsSet.AddNew();
    WaypointsSet.Set("Name", name);
    WaypointsSet.Set("Lat", at.Lat.Value());
    WaypointsSet.Set("Long", at.Long.Value());
    WaypointsSet.Set("Kategorie", cmbKat == AllWaypoints ? std::string() : cmbKat);
    WaypointsSet.Update();
    WaypointsSet.Sort("Name");
    if (!WaypointsSet.Find("Name", Comparison::Equal, name)) WaypointsSet.MoveFirst();
}

std::optional<WaypointBook::Waypoint> WaypointEditing::Current() const {
    if (!OnRow()) return std::nullopt;
    return WaypointBook::Waypoint{WaypointsSet.Get("PointID"), WaypointsSet.Get("Name"),
                                  WaypointsSet.Get("Lat"), WaypointsSet.Get("Long")};
}

std::optional<std::string> WaypointEditing::OtherTarget() const {
    if (!OnRow() || shownPoint == WaypointsSet.Get("PointID")) return std::nullopt;
    return WaypointsSet.TextOrEmpty("Name");
}

// The current row as it is now. `deed`: what is going to be done with it.
Undo::Deed WaypointEditing::KeepCurrent(const Bilingual& deed, void (KeptRows::*putBack)() const) {
    const Value point = WaypointsSet.Get("PointID");
    const std::string name = Undo::NameOf(WaypointsSet);
    const KeptRows kept = Waypoints(data).Keep(point);
    return {deed, name, data, [kept, putBack] { (kept.*putBack)(); },
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
    events({PlanEffect::CentreOnEntry});
}

PlanEffects WaypointEditing::cmdChange() {
    if (auto refused = CheckEntry("Bitte Name für den Wegpunkt eingeben"); !refused.empty()) return refused;
    Undo::Deed deed = KeepCurrent({"Wegpunkt %1 geändert", "Waypoint %1 changed"}, &KeptRows::PutBackOver);
    bool isOther = false;
    const auto set = [&](const char* field, const Value& value) {
        isOther = isOther || WaypointsSet.Get(field) != value;
        WaypointsSet.Set(field, value);
    };
    RestoreOnError(
        [&] {
            set("Name", tWaypoint[1]);
            set("Lat", NumberIn(tWaypoint[2]));
            set("Long", NumberIn(tWaypoint[3]));
            WaypointsSet.Update();
        },
        [&] { WaypointsSet.CancelUpdate(); }); // or the next step would write half of it
    if (isOther) undo.Offer(std::move(deed));  // the same again must not take the offer before away
    ShowWaypoint();
    return {PlanEffect::CentreOnEntry};
}

PlanEffects WaypointEditing::cmdDelete() {
    if (OnRow()) {
        const Flagged now(moving);
        Undo::Deed deed = KeepCurrent({"Wegpunkt %1 gelöscht", "Waypoint %1 deleted"}, &KeptRows::PutBack);
        WaypointsSet.Delete();
        undo.Offer(std::move(deed));
        if (WaypointsSet.Eof()) WaypointsSet.MoveLast(); // a list with rows stands on one
        cmdNextEnabled = cmdPrevEnabled = true;
        ShowCount();
    }
    ShowWaypoint();
    return {PlanEffect::CentreOnEntry};
}

// A step of the row enables both buttons (GridRowChanged).
void WaypointEditing::cmdNext() {
    const int count = WaypointsSet.RecordCount();
    if (count > 0 && WaypointsSet.AbsolutePosition() < count)
        WaypointsSet.MoveNext();
    else if (count < 2)
        cmdPrevEnabled = true;
    else
        cmdNextEnabled = false;
}

void WaypointEditing::cmdPrev() {
    if (WaypointsSet.AbsolutePosition() >= 2)
        WaypointsSet.MovePrevious();
    else if (WaypointsSet.RecordCount() < 2)
        cmdNextEnabled = true;
    else
        cmdPrevEnabled = false;
}

void WaypointEditing::CurrentRowChanged() {
    if (!moving) GridRowChanged();
}

void WaypointEditing::GridRowChanged() {
    cmdNextEnabled = cmdPrevEnabled = true;
    ShowWaypoint();
    if (OnRow())
        events({PlanEffect::CentreOnEntry});
    else
        ShowCount();
}

void WaypointEditing::QuickFind() {
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

PlanEffects WaypointEditing::ChooseCategory(const std::string& text) {
    {
        const Flagged now(moving);
        FilterBy(text);
        cmdNextEnabled = cmdPrevEnabled = true;
    }
    return {PlanEffect::FocusMap};
}

// The fields stay as they are: what is being typed outlives a look at another category.
void WaypointEditing::FilterBy(const std::string& category) {
    Open(category);
    if (tKat == cmbKat) return;
    tKatVisible = true;
    tKat = cmbKat;
}

void WaypointEditing::tNS_Click() { tNS = tNS == NorthSouth::North ? NorthSouth::South : NorthSouth::North; }
void WaypointEditing::tEW_Click() { tEW = tEW == EastWest::West ? EastWest::East : EastWest::West; }

} // namespace ornivane
