#include <fstream>

#include "flightplan/PlanColumns.h"
#include "flightplan/PlanFixture.h"

namespace ornivane {
namespace {

constexpr int Variation = 2, FuelFlow = 3, Airspeed = 4, WindDirection = 5, WindSpeed = 6; // columns

// Points on 50° 30' N, so legs of about 19 NM to the east.
class FlightPlanTest : public PlanTest {
protected:
    FlightPlanTest() {
        AddRoute("A", {6.3, 7.0, 7.3, 8.0});
        AddRoute("B's", {6.3, 7.1});
        AddRoute("Bare", {});
        AddRoute("Single", {6.3});
    }
};

TEST_F(FlightPlanTest, ChecksTheEntriesAndReportsTheLastWrongOne) {
    Open();
    const std::string before = Plan.PlanSet.SaveText();
    const struct {
        std::array<std::string, PlanEntryCount> Texts;
        std::optional<PlanEntry> Wrong;
    } cases[] = {
        {{"-5", "0", "1", "360", "0"}, {}},
        {{"0,5", "20.5", "120", "0", "20"}, {}},
        {{"x", "-1", "0", "360.5", "-1"}, PlanEntry::Windspeed},
        {{"x", "-1", "0", "360,5", "1"}, PlanEntry::Winddir},
        {{"", "-1", "0", "-1", ""}, PlanEntry::Windspeed},
        {{"", "-1", "0", "1", "1"}, PlanEntry::Speed},
        {{"", "-1", "1", "1", "1"}, PlanEntry::FF},
        {{"", "1", "1e999", "1", "1"}, PlanEntry::Speed},
        {{"5 W", "1", "1", "1", "1"}, PlanEntry::VAR},
    };
    for (const auto& c : cases) {
        Focused.reset();
        Boxes.Shown.clear();
        Plan.Entries.Texts = c.Texts;
        Plan.cmdCalc_Click();
        EXPECT_EQ(Focused, c.Wrong);
        EXPECT_EQ(Boxes.Shown.size(), c.Wrong ? 1u : 0u);
        if (!c.Wrong) continue;
        EXPECT_EQ(Boxes.Shown[0], "Datenfehler|Fehler in der Dateneingabe...");
        EXPECT_EQ(Plan.Entries.Shades[static_cast<std::size_t>(*c.Wrong)], PlanEntries::Shade::Wrong);
    }
    Enter({"0", "20", "120", "0", "0"});
    Plan.cmdCalc_Click();
    EXPECT_EQ(Plan.Entries.Shades,
              (std::array<PlanEntries::Shade, 5>{PlanEntries::Shade::Accepted, PlanEntries::Shade::Accepted,
                                                 PlanEntries::Shade::Accepted, PlanEntries::Shade::Accepted,
                                                 PlanEntries::Shade::Accepted}));
    EXPECT_EQ(Plan.PlanSet.SaveText(), before);
}

TEST_F(FlightPlanTest, ChecksACellByItsColumnAndLeavesThePlanWhenItRefuses) {
    Open();
    const std::string before = Plan.PlanSet.SaveText();
    const struct {
        int Column;
        const char* Text;
        bool Accepted;
    } cases[] = {
        {Variation, "-7,5", true},    {Variation, "", false},        {Variation, "W", false},
        {FuelFlow, "-0.1", false},    {FuelFlow, "0", true},         {Airspeed, "0", false},
        {Airspeed, "0.5", true},      {WindDirection, "361", false}, {WindDirection, "360", true},
        {WindDirection, "-1", false}, {WindSpeed, "-1", false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(IsCellText(c.Column, c.Text), c.Accepted) << c.Column << " " << c.Text;
    EXPECT_FALSE(Plan.EditCell(1, Airspeed, "0"));
    EXPECT_FALSE(Plan.EditCell(1, 7, "90"));
    EXPECT_EQ(Boxes.Shown, std::vector<std::string>{"Datenfehler|Fehler in der Dateneingabe"});
    EXPECT_EQ(Plan.PlanSet.SaveText(), before);
}

TEST_F(FlightPlanTest, AnEditReachesItsRowAndTheSumsFromThereOnButNoDistance) {
    Enter({"0", "20", "120", "0", "0"});
    Plan.Form_Load();
    Plan.Form_Activate();
    const std::string distances = Column("Distanz") + Column("DistanzAcc") + Column("TC");
    const std::string speeds = Column("GS");
    EXPECT_EQ(speeds, "0 120 120 120");
    EXPECT_EQ(Column("ZeitAcc"), "- 00:10 00:20 00:30");
    Plan.PlanSet.SetAbsolutePosition(3);
    ASSERT_TRUE(Plan.EditCell(2, WindDirection, "90"));
    ASSERT_TRUE(Plan.EditCell(2, WindSpeed, "60,0"));
    EXPECT_EQ(Plan.PlanSet.AbsolutePosition(), 3);
    EXPECT_EQ(Column("GS"), "0 120 60 120");
    EXPECT_EQ(Column("ZeitAcc"), "- 00:10 00:29 00:39");
    EXPECT_EQ(Column("FFmAcc"), "- 3.2 9.6 12.8");
    EXPECT_EQ(Cell(2, "Wind"), "90 / 60");
    EXPECT_EQ(Column("Distanz") + Column("DistanzAcc") + Column("TC"), distances);
    EXPECT_EQ(Plan.lblZeit, "00:39");
    EXPECT_EQ(Plan.lblAvgWind, "HWC 29 kts");
    ASSERT_TRUE(Plan.EditCell(0, Airspeed, "50")); // the departure takes part in nothing
    EXPECT_EQ(Column("GS"), "0 120 60 120");
    Plan.cmdRevert_Click(); // nothing was saved yet
    EXPECT_EQ(Column("GS"), speeds);
}

TEST_F(FlightPlanTest, AfterAnEditEveryLegUsesItsOwnFuelFlow) {
    Open();
    Enter({"0", "60", "120", "0", "0"});
    Plan.cmdRevert_Click();
    EXPECT_EQ(Column("FFh"), "0 60 60 60");
    ASSERT_TRUE(Plan.EditCell(1, FuelFlow, "6"));
    EXPECT_EQ(Column("FFm"), "0 1 9.5 9.5");
    Plan.Form_Deactivate();
    Plan.Form_Activate(); // from the file, but with the flow of the entry field
    EXPECT_EQ(Column("FFh"), "0 6 60 60");
    EXPECT_EQ(Column("FFm"), "0 9.5 9.5 9.5");
}

TEST_F(FlightPlanTest, KeepsAPlanForEachRouteAndGoesBackToTheLastOne) {
    Open();
    ASSERT_TRUE(Plan.EditCell(1, Airspeed, "90"));
    Plan.cmbRoute_Click(1);
    EXPECT_EQ(Plan.tDatei, "B's");
    ASSERT_TRUE(Plan.EditCell(1, WindSpeed, "33"));
    Plan.Form_Deactivate();
    Enter({"1", "2", "3", "4", "5"});
    Plan.Form_Activate();
    EXPECT_EQ(Plan.ListIndex, 1);
    EXPECT_EQ(Column("Windstärke"), "0 33");
    Plan.cmbRoute_Click(0);
    EXPECT_EQ(Column("TAS"), "0 90 120 120");
    ASSERT_TRUE(Plan.EditCell(2, Airspeed, "80"));
    Plan.cmdRevert_Click();
    EXPECT_EQ(Column("TAS"), "0 90 120 120");
    Plan.cmdCalc_Click();
    EXPECT_EQ(Column("TAS"), "0 3 3 3");
    Plan.Form_QueryUnload();
    FlightPlan again(Shared, Boxes, *this);
    again.Form_Load();
    EXPECT_EQ(again.Entries[PlanEntry::Speed], "120"); // as the screen was left
    again.Form_Activate();
    EXPECT_EQ(again.PlanSet.ValueAt(1, "tas").Number(), 3);
}

TEST_F(FlightPlanTest, FindsTheLegsOfAChangedRouteByTheirWaypoint) {
    Open();
    for (int row = 1; row <= 3; ++row) ASSERT_TRUE(Plan.EditCell(row, Airspeed, std::to_string(100 + row)));
    Plan.Form_Deactivate();
    // P1 P2 P3 P4 becomes P4 New P3 P1 P3: the old departure has no leg to take from.
    Sql("DELETE FROM GpsPoints WHERE RouteID = 1");
    Sql("INSERT INTO GpsPoints VALUES (1, 1, 4, 'P4', 50.3, 8), (2, 1, 99, 'New', 50.3, 7.4), "
        "(3, 1, 3, 'Renamed', 50.3, 7.3), (4, 1, 1, 'P1', 50.3, 6.3), (5, 1, 3, 'P3', 50.3, 7.3)");
    Plan.Form_Activate();
    EXPECT_EQ(Column("TAS"), "0 120 102 120 102");
    EXPECT_EQ(Column("Name"), "P4 New Renamed P1 P3");
    Sql("UPDATE Route SET Name = 'C' WHERE RouteID = 1"); // its plan stays with the old name
    Plan.Form_Deactivate();
    Plan.Form_Activate();
    EXPECT_EQ(Plan.tDatei, "C");
    EXPECT_EQ(Column("TAS"), "0 120 120 120 120");
    EXPECT_TRUE(std::filesystem::exists(PlanFile("A")));
}

TEST_F(FlightPlanTest, OfTwoRoutesOfOneNameTheFirstIsTheOneThatIsPlanned) {
    AddRoute("A", {9.0, 9.3});
    Open();
    ASSERT_TRUE(Plan.EditCell(1, Airspeed, "90"));
    Plan.cmbRoute_Click(4);
    EXPECT_EQ(Column("TAS"), "0 90 120 120");
}

TEST_F(FlightPlanTest, CountsADamagedFileAsNoneAndSaysSoOnce) {
    Open();
    ASSERT_TRUE(Plan.EditCell(1, Airspeed, "90"));
    Plan.Form_QueryUnload();
    const std::string whole = Bytes("A");
    const auto with = [&](const char* from, const char* to) {
        std::string text = whole;
        for (auto at = text.find(from); at != std::string::npos; at = text.find(from))
            text.replace(at, strlen(from), to);
        return text;
    };
    const std::string damages[] = {whole.substr(0, whole.size() / 2),
                                   whole.substr(0, whole.size() - 3),
                                   "",
                                   with("TAS", "XXX"),
                                   with("TAS='90'", "TAS='fast'"),
                                   with("TAS='90'", ""),
                                   std::string(200, '\0')};
    for (const std::string& damage : damages) {
        WriteFileAtomically(PlanFile("A"), damage);
        Boxes.Shown.clear();
        Plan.cmdRevert_Click();
        Plan.cmdRevert_Click();
        EXPECT_EQ(Column("TAS"), "0 120 120 120");
        ASSERT_EQ(Boxes.Shown.size(), 1u) << damage;
        EXPECT_EQ(Boxes.Shown[0], "Datenfehler|Der gespeicherte Flugplan ist beschädigt und zählt nicht: A");
        Plan.Form_QueryUnload(); // replaces it
        EXPECT_EQ(Bytes("A").size(), with("TAS='90'", "TAS='120'").size() - 0) << damage;
    }
}

TEST_F(FlightPlanTest, APlanThatCannotBeCalculatedLeavesTheOneThatIsShown) {
    AddRoute("Long", {6.3, 100.0, 170.0, -150.0});
    Open();
    ASSERT_TRUE(Plan.EditCell(1, Airspeed, "90"));
    const std::string before = Plan.PlanSet.SaveText(), time = Plan.lblZeit;
    const auto stays = [&] {
        EXPECT_EQ(Plan.PlanSet.SaveText(), before);
        EXPECT_EQ(Plan.tDatei, "A");
        EXPECT_EQ(Plan.lblZeit, time);
    };
    EXPECT_EQ(ErrorOf([&] { Plan.cmbRoute_Click(3); }), "Overflow (6)"); // one point: no minutes to divide by
    stays();
    Plan.cmbRoute_Click(2);
    EXPECT_EQ(Boxes.Shown.back(), "Ornivane GPS|Flugstrecke - Bare - enthält keine Wegpunkte...");
    stays();
    Enter({"0", "20", "120", "90", "50"}); // a head wind that sums up over days
    EXPECT_TRUE(ErrorOf([&] { Plan.cmbRoute_Click(4); }).starts_with("Overflow (6): WindSum -"));
    stays();
    Plan.Entries[PlanEntry::Windspeed] = "no";
    Plan.cmbRoute_Click(1);
    stays();
    Plan.Form_QueryUnload();
    EXPECT_EQ(Bytes("A"), before);
    EXPECT_FALSE(std::filesystem::exists(PlanFile("B's")));
}

TEST_F(FlightPlanTest, WindsAndSpeedsAtTheirLimits) {
    AddRoute("East", {6.3, 6.4, 6.5}); // the first wind's 90 degrees are ahead of both
    Sql("DELETE FROM Route WHERE RouteID < 5");
    Open();
    ASSERT_EQ(Column("TC"), "0 90 90");
    const std::string before = Plan.PlanSet.SaveText();
    const struct {
        std::array<std::string, PlanEntryCount> Texts;
        const char *Error, *GS, *ZeitDisplay, *Wind;
    } cases[] = {
        {{"0", "20", "120", "90", "120"}, "Division by zero (11)", "", "", ""},
        {{"0", "20", "120", "90", "119.99"}, "Overflow (6): WindSum -76", "", "", ""},
        {{"0", "20", "100", "90", "400"}, "no error", "0 -300 -300", "00:00 -01:59 -01:59", "HWC 760 kts"},
        {{"0", "20", "1", "270", "400"}, "no error", "0 401 401", "00:00 00:01 00:01", "TWC 381 kts"},
        {{"0", "20", "1", "0", "0"}, "no error", "0 1 1", "00:00 06:22 06:22", "TWC 0 kts"},
        {{"0", "20", "0.05", "0", "0"}, "no error", "0 0.05 0.05", "00:00 127:15 127:15", "TWC 0 kts"},
        {{"3", "20", "120", "180", "20"}, "no error", "0 120 120", "00:00 00:03 00:03", "TWC 0 kts"},
        {{"0", "20", "120", "270", "1"}, "no error", "0 121 121", "00:00 00:03 00:03", "TWC 1 kt"},
        {{"0", "20", "1e300", "270", "1"}, "Division by zero (11)", "", "", ""},
    };
    for (const auto& c : cases) {
        Plan.Entries.Texts = c.Texts;
        const std::string error = ErrorOf([&] { Plan.cmdCalc_Click(); });
        EXPECT_TRUE(error.starts_with(c.Error)) << error << " " << c.Texts[2] << " " << c.Texts[4];
        if (!*c.GS) continue;
        EXPECT_EQ(Column("GS"), c.GS);
        EXPECT_EQ(Column("ZeitDisplay"), c.ZeitDisplay);
        EXPECT_EQ(Plan.lblAvgWind, c.Wind) << c.Texts[4];
        if (c.Texts[0] == "3") EXPECT_EQ(Cell(1, "MH"), "97"); // 10 degrees to the right, 3 east
    }
    Enter({"0", "20", "120", "0", "0"});
    Plan.cmdCalc_Click();
    EXPECT_EQ(Plan.PlanSet.SaveText(), before);
    ASSERT_TRUE(Plan.EditCell(1, WindDirection, "90"));
    const std::string edited = Plan.PlanSet.SaveText();
    EXPECT_EQ(ErrorOf([&] { Plan.EditCell(1, WindSpeed, "120"); }), "Division by zero (11)");
    EXPECT_EQ(Plan.PlanSet.SaveText(), edited);
}

TEST_F(FlightPlanTest, FiveHundredPointsAndNamesOfAnyLength) {
    std::vector<double> longitudes;
    for (int i = 0; i < 500; ++i) longitudes.push_back(6.0 + (i % 2) * 0.3);
    AddRoute("Long", longitudes);
    Sql("UPDATE GpsPoints SET Name = 'Ä" + std::string(40, 'x') + "' WHERE RouteID = 5 AND Nummer = 500");
    Open();
    Enter({"0", "20", "120", "247.25", "10.5"});
    Plan.cmbRoute_Click(4);
    EXPECT_EQ(Plan.PlanSet.RecordCount(), 500);
    EXPECT_EQ(Cell(499, "Name"), "Ä" + std::string(29, 'x'));
    EXPECT_EQ(Cell(499, "Wind"), "247 / 10"); // the field has ten characters
    EXPECT_EQ(Plan.lblZeit.substr(0, 2), "79");
    ASSERT_TRUE(Plan.EditCell(250, WindSpeed, "5"));
    Plan.cmbRoute_Click(0);
    Plan.cmbRoute_Click(4);
    EXPECT_EQ(Cell(250, "Windstärke"), "5");
}

TEST_F(FlightPlanTest, ANameThatIsNoFileNameIsPlannedButNeverWritten) {
    for (const char* name : {"../A", "..", "", "EDKB/EDRK", "a\nb"}) {
        AddRoute(name, {6.3, 7.0});
        Plan = FlightPlan(Shared, Boxes, *this);
        Open();
        Plan.cmbRoute_Click(static_cast<int>(Plan.RouteNames.size()) - 1);
        EXPECT_EQ(Plan.PlanSet.RecordCount(), 2) << name;
        EXPECT_TRUE(ErrorOf([&] { Plan.cmbRoute_Click(0); }).starts_with("Bad file name (52)")) << name;
        EXPECT_EQ(Plan.tDatei, "A"); // and yet the pilot comes away from it
    }
    EXPECT_FALSE(std::filesystem::exists(Folder.Path() / "A"));
}

TEST_F(FlightPlanTest, SettingsThatAreMissingOrCutAreMadeAnew) {
    for (const char* bytes : {"", "\"1\"\r\n\"2\"\r\n"}) {
        WriteFileAtomically(Folder.Path() / "fplan.crm", bytes);
        Plan.Form_Load();
        EXPECT_EQ(Plan.Entries.Texts, (std::array<std::string, 5>{"0", "20", "120", "0", "0"}));
        EXPECT_EQ(ReadFlightPlanEntries(Folder.Path())[2], "120");
    }
    Sql("DELETE FROM Route");
    Plan.Form_Activate();
    EXPECT_FALSE(Plan.HasRoutes() || Plan.HasPlan());
    Enter({"1", "2", "3", "4", "x"});
    Plan.Form_Deactivate(); // as entered, right or wrong
    EXPECT_EQ(ReadFlightPlanEntries(Folder.Path())[4], "x");
}

TEST_F(FlightPlanTest, TextsHaveTheDecimalSignOfTheLocaleAndFilesThePoint) {
    Shared.Locale.DecimalSeparator = ',';
    Open();
    Enter({"0", "20,5", "120", "247,5", "7"});
    Plan.cmdCalc_Click();
    EXPECT_EQ(Plan.lblDistanz, "57,2 NM");
    EXPECT_EQ(Cell(1, "Wind"), "247,5 / 7");
    Plan.Form_Deactivate();
    EXPECT_NE(Bytes("A").find("FFh='20.5'"), std::string::npos);
}

TEST_F(FlightPlanTest, PrintingNeedsAPlanAndChangesNothing) {
    Plan.cmdPreview_Click();
    Open();
    Plan.cmdPreview_Click();
    EXPECT_EQ(Reported, (std::vector<std::string>{"hint", "A"}));
    EXPECT_FALSE(std::filesystem::exists(PlanFile("A")));
}

} // namespace
} // namespace ornivane
