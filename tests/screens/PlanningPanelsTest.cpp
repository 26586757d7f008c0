#include "screens/PlanningPanelsFixture.h"

#include "planning/RouteExport.h"

namespace ornivane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const char* const StoredPoints =
    "SELECT CAST(p.Nummer AS INTEGER), r.Name, w.Name, p.Name, p.Lat, p.Long FROM GpsPoints p "
    "LEFT JOIN Route r ON r.RouteID = p.RouteID LEFT JOIN Waypoints w ON w.PointID = "
    "p.PointID ORDER BY p.RouteID, p.Nummer";

// One waypoint of them is new, one point is put in between, and one too many is taken out again.
const auto SixPoints = ElementsAre("1 Tour Bonn Bonn 50.44 7.06", "2 Tour D'Arc D'Arc -12.5 -7.3",
                                   "3 Tour Cork Cork -33.5 -8.3", "4 Tour aachen aachen 50.4633 6.0512",
                                   "5 Tour D'Arc D'Arc -12.5 -7.3", "6 Tour Zug Zug 47.1 8.31");

// A file with a waypoint that is new here, and a route that was selected before.
TEST_F(PlanningPanelsTest, AnImportLeavesWhatIsBeingTypedAndSelectsItsRoute) {
    Sql("INSERT INTO Route (Nummer, Name) VALUES (1, 'Tour'), (2, 'First')");
    Sql("INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long) SELECT PointID, 1, PointID, Name, "
        "Lat, Long FROM Waypoints WHERE Name IN ('Bonn', 'Zug')");
    RouteExport file(Shared, Shared, Shared.DataConn, Boxes);
    file.Form_Load("Tour");
    file.cmdExport();
    Sql("DELETE FROM Route WHERE Name = 'Tour'");
    Sql("DELETE FROM GpsPoints");
    Sql("DELETE FROM Waypoints WHERE Name = 'Bonn'");
    Route.RoutesSet.Requery();
    Window.Form_Activate();
    ClickRow("gridWaypoints", 1);
    EXPECT_EQ(Seen(), "Cork 2 / 3");
    Left->FocusEntry();
    Type("Half");
    Find<QLineEdit>("tWaypoint2").setFocus();
    Find<QLineEdit>("tWaypoint2").selectAll();
    Type("47.");
    Boxes.File = file.lblSave;
    Window.ImportRoute();
    EXPECT_EQ(Boxes.Shown.back(), "Data imported|Route: Tour was added to the database");
    EXPECT_THAT(Texts({"tWaypoint1", "tWaypoint2"}), ElementsAre("Half", "47."));
    EXPECT_EQ(Focus(), "tWaypoint2");
    EXPECT_EQ(Entry.WaypointsSet.Text("Name"), "Cork"); // what Change would write to
    EXPECT_EQ(Find<QLabel>("lblCount").text(), "3 / 4");
    EXPECT_EQ(Find<QTableView>("gridRoute").currentIndex().siblingAtColumn(1).data().toString(), "Tour");
    EXPECT_EQ(Route.RoutePointsSet.RecordCount(), 2);
    EXPECT_EQ(Find<QTableView>("gridPoints").model()->rowCount(), 2);
}

TEST_F(PlanningPanelsTest, ARouteOfSixPointsIsPlannedByKeyboardAlone) {
    Boxes.Inputs = {"Tour"};
    const auto tabTo = [this](const char* name) {
        for (int i = 0; i < 30 && Focus() != name; ++i) Key(Qt::Key_Tab);
        ASSERT_EQ(Focus(), name);
    };
    const auto add = [&](const char* name) {
        tabTo("tquickfind");
        Key(Qt::Key_Escape);
        Type(name);
        Key(Qt::Key_Return); // to the list
        Key(Qt::Key_Return); // into the route
    };
    tabTo("cmdNewRoute");
    Key(Qt::Key_Return);
    add("bo");
    tabTo("tWaypoint1");
    QTest::keyClicks(QApplication::focusWidget(), "D'Arc");
    Key(Qt::Key_Tab);
    Type("12,5");
    Key(Qt::Key_Tab);
    Type("s");
    Key(Qt::Key_Tab);
    Type("7.3");
    Key(Qt::Key_Tab);
    Key(Qt::Key_Space);
    EXPECT_THAT(Texts({"tNS", "tEW"}), ElementsAre("S", "W"));
    Key(Qt::Key_Return);
    EXPECT_EQ(Seen(), "D'Arc 4 / 5");
    Key(Qt::Key_Return);
    add("aa");
    for (int i = 0; i < 3; ++i) Key(Qt::Key_Down);
    EXPECT_EQ(Seen(), "D'Arc 4 / 5");
    Key(Qt::Key_Return);
    Key(Qt::Key_Return); // once too often
    tabTo("cmdDeleteWaypoint");
    Key(Qt::Key_Space);
    add("zug");
    tabTo("gridPoints");
    Key(Qt::Key_PageUp);
    EXPECT_EQ(Focus(), "gridWaypoints"); // the keys stay with the waypoints
    tabTo("gridPoints");
    Key(Qt::Key_Down);
    add("c");
    EXPECT_THAT(Rows(StoredPoints), SixPoints);
    EXPECT_THAT(Rows("SELECT Name, Lat, Long, Kategorie FROM Waypoints WHERE PointID > 4"),
                ElementsAre("D'Arc -12.5 -7.3 "));
    EXPECT_THAT(Numbers("Route"), ElementsAre("1 Tour"));
    EXPECT_THAT(Boxes.Shown, ElementsAre("|New Route"));
}

