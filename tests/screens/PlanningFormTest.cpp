#include <QCheckBox>
#include <QGroupBox>
#include <QRadioButton>
#include <QSlider>

#include "common/SettingsFiles.h"
#include "planning/frmLuftraumSettings.h"
#include "planning/frmPlanung.h"
#include "platform/qt/LampButton.h"
#include "screens/FormFixture.h"
#include "screens/WindowAround.h"

namespace ornivane {
namespace {

class PlanningFormTest : public FormTest {
protected:
    PlanningFormTest() {
        // Every pixel another colour, or a drag of it would not be seen.
        QImage chart(2000, 1000, QImage::Format_RGB32);
        for (int y = 0; y < 1000; ++y)
            for (int x = 0; x < 2000; ++x) chart.setPixel(x, y, qRgb(x / 8, y / 4, (x + y) / 12));
        WriteCharts(chart, {"alpha.jpg", "zulu.jpg"});
        AddWaypoint("Alpha", 50.30, 7.0);
        AddWaypoint("Bravo", 50.24, 6.48);
        AddRoute("R", {6.3, 7.0});
        Front = &Show(Form);
        Form.Logic().Map.SetSlide(-60);
    }
    SurfaceWidget& Map() { return Find<SurfaceWidget>("picMap"); }
    QImage Picture() {
        EXPECT_TRUE(BecomesSharp(Map()));
        return Map().Surface().Image().copy();
    }
    void Move(int x, int y) { QTest::mouseMove(&Map(), {x, y}); }
    frmLuftraumSettings& OpenSettings() {
        Form.ShowAirspaceSettings();
        return Find<frmLuftraumSettings>("frmLuftraumSettings");
    }
    // A closed dialog goes with the next turn of the event loop.
    bool SettingsAreClosed() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return Form.findChild<frmLuftraumSettings*>() == nullptr;
    }

