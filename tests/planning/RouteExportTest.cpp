#include "ExchangeFixture.h"

#include <fstream>

#include "base/FileNames.h"
#include "support/RowsetChecker.h"

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

TEST_F(RouteExportTest, WritesThePersistedRowsetThatAdoDocuments) {
    const fs::path file = Export("Süd & West's");
    EXPECT_EQ(file, Folder.Path() / "Route" / "Süd & West's.ovr");
    EXPECT_THAT(Boxes.Shown, ElementsAre("Strecke gespeichert|Strecke: Süd & West's wurde gespeichert."));
    const std::string bytes = ReadWholeFile(file).value();
    const RowsetChecker check(QByteArray::fromStdString(bytes));
    EXPECT_THAT(check.Slips, IsEmpty()) << bytes;
    EXPECT_EQ(check.Rows, 3);
    std::string fields;
    for (const auto& field : check.Fields)
        fields +=
            field.Name.toStdString() + " " + field.Type.toStdString() + std::to_string(field.Length) + " ";
    EXPECT_EQ(fields, "Nummer float8 RouteID int4 PointID int4 Name string255 Lat float8 Long float8 ");

    // The checker itself sees what is amiss.
    for (const auto& [from, to] : std::map<std::string, std::string>{{"rs:rowbase", "rowbase"},
                                                                     {"uuid:C2", "uuid:D2"},
                                                                     {"rs:number='2'", "rs:number='3'"},
                                                                     {"dt:maxLength='8'", "dt:maxLength='4'"},
                                                                     {"dt:type='int'", "dt:type='long'"},
                                                                     {"rs:nullable='true' ", ""},
                                                                     {"50.5", "50,5"},
                                                                     {"&lt;", "<"},
                                                                     {"<rs:data>", "<!-- -->"},
                                                                     {"<xml", "<!DOCTYPE xml><xml"},
                                                                     {"PointID='", "Punkt='"}}) {
        std::string damaged = bytes;
        damaged.replace(damaged.find(from), from.size(), to);
        EXPECT_FALSE(RowsetChecker(QByteArray::fromStdString(damaged)).Slips.empty()) << from;
    }
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
    Write("other", "mine");
    fs::remove(file);
    fs::create_symlink(Folder.Path() / "other", file);
    Export("Süd & West's");
    EXPECT_EQ(ReadWholeFile(Folder.Path() / "other").value(), "mine");
    EXPECT_FALSE(fs::is_symlink(file));
    fs::remove_all(Folder.Path() / "Route");
    Write("Route", "a file");
    Boxes.Shown.clear();
    EXPECT_THROW(Export("Süd & West's"), RuntimeError);
    EXPECT_THAT(Boxes.Shown, IsEmpty());
}

} // namespace
} // namespace ornivane
