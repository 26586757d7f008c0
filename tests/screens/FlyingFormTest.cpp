#include <QSlider>

#include "base/Format.h"
#include "common/SettingsFiles.h"
#include "geo/NavigationMaths.h"
#include "nav/frmStageButton.h"
#include "screens/FlyingFormFixture.h"

namespace ornivane {
namespace {

TEST_F(FlyingFormTest, ShowsTheReceiversWordsInTheLabels) {
    Show();
    Click("cmdGPS");
    EXPECT_TRUE(Shows("lblStatus"));
    EXPECT_EQ(Text("lblStatus"), "COM 1 wird überprüft");
    EXPECT_FALSE(Shows("cmdGPS"));
    Fix();
    EXPECT_TRUE(Shows("picGPSCheck1"));
    EXPECT_FALSE(Shows("lblStatus"));
    EXPECT_EQ(Text("lblLat"), "N 50° 30.000'");
    EXPECT_THAT(Texts({"lblSpeed", "lblSpeedmode"}), testing::ElementsAre("100", "kts"));
    EXPECT_THAT(Texts({"lblAlt", "lblAltmode"}), testing::ElementsAre("984", "ft"));
    Click("lblSpeed"); // the value that stands changes with its unit
    EXPECT_THAT(Texts({"lblSpeed", "lblSpeedmode"}), testing::ElementsAre("185", "km/h"));
    Port.Callback(SerialEvent::Other);
    EXPECT_TRUE(Shows("picGPSCheck2"));
    EXPECT_EQ(Text("lblSpeed"), "---");
    Click("picGPSCheck2");
    EXPECT_TRUE(Shows("cmdGPS"));
    EXPECT_FALSE(Port.IsOpen());
}

TEST_F(FlyingFormTest, ZoomsBySliderAndKeysAndDragsTheChart) {
    Show();
    auto& slider = Find<QSlider>("SlideMap");
    QTest::mouseClick(&slider, Qt::LeftButton, {}, {slider.width() - 2, 10});
    EXPECT_EQ(Form.Logic().Map.SlideMap, 100);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, {5, 10});
    EXPECT_EQ(Form.Logic().Map.SlideMap, -100);
    auto& map = Find<SurfaceWidget>("picMap");
    QTest::keyClick(&map, Qt::Key_Down); // the end already
    EXPECT_EQ(slider.value(), -100);
    QTest::keyClick(&map, Qt::Key_Up);
    EXPECT_EQ(slider.value(), -90);
    Form.Logic().Map.CenterMap = false;
    const SourceRect before = Form.Logic().Map.View;
    QTest::mousePress(&map, Qt::LeftButton, {}, {400, 300});
    QTest::mouseMove(&map, {360, 290});
    QTest::mouseRelease(&map, Qt::LeftButton, {}, {360, 290});
    EXPECT_EQ(Form.Logic().Map.View.SX, before.SX + 40);
    EXPECT_EQ(Form.Logic().Map.View.SY, before.SY + 10);
}

TEST_F(FlyingFormTest, TheBlankSheetOfAChartThatCannotBeShownSaysWhy) {
    Sql("UPDATE Maps SET Rechts = Links WHERE Name = 'Zulu.JPG'");
    Show();
    Form.Logic().cmbMaps_Click("Zulu.JPG");
    Form.ApplyLanguage();
    EXPECT_TRUE(Shows("lblNoMap"));
    EXPECT_EQ(Text("lblNoMap"),
              "Fehler in Karte: Zulu.JPG\nBitte den Rahmen unter Kartendaten prüfen oder eine "
              "andere Karte wählen.");
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* box = qobject_cast<QMessageBox*>(window)) box->accept();
    QTest::qWait(0); // until it is gone
    Form.Logic().cmbMaps_Click("alpha.jpg");
    EXPECT_FALSE(Shows("lblNoMap"));
}

