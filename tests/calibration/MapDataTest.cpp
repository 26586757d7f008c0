#include <algorithm>
#include <cmath>
#include <random>

#include "base/RuntimeError.h"
#include "calibration/CatalogueFixture.h"

namespace ornivane {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* BadData =
    "Datenfehler|Bitte Kartendaten checken.Daten können nicht gespeichert werden.";

TEST_F(CatalogueTest, ListsTheImagesAndForgetsRowsWhoseImageIsGone) {
    for (const char* name : {"b.JPG", "Äpfel.bmp", "zebra.BMP", "notes.txt", ".hidden.jpg", "x.jpeg"})
        WriteFileAtomically(Charts() / name, "");
    std::filesystem::create_directory(Charts() / "folder.jpg");
    EXPECT_EQ(Rows("Name = 'unused.jpg'"), (Texts{})); // its image was never there
    Catalogue.FillMapList();
    std::string names;
    for (const auto& entry : Catalogue.listKarten) names += entry.Name + (entry.Selected ? "+ " : " ");
    EXPECT_EQ(names, "Äpfel.bmp zebra.BMP alpha.jpg+ b.JPG zulu.jpg+ ");
    EXPECT_EQ(Catalogue.SelectedName(), "alpha.jpg"); // kept over the refill

    std::filesystem::remove(Charts() / "alpha.jpg");
    Catalogue.FillMapList();
    EXPECT_EQ(Rows(), (Texts{"Zulu.JPG 60 61 6 8 2000 1000 on"}));
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
    EXPECT_EQ(Fields(), "N60b N61b E6b E8b ");
    EXPECT_EQ(Catalogue.Size.value_or(ImageSize()).Width, 2000);
    EXPECT_TRUE(Catalogue.listKarten[0].Selected);
    Sql("DROP TRIGGER refuse");
    std::filesystem::rename(Charts() / "away", Charts() / "alpha.jpg");
    Catalogue.FillMapList();
    Select("alpha.jpg");
    EXPECT_EQ(Fields(), "N50b N51b E6b E8b ");
    for (const char* image : {"alpha.jpg", "zulu.jpg"}) std::filesystem::remove(Charts() / image);
    Catalogue.FillMapList();
    EXPECT_EQ(Rows(), (Texts{}));
    EXPECT_EQ(Fields(), "Ny Ny Ey Ey ");
    EXPECT_FALSE(Catalogue.Size);
}

TEST_F(CatalogueTest, AMissingFolderCostsNoRows) {
    std::filesystem::rename(Charts(), Folder.Path() / "away");
    Catalogue.FillMapList();
    EXPECT_TRUE(Catalogue.listKarten.empty());
    EXPECT_EQ(Rows("Active"), (Texts{"alpha.jpg 50 51 6 8 2000 1000 on", "Zulu.JPG 60 61 6 8 2000 1000 on"}));
    std::filesystem::create_directory(Charts());
    Catalogue.FillMapList();
    EXPECT_EQ(Rows(), (Texts{}));
    EXPECT_TRUE(Boxes.Shown.empty());
}

// The place where a card with the charts is missing looks like an empty folder.
TEST_F(CatalogueTest, BeforeAllRowsGoTheStoreIsKept) {
    const auto refillWithout = [this](std::initializer_list<const char*> images) {
        for (const char* name : images) std::filesystem::remove(Charts() / name);
        Catalogue.FillMapList();
        EXPECT_EQ(Rows(), (Texts{}));
        return Catalogue.BackupText();
    };
    const auto chartsIn = [this](const char* name) {
        Connection kept;
        kept.Open(Folder.Path() / name, Connection::Mode::ReadOnly);
        return RowsOf(kept, "SELECT Name, Breite FROM Maps ORDER BY Name", NumbersAs::Shown);
    };
    const auto add = [this](const char* name, int width) {
        AddImage(name, width, 100);
        Shared.DataConn.Execute(
            "INSERT INTO Maps (Name, Unten, Oben, Links, Rechts, Breite, \"Höhe\", Active) "
            "VALUES (?, 1, 2, 3, 4, ?, 100, 1)",
            {name, width});
    };
    EXPECT_FALSE(std::filesystem::exists(Folder.Path() / "data.bak")); // unused.jpg was not the only one
    EXPECT_EQ(
        refillWithout({"alpha.jpg", "zulu.jpg"}),
        "Zu keiner eingetragenen Karte war ein Bild im Ordner. Die Einträge sind aufgehoben in data.bak.");
    EXPECT_EQ(chartsIn("data.bak"), (Texts{"alpha.jpg 2000", "Zulu.JPG 2000"}));
    EXPECT_EQ(refillWithout({}), ""); // there was nothing to keep
    add("new.jpg", 1);
    EXPECT_NE(refillWithout({"new.jpg"}).find("data-2.bak"),
              std::string::npos); // the first one is worth more
    for (const char* name : {"alpha.jpg", "ZULU.jpg", "d'Or.jpg"}) add(name, 2);
    refillWithout({"alpha.jpg", "ZULU.jpg", "d'Or.jpg"}); // all that it had, and more
    EXPECT_EQ(chartsIn("data.bak"), (Texts{"alpha.jpg 2", "d'Or.jpg 2", "ZULU.jpg 2"}));
    EXPECT_EQ(chartsIn("data-2.bak"), (Texts{"new.jpg 1"}));
    WriteFileAtomically(Folder.Path() / "data.bak", "damaged");
    add("alpha.jpg", 3);
    EXPECT_NE(refillWithout({"alpha.jpg"}).find("data-3.bak"), std::string::npos);
    EXPECT_EQ(ReadWholeFile(Folder.Path() / "data.bak"), "damaged");
    // What cannot be kept stays.
    for (const char* name : {"data-3.bak.new", "data-4.bak.new"})
        std::filesystem::create_directories(Folder.Path() / name / "in the way");
    add("alpha.jpg", 4);
    std::filesystem::remove(Charts() / "alpha.jpg");
    EXPECT_THROW(Catalogue.FillMapList(), RuntimeError);
    EXPECT_EQ(Rows(), (Texts{"alpha.jpg 1 2 3 4 4 100 on"}));
    EXPECT_EQ(Catalogue.BackupText(), "");
    EXPECT_TRUE(Boxes.Shown.empty()); // nobody is asked
}

TEST_F(CatalogueTest, ShowsRowSideFileOrNothing) {
    EXPECT_EQ(Fields(), "N50b N51b E6b E8b ");
    EXPECT_EQ(Catalogue.Size, (ImageSize{2000, 1000}));
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
    Catalogue.cmbLatLong = {South, South, West, East};
    Catalogue.cmdSpeichern_Click();
    EXPECT_EQ(Rows("Breite = 300"), (Texts{"d'Or.jpg -33.5 -32.3 -8 0.3 300 200 off"}));
    EXPECT_EQ(Bytes("d'Or.crm"), "-33.5\r\n-32.3\r\n-8\r\n0.3\r\n");
    EXPECT_EQ(Fields(), "S33.5b S32.3b W8b E0.3b ");
    Catalogue.tKarten[0] = "33.4";
    Catalogue.cmdSpeichern_Click();
    EXPECT_EQ(Rows("Breite = 300"), (Texts{"d'Or.jpg -33.4 -32.3 -8 0.3 300 200 off"})); // no second row
    // The frame comes back with the image, also when the store was lost.
    Sql("DELETE FROM Maps");
    Catalogue.FillMapList();
    EXPECT_EQ(Fields(), "S33.4y S32.3y W8y E0.3y ");
}

TEST_F(CatalogueTest, BadDataIsToldAndNothingWritten) {
    AddImage("empty.jpg", 0, 20);
    Catalogue.FillMapList();
    const auto before = Rows();
    for (const char* text : {"", "north", "47.4.1", "1e400"}) {
        Catalogue.tKarten[2] = text;
        Catalogue.cmdSpeichern_Click();
    }
    Select("empty.jpg");
    Catalogue.tKarten = {"1", "2", "3", "4"};
    Catalogue.cmdSpeichern_Click();
    EXPECT_EQ(Boxes.Shown, std::vector<std::string>(5, BadData));
    EXPECT_EQ(Rows(), before);
    for (const char* file : {"alpha.crm", "empty.crm"}) EXPECT_EQ(Bytes(file), "none");
    Shared.EnglishUI = 1;
    Catalogue.listKarten_ItemCheck(Catalogue.ListIndex); // no frame: the tick goes back
    EXPECT_EQ(Boxes.Shown.back(), "Data error|Please check map data.Data can not be saved.");
    EXPECT_FALSE(Catalogue.listKarten[static_cast<std::size_t>(Catalogue.ListIndex)].Selected);
    EXPECT_EQ(Rows(), before);
}

TEST_F(CatalogueTest, ATickMakesAMapActiveAndTakesItBack) {
    Catalogue.listKarten_ItemCheck(1); // zulu.jpg
    EXPECT_EQ(Catalogue.SelectedName(), "zulu.jpg");
    EXPECT_EQ(Rows(), (Texts{"alpha.jpg 50 51 6 8 2000 1000 on", "zulu.jpg 60 61 6 8 2000 1000 off"}));
    EXPECT_EQ(Catalogue.ActiveMapsSet.RecordCount(), 1);
    AddImage("side.jpg", 30, 20);
    WriteFileAtomically(Charts() / "side.crm", "1\r\n2\r\n3\r\n4\r\n");
    Catalogue.FillMapList();
    Catalogue.listKarten_ItemCheck(1); // from its side file to an active row in one step
    EXPECT_EQ(Rows("Name = 'side.jpg'"), (Texts{"side.jpg 1 2 3 4 30 20 on"}));
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
    EXPECT_EQ(Catalogue.Size, (ImageSize{2000, 1000}));
}

TEST_F(CatalogueTest, ThePreviewIsStretchedAndLoadsOnlyWhenAsked) {
    EXPECT_TRUE(Storage.Asked.empty());
    Catalogue.chkVorschau_Click(true);
    EXPECT_EQ(Surface.Source, (PixelRect{0, 0, 2000, 1000}));
    Storage.Readable = false;
    Select("zulu.jpg");
    EXPECT_TRUE(Catalogue.PreviewFailed);
    EXPECT_EQ(Surface.Drawn, std::vector<std::string>{"cls"});
    EXPECT_EQ(Fields(), "Ny Ny Ey Ey "); // an image that cannot be shown ends it there
    Catalogue.chkVorschau_Click(false);
    EXPECT_FALSE(Catalogue.PreviewFailed);
}

// What was shown of alpha.jpg before is no data of a chart whose image tells nothing.
TEST_F(CatalogueTest, NothingOfAnotherChartIsEverStored) {
    for (const char* name : {"dead.jpg", "Größe's.bmp", "stored.jpg"})
        WriteFileAtomically(Charts() / name, "");
    WriteFileAtomically(Charts() / "dead.crm", "1\r\n2\r\n3\r\n4\r\n");
    Sql("INSERT INTO Maps (Name, Unten, Oben, Links, Rechts, Breite, \"Höhe\", Active) VALUES "
        "('stored.jpg', 47, 48, -9, -8, 300, 200, 1)");
    Catalogue.FillMapList();
    const auto before = Rows();
    for (const bool preview : {false, true}) {
        Storage.Readable = true;
        Select("alpha.jpg");
        Catalogue.chkVorschau_Click(preview);
        Storage.Readable = false;
        for (const char* name : {"Größe's.bmp", "dead.jpg"}) {
            SCOPED_TRACE(name);
            Boxes.Shown.clear();
            Select("alpha.jpg");
            Select(name);
            EXPECT_EQ(Fields(),
                      std::string(name) == "dead.jpg" && !preview ? "N1y N2y E3y E4y " : "Ny Ny Ey Ey ");
            EXPECT_EQ(Catalogue.Size.value_or(ImageSize()).Width, 2000); // stays, as it stood
            EXPECT_EQ(Catalogue.ScaleText(), "Dieses Bild hat keine lesbare Größe; die gezeigte gehört zu "
                                             "einer anderen Karte.");
            Catalogue.cmdSpeichern_Click();
            Catalogue.tKarten = {"1", "2", "3", "4"}; // typed
            Catalogue.cmdSpeichern_Click();
            EXPECT_EQ(Boxes.Shown, std::vector<std::string>(2, BadData));
        }
    }
    EXPECT_EQ(Rows(), before);
    EXPECT_EQ(Bytes("Größe's.crm"), "none");
    // A tick asks for no size: a new row without one cannot be, and a row keeps the one that it has.
    Catalogue.chkVorschau_Click(false);
    const int dead = SearchEntry("dead.jpg"), stored = SearchEntry("stored.jpg");
    EXPECT_THROW(Catalogue.listKarten_ItemCheck(dead), RuntimeError);
    EXPECT_FALSE(Catalogue.listKarten[static_cast<std::size_t>(dead)].Selected);
    EXPECT_EQ(Rows(), before);
    Catalogue.listKarten_ItemCheck(stored);
    EXPECT_EQ(Rows("Name = 'stored.jpg'"), (Texts{"stored.jpg 47 48 -9 -8 300 200 off"}));
}

// Chart number n is n hundred pixels wide and lies between n and n + 1 degrees, and whoever types enters such
// numbers: what a row has tells whose it is.
class SlippingHandsTest : public CatalogueTest {
protected:
    static constexpr std::array Names = {"a.bmp", "d'Or.jpg", "m\u00fcnster.jpg", "z.jpg"};

