#include "base/RuntimeError.h"
#include "calibration/CatalogueFixture.h"

namespace ornivane {
namespace {

constexpr const char* BadData =
    "Datenfehler|Bitte Kartendaten checken.Daten können nicht gespeichert werden.";

TEST_F(CatalogueTest, ListsTheImagesAndForgetsRowsWhoseImageIsGone) {
    for (const char* name : {"b.JPG", "Äpfel.bmp", "zebra.BMP", "notes.txt", ".hidden.jpg", "x.jpeg"})
        WriteFileAtomically(Charts() / name, "");
    std::filesystem::create_directory(Charts() / "folder.jpg");
    EXPECT_EQ(Rows("Name = 'unused.jpg'"), ""); // its image was never there
    Catalogue.FillMapList();
    std::string names;
    for (const auto& entry : Catalogue.listKarten) names += entry.Name + (entry.Selected ? "+ " : " ");
    EXPECT_EQ(names, "Äpfel.bmp zebra.BMP alpha.jpg+ b.JPG zulu.jpg+ ");
    EXPECT_EQ(Catalogue.SelectedName(), "alpha.jpg"); // kept over the refill

    std::filesystem::remove(Charts() / "alpha.jpg");
    Catalogue.FillMapList();
    EXPECT_EQ(Rows(), "Zulu.JPG 60 61 6 8 2000 1000 on;");
    EXPECT_EQ(Catalogue.ActiveMapsSet.RecordCount(), 1);
    EXPECT_EQ(Catalogue.SelectedName(), "Äpfel.bmp");
}

// A folder that is not there (a card pulled out) says nothing of its charts; an empty one does.
TEST_F(CatalogueTest, NothingStaysOfAChartThatIsNotListed) {
    Catalogue.tKarten = {"50", "51", "6", "8"};
    Catalogue.cmdSpeichern_Click();
    // A refill that fails half-way: the next choice shows that chart, not what stood there.
    Sql("CREATE TRIGGER refuse BEFORE DELETE ON Maps BEGIN SELECT RAISE(ABORT, 'no'); END");
    std::filesystem::rename(Charts() / "alpha.jpg", Charts() / "away");
    EXPECT_THROW(Catalogue.FillMapList(), RuntimeError);
    EXPECT_EQ(Fields(), "Ny Ny Ey Ey ");
    Select("zulu.jpg");
    EXPECT_EQ(Fields() + Catalogue.lblBreite, "N60b N61b E6b E8b 2000");
    EXPECT_TRUE(Catalogue.listKarten[0].Selected);
    Sql("DROP TRIGGER refuse");
    std::filesystem::rename(Charts() / "away", Charts() / "alpha.jpg");
    Catalogue.FillMapList();
    Select("alpha.jpg");
    EXPECT_EQ(Fields(), "N50b N51b E6b E8b ");
    for (const char* image : {"alpha.jpg", "zulu.jpg"}) std::filesystem::remove(Charts() / image);
    Catalogue.FillMapList();
    EXPECT_EQ(Rows() + Fields() + Catalogue.lblBreite, "Ny Ny Ey Ey ");
}

TEST_F(CatalogueTest, AMissingFolderCostsNoRows) {
    std::filesystem::rename(Charts(), Folder.Path() / "away");
    Catalogue.FillMapList();
    EXPECT_TRUE(Catalogue.listKarten.empty());
    EXPECT_EQ(Rows("Active"), "alpha.jpg 50 51 6 8 2000 1000 on;Zulu.JPG 60 61 6 8 2000 1000 on;");
    std::filesystem::create_directory(Charts());
    Catalogue.FillMapList();
    EXPECT_EQ(Rows(), "");
    EXPECT_TRUE(Boxes.Shown.empty());
}

TEST_F(CatalogueTest, ShowsRowSideFileOrNothing) {
    EXPECT_EQ(Fields(), "N50b N51b E6b E8b ");
    EXPECT_EQ(Catalogue.lblBreite + "x" + Catalogue.lblHoehe, "2000x1000");
    AddImage("side.jpg", 30, 20);
    WriteFileAtomically(Charts() / "SIDE.CRM", "-33.5\n34.3 south\r\nno number\n-8.5");
    AddImage("short.jpg", 30, 20);
    WriteFileAtomically(Charts() / "short.crm", "1\r\n2\r\n3\r\n");
    Catalogue.FillMapList();
    Shared.Locale.DecimalSeparator = ',';
    Select("side.jpg");
    EXPECT_EQ(Fields(), "S33,5y N34,3y E0y W8,5y ");
    Select("short.jpg");
    EXPECT_EQ(Fields(), "Sy Ny Ey Wy ");
    Catalogue.tKarten_Click(1);
    Select("zulu.jpg");
    EXPECT_EQ(Fields(), "N60b N61b E6b E8b ");
    Catalogue.tKarten_Click(1);
    EXPECT_EQ(Fields(), "N60b N61y E6b E8b ");
}

TEST_F(CatalogueTest, SaveWritesRowAndSideFile) {
    AddImage("d'Or.jpg", 300, 200);
    Catalogue.FillMapList();
    Select("d'Or.jpg");
    Catalogue.tKarten = {"33,5", "-32.3", "8", "0,3"};
    Catalogue.cmbLatLong = {1, 1, 1, 0};
    Catalogue.cmdSpeichern_Click();
    EXPECT_EQ(Rows("Breite = 300"), "d'Or.jpg -33.5 -32.3 -8 0.3 300 200 off;");
    EXPECT_EQ(Bytes("d'Or.crm"), "-33.5\r\n-32.3\r\n-8\r\n0.3\r\n");
    EXPECT_EQ(Fields(), "S33.5b S32.3b W8b E0.3b ");
    Catalogue.tKarten[0] = "33.4";
    Catalogue.cmdSpeichern_Click();
    EXPECT_EQ(Rows("Breite = 300"), "d'Or.jpg -33.4 -32.3 -8 0.3 300 200 off;"); // no second row
    // The frame comes back with the image, also when the store was lost.
    Sql("DELETE FROM Maps");
    Catalogue.FillMapList();
    EXPECT_EQ(Fields(), "S33.4y S32.3y W8y E0.3y ");
}

TEST_F(CatalogueTest, BadDataIsToldAndNothingWritten) {
    AddImage("empty.jpg", 0, 20);
    Catalogue.FillMapList();
    const std::string before = Rows();
    for (const char* text : {"", "north", "47.4.1", "1e400"}) {
        Catalogue.tKarten[2] = text;
        Catalogue.cmdSpeichern_Click();
    }
    Select("empty.jpg");
    Catalogue.tKarten = {"1", "2", "3", "4"};
    Catalogue.cmdSpeichern_Click();
    EXPECT_EQ(Boxes.Shown, std::vector<std::string>(5, BadData));
    EXPECT_EQ(Rows(), before);
    EXPECT_EQ(Bytes("alpha.crm") + Bytes("empty.crm"), "nonenone");
    Shared.EnglishUI = 1;
    Catalogue.listKarten_ItemCheck(Catalogue.ListIndex); // no frame: the tick goes back
    EXPECT_EQ(Boxes.Shown.back(), "Data error|Please check map data.Data can not be saved.");
    EXPECT_FALSE(Catalogue.listKarten[static_cast<std::size_t>(Catalogue.ListIndex)].Selected);
    EXPECT_EQ(Rows(), before);
}

TEST_F(CatalogueTest, ATickMakesAMapActiveAndTakesItBack) {
    Catalogue.listKarten_ItemCheck(1); // zulu.jpg
    EXPECT_EQ(Catalogue.SelectedName(), "zulu.jpg");
    EXPECT_EQ(Rows(), "alpha.jpg 50 51 6 8 2000 1000 on;zulu.jpg 60 61 6 8 2000 1000 off;");
    EXPECT_EQ(Catalogue.ActiveMapsSet.RecordCount(), 1);
    AddImage("side.jpg", 30, 20);
    WriteFileAtomically(Charts() / "side.crm", "1\r\n2\r\n3\r\n4\r\n");
    Catalogue.FillMapList();
    Catalogue.listKarten_ItemCheck(1); // from its side file to an active row in one step
    EXPECT_EQ(Rows("Name = 'side.jpg'"), "side.jpg 1 2 3 4 30 20 on;");
    EXPECT_EQ(Fields(), "N1b N2b E3b E4b ");
}

TEST_F(CatalogueTest, DamagedImagesKeepTheSizeThatWasShown) {
    WriteFileAtomically(Charts() / "broken.jpg", std::string("\xFF\xD8\xFF\xE1\x80\0", 6));
    WriteFileAtomically(Charts() / "renamed.jpg", "BM");
    Catalogue.FillMapList();
    Select("renamed.jpg");
    EXPECT_TRUE(Boxes.Shown.empty());
    Select("broken.jpg");
    EXPECT_EQ(Boxes.Shown, std::vector<std::string>{"|Fehler im Bild"});
    EXPECT_EQ(Catalogue.lblBreite + "x" + Catalogue.lblHoehe, "2000x1000");
}

TEST_F(CatalogueTest, ThePreviewIsStretchedAndLoadsOnlyWhenAsked) {
    EXPECT_TRUE(Storage.Asked.empty());
    Catalogue.chkVorschau_Click(true);
    EXPECT_EQ(Surface.Source, (PixelRect{0, 0, 2000, 1000}));
    Storage.Readable = false;
    Select("zulu.jpg");
    EXPECT_TRUE(Catalogue.PreviewFailed);
    EXPECT_EQ(Surface.Drawn, std::vector<std::string>{"cls"});
    EXPECT_EQ(Fields(), "N50b N51b E6b E8b "); // an image that cannot be shown ends it there
    Catalogue.chkVorschau_Click(false);
    EXPECT_FALSE(Catalogue.PreviewFailed);
}

TEST_F(CatalogueTest, HemispheresAndPreviewComeBackAtTheNextRun) {
    EXPECT_EQ(Bytes("LatData.crm"), "0\r\n0\r\n0\r\n0\r\n0\r\n");
    Catalogue.chkVorschau_Click(true);
    Catalogue.cmbLatLong = {0, 1, 0, 1};
    Catalogue.Form_Unload();
    EXPECT_EQ(Bytes("LatData.crm"), "0\r\n1\r\n0\r\n1\r\n1\r\n");
    Sql("DELETE FROM Maps");
    MapData next(Shared, Storage, Surface, Boxes);
    next.Form_Load();
    EXPECT_EQ(next.cmbLatLong, (std::array{0, 1, 0, 1}));
    EXPECT_TRUE(next.chkVorschau);
    EXPECT_EQ(Bytes("LatData.crm"), "0\r\n0\r\n0\r\n0\r\n0\r\n"); // until the end of the run
    WriteFileAtomically(Charts() / "LatData.crm", "1\r\n7\r\n1\r\n1\r\n1\r\n");
    MapData damaged(Shared, Storage, Surface, Boxes);
    damaged.Form_Load();
    EXPECT_EQ(damaged.cmbLatLong, (std::array{1, 0, 0, 0}));
}

TEST_F(CatalogueTest, TheScaleBetraysAMistypedEdge) {
    Shared.EnglishUI = 1;
    // 2° over 2000 pixels at 50.5° N, 1° over 1000 pixels: 111.12 m down, times cos 50.5 across.
    EXPECT_EQ(Catalogue.ScaleText(),
              "One pixel: 70.7 m across, 111.1 m down. They differ by 44.5\u00a0%. Please "
              "check the coordinates.");
    Catalogue.tKarten[3] = "9.0864";
    Shared.Locale.DecimalSeparator = ',';
    Shared.EnglishUI = 0;
    EXPECT_EQ(Catalogue.ScaleText(), "Ein Bildpunkt: 111,1 m breit, 111,1 m hoch. Unterschied 0,0\u00a0%.");
    Catalogue.tKarten[1] = "49";
    EXPECT_NE(Catalogue.ScaleText().find("verkehrt"), std::string::npos);
    Catalogue.tKarten[1] = "x";
    EXPECT_EQ(Catalogue.ScaleText(), "");
}

} // namespace
} // namespace ornivane