TEST_F(FlyingFormTest, TheGridFollowsTheRouteAndTheRouteTheGrid) {
    Show();
    auto& grid = Find<QTableView>("gridWaypoints");
    EXPECT_EQ(grid.model()->rowCount(), 3);
    Click("cmdActivateGoto");
    EXPECT_TRUE(Shows("Frame1"));
    QTest::keyClick(&Find<QWidget>("picMap"), Qt::Key_Right);
    EXPECT_EQ(grid.currentIndex().row(), 1);
    ClickRow(grid, 2, 1);
    EXPECT_EQ(Form.Logic().Route.RoutePointsSet.AbsolutePosition(), 3);
    Click("cmdNext"); // the end of the route
    EXPECT_FALSE(Shows("Frame1"));
    EXPECT_FALSE(Find<QWidget>("cmdNext").isEnabled());
    auto& routes = Find<QComboBox>("cmbRoute");
    routes.setCurrentIndex(1);
    emit routes.activated(1);
    EXPECT_EQ(grid.model()->rowCount(), 1);
    EXPECT_EQ(ReadLastChoice(Folder.Path()).Route, "S");
}

TEST_F(FlyingFormTest, ArrowKeysMeanTheSameWhereverTheFocusIs) {
    Show();
    for (const char* name : {"cmbRoute", "cmbMaps", "SlideMap", "picMap"}) {
        auto& widget = Find<QWidget>(name);
        const int before = Form.Logic().Map.SlideMap;
        const int point = Form.Logic().Route.RoutePointsSet.AbsolutePosition();
        QTest::keyClick(&widget, Qt::Key_Up);
        EXPECT_EQ(Form.Logic().Map.SlideMap, before + 10) << name;
        QTest::keyClick(&widget, Qt::Key_Right);
        EXPECT_EQ(Form.Logic().Route.RoutePointsSet.AbsolutePosition(), point + 1) << name;
        QTest::keyClick(&widget, Qt::Key_Left);
        EXPECT_EQ(Form.Logic().Route.cmbRoute, "R") << name;
        EXPECT_EQ(Form.Logic().Map.Name(), "alpha.jpg") << name;
    }
}

TEST_F(FlyingFormTest, ThePanelSwitchesWhatTheChartShowsAndRemembersIt) {
    Show();
    Click("cmdSet");
    for (const char* name : {"cmdshowRoute", "cmdWayInfo", "cmdShowPoints"}) {
        Click(name);
        EXPECT_TRUE(Find<LampButton>(name).IsLit()) << name;
    }
    Click("cmdSet");
    DisplayFlags flags;
    EXPECT_TRUE(ReadDisplayFlags(Folder.Path(), flags));
    EXPECT_TRUE(flags.ShowRoute && flags.ShowNames && !flags.ShowAirspace);
    Click("lblRoute"); // the length of the route hides it
    EXPECT_FALSE(Form.Logic().Flags.ShowRoute);
    Click("cmdShowPoints");
    EXPECT_FALSE(Form.Logic().picShowPoints);
}

TEST_F(FlyingFormTest, ARightClickIsTheTargetOfDirectFly) {
    Show();
    auto& map = Find<SurfaceWidget>("picMap");
    QTest::mouseClick(&map, Qt::RightButton, {}, {100, 100}); // not while it is off
    EXPECT_EQ(Text("lblLatx"), "");
    Fix();
    Click("cmdDirectFly");
    QTest::mouseClick(&map, Qt::RightButton, {}, {100, 100});
    const Position target = Form.Logic().Map.Transform().PositionOfView({100, 100});
    EXPECT_EQ(Text("lblLatx"), Format(ToDegMinValue(target.Lat).Value(), "###.##0", Shared.Locale));
    EXPECT_NE(Text("lblDistanz"), "");
    EXPECT_EQ(Text("lblRemDist"), Text("lblDistanz"));
}

