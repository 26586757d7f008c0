#include "platform/qt/QtPictureSurface.h"

#include <fstream>
#include <limits>

#include <QImageWriter>
#include <gtest/gtest.h>

#include "platform/qt/QtPicture.h"
#include "support/TestCharts.h"

namespace ornivane {
namespace {

class PictureSurfaceTest : public testing::Test {
protected:
    // A grey chart with a black line of one pixel at every hundredth column and row.
    void Load(int width, int height, const char* name = "chart.bmp",
              QImage::Format format = QImage::Format_RGB32) {
        QImage image(width, height, QImage::Format_RGB32);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                image.setPixel(x, y, x % 100 == 0 || y % 100 == 0 ? qRgb(0, 0, 0) : qRgb(220, 220, 220));
        const auto file = Folder.Path() / name;
        ASSERT_TRUE(image.convertToFormat(format).save(QString::fromStdString(file.string())));
        ASSERT_TRUE(Chart.Load(file));
    }
    void Paint(const PixelRect& source) {
        EXPECT_TRUE(Becomes([&] {
            Surface.PaintPicture(Chart, {0, 0, 200, 100}, {source.X, source.Y, source.Width, source.Height});
            return Surface.IsSharp();
        }));
    }
    int Grey(int x, int y) { return qGray(Surface.Image().pixel(x, y)); }

