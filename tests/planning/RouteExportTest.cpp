#include "ExchangeFixture.h"

#include "base/FileNames.h"

namespace ornivane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class RouteExportTest : public ExchangeTest {
protected:
    RouteExportTest() {
        AddWaypoint("Köln \"Süd\" <&> O'Hara", 50.5, 6.57125);
        AddWaypoint("Straße\t\x01Ω", 49.0 + 1.0 / 3, -0.3);
        AddRouteThrough("Süd & West's",
                        {"Köln \"Süd\" <&> O'Hara", "Straße\t\x01Ω", "Köln \"Süd\" <&> O'Hara"});
        AddRouteThrough("leer", {});
    }
};

// The expected file is the rowset that ADO documents, byte for byte: the four namespaces, a schema of one row
// element that ends with s:extends, and for each field its documented type with its length, its precision and
// whether it may be null.
TEST_F(RouteExportTest, WritesThePersistedRowsetThatAdoDocuments) {
    const fs::path file = Export("Süd & West's");
    EXPECT_EQ(file, Folder.Path() / "Route" / "Süd & West's.ovr");
    EXPECT_THAT(Boxes.Shown, ElementsAre("Strecke gespeichert|Strecke: Süd & West's wurde gespeichert."));
    EXPECT_EQ(ReadWholeFile(file).value(), ReadWholeFile(SOURCE_DIR "/tests/planning/route.ovr").value());
}

TEST_F(RouteExportTest, ChoosesTheRouteOfTheGridAndSavesTheFirstOfTwoNames) {
    AddRouteThrough("leer", {"Straße\t\x01Ω"});
    RouteExport exporting(Shared, Shared, Shared.DataConn, Boxes);
    exporting.Form_Load("leer");
    EXPECT_THAT(exporting.cmbRoute, ElementsAre("Süd & West's", "leer", "leer"));
    EXPECT_EQ(exporting.cmbRouteIndex, 1);
    EXPECT_EQ(exporting.lblSave, (Folder.Path() / "Route/").string());
    Shared.EnglishUI = 1;
    for (const int entry : {1, 2}) { // the second has points, and is never found
        exporting.cmbRouteIndex = entry;
        exporting.cmdExport();
        EXPECT_EQ(Boxes.Shown.back(), "Route error|Route - leer - contains no waypoints...");
    }
    EXPECT_FALSE(fs::exists(Folder.Path() / "Route"));

    RouteExport none(Shared, Shared, Shared.DataConn, Boxes);
    none.Form_Load("1");
    EXPECT_EQ(none.cmbRouteIndex, -1);
    EXPECT_THROW(none.cmdExport(), RuntimeError);
    Sql("DELETE FROM Route");
    RouteExport empty(Shared, Shared, Shared.DataConn, Boxes);
    empty.Form_Load("leer");
    EXPECT_THAT(empty.cmbRoute, IsEmpty());
    EXPECT_EQ(empty.lblSave, "");
}

TEST_F(RouteExportTest, WritesNothingUnderANameThatIsNoFileName) {
    for (const char* name :
         {"a/b", "../data", "..\\data", ".", "..", "/", "a\nb", "\x7F", "a\xC2\x85", "\t"}) {
        AddRouteThrough(name, {"Straße\t\x01Ω"});
        EXPECT_THROW(Export(name), RuntimeError) << name;
    }
    AddRouteThrough(std::string(300, 'x'), {"Straße\t\x01Ω"}); // no file system takes that
    EXPECT_THROW(Export(std::string(300, 'x')), RuntimeError);
    EXPECT_THAT(Boxes.Shown, IsEmpty());
    EXPECT_TRUE(fs::is_empty(Folder.Path() / "Route"));
    for (const char* name : {"...", "C:", "Ω · Â", " ", "-rf", "a.b.ovr"})
        EXPECT_NO_THROW(CheckFileName(name)) << name;
}

TEST_F(RouteExportTest, ReplacesTheFileWithoutAskingAndNeverWhatALinkShows) {
    const fs::path file = Export("Süd & West's");
    Folder.Write("other", "mine");
    fs::remove(file);
    fs::create_symlink(Folder.Path() / "other", file);
    Export("Süd & West's");
    EXPECT_EQ(ReadWholeFile(Folder.Path() / "other").value(), "mine");
    EXPECT_FALSE(fs::is_symlink(file));
    fs::remove_all(Folder.Path() / "Route");
    Folder.Write("Route", "a file");
    Boxes.Shown.clear();
    EXPECT_THROW(Export("Süd & West's"), RuntimeError);
    EXPECT_THAT(Boxes.Shown, IsEmpty());
}

} // namespace
} // namespace ornivane