TEST_F(PlanningPanelsTest, ARouteOfSixPointsIsPlannedByMouseAlone) {
    Boxes.Inputs = {"Tour"};
    Click("cmdNewRoute");
    const auto add = [this](int row) {
        ClickRow("gridWaypoints", row);
        Click("cmdAddwaypoint");
    };
    add(1);
    // A double click on the chart leaves the position and asks for a name, which is all there is to type.
    Entry.tWaypoint = {"", "", "12.5", "7.3"};
    Window.Do([] {});
    QTest::keyClicks(&Find<QWidget>("tWaypoint1"), "D'Arc");
    Click("tNS");
    Click("tEW");
    Click("cmdNew");
    EXPECT_EQ(Seen(), "D'Arc 4 / 5");
    Click("cmdAddwaypoint");
    add(0);
    for (int i = 0; i < 3; ++i) Click("cmdNext");
    Click("cmdAddwaypoint");
    Click("cmdAddwaypoint");
    Click("cmdDeleteWaypoint");
    Click("cmdNext");
    EXPECT_EQ(Seen(), "Zug 5 / 5");
    Click("cmdAddwaypoint");
    ClickRow("gridPoints", 1);
    add(2);
    EXPECT_THAT(Rows(StoredPoints), SixPoints);
    EXPECT_THAT(Boxes.Shown, ElementsAre("|New Route"));
}

TEST_F(PlanningPanelsTest, FieldsMarkedRowAndCounterTellOfOneWaypointButForAChangeOfCategory) {
    EXPECT_EQ(Seen(), "aachen 1 / 4");
    auto& grid = Find<QTableView>("gridWaypoints");
    ClickRow("gridWaypoints", 2);
    EXPECT_EQ(Seen(), "Cork 3 / 4");
    grid.setFocus();
    for (const int key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down}) Key(key);
    EXPECT_EQ(Seen(), "Zug 4 / 4"); // one row for a key, and no further than the end
    Click("cmdDelete");
    EXPECT_EQ(Seen(), "Cork 3 / 3");
    QTest::mouseClick(grid.horizontalHeader()->viewport(), Qt::LeftButton, {}, {20, 8});
    EXPECT_EQ(Seen(), "Cork 3 / 3");
    Sql("INSERT INTO Waypoints (Name, Lat, Long, Kategorie) VALUES ('Aalen', 48, 10, 'See')");
    Entry.WaypointsSet.Requery(); // another screen
    EXPECT_EQ(Seen(), "aachen 1 / 4");
    auto& list = Find<QComboBox>("cmbKat");
    list.setCurrentIndex(2);
    emit list.activated(2);
    EXPECT_EQ(Seen(), "aachen but Aalen at 1 / 2"); // the fields stay until a row is chosen
    EXPECT_EQ(Find<QPushButton>("cmdChange").text(), " Change Waypoint: Aalen ");
    EXPECT_EQ(QApplication::focusWidget(), Map);
    QTest::keyClicks(&Find<QWidget>("tquickfind"), "c");
    EXPECT_EQ(Seen(), "Cork 2 / 2");
    Entry.FillCategories();
    Window.Do([] {});
    EXPECT_EQ(list.currentText(), "Alle Wegpunkte");
    EXPECT_EQ(Seen(), "Cork 4 / 4");
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, Qt::ControlModifier,
                      grid.visualRect(grid.currentIndex()).center());
    QTest::mouseMove(Map, {40, 40});
    QTest::mouseMove(Map, {60, 60});
    EXPECT_FALSE(grid.selectionModel()->hasSelection()); // the cursor over the map is no choice in the list
    Window.Do([] {});
    EXPECT_EQ(Seen(), "Cork 4 / 4");
    EXPECT_FALSE(grid.model()->flags(grid.model()->index(0, 0)) & Qt::ItemIsEditable);
}

