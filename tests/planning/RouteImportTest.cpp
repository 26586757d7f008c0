#include "ExchangeFixture.h"

namespace ornivane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* Added = "Datenimport|Strecke: Tour wurde hinzugefügt";
constexpr const char* NotRead = "Datenfehler|Fehler beim Einlesen der Wegpunkte";

std::string Difference(const std::string& name) {
    return "Datenunterschied|Der Punkt: " + name +
           " unterscheidet sich von dem schon vorhandenem Punkt. Die alten Koordinaten werden beibehalten - "
           "Bitte "
           "den Streckenpunkt überprüfen.";
}

// A route file as another program may write it: other prefixes, other order, only what is needed.
std::string RouteFile(const std::string& rows, const std::string& fields = "Long Name Lat") {
    std::string types;
    for (const std::string field : {"Long", "Lat", "Name"})
        if (fields.find(field) != std::string::npos)
            types += "<a:AttributeType name='" + field + "'><a:datatype b:type='" +
                     (field == "Name" ? "string" : "r8") + "'/></a:AttributeType>";
    return "<x xmlns:a='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882' "
           "xmlns:b='uuid:C2F41010-65B3-11d1-A29F-00AA00C14882' xmlns:c='urn:schemas-microsoft-com:rowset' "
           "xmlns:r='#RowsetSchema'><a:Schema id='RowsetSchema'><a:ElementType name='row'>" +
           types + "</a:ElementType></a:Schema><c:data>" + rows + "</c:data></x>";
}

std::string FileRow(const std::string& name, const std::string& lat, const std::string& lon) {
    return "<r:row Lat='" + lat + "' Name='" + name + "' Long='" + lon + "'/>";
}

class RouteImportTest : public ExchangeTest {
protected:
    RouteImportTest() {
        AddWaypoint("Ende", 51.1, 7.2);
        AddWaypoint("Köln", 50.5162, 6.57);
        AddWaypoint("O'Hara", -8.3, -0.2);
    }
    Names Waypoints() { return Rows("SELECT Name, Lat, Long, Kategorie FROM Waypoints ORDER BY PointID"); }
};

TEST_F(RouteImportTest, APointThatIsNotThereLeavesNoGap) {
    Import(Folder.Write("Tour.ovr", RouteFile(FileRow("Köln", "50", "6") + FileRow("Neu", "50", "7") +
                                              FileRow("Ende", "51", "7") + "<r:row Name='nowhere'/>")));
    EXPECT_THAT(Points("Tour"), ElementsAre("1 Köln 50.5162 6.57", "2 Ende 51.1 7.2"));
}

TEST_F(RouteImportTest, BringsBackTheSameRouteAfterAllOfItWasDeleted) {
    const Names names{"Süd \"<&>'", "Köln", "O'Hara", "Süd \"<&>'", "Ω"};
    AddWaypoint("Süd \"<&>'", 0.1 + 0.2, -1e-7);
    AddWaypoint("Ω", 1.0 / 3, 179.5959);
    AddRouteThrough("Tour", names);
    const Names points = Points("Tour");
    ASSERT_THAT(points, SizeIs(5));
    const fs::path file = Export("Tour");

    Import(file); // beside the first: nothing new but the route
    EXPECT_THAT(Boxes.Shown, ElementsAre(Added));
    EXPECT_THAT(Waypoints(), SizeIs(5));
    EXPECT_THAT(Rows("SELECT Nummer, Name FROM Route"), ElementsAre("1 Tour", "2 Tour"));
    EXPECT_THAT(Points("Tour"), SizeIs(10));

    Sql("DELETE FROM Route");
    Sql("DELETE FROM GpsPoints");
    Sql("DELETE FROM Waypoints WHERE Name <> 'Ende'");
    Import(file);
    EXPECT_EQ(Points("Tour"), points);
    EXPECT_THAT(Waypoints(), SizeIs(5));
    EXPECT_THAT(Rows("SELECT DISTINCT p.PointID = w.PointID, Kategorie FROM GpsPoints p JOIN Waypoints w "
                     "USING (Name)"),
                ElementsAre("1 "));
}