    int Random(int to) { return std::uniform_int_distribution<int>(0, to - 1)(Dice); }
    static int NumberOf(const std::string& name) {
        const auto found = std::find(Names.begin(), Names.end(), name);
        return static_cast<int>(found - Names.begin()) + 2;
    }
    void WriteImage(const char* name, bool bmp) {
        const int width = NumberOf(name) * 100;
        if (!bmp) return AddImage(name, width, 90);
        std::string header(26, '\0');
        header[0] = 'B';
        header[1] = 'M';
        header[18] = static_cast<char>(width & 0xFF);
        header[19] = static_cast<char>(width >> 8);
        header[22] = 90;
        WriteFileAtomically(Charts() / name, header);
    }
    void ChangeAFile() {
        const char* name = Names[static_cast<std::size_t>(Random(Names.size()))];
        switch (Random(5)) {
        case 0:
            std::filesystem::remove(Charts() / name);
            break;
        case 1:
            WriteFileAtomically(Charts() / name, "");
            break;
        case 2:
            WriteFileAtomically(Charts() / name, std::string("\xFF\xD8\xFF\xE1\x80\0", 6));
            break;
        default:
            WriteImage(name, std::string(name) == "a.bmp");
        }
        if (Random(3) == 0) Catalogue.FillMapList();
    }
    void Type() {
        const auto i = static_cast<std::size_t>(Random(4));
        const int number = NumberOf(Catalogue.SelectedName());
        Catalogue.cmbLatLong[i] = number % 2 == 0 ? North : South;
        Catalogue.tKarten[i] = std::to_string(number) + (i % 2 == 0 ? ".1" : ".5");
        Catalogue.tKarten_Click(i);
    }
    void Act() {
        const int entry = Catalogue.listKarten.empty() ? -1 : Random(int(Catalogue.listKarten.size()));
        switch (Random(8)) {
        case 0:
            return ChangeAFile();
        case 1:
            return Catalogue.chkVorschau_Click(!Catalogue.chkVorschau);
        case 2:
            Storage.Readable = !Storage.Readable;
            break;
        case 3:
            Catalogue.cmdSpeichern_Click();
            break;
        case 4:
            return Catalogue.listKarten_ItemCheck(entry);
        case 5:
            return Catalogue.listKarten_Click(entry);
        default:
            for (int i = Random(6); i > 0; --i) Type();
        }
    }
    void CheckRows() {
        Recordset rows;
        rows.Open(Shared.DataConn, "SELECT * FROM Maps");
        for (; !rows.Eof(); rows.MoveNext()) {
            const std::string name = rows.Text("Name");
            EXPECT_EQ(rows.Number("Breite"), NumberOf(name) * 100) << name;
            for (const char* edge : {"Unten", "Oben", "Links", "Rechts"})
                EXPECT_EQ(std::floor(std::abs(rows.Number(edge))), NumberOf(name)) << name << edge;
        }
        const std::string selected = Catalogue.SelectedName();
        rows.Requery();
        const bool stored = rows.RecordCount() > 0 && rows.Find("Name", Comparison::Equal, selected);
        for (std::size_t i = 0; i < 4; ++i) {
            if (Catalogue.EdgeStates[i] == EdgeState::NotStored) continue;
            ASSERT_TRUE(stored) << selected;
            const double edge = NumberIn(Catalogue.tKarten[i]) * (Catalogue.cmbLatLong[i] == South ? -1 : 1);
            EXPECT_EQ(edge, rows.Number(std::array{"Unten", "Oben", "Links", "Rechts"}[i])) << selected;
        }
    }

