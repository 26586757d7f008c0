#include "flightplan/FlightPlan.h"

#include <algorithm>

#include "base/FileNames.h"
#include "base/Numbers.h"
#include "base/Paths.h"
#include "base/Readout.h"
#include "base/Strings.h"
#include "common/SettingsFiles.h"
#include "common/StoredPositions.h"
#include "data/RoutePoints.h"
#include "data/Routes.h"
#include "geo/GreatCircle.h"

namespace ornivane {

namespace {

constexpr std::array<const char*, PlanEntryCount> DefaultEntries{"0", "20", "120", "0", "0"};
constexpr std::array AllEntries{PlanEntry::tVAR, PlanEntry::tFF, PlanEntry::tSpeed, PlanEntry::tWinddir,
                                PlanEntry::tWindspeed};

// Legs that have no length (both ends in one place, or a coordinate of exactly 0) have no course: theirs is
// that of the leg before.
double LegOf(const Position& from, const Position& to, double& course) {
    const auto leg = PlannedLeg(from, to);
    if (leg) course = leg->TrueCourse;
    return leg ? leg->DistanceNM : 0;
}

bool IsPlan(const Recordset& rows) {
    const auto has = [&rows](std::string_view name) {
        return std::any_of(rows.Fields().begin(), rows.Fields().end(), [name](const FieldInfo& field) {
            return LowerAscii(field.Name) == LowerAscii(name);
        });
    };
    return has("Id") && std::all_of(AllEntries.begin(), AllEntries.end(),
                                    [&](PlanEntry entry) { return has(LegInputs::FieldOf(entry)); });
}

// Whether an entry field or its column takes the number.
bool IsInRange(PlanEntry entry, double value) {
    using enum PlanEntry;
    return (entry == tVAR || value >= 0) && (entry != tSpeed || value > 0) &&
           (entry != tWinddir || value <= 360);
}

} // namespace

FlightPlan::FlightPlan(const Language& texts, const Settings& program, Connection& dataConn,
                       Dialogs& messages, Notice& bar)
    : language(texts), settings(program), data(dataConn), dialogs(messages), notices(bar) {}

void FlightPlan::Form_Load() {
    // First of all, or a store that fails would make the defaults take the place of what was kept.
    ReadEntries();
    OpenRoutes();
}

void FlightPlan::OpenRoutes() { Routes(data).Open(RoutesSet); }

void FlightPlan::ReadEntries() {
    const auto kept = ReadFlightPlanEntries(settings.ProgramFolder);
    if (std::all_of(kept.begin(), kept.end(), [](const auto& entry) { return entry.has_value(); })) {
        std::transform(kept.begin(), kept.end(), Entries.begin(), [](const auto& entry) { return *entry; });
        return;
    }
    std::copy(DefaultEntries.begin(), DefaultEntries.end(), Entries.begin());
    WriteFlightPlanEntries(settings.ProgramFolder, Entries);
}

void FlightPlan::Form_Activate() {
    if (RoutesSet.IsOpen())
        RoutesSet.Requery();
    else
        OpenRoutes();
    RouteNames.clear();
    ListIndex = -1;
    if (RoutesSet.RecordCount() == 0) return;
    for (; !RoutesSet.Eof(); RoutesSet.MoveNext()) RouteNames.push_back(RoutesSet.TextOrEmpty("Name"));
    // The first route's error must not keep the pilot from the route that he was working on.
    std::optional<RuntimeError> failed;
    for (int i = 0; i < static_cast<int>(RouteNames.size()); ++i)
        if (i == 0 || RouteNames[static_cast<std::size_t>(i)] == LastRoute)
            failed = ErrorOf([&] { cmbRoute_Click(i); });
    const auto shown = std::ranges::find(RouteNames, tDatei); // the plan that still shows
    if (ListIndex < 0 && shown != RouteNames.end()) ListIndex = static_cast<int>(shown - RouteNames.begin());
    if (failed) throw *failed;
}

void FlightPlan::Form_Deactivate() {
    LastRoute = RouteName();
    // Leaving the screen must not fail with it; the plan is still there afterwards.
    if (const auto error = ErrorOf([this] { SavePlan(); })) Tell(*error);
    WriteFlightPlanEntries(settings.ProgramFolder, Entries);
}

std::string FlightPlan::RouteName() const {
    return ListIndex < 0 ? std::string() : RouteNames[static_cast<std::size_t>(ListIndex)];
}

void FlightPlan::cmbRoute_Click(int index) {
    if (index < 0 || index >= static_cast<int>(RouteNames.size())) return;
    SaveBeforeAnother();
    ListIndex = index;
    CalcPlan(false);
}

// An empty plan is not worth a file, and would take the place of one that is.
void FlightPlan::SavePlan() {
    if (!PlanSet.IsOpen() || PlanSet.RecordCount() == 0 || tDatei.empty()) return;
    CheckFileName(tDatei);
    std::error_code error;
    std::filesystem::create_directories(PlanFolder(), error);
    if (error) throw RuntimeError(ErrorNumber::PathNotFound, PlanFolder().string());
    PlanSet.Save(PlanFolder() / tDatei);
    hasEdits = false;
}

// Edits that cannot be saved keep the plan that has them: another one would take its place. They never can
// under a name that is none for a file.
void FlightPlan::SaveBeforeAnother() {
    const auto error = ErrorOf([this] { SavePlan(); });
    if (!error) return;
    if (hasEdits && error->Number() != ErrorNumber::BadFileName) throw *error;
    Tell(*error);
}

void FlightPlan::Tell(const RuntimeError& error) { notices.Show(DescribeError(error, language)); }

// A file that is no plan counts as none; that is told, because the next save replaces it.
void FlightPlan::LoadSavedPlan() {
    SavedPlanSet = Recordset();
    const std::string name = RouteName();
    const auto file = PlanFolder() / name;
    if (name.empty() || !IsFileName(name) || !FileExists(file)) return; // such a name can have no file
    const auto error = ErrorOf([&] { SavedPlanSet.OpenFile(file); });
    if (!error && IsPlan(SavedPlanSet)) return;
    SavedPlanSet = Recordset();
    notices.Show(language.Text("Der gespeicherte Flugplan ist beschädigt und zählt nicht: %1",
                               "The saved flight plan is damaged and does not count: %1", {name}));
}

double FlightPlan::Number(PlanEntry entry) const { return NumberIn(Entry(entry)); }

bool FlightPlan::WindFits(const LegInputs& inputs) const {
    return WindText(inputs, language.Locale).size() <= WindSize;
}

// The last one that is wrong. Of a wind that is too long for its field it is the longer part.
std::optional<PlanEntry> FlightPlan::WrongEntry() const {
    using enum PlanEntry;
    std::optional<PlanEntry> wrong;
    for (const PlanEntry entry : AllEntries) {
        const auto value = ParseNumber(Entry(entry));
        if (!value || !IsInRange(entry, *value)) wrong = entry;
    }
    if (wrong || WindFits(EnteredInputs())) return wrong;
    const auto length = [this](PlanEntry entry) { return NumberText(Number(entry)).size(); };
    return length(tWinddir) > length(tWindspeed) ? tWinddir : tWindspeed;
}

bool FlightPlan::EntriesAreRight() {
    const std::optional<PlanEntry> wrong = WrongEntry();
    if (!wrong) {
        EntryStates.fill(EntryState::Right);
        return true;
    }
    dialogs.Message("Datenfehler", "Fehler in der Dateneingabe...");
    EntryStates[static_cast<std::size_t>(*wrong)] = EntryState::Wrong;
    FocusEntry = wrong;
    return false;
}

bool FlightPlan::OpenRoutePoints(const std::string& route) {
    RoutesSet.MoveFirst();
    if (!RoutesSet.Find("Name", Comparison::Equal, route)) throw RuntimeError(ErrorNumber::NoCurrentRecord);
    RoutePoints(data).Open(RoutePointsSet, RoutesSet.Get("RouteID"));
    return RoutePointsSet.RecordCount() > 0;
}

void FlightPlan::CalcPlan(bool recalcAll) {
    if (!EntriesAreRight()) return;
    LoadSavedPlan();
    const std::string route = RouteName();
    if (!OpenRoutePoints(route)) {
        dialogs.Message({}, "Flugstrecke - " + route + " - enthält keine Wegpunkte...");
        return;
    }
    PlanSums sums;
    const std::vector<PlanRow> rows = ComputeRows(recalcAll, sums);
    const std::int16_t averageWind = AverageWind(sums);
    CheckFits(rows);
    PlanSet.Close();
    FillPlan(PlanSet, rows);
    tDatei = route;
    hasEdits = false;
    lblDistanz = NumberText(Round(sums.Distance, 1), language.Locale) + " NM";
    ShowSums(sums, averageWind);
}

// A text that is longer than its field is an error before anything of the plan is touched.
void FlightPlan::CheckFits(const std::vector<PlanRow>& rows) {
    Recordset trial;
    FillPlan(trial, rows);
}

// Of the current point; its leg is not computed.
PlanRow FlightPlan::RowOfPoint() const {
    PlanRow row;
    row.Id = RoutePointsSet.TextOrEmpty("PointID");
    row.Name = RoutePointsSet.TextOrEmpty("Name");
    return row;
}

std::vector<PlanRow> FlightPlan::ComputeRows(bool recalcAll, PlanSums& sums) {
    std::vector<PlanRow> rows = {RowOfPoint()};
    Position from = ToDecimalDegrees(DegMinOf(RoutePointsSet));
    // A first leg without length has course 0 and not that of a plan computed before.
    double course = 0;
    for (RoutePointsSet.MoveNext(); !RoutePointsSet.Eof(); RoutePointsSet.MoveNext()) {
        const DegMin stored = DegMinOf(RoutePointsSet);
        const Position to = ToDecimalDegrees(stored);
        const double leg = LegOf(from, to, course);
        sums.Distance += leg;
        PlanRow row = RowOfPoint();
        row.Nr = static_cast<int>(rows.size()) + 1;
        row.TC = NumberAsShown(course, "##0");
        row.Distanz = Round(leg, 2);
        row.DistanzAcc = Round(sums.Distance, 2);
        row.LAT = stored.Lat;
        row.LONG = stored.Long;
        static_cast<LegInputs&>(row) = InputsOf(row.Id, recalcAll);
        CompleteLeg(row, {leg, Number(PlanEntry::tFF)}, sums, language.Locale);
        rows.push_back(std::move(row));
        from = to;
    }
    return rows;
}

LegInputs FlightPlan::EnteredInputs() const {
    LegInputs inputs;
    for (const PlanEntry entry : AllEntries) inputs[entry] = Number(entry);
    return inputs;
}

// The saved plan's rows are searched from the second: a place that a route visits twice gets what its first
// leg has.
LegInputs FlightPlan::InputsOf(const std::string& id, bool recalcAll) {
    if (!SavedPlanSet.IsOpen() || recalcAll) return EnteredInputs();
    if (SavedPlanSet.RecordCount() == 0) throw RuntimeError(ErrorNumber::InvalidNull);
    SavedPlanSet.MoveFirst();
    SavedPlanSet.MoveNext();
    if (SavedPlanSet.Eof() || !SavedPlanSet.Find("Id", Comparison::Equal, id)) return EnteredInputs();
    LegInputs inputs;
    for (const PlanEntry entry : AllEntries) inputs[entry] = SavedPlanSet.Number(LegInputs::FieldOf(entry));
    return inputs;
}

void FlightPlan::ShowSums(const PlanSums& sums, std::int16_t averageWind) {
    lblFF = NumberText(Round(sums.Fuel, 1), language.Locale);
    lblZeit = TimeOf(sums.Minutes).Text;
    lblAvgWind = WindInfo(averageWind);
}

bool FlightPlan::gridFlug_BeforeColUpdate(PlanEntry column, int row, const std::string& text) {
    const auto value = ParseNumber(text);
    const auto fits = [&] {
        if (column != PlanEntry::tWinddir && column != PlanEntry::tWindspeed) return true;
        LegInputs edited = PlanRows(PlanSet).at(static_cast<std::size_t>(row));
        edited[column] = *value;
        return WindFits(edited);
    };
    const bool right = value && IsInRange(column, *value) && fits();
    if (!right) dialogs.Message("Datenfehler", "Fehler in der Dateneingabe");
    return right;
}

void FlightPlan::gridFlug_AfterColUpdate(PlanEntry column, int row, const std::string& text) {
    std::vector<PlanRow> rows = PlanRows(PlanSet);
    rows.at(static_cast<std::size_t>(row))[column] = NumberIn(text);
    RecalcPlan(std::move(rows));
}

// From the rows alone: the leg as rounded in its row and the row's own fuel flow, where CalcPlan takes the
// unrounded leg and the entry field. So an edit can change other rows' last digits, as it always has.
void FlightPlan::RecalcPlan(std::vector<PlanRow> rows) {
    PlanSums sums;
    for (std::size_t i = 1; i < rows.size(); ++i)
        CompleteLeg(rows[i], {rows[i].Distanz, rows[i].FFh}, sums, language.Locale);
    const std::int16_t averageWind = AverageWind(sums);
    CheckFits(rows);
    UpdatePlan(PlanSet, rows);
    hasEdits = true;
    ShowSums(sums, averageWind);
}

} // namespace ornivane