TEST_F(RouteImportTest, TakesNothingIntoAStoreWithoutWaypoints) {
    AddRouteThrough("Tour", {"Köln"});
    const fs::path file = Export("Tour");
    Sql("DELETE FROM Waypoints");
    Import(file);
    EXPECT_THAT(Waypoints(), IsEmpty());
    EXPECT_THAT(Points("Tour"), SizeIs(1)) << "the old one";
    EXPECT_THAT(Rows("SELECT Name FROM Route"), SizeIs(2));
    EXPECT_THAT(Boxes.Shown, ElementsAre(Added));
}

TEST_F(RouteImportTest, KeepsTheStoredPlaceOfAPointAndTellsOfItOnce) {
    AddRouteThrough("before", {});
    Sql("UPDATE Route SET Nummer = 7");
    AddWaypoint("Köln", 60, 8); // of equal names the first is meant
    std::string utf16 = "\xFF\xFE";
    for (const char c : RouteFile(FileRow("ende", "51.1", "7.2") + FileRow("K&#246;ln", "50.5", "6.57") +
                                  FileRow("Neu", "50", "6") + FileRow("K&#246;ln", "50.5", "6.57") +
                                  FileRow("NEU", "50", "6.01")))
        utf16 += {c, '\0'};
    Import(Folder.Write("Tour.more.ovr", utf16));
    EXPECT_THAT(Boxes.Shown, ElementsAre(Difference("Köln"), Difference("NEU"), Added));
    EXPECT_THAT(Points("Tour"), ElementsAre("1 Ende 51.1 7.2", "2 Köln 50.5162 6.57", "3 Neu 50 6",
                                            "4 Köln 50.5162 6.57", "5 Neu 50 6"));
    EXPECT_THAT(Waypoints(), ElementsAre("Ende 51.1 7.2 Ziele", "Köln 50.5162 6.57 Ziele",
                                         "O'Hara -8.3 -0.2 Ziele", "Köln 60 8 Ziele", "Neu 50 6 "));
    EXPECT_THAT(Rows("SELECT Nummer FROM Route WHERE Name = 'Tour'"), ElementsAre("8"));
}

TEST_F(RouteImportTest, NamesEachOfTenThousandPointsInFewBoxes) {
    Sql("DELETE FROM Waypoints");
    std::string rows;
    Shared.EnglishUI = 1;
    Transaction transaction(Shared.DataConn);
    for (int i = 0; i < 10000; ++i) {
        AddWaypoint("W" + std::to_string(i), 50, 6);
        rows += FileRow("W" + std::to_string(9999 - i), "50", "6.5");
    }
    transaction.Commit();
    Import(Folder.Write("Tour.ovr", RouteFile(rows)));
    ASSERT_THAT(Boxes.Shown, SizeIs(12));
    EXPECT_EQ(Boxes.Shown.front(), Difference("W9999"));
    EXPECT_THAT(Boxes.Shown[10], HasSubstr(": 9990."));
    for (const char* name : {"\nW9989\nW9988\n", "\nW5000\n", "\nW1\nW0"})
        EXPECT_THAT(Boxes.Shown[10], HasSubstr(name));
    EXPECT_EQ(Boxes.Shown[11], "Data imported|Route: Tour was added to the database");
    EXPECT_THAT(Rows("SELECT count(*), sum(Nummer), min(Long), max(Long) FROM GpsPoints"),
                ElementsAre("10000 50005000 6 6"));
}

