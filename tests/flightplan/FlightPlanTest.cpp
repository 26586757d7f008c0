#include "flightplan/FlightPlan.h"

#include <cmath>
#include <fstream>
#include <sstream>

#include "base/RuntimeError.h"
#include "common/SettingsFiles.h"
#include "flightplan/PlanFixture.h"

namespace ornivane {
namespace {

using enum PlanEntry;

const std::vector<std::pair<double, double>> Round{{50.46, 7.08}, {51.2, 7.3}, {51.05, 8.15},
                                                   {50.3, 8.0},   {50.3, 6.3}, {50.46, 7.08}};
const std::vector<std::pair<double, double>> West{
    {49.12, 0.3}, {48.3, -1.4}, {48.3, -1.4}, {47.0, -2.0}, {49.0, -1.15}};

// Cells worked out by plans.py, beside this file, which knows nothing of the program.
class HandPlanTest : public FlightPlanTest {
protected:
    HandPlanTest() {
        std::ifstream file(SOURCE_DIR "/tests/flightplan/plans.txt");
        for (std::string line; std::getline(file, line);) {
            std::istringstream parts(line);
            std::string plan, row, field, value;
            std::getline(parts, plan, '\t');
            std::getline(parts, row, '\t');
            std::getline(parts, field, '\t');
            std::getline(parts, value);
            cells[plan].push_back({row, field, value});
        }
    }
    void ExpectAsByHand(const std::string& plan) {
        SCOPED_TRACE(plan);
        ASSERT_GT(cells[plan].size(), 30u);
        const std::map<std::string, std::string> labels{{"lblDistanz", Plan->lblDistanz},
                                                        {"lblFF", Plan->lblFF},
                                                        {"lblZeit", Plan->lblZeit},
                                                        {"lblAvgWind", Plan->lblAvgWind}};
        for (const auto& [row, field, value] : cells[plan]) {
            const std::string shown = row == "-" ? labels.at(field) : Cell(std::stoi(row), field.c_str());
            const auto number = ParsePlainNumber(value), shownNumber = ParsePlainNumber(shown);
            if (number && shownNumber)
                EXPECT_NEAR(*shownNumber, *number, 1e-9 * std::max(1.0, std::abs(*number)))
                    << row << " " << field;
            else
                EXPECT_EQ(shown, value) << row << " " << field;
        }
    }

private:
    struct CellText {
        std::string Row, Field, Value;
    };
    std::map<std::string, std::vector<CellText>> cells;
};

TEST_F(HandPlanTest, EveryCellIsWhatAHandWouldWriteThere) {
    AddPlan("North", Round);
    AddPlan("West", West);
    Start();
    Enter({"-5", "20", "120", "124", "20"});
    Plan->cmdCalc_Click();
    ExpectAsByHand("north");
    for (const auto& [column, text] :
         {std::pair{tSpeed, "95"}, {tWinddir, "345"}, {tWindspeed, "35,5"}, {tFF, "31"}, {tVAR, "2.5"}}) {
        ASSERT_TRUE(Plan->gridFlug_BeforeColUpdate(column, 1, text));
        Plan->gridFlug_AfterColUpdate(column, 3, text);
    }
    ExpectAsByHand("north edited");
    Enter({"8", "17.5", "88.5", "360", "33"});
    Plan->cmbRoute_Click(1);
    ExpectAsByHand("west");
    Plan->gridFlug_AfterColUpdate(tFF, 1, "40");
    ExpectAsByHand("west edited");
    EXPECT_TRUE(Boxes.Shown.empty());
    Plan->cmbRoute_Click(0); // the edits came with the file
    ExpectRow(4, {{"TAS", "95"}, {"Wind", "345 / 35.5"}});
}

TEST_F(FlightPlanTest, RowOneIsThePlaceOfDeparture) {
    AddPlan("R", {{50, 7}, {51, 7}});
    Start();
    ExpectRow(1, {{"Name", "P1"}, {"Wind", "0 / 0"}, {"ZeitDisplay", "00:00"}, {"GS", "0"}});
    ExpectRow(1, {{"DistanzAcc", ""}, {"ZeitAcc", ""}, {"FFmAcc", ""}, {"LAT", ""}});
    ExpectRow(2, {{"TC", "360"}, {"Distanz", "60"}, {"LAT", "51"}});
    EXPECT_EQ(Plan->lblDistanz, "60 NM");
    EXPECT_EQ(Plan->lblZeit, "00:30");
    EXPECT_EQ(Plan->lblFF, "10");
    EXPECT_EQ(Plan->lblAvgWind, "TWC 0 kts");
}

TEST_F(FlightPlanTest, FiveHundredLegsAlongAMeridianAre360And180) {
    Places places;
    for (int i = 0; i < 500; ++i)
        places.push_back({i % 2 == 0 ? 50 + i % 30 / 100.0 : 50.59 - i % 30 / 100.0, 7.30});
    AddPlan("Meridian", places);
    Start();
    for (int row = 2; row <= 500; ++row) EXPECT_EQ(Cell(row, "TC"), row % 2 == 0 ? "360" : "180") << row;
    Plan->Form_Deactivate();
    Plan->Form_Activate();
    ExpectRow(500, {{"Nr", "500"}, {"TAS", "120"}});
}

TEST_F(FlightPlanTest, WindAheadAndBehindIsNamedAndSixtyMinutesAreNotCarried) {
    AddPlan("R", {{50, 7}, {51, 7}});
    Start();
    for (const auto& [direction, speed, told] : {std::tuple{"0", "20", "HWC 20 kts"},
                                                 {"180", "20", "TWC 20 kts"},
                                                 {"180", "1", "TWC 1 kt"},
                                                 {"360", "1", "HWC 1 kt"}}) {
        Enter({"0", "20", "120", direction, speed});
        Plan->cmdCalc_Click();
        EXPECT_EQ(Plan->lblAvgWind, told);
    }
    Enter({"0", "20", "60.4", "0", "0"}); // 59.6 minutes
    Plan->cmdCalc_Click();
    ExpectRow(2, {{"ZeitDisplay", "00:60"}, {"ZeitAcc", "01:00"}});
    Shared.Locale.DecimalSeparator = ',';
    Enter({"0", "20,5", "60,4", "12,5", "7"});
    Plan->cmdCalc_Click();
    EXPECT_EQ(Cell(2, "Wind"), "12,5 / 7");
}

TEST_F(FlightPlanTest, WrongEntriesAreToldAndThePlanStays) {
    AddPlan("R", {{50, 7}, {51, 7}});
    Start();
    const auto before = PlanRows(Plan->PlanSet);
    const std::array<std::string, PlanEntryCount> good{"-5", "0", "0.1", "360", "0"};
    for (const auto& [entry, text] : {std::pair{tVAR, "x"},
                                      {tFF, "-1"},
                                      {tSpeed, "0"},
                                      {tWinddir, "360.5"},
                                      {tWinddir, "-1"},
                                      {tWindspeed, ""}}) {
        Enter(good);
        Plan->Entry(entry) = text;
        Plan->cmdCalc_Click();
        EXPECT_EQ(Boxes.Shown.back(), "Datenfehler|Fehler in der Dateneingabe...");
        EXPECT_EQ(Plan->EntryStates[static_cast<std::size_t>(entry)], EntryState::Wrong);
        EXPECT_EQ(Plan->FocusEntry, entry);
        EXPECT_EQ(PlanRows(Plan->PlanSet), before);
    }
    EXPECT_EQ(Boxes.Shown.size(), 6u);
    Enter({"x", "20", "0", "0", "0"}); // the last one that failed is reported
    Plan->cmdCalc_Click();
    EXPECT_EQ(Plan->FocusEntry, tSpeed);
    Enter(good);
    Plan->cmdCalc_Click();
    EXPECT_EQ(Plan->EntryStates[0], EntryState::Right);
    EXPECT_NE(PlanRows(Plan->PlanSet), before);
}

TEST_F(FlightPlanTest, CellsAreTestedByTheirColumn) {
    AddPlan("R", {{50, 7}, {51, 7}});
    Start();
    for (const auto& [column, text, right] : {std::tuple{tVAR, "-12", true},
                                              {tVAR, "x", false},
                                              {tFF, "0", true},
                                              {tFF, "-1", false},
                                              {tSpeed, "0", false},
                                              {tSpeed, "0,5", true},
                                              {tWinddir, "360", true},
                                              {tWinddir, "361", false},
                                              {tWindspeed, "-1", false},
                                              {tWindspeed, "", false}})
        EXPECT_EQ(Plan->gridFlug_BeforeColUpdate(column, 1, text), right)
            << LegInputs::FieldOf(column) << " " << text;
    EXPECT_EQ(Boxes.Shown, std::vector<std::string>(6, "Datenfehler|Fehler in der Dateneingabe"));
}

// Direction and speed of the wind share a field of ten characters.
TEST_F(FlightPlanTest, AWindThatIsTooLongForItsFieldIsToldAsAWrongEntry) {
    AddPlan("R", {{50, 7}, {51, 7}});
    Start();
    Shared.Locale.DecimalSeparator = ',';
    Enter({"0", "20", "120", "359,5", "25"});
    Plan->cmdCalc_Click();
    ASSERT_EQ(Cell(2, "Wind"), "359,5 / 25");
    const auto before = PlanRows(Plan->PlanSet);
    for (const auto& [direction, speed, wrong] : {std::tuple{"359.5", "25.5", tWinddir},
                                                  {"12,5", "10.25", tWindspeed},
                                                  {"3", "0.000001234567", tWindspeed}}) {
        Shared.EnglishUI ^= 1;
        Enter({"0", "20", "120", direction, speed});
        Boxes.Shown.clear();
        Plan->cmdCalc_Click();
        EXPECT_EQ(Boxes.Shown, std::vector<std::string>{"Datenfehler|Fehler in der Dateneingabe..."});
        EXPECT_EQ(Plan->FocusEntry, wrong) << direction << " " << speed;
        EXPECT_EQ(Plan->EntryStates[static_cast<std::size_t>(wrong)], EntryState::Wrong);
        EXPECT_EQ(PlanRows(Plan->PlanSet), before);
    }
    Boxes.Shown.clear();
    EXPECT_FALSE(Plan->gridFlug_BeforeColUpdate(tWinddir, 1, "123,45"));
    EXPECT_FALSE(Plan->gridFlug_BeforeColUpdate(tWindspeed, 1, "25,5"));
    EXPECT_EQ(Boxes.Shown, std::vector<std::string>(2, "Datenfehler|Fehler in der Dateneingabe"));
    EXPECT_TRUE(Plan->gridFlug_BeforeColUpdate(tWindspeed, 1, "99"));
}

// Plans of older installations may have more.
TEST_F(FlightPlanTest, AWindOfASavedPlanThatIsTooLongIsToldWithItsPlace) {
    AddPlan("R", {{50, 7}, {51, 7}});
    Start();
    Plan->Form_Deactivate();
    std::string file = ReadWholeFile(PlanFile("R")).value();
    const std::string saved = "Windrichtung='0' Windstärke='0' GS='120'";
    ASSERT_NE(file.find(saved), std::string::npos);
    file.replace(file.find(saved), saved.size(), "Windrichtung='123.456' Windstärke='7.25'");
    WriteFileAtomically(PlanFile("R"), file);
    const auto error = ErrorOf([&] { Plan->cmdRevert_Click(); });
    ASSERT_TRUE(error) << Cell(2, "Wind");
    EXPECT_EQ(DescribeError(*error, Language()), "Überlauf (6): P2: Wind 123.456 / 7.25");
    EXPECT_EQ(Cell(2, "Wind"), "0 / 0");
    Plan->cmdCalc_Click(); // the way out: what stands above, for every leg
    Plan->Form_Deactivate();
    Plan->cmdRevert_Click();
    EXPECT_EQ(Cell(2, "Wind"), "0 / 0");
}

// Ground speed 0, one point, too much wind: the event ends with an error, the plan before stays and is saved.
TEST_F(FlightPlanTest, ErrorsOfTheCalculationLeaveThePlanThatIsShown) {
    AddPlan("R", {{50, 7}, {51, 7}});
    AddPlan("One point", {{50, 7}});
    AddPlan("Empty", {});
    AddPlan("Far", {{50, 7}, {-33, 151}, {50, 7}});
    Start();
    Enter({"0", "20", "120", "0", "0"});
    Plan->cmdCalc_Click();
    const auto before = PlanRows(Plan->PlanSet);
    Enter({"0", "20", "120", "0", "120"});
    EXPECT_THROW(Plan->cmdCalc_Click(), RuntimeError);
    EXPECT_THROW(Plan->gridFlug_AfterColUpdate(tWindspeed, 1, "120"), RuntimeError);
    EXPECT_THROW(Plan->gridFlug_AfterColUpdate(tSpeed, 1, "0.000001"),
                 RuntimeError); // no field holds such a time
    Enter({"0", "20", "0.000001", "0", "0"});
    EXPECT_THROW(Plan->cmdCalc_Click(), RuntimeError);
    EXPECT_EQ(PlanRows(Plan->PlanSet), before);
    EXPECT_THROW(Plan->cmbRoute_Click(1), RuntimeError);
    Enter({"0", "20", "1", "0", "400"});
    Plan->cmbRoute_Click(2);
    EXPECT_EQ(Boxes.Shown, std::vector<std::string>{"|Flugstrecke - Empty - enthält keine Wegpunkte..."});
    EXPECT_THROW(Plan->cmbRoute_Click(3), RuntimeError); // 16 bits of weighted wind
    EXPECT_EQ(Plan->tDatei, "R");
    EXPECT_EQ(PlanRows(Plan->PlanSet), before);
    Plan->Form_Deactivate();
    EXPECT_TRUE(std::filesystem::exists(PlanFile("R")));
    EXPECT_FALSE(std::filesystem::exists(PlanFile("One point")) || std::filesystem::exists(PlanFile("Far")));
    AddPlan("Short", {{50, 7}, {50, 7.03}});
    Enter({"0", "20", "120", "0", "0"});
    Plan->Form_Activate();
    Enter({"0", "20", "120", "90", "121"}); // backwards: a time below zero, as the formula has it
    Plan->cmbRoute_Click(4);
    EXPECT_EQ(Cell(2, "GS"), "-1");
    EXPECT_EQ(Cell(2, "Zeit").substr(0, 4), "-115");
    EXPECT_EQ(Plan->lblAvgWind, "HWC 121 kts");
    Plan->cmbRoute_Click(0);
    Enter({"0", "20", "1", "0", "0"});
    Plan->cmdCalc_Click(); // 60 hours
    EXPECT_EQ(Cell(2, "ZeitDisplay"), "60:00");
}

TEST_F(FlightPlanTest, APlanIsKeptByRouteAndFoundAgainByItsPoints) {
    AddPlan("L'Été", {{50, 7}, {51, 7}, {51, 8}});
    AddPlan("B", {{50, 7}, {50, 8}});
    Start();
    Plan->gridFlug_AfterColUpdate(tSpeed, 1, "90");
    Plan->cmbRoute_Click(1);
    Plan->gridFlug_AfterColUpdate(tSpeed, 1, "80");
    Plan->cmdRevert_Click(); // no file yet: from the entries
    EXPECT_EQ(Cell(2, "TAS"), "120");
    // Renamed points keep theirs, a new one gets the entries', and the route may have another order.
    Sql("UPDATE GpsPoints SET Name = Name || ' renamed, with a name of more than thirty letters'");
    Sql("UPDATE GpsPoints SET Nummer = 5 WHERE RouteID = 1 AND PointID = 2");
    Sql("INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long) VALUES (4, 1, 77, 'New', 51.3, "
        "8)");
    Plan->Form_Deactivate();
    Plan = nullptr;
    Start();
    EXPECT_EQ(Plan->tDatei, "L'Été");
    for (const auto& [row, speed] : {std::pair{2, "120"}, {3, "120"}, {4, "90"}})
        EXPECT_EQ(Cell(row, "TAS"), speed) << row;
    EXPECT_EQ(Cell(1, "Name"), "P1 renamed, with a name of mor");
    Plan->gridFlug_AfterColUpdate(tFF, 3, "33");
    Plan->cmdRevert_Click();
    ExpectRow(4, {{"FFh", "20"}, {"TAS", "90"}});
    Plan->cmdCalc_Click();
    EXPECT_EQ(Cell(4, "TAS"), "120");
}

TEST_F(FlightPlanTest, EditsThatCannotBeSavedKeepTheirPlan) {
    AddPlan("A", {{50, 7}, {51, 7}});
    AddPlan("B", {{50, 7}, {50, 8}});
    Folder.Write("Flugplan", "no folder");
    Start();
    Plan->cmbRoute_Click(1); // nothing would be lost
    EXPECT_EQ(Plan->tDatei, "B");
    EXPECT_FALSE(Notices.Shown.empty());
    Plan->gridFlug_AfterColUpdate(tSpeed, 1, "90");
    EXPECT_THROW(Plan->cmbRoute_Click(0), RuntimeError);
    Plan->Form_Deactivate();
    EXPECT_THROW(Plan->Form_Activate(), RuntimeError);
    EXPECT_EQ(Plan->tDatei, "B");
    EXPECT_EQ(Plan->ListIndex, 1);
    EXPECT_EQ(Cell(2, "TAS"), "90");
    std::filesystem::remove(Folder.Path() / "Flugplan");
    Plan->cmbRoute_Click(0);
    Plan->cmbRoute_Click(1);
    EXPECT_EQ(Cell(2, "TAS"), "90");
}

TEST_F(FlightPlanTest, TheScreenComesBackToItsRoute) {
    AddPlan("One point", {{50, 7}});
    AddPlan("B", {{50, 7}, {50, 8}});
    EXPECT_THROW(Start(), RuntimeError); // the first route is chosen at first
    Plan->cmbRoute_Click(1);
    Plan->Form_Deactivate();
    Plan->Form_Activate();
    EXPECT_EQ(Plan->ListIndex, 1);
    Sql("DELETE FROM Route");
    Plan->Form_Activate();
    EXPECT_TRUE(Plan->RouteNames.empty());
}

TEST_F(FlightPlanTest, ADamagedPlanFileCountsAsNoneAndIsToldOnce) {
    AddPlan("R", {{50, 7}, {51, 7}});
    Start();
    Plan->gridFlug_AfterColUpdate(tSpeed, 1, "90");
    Plan->Form_Deactivate();
    const std::string whole = ReadWholeFile(PlanFile("R")).value();
    int told = 0;
    for (const std::string& bytes : {std::string(), whole.substr(0, whole.size() / 2),
                                     std::string("\xFF\xFE<\0", 4), std::string(2000, 'x')}) {
        WriteFileAtomically(PlanFile("R"), bytes);
        Start();
        EXPECT_EQ(Cell(2, "TAS"), "120");
        EXPECT_EQ(Notices.Shown.size(), static_cast<std::size_t>(++told));
        Plan->Form_Deactivate();
        Plan->Form_Activate();
        EXPECT_EQ(Notices.Shown.size(), static_cast<std::size_t>(told));
    }
    EXPECT_EQ(Notices.Shown.back(), "Der gespeicherte Flugplan ist beschädigt und zählt nicht: R");
    WriteFileAtomically(PlanFile("R"), whole);
    Plan->cmdRevert_Click();
    EXPECT_EQ(Cell(2, "TAS"), "90");
}

TEST_F(FlightPlanTest, AHostileRouteNameIsPlannedButNeverWritten) {
    AddPlan("../evil", {{50, 7}, {51, 7}});
    AddPlan("B", {{50, 7}, {50, 8}});
    Start();
    EXPECT_EQ(Plan->tDatei, "../evil");
    Plan->cmbRoute_Click(1);
    EXPECT_EQ(Plan->tDatei, "B");
    EXPECT_EQ(Notices.Shown.size(), 1u);
    EXPECT_FALSE(std::filesystem::exists(Folder.Path() / "evil"));
}

TEST_F(FlightPlanTest, EntriesComeFromTheirFileOrAsDefaults) {
    Start();
    EXPECT_EQ(Plan->Entries, (std::array<std::string, 5>{"0", "20", "120", "0", "0"}));
    EXPECT_EQ(ReadWholeFile(Folder.Path() / "fplan.crm").value(),
              "\"0\"\r\n\"20\"\r\n\"120\"\r\n\"0\"\r\n\"0\"\r\n");
    Enter({"-3", "22,5", "110", "270", "15"});
    Plan->Form_Deactivate();
    Start();
    EXPECT_EQ(Plan->Entries, (std::array<std::string, 5>{"-3", "22,5", "110", "270", "15"}));
    WriteFileAtomically(Folder.Path() / "fplan.crm", "\"1\"\r\n\"2\"");
    Start();
    EXPECT_EQ(Plan->Entries[0], "0");
}

} // namespace
} // namespace ornivane
