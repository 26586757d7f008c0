#include "calibration/TwoPoints.h"

#include "calibration/CatalogueFixture.h"
#include "gps/GpsFakes.h"

namespace ornivane {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* TooClose = "Datenfehler|Bitte andere Koordinatenpunkte aussuchen...";

// alpha.jpg, 2000 x 1000 pixels, in a view of 800 x 400; no row, so that all comes from the calibration.
class TwoPointsTest : public CatalogueTest {
protected:
    TwoPointsTest() {
        Sql("DELETE FROM Maps");
        Sql("INSERT INTO Waypoints (Name, Lat, Long) VALUES ('Zoo', 50.3, 7.3), ('Älpli', 47.1, 9.2), "
            "('älter''s', -33.3, -70.4), ('Alm', 1, 2)");
        Catalogue.FillMapList();
        Form.Form_Load();
    }
    // The pixel of the image under the pointer, at any zoom: the view is scrolled there first.
    static void ClickPixel(TwoPoints& form, double x, double y) {
        form.View = {static_cast<float>(x - 100), static_cast<float>(y - 50), 200, 100};
        form.MouseMove({400, 200}, false);
        form.picMap_Click();
    }
    void ClickPixel(double x, double y) { ClickPixel(Form, x, y); }
    // True when that finished the calibration.
    static bool Enter(TwoPoints& form, std::size_t index, const char* lat, const char* longitude) {
        form.Points[index].tLat = lat;
        form.Points[index].tLong = longitude;
        return form.cmdSave_Click(index);
    }
    bool Enter(std::size_t index, const char* lat, const char* longitude) {
        return Enter(Form, index, lat, longitude);
    }