TEST_F(RouteImportTest, ChangesNothingForAFileThatIsNone) {
    AddRouteThrough("Tour", {"Köln", "Ende"});
    const std::string good = ReadWholeFile(Export("Tour")).value();
    std::string bomb = "<!DOCTYPE xml [<!ENTITY a 'xxxxxxxxxx'>";
    for (char c = 'b'; c <= 'z'; ++c)
        bomb += std::string("<!ENTITY ") + c + " '&" + char(c - 1) + ";&" + char(c - 1) + ";'>";
    for (const std::string& bytes :
         {std::string(), good.substr(0, good.size() / 2), good.substr(0, good.size() - 8),
          std::string("Tour"), std::string("\xFF\xFE", 2), bomb + "]><xml>&z;</xml>",
          RouteFile(FileRow("Neu", "1,5", "2")), std::string("SQLite format 3\0", 16)}) {
        Import(Folder.Write("Tour.ovr", bytes));
        EXPECT_THAT(Boxes.Shown, IsEmpty()) << bytes.substr(0, 60);
    }
    for (const fs::path& path : {Folder.Path(), Folder.Path() / "missing.ovr"}) {
        Import(path);
        EXPECT_THAT(Boxes.Shown, IsEmpty()) << path;
    }
    EXPECT_THAT(Waypoints(), SizeIs(3));
    EXPECT_THAT(Rows("SELECT Name FROM Route"), SizeIs(1));
    // An entity of the file's own stays what it says, and costs nothing.
    const std::string named = bomb + "]>" + RouteFile(FileRow("&z;", "1", "2"));
    Import(Folder.Write("Tour.ovr", named));
    EXPECT_EQ(Waypoints().back(), "&z; 1 2 ");
}

// Each step is done wholly or not at all, and the next one goes on with what is there.
TEST_F(RouteImportTest, HalfImportsNothing) {
    const std::string fresh = FileRow("Neu", "1", "2"), known = FileRow("Ende", "51", "7");
    struct Case {
        std::string Rows;
        Names Boxes;
        std::size_t Points, Routes, Fresh;
        std::string Fields = "Name Lat Long", Trigger = {};
    };
    const std::string refuse = " BEGIN SELECT RAISE(ABORT, 'no'); END", all = "Name Lat Long";
    const Names failed{NotRead, Added}, differs{Difference("Ende"), NotRead, Added};
    for (const Case& c : std::vector<Case>{
             {fresh + known, failed, 1, 1, 0, "Name Lat"},
             {fresh + known, failed, 0, 1, 0, "Lat Long"},
             {fresh + "<r:row Name='Ende' Lat='1'/>", failed, 1, 1, 0},
             {known + fresh + "<r:row Lat='1' Long='2'/>", differs, 0, 1, 0},
             {"", {Added}, 0, 1, 0},
             {known + fresh + FileRow("Bad", "1", "2"), differs, 1, 1, 0, all,
              "INSERT ON Waypoints WHEN NEW.Name = 'Bad'"},
             {known + fresh, {differs[0], Added}, 0, 1, 1, all, "INSERT ON GpsPoints WHEN NEW.Name = 'Neu'"},
             {fresh, {}, 0, 0, 1, all, "INSERT ON Route"}}) {
        SCOPED_TRACE(c.Rows + c.Fields + c.Trigger);
        for (const char* clear :
             {"DELETE FROM Route", "DELETE FROM GpsPoints", "DELETE FROM Waypoints WHERE Name = 'Neu'",
              "DROP TRIGGER IF EXISTS Refuse"})
            Sql(clear);
        if (!c.Trigger.empty()) Sql("CREATE TRIGGER Refuse BEFORE " + c.Trigger + refuse);
        Import(Folder.Write("Tour.ovr", RouteFile(c.Rows, c.Fields)));
        EXPECT_EQ(Boxes.Shown, c.Boxes);
        EXPECT_THAT(Rows("SELECT Name FROM GpsPoints"), SizeIs(c.Points));
        EXPECT_THAT(Rows("SELECT Name FROM Route"), SizeIs(c.Routes));
        EXPECT_THAT(Rows("SELECT Name FROM Waypoints WHERE Name = 'Neu'"), SizeIs(c.Fresh));
    }
}