    TemporaryFolder Folder;
    TestCharts Charts;
    QtPicture Chart{Charts};
    QtPictureSurface Surface{200, 100};
};

TEST_F(PictureSurfaceTest, AThinLineSurvivesZoomingOut) {
    Load(1400, 700);
    Paint({0, 0, 1400, 700});
    // A pixel of the view stands for seven of the chart, so a line is a seventh as dark, wherever it falls.
    for (int line = 1; line < 14; ++line) {
        const int at = static_cast<int>((100 * line + 0.5) / 7);
        const int darkness = 3 * 220 - Grey(at - 1, 50) - Grey(at, 50) - Grey(at + 1, 50);
        EXPECT_NEAR(darkness, 220 / 7, 6) << line;
    }
}

TEST_F(PictureSurfaceTest, PixelsLieWhereTheTransformPutsThem) {
    Load(400, 200);
    Paint({90, 90, 25, 12.5});   // eight view pixels for one
    EXPECT_LT(Grey(84, 10), 40); // the middle of column 100
    EXPECT_GT(Grey(72, 10), 200);
    EXPECT_GT(Grey(96, 10), 200);
    Paint({90.5, 90, 25, 12.5}); // half a pixel on
    EXPECT_LT(Grey(80, 10), 40);
    Paint({350, 150, 100, 50}); // half of it beyond the edge
    EXPECT_EQ(Grey(150, 90), 255);
}

TEST_F(PictureSurfaceTest, LoadsGreyAndPaletteImagesAndKeepsTheOldOneOfADamagedFile) {
    for (const auto format : {QImage::Format_Grayscale8, QImage::Format_Indexed8, QImage::Format_Mono}) {
        Load(300, 200, "other.bmp", format);
        Paint({0, 0, 200, 100});
        EXPECT_LT(Grey(100, 50), 60);
        EXPECT_GT(Grey(150, 50), 150);
    }
    for (const std::string& bytes :
         {std::string(), std::string("BM no image"), std::string(100000, '\xFF')}) {
        std::ofstream(Folder.Path() / "bad.jpg", std::ios::binary) << bytes;
        EXPECT_FALSE(Chart.Load(Folder.Path() / "bad.jpg"));
        EXPECT_EQ(Chart.ScaleWidth(), 300);
    }
    EXPECT_FALSE(Chart.Load(Folder.Path() / "nowhere.jpg"));
}

TEST_F(PictureSurfaceTest, ScreensShareAChartUntilItsFileIsAnotherOne) {
    Load(300, 200, "chart.bmp");
    const auto file = Folder.Path() / "chart.bmp";
    QtPicture planning(Charts);
    ASSERT_TRUE(planning.Load(file));
    EXPECT_EQ(planning.ScaleWidth(), 300);
    Load(400, 200, "chart.bmp"); // scanned anew
    EXPECT_EQ(planning.ScaleWidth(), 300);
    ASSERT_TRUE(planning.Load(file));
    EXPECT_EQ(planning.ScaleWidth(), 400);
}

// A chart of 900 million pixels, none of which has to be on the disk.
TEST_F(PictureSurfaceTest, AChartOfAnySizeIsThereAtOnceAndIsLeftWhileItIsRead) {
    Load(10, 10, "huge.bmp");
    const auto file = Folder.Path() / "huge.bmp";
    const std::uint32_t side = 30000;
    std::fstream header(file, std::ios::binary | std::ios::in | std::ios::out);
    header.seekp(18);
    for (int i = 0; i < 2; ++i) header.write(reinterpret_cast<const char*>(&side), sizeof side);
    header.close();
    std::filesystem::resize_file(file, 54 + 4ULL * side * side);
    QElapsedTimer time;
    time.start();
    {
        TestCharts charts;
        QtPicture picture(charts);
        ASSERT_TRUE(picture.Load(file));
        EXPECT_EQ(picture.ScaleWidth(), 30000);
        EXPECT_TRUE(picture.PassPercent());
        ASSERT_TRUE(Chart.Load(Folder.Path() / "huge.bmp"));
        Load(400, 200);
    }
    EXPECT_LT(time.elapsed(), 5000); // the pass alone takes longer
}

TEST_F(PictureSurfaceTest, NewsOfTilesAreToldTogether) {
    int told = 0;
    TileNews news([&told] { ++told; });
    for (int i = 0; i < 100; ++i) news.Post();
    EXPECT_EQ(told, 0);
    EXPECT_TRUE(Becomes([&] { return told == 1; }));
    for (int i = 0; i < 100; ++i) news.Post();
    QCoreApplication::processEvents();
    EXPECT_EQ(told, 1); // not yet: it has just been told
    EXPECT_TRUE(Becomes([&] { return told == 2; }));
}

TEST_F(PictureSurfaceTest, BringsTheKeptPictureBackUntilItsSizeChanges) {
    EXPECT_FALSE(Surface.Recall());
    Surface.SetDrawWidth(8);
    Surface.Line(0, 50, 200, 50, 0x000000);
    Surface.Keep();
    Surface.Line(0, 20, 200, 20, 0x000000);
    EXPECT_EQ(Grey(100, 20), 0);
    EXPECT_TRUE(Surface.Recall());
    EXPECT_EQ(Grey(100, 20), 255);
    EXPECT_EQ(Grey(100, 50), 0);
    Surface.Resize(210, 100, 1);
    EXPECT_FALSE(Surface.Recall());
}

TEST_F(PictureSurfaceTest, DrawsOnItsPixelsAndIgnoresWhatIsNowhere) {
    Surface.Cls();
    Surface.SetDrawWidth(4);
    Surface.Line(10, 50, 190, 50, 0xFF0000);
    EXPECT_EQ(Surface.Image().pixel(100, 50), qRgb(255, 0, 0));
    EXPECT_EQ(Surface.Image().pixel(100, 55), qRgb(255, 255, 255));
    Surface.Circle(100, 20, 5, 0x0000FF);
    EXPECT_EQ(Surface.Image().pixel(105, 20), qRgb(0, 0, 255));
    EXPECT_EQ(Surface.Image().pixel(100, 20), qRgb(255, 255, 255));
    const double far = 1e12, none = std::numeric_limits<double>::quiet_NaN();
    Surface.Line(-far, 80, far, 80, 0x00FF00);
    EXPECT_EQ(Surface.Image().pixel(100, 80), qRgb(0, 255, 0));
    Surface.Line(none, 0, 100, 100, 0);
    Surface.Circle(far, none, 5, 0);
    Surface.Print(far, 0, "far");
    Surface.SetForeColor(0);
    Surface.Print(20, 2, " Köln 😀 ");
    EXPECT_NE(Surface.Image().copy(0, 0, 90, 25), QImage(90, 25, Surface.Image().format()));
    Surface.Resize(0, 0, 1);
    Surface.PaintPicture(Chart, {0, 0, 0, 0}, {0, 0, 0, 0});
}

} // namespace
} // namespace ornivane