    ScriptedDialogs Boxes;
    frmPlanung Form{Shared, Boxes, Guard, Charts};
};

TEST_F(PlanningFormTest, FitsTheSmallestWindowWithAllItsButtons) {
    EXPECT_LE(Form.minimumSizeHint().width(), 1024);
    EXPECT_LE(Form.minimumSizeHint().height(), 640);
    EXPECT_EQ(Form.size(), QSize(1024, 640));
    EXPECT_GE(Map().width(), 440);
    for (const char* name : {"cmdMessen", "cmbMaps", "SlideMap", "cmdNew", "cmdDelete", "cmdNewRoute"}) {
        EXPECT_GE(Find<QWidget>(name).height(), 44) << name;
        EXPECT_FALSE(Find<QWidget>(name).toolTip().isEmpty()) << name;
        const QRect place(Find<QWidget>(name).mapTo(&Form, QPoint()), Find<QWidget>(name).size());
        EXPECT_TRUE(Form.rect().contains(place)) << name;
    }
    EXPECT_EQ(Form.focusWidget(), &Find<QWidget>("tWaypoint1"));
}

TEST_F(PlanningFormTest, ThePointerDragsTheChartAndTellsItsPosition) {
    const PlanMap& map = Form.Logic().Map;
    Form.Logic().CenterOnWaypoint(); // the middle of the chart
    const SourceRect before = map.View;
    const QImage picture = Picture();
    Move(200, 200); // without a button
    EXPECT_EQ(Text("lblLatx"), map.lblLatx);
    EXPECT_THAT(Texts({"lblNS", "lblEW"}), testing::ElementsAre("N", "E"));
    EXPECT_EQ(map.View, before);
    QTest::mousePress(&Map(), Qt::RightButton, {}, {200, 200});
    Move(180, 190);
    QTest::mouseRelease(&Map(), Qt::RightButton, {}, {180, 190});
    EXPECT_EQ(map.View, before);
    QTest::mousePress(&Map(), Qt::LeftButton, {}, {200, 200});
    Move(170, 180);
    EXPECT_EQ(map.View.SX, before.SX + 30);
    EXPECT_NE(Picture(), picture); // it follows before the button is let go
    Move(160, 180);
    QTest::mouseRelease(&Map(), Qt::LeftButton, {}, {160, 180});
    Move(300, 300);
    EXPECT_EQ(map.View.SX, before.SX + 40);
    EXPECT_EQ(map.View.SY, before.SY + 20);
    auto& slider = Find<QSlider>("SlideMap");
    QTest::mouseClick(&slider, Qt::LeftButton, {}, {slider.width() - 2, 10});
    EXPECT_EQ(map.SlideMap, 100);
    EXPECT_EQ(map.View.SW, 2000);
}

TEST_F(PlanningFormTest, KeysOfTheMapStepThroughWaypointsAndBuildTheRoute) {
    QTest::mouseClick(&Map(), Qt::RightButton, {}, {5, 5});
    SendKey(Map(), QEvent::KeyRelease, Qt::Key_Return); // pressed in a message that closed
    SendKey(Map(), QEvent::KeyRelease, Qt::Key_Down);
    const Recordset& points = Form.Logic().Routes.RoutePointsSet;
    EXPECT_EQ(points.RecordCount(), 2);
    QTest::keyClick(&Map(), Qt::Key_Down);
    EXPECT_EQ(Find<QLineEdit>("tWaypoint1").text(), "Bravo");
    const std::string length = Text("lblRouteDistanz");
    QTest::keyClick(&Map(), Qt::Key_Return);
    QTest::keyClick(&Map(), Qt::Key_Up);
    QTest::keyClick(&Map(), Qt::Key_Enter);
    EXPECT_EQ(points.RecordCount(), 4);
    EXPECT_EQ(points.Text("Name"), "Alpha");
    EXPECT_NE(Text("lblRouteDistanz"), length);
}

TEST_F(PlanningFormTest, ADoubleClickAndANameMakeAWaypoint) {
    Move(100, 120);
    const QImage before = Picture();
    QTest::mouseDClick(&Map(), Qt::LeftButton, {}, {100, 120});
    EXPECT_NE(Picture(), before); // the point shows already
    EXPECT_EQ(Form.focusWidget(), &Find<QWidget>("tWaypoint1"));
    EXPECT_EQ(Find<QLineEdit>("tWaypoint1").text(), "");
    const std::string lat = Text("lblLatx");
    QTest::keyClicks(&Find<QWidget>("tWaypoint1"), "Charlie");
    QTest::keyClick(&Find<QWidget>("tWaypoint1"), Qt::Key_Return);
    const Recordset& rows = Form.Logic().Waypoints.WaypointsSet;
    ASSERT_EQ(rows.RecordCount(), 3);
    EXPECT_EQ(rows.Text("Name"), "Charlie");
    EXPECT_EQ(rows.Text("Lat"), lat);
}

TEST_F(PlanningFormTest, TheMeasuringLineLeavesNothingBehind) {
    const QImage plan = Picture();
    Click("cmdMessen");
    EXPECT_TRUE(Shows("picMessen"));
    EXPECT_FALSE(Shows("cmdMessen"));
    Move(50, 60);
    const QImage line = Picture();
    EXPECT_NE(line, plan);
    EXPECT_NE(Text("lblDistanz"), "---");
    EXPECT_TRUE(Text("lblKurs").ends_with(" °"));
    for (int x = 60; x < 300; x += 10) Move(x, 200);
    Move(50, 60);
    EXPECT_EQ(Picture(), line);
    Form.Logic().PaintAgain(); // more of the chart has come
    EXPECT_EQ(Picture(), line);
    Click("picMessen");
    EXPECT_EQ(Picture(), plan);
    Move(70, 60);
    EXPECT_EQ(Picture(), plan);
}

TEST_F(PlanningFormTest, TheAirspaceDialogTakesItsChoiceWhenItCloses) {
    Shared.EnglishUI = 1;
    frmLuftraumSettings* dialog = &OpenSettings();
    EXPECT_EQ(&OpenSettings(), dialog); // one is enough
    const auto height = [&] { return dialog->findChild<QComboBox*>("cmbHoehe"); };
    EXPECT_TRUE(dialog->findChild<QRadioButton*>("Option2")->isChecked());
    EXPECT_EQ(dialog->findChild<QLabel*>("lblLR")->text(), "No airspace data");
    height()->lineEdit()->selectAll();
    QTest::keyClicks(height()->lineEdit(), "4500");
    EXPECT_TRUE(dialog->findChild<QRadioButton*>("Option3")->isChecked());
    QTest::keyClick(dialog->findChild<QCheckBox*>("chkPL"), Qt::Key_Space);
    QTest::keyClick(height(), Qt::Key_Return);
    EXPECT_TRUE(SettingsAreClosed());
    EXPECT_TRUE(Shows("tLR"));
    EXPECT_EQ(Text("tLR"), "Luftraum in 4500 ft");
    EXPECT_TRUE(Form.Logic().Airspace.tPR);

    dialog = &OpenSettings();
    EXPECT_EQ(height()->currentText(), "4500");
    QTest::mouseClick(dialog->findChild<QRadioButton*>("Option1"), Qt::LeftButton, {}, {12, 20});
    QTest::keyClick(dialog, Qt::Key_Escape);
    EXPECT_TRUE(SettingsAreClosed());
    EXPECT_EQ(Text("tLR"), "Luftraum in 4500 ft");

    dialog = &OpenSettings();
    QTest::mouseClick(dialog->findChild<QRadioButton*>("Option1"), Qt::LeftButton, {}, {12, 20});
    dialog->close();
    EXPECT_TRUE(SettingsAreClosed());
    EXPECT_EQ(Text("tLR"), "Alle Lufträume");
    Form.Form_Deactivate();
    EXPECT_EQ(ReadPlanningHeight(Folder.Path()), "-99");
}

TEST_F(PlanningFormTest, TheLegendHasTheColoursOfTheMap) {
    frmLuftraumSettings& dialog = OpenSettings();
    std::vector<QRgb> colours;
    for (const char* name : {"Frame1", "Frame2"})
        for (const QLabel* label : dialog.findChild<QGroupBox*>(name)->findChildren<QLabel*>())
            if (const QImage line = label->pixmap().toImage(); !line.isNull())
                for (const int x : {2, 14}) colours.push_back(line.pixel(x, line.height() / 2) & 0xFFFFFF);
    EXPECT_EQ(colours, (std::vector<QRgb>{AirspaceRed, AirspaceBlack, TmzColour, TmzColour, DangerColour,
                                          DangerColour, PatternColour, PatternColour}));
}

TEST_F(PlanningFormTest, AChoiceOfMapsAndTheLanguageShowAtOnce) {
    auto& maps = Find<QComboBox>("cmbMaps");
    EXPECT_EQ(maps.currentText(), "alpha.jpg");
    maps.setCurrentIndex(1);
    emit maps.activated(1);
    EXPECT_EQ(Form.Logic().Map.Name(), "Zulu.JPG");
    EXPECT_EQ(Find<QSlider>("SlideMap").value(), 0);
    Shared.EnglishUI = 1;
    Form.ApplyLanguage();
    EXPECT_EQ(Find<LampButton>("cmdMessen").text(), " Measure On ");
    EXPECT_EQ(Form.windowTitle(), "Plan mode");
    Sql("DELETE FROM Maps");
    Form.Form_Deactivate();
    Form.Form_Activate();
    EXPECT_TRUE(Shows("lblNoMap"));
    EXPECT_FALSE(Find<QSlider>("SlideMap").isEnabled());
    EXPECT_EQ(maps.count(), 0);
}

TEST_F(PlanningFormTest, WhatIsToldInARedrawLeavesItsPointsInTheirPlaces) {
    QWidget* window = WindowAround(Form, Notices, 700);
    QTest::qWait(0);
    Form.Logic().Map.SetSlide(100); // the whole chart: its scale is that of the view's height
    const int height = Picture().height();
    Sql("UPDATE GpsPoints SET Lat = 'north' WHERE Nummer = 2");
    Form.Logic().RedrawPlan();
    EXPECT_TRUE(Notices.isVisibleTo(window));
    for (const bool settled : {false, true}) {
        if (settled) QTest::qWait(0);
        const QImage told = Picture();
        Form.Logic().RedrawPlan();
        EXPECT_EQ(told, Picture()) << settled;
    }
    EXPECT_LT(Picture().height(), height);
    Form.setParent(nullptr);
    Notices.setParent(nullptr);
    delete window;
}

} // namespace
} // namespace ornivane
