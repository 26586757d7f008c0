#include "flightplan/FlightPlan.h"

#include <algorithm>

#include "base/FileNames.h"
#include "base/Format.h"
#include "base/Numbers.h"
#include "base/Paths.h"
#include "base/RuntimeError.h"
#include "base/Strings.h"
#include "common/SettingsFiles.h"
#include "geo/NavigationMaths.h"

namespace ornivane {

namespace {

constexpr std::array<const char*, PlanEntryCount> DefaultEntries{"0", "20", "120", "0", "0"};
constexpr std::array EditedFields = {"VAR", "FFh", "TAS", "Windrichtung", "Windstärke"};
constexpr int FirstEditedColumn = 2, DirectionColumn = 5, SpeedColumn = 6;

struct PointOfRoute {
    double Lat, Long; // decimal degrees
};

PointOfRoute PointOf(const Recordset& points) {
    return {ToDecimalDegrees(points.Number("Lat")), ToDecimalDegrees(points.Number("Long"))};
}

// Legs that have no length (both ends in one place, or a coordinate of exactly 0) have no course: theirs is
// that of the leg before.
double LegOf(const PointOfRoute& from, const PointOfRoute& to, double& course) {
    const double distance = CalcRouteDist(to.Lat, to.Long, from.Lat, from.Long);
    if ((from.Lat == to.Lat && from.Long == to.Long) || from.Lat == 0 || to.Lat == 0 || from.Long == 0 ||
        to.Long == 0)
        return distance;
    const double latA = DegToRad(from.Lat), longA = DegToRad(from.Long);
    const double latB = DegToRad(to.Lat), longB = DegToRad(to.Long);
    course = TrueCourse(latA, longA, latB, longB, AngleBetween(latA, longA, latB, longB));
    return distance;
}

bool IsPlan(const Recordset& rows) {
    const auto has = [&rows](std::string_view name) {
        return std::any_of(rows.Fields().begin(), rows.Fields().end(), [name](const FieldInfo& field) {
            return LowerAscii(field.Name) == LowerAscii(name);
        });
    };
    return has("Id") && std::all_of(EditedFields.begin(), EditedFields.end(), has);
}

} // namespace

FlightPlan::FlightPlan(Variablen& variablen, Dialogs& dialogsOf, Notice& noticesOf)
    : shared(variablen), dialogs(dialogsOf), notices(noticesOf) {}

void FlightPlan::Form_Load() {
    // First of all, or a store that fails would make the defaults take the place of what was kept.
    ReadEntries();
    OpenRoutes();
}

void FlightPlan::OpenRoutes() { RoutesSet.Open(shared.DataConn, "SELECT * FROM Route ORDER BY Nummer"); }

void FlightPlan::ReadEntries() {
    const auto kept = ReadFlightPlanEntries(shared.ProgramFolder);
    if (std::all_of(kept.begin(), kept.end(), [](const auto& entry) { return entry.has_value(); })) {
        std::transform(kept.begin(), kept.end(), Entries.begin(), [](const auto& entry) { return *entry; });
        return;
    }
    std::copy(DefaultEntries.begin(), DefaultEntries.end(), Entries.begin());
    WriteFlightPlanEntries(shared.ProgramFolder, Entries);
}

void FlightPlan::Form_Activate() {
    if (RoutesSet.IsOpen())
        RoutesSet.Requery();
    else
        OpenRoutes();
    Routes.clear();
    ListIndex = -1;
    if (RoutesSet.RecordCount() == 0) return;
    for (; !RoutesSet.Eof(); RoutesSet.MoveNext()) Routes.push_back(RoutesSet.TextOrEmpty("Name"));
    // The first route's error must not keep the pilot from the route that he was working on.
    std::exception_ptr failed;
    const auto choose = [this, &failed](std::size_t place) {
        try {
            cmbRoute_Click(static_cast<int>(place));
            failed = nullptr;
        } catch (const RuntimeError&) {
            failed = std::current_exception();
        }
    };
    choose(0);
    for (std::size_t i = 1; i < Routes.size(); ++i)
        if (Routes[i] == LastRoute) choose(i);
    if (ListIndex < 0) ListIndex = PlaceOf(tDatei); // the plan that still shows
    if (failed) std::rethrow_exception(failed);
}

int FlightPlan::PlaceOf(const std::string& route) const {
    const auto at = std::find(Routes.begin(), Routes.end(), route);
    return at == Routes.end() ? -1 : static_cast<int>(at - Routes.begin());
}

void FlightPlan::Form_Deactivate() {
    LastRoute = RouteName();
    SavePlanOrTell();
    WriteFlightPlanEntries(shared.ProgramFolder, Entries);
}

void FlightPlan::Form_QueryUnload() { SavePlan(); }

std::string FlightPlan::RouteName() const {
    return ListIndex < 0 ? std::string() : Routes[static_cast<std::size_t>(ListIndex)];
}

void FlightPlan::cmbRoute_Click(int index) {
    if (index < 0 || index >= static_cast<int>(Routes.size())) return;
    SaveBeforeAnother();
    ListIndex = index;
    CalcPlan(false);
}

void FlightPlan::cmdCalc_Click() { CalcPlan(true); }

void FlightPlan::cmdRevert_Click() { CalcPlan(false); }

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
    try {
        SavePlan();
    } catch (const RuntimeError& error) {
        if (hasEdits && error.Number() != ErrorNumber::BadFileName) throw;
        notices.Show(DescribeError(error, shared.EnglishUI == 1));
    }
}

