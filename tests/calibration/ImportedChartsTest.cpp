#include "calibration/ImportedCharts.h"

#include "CatalogueFixture.h"
#include "base/RuntimeError.h"

namespace {

using namespace ornivane;

class ImportedCharts : public CatalogueTest {
protected:
    ImportedChart Chart(const std::vector<std::string>& names) {
        auto folder = ImportFolder::Make(Charts());
        std::vector<ImportedSheet> sheets;
        for (const std::string& name : names) {
            sheets.push_back({name, folder->Path() / name, {-5100, 28720, 3600, 4201}, {200, 100}});
            WriteFileAtomically(sheets.back().File, "picture of " + name);
        }
        return {std::move(*folder), std::move(sheets), 0};
    }
    std::optional<std::string> Taken(const std::string& image) {
        return TakenBy(Charts(), Shared.DataConn, image);
    }
};

TEST_F(ImportedCharts, HaveRowAndSideFileAndNoTick) {
    EnterChart(Chart({"rhein 1-1.jpg", "rhein 1-2.jpg"}), Charts(), Shared.DataConn);
    EXPECT_EQ(Rows("Name LIKE 'rhein%'"), "rhein 1-1.jpg -8.7 47.52 6 7.001 200 100 off;"
                                          "rhein 1-2.jpg -8.7 47.52 6 7.001 200 100 off;");
    EXPECT_EQ(Bytes("rhein 1-2.jpg"), "picture of rhein 1-2.jpg");
    EXPECT_EQ(Bytes("rhein 1-1.crm"), "-8.7\r\n47.52\r\n6\r\n7.001\r\n");
    EXPECT_EQ(Taken("RHEIN 1-1.JPG"), "RHEIN 1-1.JPG");
    EXPECT_TRUE(IsInTheWay("rhein.jpg", "rhein.jpg", Replacing::No));
    EXPECT_FALSE(IsInTheWay("rhein.jpg", "rhein.jpg", Replacing::Yes));
    EXPECT_TRUE(IsInTheWay("rhein.bmp", "rhein.jpg", Replacing::Yes)); // they would share a side file
    AddImage("old.bmp", 10, 10);
    EXPECT_EQ(Taken("old.jpg"), "old.bmp");
    EXPECT_EQ(Taken("latdata.jpg"), "LatData.crm");
    EXPECT_EQ(Taken("new.jpg"), std::nullopt);
}

TEST_F(ImportedCharts, AReplacedChartLosesItsTickAndItsFrame) {
    Shared.DataConn.Execute("INSERT INTO Maps (Name, Oben, Unten, Links, Rechts, Breite, Höhe, Active) "
                            "VALUES ('alpha.jpg', 1, 0, 0, 1, 5, 5, 1)");
    EnterChart(Chart({"alpha.jpg"}), Charts(), Shared.DataConn);
    EXPECT_EQ(Rows("Name LIKE 'alpha%'"), "alpha.jpg -8.7 47.52 6 7.001 200 100 off;");
    EXPECT_EQ(Bytes("alpha.jpg"), "picture of alpha.jpg");
}

TEST_F(ImportedCharts, AFailureTakesWhatIsNewAway) {
    ImportedChart chart = Chart({"one.jpg", "two.jpg"});
    std::filesystem::remove(chart.Sheets[1].File);
    EXPECT_THROW(EnterChart(chart, Charts(), Shared.DataConn), RuntimeError);
    for (const char* name : {"one.jpg", "one.crm", "two.jpg", "two.crm"})
        EXPECT_EQ(Bytes(name), "none") << name;
    EXPECT_EQ(Rows("Name LIKE '%e.jpg'"), "");
}

} // namespace