TEST_F(PlanningPanelsTest, EnterAndEscapeActOnceAndWhereTheyWerePressed) {
    auto& name = Find<QLineEdit>("tWaypoint1");
    Type("Bonn");
    Key(Qt::Key_Return);
    EXPECT_THAT(Boxes.Shown,
                ElementsAre("Data error|The waypoint already exists. Please choose another name."));
    EXPECT_EQ(Focus(), "tWaypoint1"); // to be corrected there
    EXPECT_EQ(Text("tWaypoint1"), "Bonn");
    QTest::keyRelease(&name, Qt::Key_Return); // the Enter that closed the message
    EXPECT_EQ(Boxes.Shown.size(), 1u);
    Find<QLineEdit>("tWaypoint2").setText("x");
    Entry.tWaypoint[2] = "x";
    Key(Qt::Key_Return);
    EXPECT_EQ(Focus(), "tWaypoint2");
    Key(Qt::Key_Escape);
    EXPECT_EQ(Seen(), "Bonn 2 / 4");
    EXPECT_EQ(Text("tWaypoint2"), "50.44");
    Key(Qt::Key_Down);
    EXPECT_EQ(Focus(), "gridWaypoints");
    EXPECT_EQ(Seen(), "Cork 3 / 4");
    QTest::mouseDClick(&name, Qt::LeftButton);
    EXPECT_EQ(Text("tWaypoint1"), "");
    Click("tNS");
    Click("tNS");
    Click("tNS");
    EXPECT_EQ(Text("tNS"), "N");
    QTest::keyClicks(&Find<QWidget>("tquickfind"), "zu");
    EXPECT_EQ(Seen(), "Zug 4 / 4");
    QTest::keyClick(&Find<QWidget>("tquickfind"), Qt::Key_Up);
    QTest::keyClick(&Find<QWidget>("tquickfind"), Qt::Key_Shift);
    EXPECT_EQ(Seen(), "Cork 3 / 4");
    QTest::keyClick(&Find<QWidget>("tquickfind"), Qt::Key_Escape);
    EXPECT_EQ(Text("tquickfind"), "");
    EXPECT_EQ(Seen(), "Cork 3 / 4");
    EXPECT_THAT(Numbers("GpsPoints"), IsEmpty());
}

TEST_F(PlanningPanelsTest, TheRouteIsShownByOneButtonAndHiddenByItsLitTwinOrTheLength) {
    const auto expectShown = [this](bool isShown) {
        EXPECT_EQ(Shows("cmdshowRoute"), !isShown);
        EXPECT_EQ(Shows("picShowRoute"), isShown);
    };
    expectShown(true); // shown from the start
    Click("picShowRoute");
    expectShown(false);
    Find<QWidget>("cmdshowRoute").setFocus();
    Key(Qt::Key_Space);
    expectShown(true);
    EXPECT_EQ(Focus(), "picShowRoute");
    Click("picShowRoute");
    Click("cmdshowRoute");
    Route.lblRouteDistanz = "123 NM";
    Window.Do([] {});
    Click("lblRouteDistanz");
    expectShown(false);
}

TEST_F(PlanningPanelsTest, AnEnterThatIsHeldAndADragThatEndsElsewhereDoNothing) {
    Boxes.Inputs = {"Tour"};
    Click("cmdNewRoute");
    for (QWidget* list : {static_cast<QWidget*>(&Find<QTableView>("gridWaypoints")), Map}) {
        SendKey(*list, QEvent::KeyPress, Qt::Key_Return, true); // it closed a message, and is still down
        SendKey(*list, QEvent::KeyRelease, Qt::Key_Return);
    }
    EXPECT_THAT(Numbers("GpsPoints"), IsEmpty());
    auto& hemisphere = Find<QLineEdit>("tNS");
    const std::string before = Text("tNS");
    QTest::mousePress(&hemisphere, Qt::LeftButton);
    QTest::mouseRelease(&hemisphere, Qt::LeftButton, {}, {-30, 60});
    EXPECT_EQ(Text("tNS"), before);
    auto& length = Find<QLabel>("lblRouteDistanz");
    QTest::mousePress(&length, Qt::LeftButton);
    QTest::mouseRelease(&length, Qt::LeftButton, {}, {-30, -60});
    EXPECT_TRUE(Route.ShowRouteOn);
}

} // namespace
} // namespace ornivane