TEST_F(FlyingFormTest, FitsFromSmallToLargeAndKeepsEveryTooltipInTheLanguage) {
    Show(1024, 620);
    for (const QSize size : {QSize(1024, 620), QSize(1920, 1000), QSize(1100, 700)}) {
        Form.resize(size);
        const auto& map = Find<SurfaceWidget>("picMap");
        EXPECT_EQ(map.width(), size.width() - 280);
        EXPECT_EQ(map.height(), size.height() - 53);
        const SourceRect& view = Form.Logic().Map.View;
        EXPECT_LE(view.SX + view.SW, 2000.5f);
        EXPECT_LE(view.SY + view.SH, 1000.5f);
        for (const QWidget* widget : Form.findChildren<QWidget*>())
            if (widget->isVisible() && !widget->objectName().startsWith("qt_") && widget->window() == &Form) {
                const QRect inForm(widget->mapTo(&Form, QPoint()), widget->size());
                EXPECT_LE(inForm.bottom(), Form.height()) << widget->objectName().toStdString();
            }
    }
    const QString german = Find<QWidget>("cmdGPS").toolTip();
    Shared.EnglishUI = 1;
    Form.ApplyLanguage();
    EXPECT_NE(Find<QWidget>("cmdGPS").toolTip(), german);
    for (const char* name :
         {"cmdNext", "cmdPrev", "cmdSet", "cmbMaps", "SlideMap", "picMap", "gridWaypoints", "cmbRoute"})
        EXPECT_FALSE(Find<QWidget>(name).toolTip().isEmpty()) << name;
}

TEST_F(FlyingFormTest, TellsUnderTheSatellitesWhichTalkersWereHeard) {
    Show();
    Click("cmdGPS");
    Fix();
    Port.Say("GPGSV,1,1,09");
    EXPECT_EQ(Form.Logic().Link.Shown().ToolTips[1], "Sat: 7/9");
    EXPECT_EQ(Find<QWidget>("picGPSCheck1").toolTip().toStdString(),
              "Sat: 7/9\nTalker: GP\nletzte Minute: 3 Sätze, 0 falsche Prüfsummen");
}

TEST_F(FlyingFormTest, ABoxThatStandsStopsNothingAndDoesNotStackUp) {
    Show();
    Click("cmdGPS");
    Fix();
    for (int i = 0; i < 5; ++i) Port.Callback(SerialEvent::Break);
    const auto boxes = [] {
        int count = 0;
        for (QWidget* window : QApplication::topLevelWidgets())
            count += qobject_cast<QMessageBox*>(window) && window->isVisible();
        return count;
    };
    EXPECT_EQ(boxes(), 1);
    Fix();
    EXPECT_EQ(Text("lblSpeed"), "100");
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* box = qobject_cast<QMessageBox*>(window)) box->accept();
    QTest::qWait(0);
    EXPECT_EQ(boxes(), 0);
}

TEST_F(FlyingFormTest, AStageButtonKeepsTheKeysFromStageToStage) {
    QWidget window;
    frmStageButton* button = nullptr;
    button = new frmStageButton(&window, Guard, "airspace", {"off", "on", "texts"},
                                [&](bool on, bool withText) { button->ShowStage(on, withText); });
    new QPushButton(&window); // where the keys would go
    window.show();
    button->findChild<QWidget*>("off")->setFocus();
    for (const char* name : {"on", "texts", "off"}) {
        QTest::keyClick(window.focusWidget(), Qt::Key_Space);
        EXPECT_EQ(window.focusWidget()->objectName(), name);
    }
}

// While the first chart is being decoded nobody knows yet whether there is one that can be shown.
TEST_F(FlyingFormTest, NoChartCountsAsMissingBeforeItWasTried) {
    EXPECT_TRUE(Find<QLabel>("lblNoMap").isHidden());
    Sql("DELETE FROM Maps");
    Show();
    EXPECT_FALSE(Find<QLabel>("lblNoMap").isHidden());
}

TEST_F(FlyingFormTest, ADamagedRouteKeepsTheNewLanguageFromNothing) {
    Show();
    Click("cmdshowRoute");
    Form.Form_Deactivate();
    Shared.EnglishUI = 1 - Shared.EnglishUI;
    const QString before = Find<QWidget>("cmdShowPoints").toolTip();
    Shared.DataConn.Execute("ALTER TABLE Route RENAME COLUMN Name TO Damaged");
    EXPECT_THROW(Form.Form_Activate(), RuntimeError); // shown by the window
    EXPECT_NE(Find<QWidget>("cmdShowPoints").toolTip(), before);
    EXPECT_TRUE(Form.Logic().Map.HasMap());
}

} // namespace
} // namespace ornivane