// Names of waypoints have 255 characters at most: longer ones would stand on every screen.
TEST_F(RouteImportTest, RefusesANameThatIsLongerThanItsFieldAndSaysWhy) {
    std::string longest;
    for (int i = 0; i < 255; ++i) longest += "ü";
    Import(Folder.Write("Tour.ovr", RouteFile(FileRow(longest, "1", "2"))));
    EXPECT_THAT(Boxes.Shown, ElementsAre(Added));
    EXPECT_EQ(Waypoints().back(), longest + " 1 2 ");
    const std::string endless(8 << 20, 'x'), known = FileRow("Ende", "51.1", "7.2");
    Import(
        Folder.Write("Long.ovr", RouteFile(FileRow("Neu", "1", "2") + known + FileRow(endless, "1", "2"))));
    EXPECT_THAT(
        Boxes.Shown,
        ElementsAre(std::string(NotRead) +
                        "\nZeile 3: Der Name hat 8388608 Zeichen, möglich sind 255: xxxxxxxxxxxxxxxxxxxx...",
                    "Datenimport|Strecke: Long wurde hinzugefügt"));
    EXPECT_THAT(Points("Long"), ElementsAre("1 Ende 51.1 7.2"));
    Shared.EnglishUI = 1;
    Import(Folder.Write("Long.ovr", RouteFile(FileRow(longest + "u", "1", "2"))));
    EXPECT_THAT(
        Boxes.Shown[0],
        testing::StartsWith("Data error|Error reading waypoint data\nRow 1: The name has 256 characters, "
                            "255 are possible: üüüüüüüüüüüüüüüüüüüü..."));
    EXPECT_THAT(Waypoints(), SizeIs(4));
}

TEST_F(RouteImportTest, AsksForARouteFileAndTakesCancelForAnEnd) {
    fs::create_directory(Folder.Path() / "Route");
    RouteImport(Shared, Shared, Shared.DataConn, Boxes, {}).GetRoute();
    EXPECT_THAT(Boxes.Shown, IsEmpty());
    EXPECT_EQ(Boxes.FileAsked->Title, "Ornivane Route importieren ");
    EXPECT_EQ(Boxes.FileAsked->Start, Folder.Path() / "Route");
    EXPECT_EQ(Boxes.FileAsked->Filters.at(Boxes.FileAsked->Preselected).Pattern, "*.ovr");
}

TEST(RouteImport, NamesTheRouteByTheTextBeforeTheFirstPoint) {
    for (const auto& [path, name] :
         std::vector<std::pair<std::string, std::string>>{{"/a/Rhein.ovr", "Rhein"},
                                                          {"/a/Rhein.Tour.ovr", "Rhein"},
                                                          {"/a/O'Hara & <b>.OVR", "O'Hara & <b>"},
                                                          {"/v1.2/Rhein.ovr", "v1"},
                                                          {"/home/.local/Rhein.ovr", ""},
                                                          {"C:\\Route\\Rhein.ovr", "Rhein"},
                                                          {"/a/..\\..\\etc.ovr", ""},
                                                          {"/a/up\\Rhein.ovr", "Rhein"},
                                                          {"/a/Rhein", "Rhein"},
                                                          {"/a/K\xF6ln.ovr", "Köln"},
                                                          {"Rhein.ovr", ""}})
        EXPECT_EQ(RouteImport::RouteNameOf(path), name) << path;
}

TEST_F(RouteImportTest, ShowsThePlanningScreenWhatIsNewAndGoesOnWhenThatFails) {
    const fs::path file = Folder.Write("Tour.ovr", RouteFile(FileRow("Neu", "1", "2")));
    Names seen;
    const auto see = [&](const std::string& sql) { seen.push_back(Rows(sql).front()); };
    ImportSteps steps{
        [&] { see("SELECT count(*) FROM Waypoints"); },
        [&](const Value& route) { see("SELECT Name FROM Route WHERE RouteID = " + route.Text()); },
        [&] { see("SELECT Name FROM GpsPoints"); }};
    Import(file, steps);
    EXPECT_THAT(seen, ElementsAre("4", "Tour", "Neu"));
    steps.WaypointsAdded = [] { throw RuntimeError(ErrorNumber::InvalidNull); };
    steps.RouteAdded = [](const Value&) { throw RuntimeError(ErrorNumber::InvalidNull); };
    EXPECT_THROW(Import(file, steps), RuntimeError); // last of all
    EXPECT_THAT(Points("Tour"), SizeIs(2));
    EXPECT_THAT(Boxes.Shown, ElementsAre(Added));
}

} // namespace
} // namespace ornivane