// Leaving the screen must not fail with it; the plan is still there afterwards.
void FlightPlan::SavePlanOrTell() {
    try {
        SavePlan();
    } catch (const RuntimeError& error) {
        notices.Show(DescribeError(error, shared.EnglishUI == 1));
    }
}

// A file that is no plan counts as none; that is told, because the next save replaces it.
void FlightPlan::LoadSavedPlan() {
    SavedPlanSet = Recordset();
    const std::string name = RouteName();
    const auto file = PlanFolder() / name;
    try {
        CheckFileName(name);
        if (name.empty() || !FileExists(file)) return;
        SavedPlanSet.OpenFile(file);
        if (!IsPlan(SavedPlanSet)) throw RuntimeError(ErrorNumber::FieldNotFound);
    } catch (const RuntimeError& error) {
        SavedPlanSet = Recordset();
        if (error.Number() == ErrorNumber::BadFileName) return; // it can have no file
        notices.Show(shared.Text("Der gespeicherte Flugplan ist beschädigt und zählt nicht: ",
                                 "The saved flight plan is damaged and does not count: ") +
                     name);
    }
}

double FlightPlan::Number(PlanEntry entry) const {
    return NumberIn(Entries[static_cast<std::size_t>(entry)]);
}

bool FlightPlan::WindFits(double direction, double speed) const {
    return WindText(direction, speed, shared.Locale).size() <= WindSize;
}

// The last one that is wrong. Of a wind that is too long for its field it is the longer part.
std::optional<PlanEntry> FlightPlan::WrongEntry() const {
    using enum PlanEntry;
    std::optional<PlanEntry> wrong;
    for (std::size_t i = 0; i < PlanEntryCount; ++i) {
        const auto entry = static_cast<PlanEntry>(i);
        const auto value = ParseNumber(Entries[i]);
        const bool right = value && (entry == tVAR || *value >= 0) && (entry != tSpeed || *value > 0) &&
                           (entry != tWinddir || *value <= 360);
        if (!right) wrong = entry;
    }
    if (wrong || WindFits(Number(tWinddir), Number(tWindspeed))) return wrong;
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
    RoutePointsSet.Open(shared.DataConn, "SELECT * FROM GpsPoints WHERE RouteID = ? ORDER BY Nummer",
                        {RoutesSet.Get("RouteID")});
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
    lblDistanz = NumberText(Round(sums.Distance, 1), shared.Locale) + " NM";
    ShowSums(sums, averageWind);
}

// A text that is longer than its field is an error before anything of the plan is touched.
void FlightPlan::CheckFits(const std::vector<PlanRow>& rows) {
    Recordset trial;
    FillPlan(trial, rows);
}

std::vector<PlanRow> FlightPlan::Departure() const {
    PlanRow row;
    row.Id = RoutePointsSet.TextOrEmpty("PointID");
    row.Name = RoutePointsSet.TextOrEmpty("Name");
    return {row};
}