    std::mt19937 Dice{7};
};

TEST_F(SlippingHandsTest, EveryRowHasTheFrameAndTheSizeOfItsOwnChart) {
    for (const char* name : {"alpha.jpg", "zulu.jpg"}) std::filesystem::remove(Charts() / name);
    for (const char* name : Names) WriteImage(name, std::string(name) == "a.bmp");
    Catalogue.FillMapList();
    int stored = 0;
    for (int step = 0; step < 1500 && !HasFailure(); ++step) {
        SCOPED_TRACE(step);
        const auto error = ErrorOf([&] { Act(); });
        EXPECT_TRUE(!error || error->Number() == ErrorNumber::TypeMismatch) << error->what();
        CheckRows();
        stored = std::max(stored, Catalogue.ActiveMapsSet.RecordCount());
    }
    EXPECT_GE(stored, 3); // the hands did get something done
}

// Only such images in the folder: there is no size at all.
TEST_F(CatalogueTest, ASizeThatWasNeverReadIsATypeError) {
    for (const char* name : {"alpha.jpg", "zulu.jpg"}) WriteFileAtomically(Charts() / name, "");
    WriteFileAtomically(Charts() / "new.bmp", "");
    WriteFileAtomically(Charts() / "new.crm", "1\r\n2\r\n3\r\n4\r\n");
    const auto before = Rows();
    MapData catalogue(Shared, Storage, Surface, Boxes);
    catalogue.Form_Load();
    for (int entry = 0; entry < 3; ++entry) {
        const bool ticked = catalogue.listKarten[static_cast<std::size_t>(entry)].Selected;
        const auto error = ErrorOf([&] { catalogue.listKarten_ItemCheck(entry); });
        ASSERT_TRUE(error) << entry;
        EXPECT_EQ(error->Number(), ErrorNumber::TypeMismatch);
        EXPECT_EQ(catalogue.listKarten[static_cast<std::size_t>(entry)].Selected, ticked);
    }
    EXPECT_EQ(catalogue.ScaleText(), "");
    EXPECT_EQ(Rows(), before);
}

// Blue is only what the row has: not the hemispheres of the last run, and not the half of a damaged row.
TEST_F(CatalogueTest, TheColourOfStoredIsThatOfTheRow) {
    Sql("UPDATE Maps SET Links = -8, Rechts = -6 WHERE Name = 'alpha.jpg'");
    WriteFileAtomically(Charts() / "LatData.crm", "0\r\n1\r\n0\r\n1\r\n0\r\n");
    MapData catalogue(Shared, Storage, Surface, Boxes);
    catalogue.Form_Load();
    const auto colours = [](const MapData& of) {
        std::string text;
        for (const EdgeState state : of.EdgeStates) text += state == EdgeState::Stored ? "b" : "y";
        return text;
    };
    EXPECT_EQ(catalogue.SelectedName(), "alpha.jpg");
    EXPECT_EQ(colours(catalogue), "byyb");
    EXPECT_EQ(catalogue.cmbLatLong, (std::array{North, South, East, West}));
    catalogue.listKarten_Click(0);
    EXPECT_EQ(colours(catalogue), "bbbb");
    EXPECT_EQ(catalogue.cmbLatLong, (std::array{North, North, West, West}));

    Sql("UPDATE Maps SET Links = NULL WHERE Name = 'Zulu.JPG'");
    Catalogue.FillMapList();
    Select("alpha.jpg");
    EXPECT_THROW(Select("zulu.jpg"), RuntimeError);
    EXPECT_EQ(Fields(), "Ny Ny Wy Wy ");
}

TEST_F(CatalogueTest, HemispheresAndPreviewComeBackAtTheNextRun) {
    EXPECT_EQ(Bytes("LatData.crm"), "0\r\n0\r\n0\r\n0\r\n0\r\n");
    Catalogue.chkVorschau_Click(true);
    Catalogue.cmbLatLong = {North, South, East, West};
    Catalogue.Form_Unload();
    EXPECT_EQ(Bytes("LatData.crm"), "0\r\n1\r\n0\r\n1\r\n1\r\n");
    Sql("DELETE FROM Maps");
    MapData next(Shared, Storage, Surface, Boxes);
    next.Form_Load();
    EXPECT_EQ(next.cmbLatLong, (std::array{North, South, East, West}));
    EXPECT_TRUE(next.chkVorschau);
    EXPECT_EQ(Bytes("LatData.crm"), "0\r\n0\r\n0\r\n0\r\n0\r\n"); // until the end of the run
    WriteFileAtomically(Charts() / "LatData.crm", "1\r\n7\r\n1\r\n1\r\n1\r\n");
    MapData damaged(Shared, Storage, Surface, Boxes);
    damaged.Form_Load();
    EXPECT_EQ(damaged.cmbLatLong, (std::array{South, North, East, East}));
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
