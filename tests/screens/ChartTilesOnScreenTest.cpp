#include <QCheckBox>
#include <QVBoxLayout>
#include <fstream>

#include "calibration/frmCalibrate.h"
#include "planning/frmPlanung.h"
#include "platform/qt/QtPicture.h"
#include "screens/FlyingFormFixture.h"

namespace ornivane {
namespace {

// Charts come to the screen from tiles that are made in the meantime.
class ChartTilesOnScreenTest : public FlyingFormTest {
protected:
    ChartTilesOnScreenTest() {
        QImage chart(2000, 1000, QImage::Format_RGB32);
        chart.fill(QColor(40, 120, 200));
        WriteCharts(chart, {"alpha.jpg", "zulu.jpg"});
        Shared.EnglishUI = 1;
        new QVBoxLayout(&window);
        window.show();
        Notices.StandIn(window);
    }
    ~ChartTilesOnScreenTest() override { Notices.setParent(nullptr); }
    SurfaceWidget& Map() { return Find<SurfaceWidget>("picMap"); }
    QImage Picture() { return Map().Surface().Image().copy(); }
    static bool HasTheColourOfTheChart(const QImage& picture) {
        int count = 0;
        for (int y = 5; y < picture.height(); y += 10)
            for (int x = 5; x < picture.width(); x += 10)
                count += std::abs(qBlue(picture.pixel(x, y)) - 200) < 8 && qRed(picture.pixel(x, y)) < 60;
        return count > picture.height() * picture.width() / 100 / 2;
    }
    std::filesystem::path ChartFile(const char* name) { return Folder.Path() / "Karten" / name; }
    // A file stands where the folder of the caches would be.
    void MakeCachesImpossible() {
        std::filesystem::remove_all(Charts.Folder());
        std::ofstream(Charts.Folder()) << "in the way";
    }

    QWidget window;
    ScriptedDialogs Boxes;
};

TEST_F(ChartTilesOnScreenTest, BetterPixelsComeWithoutARedrawInFlight) {
    Show();
    Fix();
    const int redraws = Map().Redraws();
    ASSERT_TRUE(BecomesSharp(Map()));
    EXPECT_EQ(Map().Redraws(), redraws);
    EXPECT_TRUE(HasTheColourOfTheChart(Picture()));
    EXPECT_FALSE(Shows("progBar"));
    // What is painted again has everything that was drawn, overlays included.
    Form.Logic().DrawOverlays();
    const QImage before = Picture();
    Form.Logic().PaintAgain();
    EXPECT_EQ(Picture(), before);
}

TEST_F(ChartTilesOnScreenTest, ABlankSheetStaysBlank) {
    Sql("UPDATE Maps SET Rechts = Links WHERE Name = 'Zulu.JPG'");
    Show();
    ASSERT_TRUE(BecomesSharp(Map()));
    Form.Logic().cmbMaps_Click("Zulu.JPG");
    const QImage blank = Picture();
    EXPECT_FALSE(HasTheColourOfTheChart(blank));
    Form.Logic().PaintAgain();
    EXPECT_EQ(Picture(), blank);
}

TEST_F(ChartTilesOnScreenTest, AChartWhoseFileIsGoneIsShownOn) {
    Show();
    ASSERT_TRUE(BecomesSharp(Map()));
    for (const char* name : {"alpha.jpg", "zulu.jpg"}) std::filesystem::remove(ChartFile(name));
    Form.Logic().SetSlide(-100);
    EXPECT_TRUE(BecomesSharp(Map()));
    EXPECT_TRUE(HasTheColourOfTheChart(Picture()));
    Form.Form_Deactivate();
    Form.Form_Activate();
    EXPECT_TRUE(BecomesSharp(Map()));
    EXPECT_TRUE(HasTheColourOfTheChart(Picture()));
    EXPECT_EQ(Notices.text(), "");
}

TEST_F(ChartTilesOnScreenTest, AChartWithoutACacheIsShownAndToldOnce) {
    MakeCachesImpossible();
    Show();
    ASSERT_TRUE(Becomes([&] { return !Notices.text().isEmpty(); }));
    EXPECT_TRUE(Notices.text().contains(".jpg: The cache of the chart cannot be made")) << Text("lblStatus");
    EXPECT_TRUE(BecomesSharp(Map()));
    EXPECT_TRUE(HasTheColourOfTheChart(Picture()));
    QTest::mouseClick(&Notices, Qt::LeftButton);
    frmPlanung planning(Shared, Boxes, Guard, Charts);
    FormTest::Show(planning);
    EXPECT_TRUE(BecomesSharp(In<SurfaceWidget>(planning, "picMap")));
    QCoreApplication::processEvents();
    EXPECT_FALSE(Notices.isVisibleTo(&window));
}

TEST_F(ChartTilesOnScreenTest, ThePreviewIsPaintedWhenItIsThereAlsoAfterItWasHidden) {
    frmCalibrate catalogue(Shared, Guard, Boxes, Charts);
    FormTest::Show(catalogue);
    auto& map = In<SurfaceWidget>(catalogue, "picMap");
    In<QCheckBox>(catalogue, "chkVorschau").setChecked(true);
    catalogue.hide();
    EXPECT_TRUE(Becomes([&] {
        QtPicture other(Charts);
        return other.Load(ChartFile("alpha.jpg")) && other.IsFinished();
    }));
    catalogue.show();
    EXPECT_TRUE(BecomesSharp(map));
    EXPECT_TRUE(HasTheColourOfTheChart(map.Surface().Image()));
}

} // namespace
} // namespace ornivane