std::vector<PlanRow> FlightPlan::ComputeRows(bool recalcAll, PlanSums& sums) {
    std::vector<PlanRow> rows = Departure();
    PointOfRoute from = PointOf(RoutePointsSet);
    // A first leg without length has course 0 and not that of a plan computed before.
    double course = 0;
    for (RoutePointsSet.MoveNext(); !RoutePointsSet.Eof(); RoutePointsSet.MoveNext()) {
        const PointOfRoute to = PointOf(RoutePointsSet);
        const double leg = LegOf(from, to, course);
        sums.Distance += leg;
        PlanRow row;
        row.Id = RoutePointsSet.TextOrEmpty("PointID");
        row.Nr = static_cast<int>(rows.size()) + 1;
        row.Name = RoutePointsSet.TextOrEmpty("Name");
        row.TC = NumberIn(Format(course, "##0", {}));
        row.Distanz = Round(leg, 2);
        row.DistanzAcc = Round(sums.Distance, 2);
        row.LAT = RoutePointsSet.Number("Lat");
        row.LONG = RoutePointsSet.Number("Long");
        const LegInputs inputs = InputsOf(row.Id, recalcAll);
        row.VAR = inputs.VAR;
        row.FFh = inputs.FFh;
        row.TAS = inputs.TAS;
        row.Windrichtung = inputs.Windrichtung;
        row.Windstärke = inputs.Windstärke;
        CompleteLeg(row, leg, Number(PlanEntry::tFF), sums, shared.Locale);
        rows.push_back(std::move(row));
        from = to;
    }
    return rows;
}

LegInputs FlightPlan::EnteredInputs() const {
    return {Number(PlanEntry::tVAR), Number(PlanEntry::tFF), Number(PlanEntry::tSpeed),
            Number(PlanEntry::tWinddir), Number(PlanEntry::tWindspeed)};
}

// The saved plan's rows are searched from the second: a place that a route visits twice gets what its first
// leg has.
LegInputs FlightPlan::InputsOf(const std::string& id, bool recalcAll) {
    if (!SavedPlanSet.IsOpen() || recalcAll) return EnteredInputs();
    if (SavedPlanSet.RecordCount() == 0) throw RuntimeError(ErrorNumber::InvalidNull);
    SavedPlanSet.MoveFirst();
    SavedPlanSet.MoveNext();
    if (SavedPlanSet.Eof() || !SavedPlanSet.Find("Id", Comparison::Equal, id)) return EnteredInputs();
    return {SavedPlanSet.Number("VAR"), SavedPlanSet.Number("FFh"), SavedPlanSet.Number("TAS"),
            SavedPlanSet.Number("Windrichtung"), SavedPlanSet.Number("Windstärke")};
}

void FlightPlan::ShowSums(const PlanSums& sums, std::int16_t averageWind) {
    lblFF = NumberText(Round(sums.Fuel, 1), shared.Locale);
    lblZeit = TimeOf(sums.Minutes).Text;
    lblAvgWind = WindInfo(averageWind);
}

bool FlightPlan::gridFlug_BeforeColUpdate(int column, int row, const std::string& text) {
    const auto value = ParseNumber(text);
    const auto fits = [&] {
        if (column != DirectionColumn && column != SpeedColumn) return true;
        const auto of = [&](int part, const char* field) {
            return column == part ? *value : PlanSet.ValueAt(row, field).Number();
        };
        return WindFits(of(DirectionColumn, "Windrichtung"), of(SpeedColumn, "Windstärke"));
    };
    const bool right = value && (column != 4 || *value > 0) && (column <= 2 || *value >= 0) &&
                       (column != DirectionColumn || *value <= 360) && fits();
    if (!right) dialogs.Message("Datenfehler", "Fehler in der Dateneingabe");
    return right;
}

void FlightPlan::gridFlug_AfterColUpdate(int column, int row, const std::string& text) {
    std::vector<PlanRow> rows = PlanRows(PlanSet);
    PlanRow& edited = rows.at(static_cast<std::size_t>(row));
    const std::array<double*, EditedFields.size()> values{&edited.VAR, &edited.FFh, &edited.TAS,
                                                          &edited.Windrichtung, &edited.Windstärke};
    *values.at(static_cast<std::size_t>(column - FirstEditedColumn)) = NumberIn(text);
    RecalcPlan(std::move(rows));
}

// From the rows alone: the leg as rounded in its row and the row's own fuel flow, where CalcPlan takes the
// unrounded leg and the entry field. So an edit can change other rows' last digits, as it always has.
void FlightPlan::RecalcPlan(std::vector<PlanRow> rows) {
    PlanSums sums;
    for (std::size_t i = 1; i < rows.size(); ++i)
        CompleteLeg(rows[i], rows[i].Distanz, rows[i].FFh, sums, shared.Locale);
    const std::int16_t averageWind = AverageWind(sums);
    CheckFits(rows);
    UpdatePlan(PlanSet, rows);
    hasEdits = true;
    ShowSums(sums, averageWind);
}

} // namespace ornivane
