#include "chart-import/SheetPlan.h"

#include <gmock/gmock.h>

#include "chart-import/GdalProgress.h"
#include "chart-import/PictureCheck.h"
#include "chart-import/SourcePicture.h"
#include "geo/Position.h"

namespace {

using namespace ornivane;

TEST(SheetPlan, EdgesAreWholeTenthsThatTheStoreReadsBack) {
    EXPECT_EQ(RoundedOutwards({50.50001, 51, 7.0, 8.00001}), (TenthBox{30300, 30600, 4200, 4801}));
    EXPECT_EQ(RoundedInwards({50.50001, 51, 7.0, 8.00001}), (TenthBox{30301, 30600, 4200, 4800}));
    // 47.1 is no binary number: what is left of it is no further tenth.
    EXPECT_EQ(RoundedOutwards({47.1 + 1e-13, 47.2 - 1e-13, 0.1 + 0.2, 1}),
              (TenthBox{28260, 28320, 180, 600}));
    EXPECT_EQ(RoundedOutwards({-95, 95, -190, 1e9}), (TenthBox{-54000, 54000, -108000, 108000}));
    EXPECT_TRUE(RoundedInwards({1.0001, 1.0002, 0, 1}).IsEmpty());
    for (int tenth = -1300; tenth < 1300; ++tenth) {
        const TenthBox box{tenth, tenth + 1, tenth - 1, tenth + 1};
        const auto [south, north, west, east] = box.Stored();
        EXPECT_NEAR(ToDecimalDegrees(StoredLatitude(south)).Degrees(), tenth / 600.0, 1e-12);
        EXPECT_NEAR(ToDecimalDegrees(StoredLatitude(north)).Degrees(), (tenth + 1) / 600.0, 1e-12);
        EXPECT_NEAR(ToDecimalDegrees(StoredLongitude(west)).Degrees(), (tenth - 1) / 600.0, 1e-12);
    }
    EXPECT_EQ((TenthBox{-5100, 28720, 0, 1}.Stored()), (std::array<double, 4>{-8.7, 47.52, 0, 0.001}));
}

TEST(SheetPlan, SheetsOverlapCoverAllAndFitTheHeader) {
    for (const int most : {32767, 9000, 5000})
        for (const int tenths : {600, 601, 1234, 2400}) {
            const TenthBox box{30000, 30000 + tenths, 4000, 4000 + tenths};
            const PixelDegrees pixel{1.0 / 600 / 33.3, 1.0 / 600 / 41.7};
            const auto plan = PlanSheets(box, pixel, most);
            ASSERT_TRUE(plan);
            TenthBox all = plan->Sheets.front().Box;
            for (const Sheet& sheet : plan->Sheets) {
                EXPECT_LE(std::max(sheet.Extent.Width, sheet.Extent.Height), most);
                EXPECT_GE(sheet.Extent.Width, (sheet.Box.East - sheet.Box.West) * 33.3 - 1);
                EXPECT_EQ(sheet.Box.Within(box), sheet.Box);
                all.East = std::max(all.East, sheet.Box.East);
                all.South = std::min(all.South, sheet.Box.South);
                if (sheet.Column > 1) {
                    const Sheet& left =
                        plan->Sheets[static_cast<std::size_t>(&sheet - plan->Sheets.data()) - 1];
                    EXPECT_GE((left.Box.East - sheet.Box.West) * 22, left.Box.East - left.Box.West - 22);
                }
            }
            EXPECT_EQ(all, box);
        }
    EXPECT_EQ(PlanSheets({0, 600, 0, 600}, {1e-9, 1e-9}).Why().Kind, ImportFault::TooFine);
    EXPECT_EQ(PlanSheets({0, 600, 0, 600}, {0, 1e-3}).Why().Kind, ImportFault::TooFine);
}

TEST(GdalProgress, ReadsNumbersPointsAndSources) {
    GdalProgress progress;
    EXPECT_EQ(progress.Share(), 0);
    progress.Hear(
        "Creating output file that is 900P x 700L.\nProcessing /a/100 - done [9/1] b.vrt [1/2] : 0.");
    EXPECT_NEAR(progress.Share(), 0.0125, 1e-9);
    progress.Hear("..10...2");
    EXPECT_NEAR(progress.Share(), 0.0875, 1e-9);
    progress.Hear("0.");
    EXPECT_NEAR(progress.Share(), 0.1125, 1e-9);
    progress.Hear("...100 - done.\nProcessing b [2/2] : 0...10");
    EXPECT_NEAR(progress.Share(), 0.5375, 1e-9);
    progress.Hear(std::string(100000, '9'));
    EXPECT_LE(progress.Share(), 1);
}

TEST(PictureCheck, TellsHolesFromLines) {
    const ImageExtent extent{640, 640};
    const auto holes = [&](auto isBlack) {
        PictureCheck check(extent);
        std::vector<std::uint32_t> row(640);
        for (int y = 0; y < 640; ++y) {
            for (int x = 0; x < 640; ++x)
                row[static_cast<std::size_t>(x)] = isBlack(x, y) ? 0xFF000000U : 0xFFC0C0C0U;
            check.Row(row.data());
        }
        return check.HasBlackHoles();
    };
    EXPECT_FALSE(holes([](int x, int y) { return x % 50 < 10 || y % 50 < 10; }));
    EXPECT_TRUE(holes([](int, int y) { return y > 600; }));
    EXPECT_TRUE(holes([](int x, int y) { return x / 128 == 3 && y / 128 == 3; }));
}

TEST(SourcePicture, ChannelsBecomeColours) {
    const auto read = [](const std::string& bands) {
        std::string vrt = "<VRTDataset rasterXSize='10' rasterYSize='20'><SRS>x</SRS><GeoTransform/>" +
                          bands + "</VRTDataset>";
        return ReadSourcePicture(vrt);
    };
    const auto band = [](const std::string& colour, const std::string& type = "Byte") {
        return "<VRTRasterBand dataType='" + type + "'><ColorInterp>" + colour +
               "</ColorInterp></VRTRasterBand>";
    };
    using testing::ElementsAre;
    EXPECT_THAT(read(band("Blue") + band("Green") + band("Red") + band("Undefined"))->Bands,
                ElementsAre(3, 2, 1));
    EXPECT_EQ(read(band("Gray") + band("Alpha"))->Kind, SourcePicture::Channels::GreyWithAlpha);
    EXPECT_EQ(read(band("Gray", "UInt16"))->Bits, 16);
    EXPECT_EQ(read(band("Gray", "Float32")).Why().Kind, ImportFault::NotAPicture); // heights
    EXPECT_EQ(read(band("Cyan") + band("Magenta") + band("Yellow") + band("Black")).Why().Kind,
              ImportFault::NotAPicture);
    EXPECT_EQ(read("").Why().Kind, ImportFault::NotAChart);
    std::string vrt = "<VRTDataset rasterXSize='1' rasterYSize='1'><VRTRasterBand "
                      "dataType='Byte'><NoDataValue>1</NoDataValue>"
                      "<ColorTable><Entry c1='1' c4='255'/><Entry c1='2' "
                      "c4='255'/></ColorTable></VRTRasterBand></VRTDataset>";
    EXPECT_EQ(ReadSourcePicture(vrt)->Kind, SourcePicture::Channels::PaletteWithAlpha);
    EXPECT_THAT(vrt, testing::HasSubstr("c1=\"2\" c4=\"0\""));
    EXPECT_THAT(vrt, testing::Not(testing::HasSubstr("NoDataValue")));
}

} // namespace