    FakeTimer Arrows;
    TwoPoints Form{{Shared, Shared.DataConn, Catalogue, Storage, Surface, Arrows, Boxes}};
};

TEST_F(TwoPointsTest, FindsTheFrameAndSavesIt) {
    ClickPixel(500, 900);
    EXPECT_EQ(Form.Points[0].tx, "500");
    EXPECT_EQ(Form.Points[0].ty, "900");
    EXPECT_FALSE(Enter(0, "50.06", "6,3")); // 50.1 and 6.5 decimal
    EXPECT_EQ(Form.Points[0].Colour, PointColour::Accepted);
    ClickPixel(1500, 100);
    EXPECT_FALSE(Form.Points[0].frmVisible);
    EXPECT_TRUE(Enter(1, "50.54", "7.3")); // 50.9 and 7.5
    EXPECT_EQ(Boxes.Shown, std::vector<std::string>{"Karte kalibriert|Karte wurde kalibriert."});
    EXPECT_EQ(Boxes.Details, Catalogue.ScaleText());
    EXPECT_EQ(Rows(), (Texts{"alpha.jpg 50 51 6 8 2000 1000 off"}));
    EXPECT_EQ(Bytes("alpha.crm"), "50\r\n51\r\n6\r\n8\r\n");
}

TEST_F(TwoPointsTest, ATickedMapStaysTickedAndIsWrittenAgain) {
    Catalogue.tKarten = {"1", "2", "3", "4"};
    Catalogue.cmdSpeichern_Click();
    Catalogue.listKarten_ItemCheck(0);
    ClickPixel(500, 900);
    Enter(0, "50.06", "6.3");
    ClickPixel(1400, 100); // less than half the width apart
    Enter(1, "50.54", "7.24");
    EXPECT_EQ(Boxes.Shown.back(),
              "Karte kalibriert|Karte wurde kalibriert. Für ein besseres Ergebnis zwei Punkte "
              "auswählen, die weiter auseinander liegen...");
    EXPECT_EQ(Rows("Active"), (Texts{"alpha.jpg 50 51 6 8 2000 1000 on"}));
    EXPECT_TRUE(Catalogue.listKarten[0].Selected);
}

// The hemispheres are chosen in the catalogue, magnitudes are entered here; a sign is lost on saving.
TEST_F(TwoPointsTest, SignsComeFromTheCatalogue) {
    Catalogue.cmbLatLong = {South, South, West, West};
    ClickPixel(500, 900);
    Enter(0, "33.54", "8.3"); // S 33.9, W 8.5
    ClickPixel(1500, 100);
    Enter(1, "33.06", "7.3"); // S 33.1, W 7.5
    EXPECT_EQ(Rows(), (Texts{"alpha.jpg -34 -33 -9 -7 2000 1000 off"}));
}

// The scale beside the message is that of the frame that is stored.
TEST_F(TwoPointsTest, TheScaleIsThatOfTheSavedFrame) {
    for (const Hemisphere box : {West, East}) {
        SCOPED_TRACE(box == West);
        Catalogue.cmbLatLong = {North, North, box, box};
        TwoPoints form({Shared, Shared.DataConn, Catalogue, Storage, Surface, Arrows, Boxes});
        form.Form_Load();
        ClickPixel(form, 500, 900);
        Enter(form, 0, "50.06", "-8.3"); // in the west, with a sign as the waypoints of the store have it
        ClickPixel(form, 1500, 100);
        Enter(form, 1, "50.54", "-7.3");
        EXPECT_EQ(Boxes.Details, Catalogue.ScaleText());
        EXPECT_EQ(Boxes.Details.find("verkehrt") == std::string::npos, box == West) << Boxes.Details;
    }
}

// The size cannot be stored: the frame that was found stays in the fields, in the colour of what is not.
TEST_F(TwoPointsTest, ARefusedSaveLosesNothing) {
    constexpr const char* row = "topdown.bmp 1 2 3 4 2000 1000 on";
    std::string header("BM" + std::string(16, '\0') + std::string("\xD0\x07\0\0\x18\xFC\xFF\xFF", 8));
    WriteFileAtomically(Charts() / "topdown.bmp", header); // 2000 x -1000
    Sql("INSERT INTO Maps (Name, Unten, Oben, Links, Rechts, Breite, \"Höhe\", Active) VALUES "
        "('topdown.bmp', 1, 2, 3, 4, 2000, 1000, 1)");
    Catalogue.FillMapList();
    Select("topdown.bmp");
    for (const int english : {0, 1}) {
        Boxes.Shown.clear();
        Shared.EnglishUI = static_cast<std::int16_t>(english);
        TwoPoints form({Shared, Shared.DataConn, Catalogue, Storage, Surface, Arrows, Boxes});
        form.Form_Load();
        ASSERT_EQ(Boxes.Shown.size(), 1u);
        EXPECT_EQ(Boxes.Shown[0],
                  english ? "Data error|topdown.bmp is stored from the top down (height -1000). Its "
                            "calibration cannot be stored: save the image again in the usual order."
                          : "Datenfehler|topdown.bmp ist von oben nach unten gespeichert (Höhe -1000). Die "
                            "Kalibrierung kann nicht gespeichert werden: Bitte das Bild in der üblichen "
                            "Reihenfolge neu speichern.");
        ClickPixel(form, 500, 900);
        Enter(form, 0, "50.06", "6.3");
        ClickPixel(form, 1500, 100);
        Enter(form, 1, "50.54", "7.3");
        EXPECT_EQ(Boxes.Shown.size(), 3u); // calibrated; cannot be saved
        EXPECT_EQ(Fields().substr(Fields().find('E')), "E6y E8y ");
        EXPECT_EQ(Rows("Active"), Texts{row});
        EXPECT_TRUE(Catalogue.listKarten[static_cast<std::size_t>(Catalogue.ListIndex)].Selected);
        EXPECT_EQ(Bytes("topdown.crm"), "none");
    }
}

TEST_F(TwoPointsTest, PointsTooCloseInXLeaveNoWayForward) {
    ClickPixel(500, 900);
    Enter(0, "50.06", "6.3");
    ClickPixel(519, 100);
    EXPECT_FALSE(Enter(1, "50.54", "7.3"));
    EXPECT_EQ(Boxes.Shown, std::vector<std::string>{TooClose});
    EXPECT_EQ(Form.Points[1].Colour, PointColour::Accepted);
    ClickPixel(1500, 100);
    EXPECT_EQ(Form.KeyTyped("5"), TypedInto::Nothing);
    EXPECT_EQ(Form.KeyTyped("a"), TypedInto::Nothing);
    EXPECT_EQ(Rows(), (Texts{}));
}

// The second point can be entered anew, while the first one's coordinates, converted once, are converted
// again: 6.3 became 6.5, and becomes 6.8333.
TEST_F(TwoPointsTest, PointsTooCloseInYConvertTheFirstPointAgain) {
    ClickPixel(500, 900);
    Enter(0, "50.06", "6.3");
    ClickPixel(520, 881);
    Enter(1, "50.54", "7.3");
    EXPECT_EQ(Boxes.Shown, std::vector<std::string>{TooClose});
    EXPECT_EQ(Form.Points[1].Colour, PointColour::ToEnter);
    EXPECT_TRUE(Form.Points[1].FieldsEnabled);
    ClickPixel(520, 880);
    EXPECT_TRUE(Enter(1, "50.54", "7.3"));
    EXPECT_EQ(Form.Points[0].Long.substr(0, 6), "6.8333");
    EXPECT_EQ(Form.Points[0].Lat.substr(0, 7), "50.1666");
}

TEST_F(TwoPointsTest, APointMovesUntilItIsAcceptedAndOnlyNumbersAreAccepted) {
    Form.cmdSave_Click(0); // nothing clicked yet
    EXPECT_EQ(Form.Points[0].Colour, PointColour::None);
    ClickPixel(500, 900);
    Enter(0, "", "6.3");
    Enter(0, "north", "6.3");
    EXPECT_EQ(Form.Points[0].Colour, PointColour::ToEnter);
    ClickPixel(600, 800);
    EXPECT_EQ(Form.Points[0].tx, "600");
    EXPECT_EQ(Form.Points[0].ty, "800");
    EXPECT_EQ(Form.Points[0].tLong, "");
    EXPECT_EQ(Surface.Count("circle 400,200 r5 w5 #0000FF"), 1);
    EXPECT_EQ(Surface.Count("circle 400,200 r8 w5 #000000"), 1);
    Enter(0, "50", "6");
    Enter(0, "51", "7"); // accepted already
    EXPECT_EQ(Form.Points[0].Lat, "50");
    EXPECT_TRUE(Boxes.Shown.empty());
}

TEST_F(TwoPointsTest, TypedKeysGoWhereTheyAreMeant) {
    EXPECT_EQ(Form.KeyTyped("4"), TypedInto::Nothing);
    ClickPixel(500, 900);
    EXPECT_EQ(Form.KeyTyped("4"), TypedInto::Lat1);
    EXPECT_EQ(Form.Points[0].tLat, "4");
    EXPECT_EQ(Form.KeyTyped("ä"), TypedInto::Quickfind1);
    EXPECT_EQ(Form.Points[0].WaypointFindSet.RecordCount(), 2);
    EXPECT_EQ(Form.Points[0].tLat, "47.1"); // the first one found
    EXPECT_EQ(Form.Points[0].tLong, "9.2");
    Form.Points[0].WaypointFindSet.MoveNext();
    Form.gridWay_RowChanged(0);
    Enter(0, Form.Points[0].tLat.c_str(), Form.Points[0].tLong.c_str());
    EXPECT_EQ(Form.Points[0].tQuickfind, "älter's");
    EXPECT_EQ(Form.Points[0].Lat, "-33.3");
    ClickPixel(1500, 100);
    EXPECT_EQ(Form.KeyTyped("5"), TypedInto::Lat2);
    EXPECT_EQ(Form.tLat2Caret, 5u); // behind the first field's text
    EXPECT_EQ(Form.KeyTyped("q"), TypedInto::Quickfind2);
    EXPECT_EQ(Form.Points[1].tLat, ""); // nothing found
    Form.Points[1].tQuickfind = "";
    Form.FindWaypoint(1);
    EXPECT_EQ(Form.Points[1].WaypointFindSet.RecordCount(), 0);
}

TEST_F(TwoPointsTest, ZoomsPansAndKeepsTheImageInView) {
    EXPECT_EQ(Form.View, (SourceRect{0, 0, 1000, 500}));
    Form.SlideMap_Scroll(-100);
    EXPECT_EQ(Form.View.SW, 100); // an eighth of the view: 8 view pixels for one of the image
    Form.MouseMove({8, 16}, false);
    EXPECT_EQ(Form.tx, "1");
    EXPECT_EQ(Form.ty, "2");
    Form.ArrowDown(ArrowKey::Right);
    Form.ArrowDown(ArrowKey::Down);
    EXPECT_EQ(Arrows.Interval(), 100);
    Form.timArr_Timer();
    EXPECT_EQ(Form.View, (SourceRect{100, 50, 100, 50}));
    EXPECT_EQ(Form.tx, "101"); // under a pointer that rests
    EXPECT_EQ(Form.ty, "52");
    Form.ArrowUp(ArrowKey::Right);
    EXPECT_EQ(Arrows.Interval(), 0); // although the other is still held
    Form.MouseDown({10, 10});
    Form.MouseMove({15, 7}, true); // one image pixel for a view pixel, whatever the zoom
    EXPECT_EQ(Form.View, (SourceRect{95, 53, 100, 50}));
    Form.MouseMove({5000, 5000}, true);
    EXPECT_EQ(Form.View, (SourceRect{0, 0, 100, 50}));
    Form.SlideMap_Scroll(100);
    EXPECT_EQ(Form.View, (SourceRect{0, 0, 2000, 1000}));
    Surface.Height = 200;
    Form.Form_Resize();
    Form.SlideMap_Scroll(100);
    EXPECT_EQ(Form.View, (SourceRect{0, 0, 2000, 500}));
    Form.SlideMap_Click(100); // the whole image, stretched
    EXPECT_EQ(Form.View, (SourceRect{0, 0, 2000, 1000}));
}

TEST_F(TwoPointsTest, AnImageThatCannotBeUsedIsAnError) {
    Storage.Readable = false;
    EXPECT_THROW(Form.Form_Load(), RuntimeError);
    Storage.Readable = true;
    WriteFileAtomically(Charts() / "alpha.jpg", "BM, and so without a size for its name");
    EXPECT_THROW(Form.Form_Load(), RuntimeError);
}

} // namespace
} // namespace ornivane
