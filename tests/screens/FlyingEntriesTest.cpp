#include "screens/FlyingFormFixture.h"

namespace ornivane {
namespace {

// The entries of the flying screen by real keys and buttons: wind, VOR, course, recording, charts.
class FlyingEntriesTest : public FlyingFormTest {
protected:
    FlyingEntriesTest() {
        OpenTracks();
        Shared.TrackEnabled = true;
        Shared.TrackInterval = 10000;
        AddWaypoint("KBO", 50.45, 7.30);
    }
    void Keys(QWidget& widget, const char* keys) {
        for (; *keys; ++keys) QTest::keyClick(&widget, *keys);
    }
};

TEST_F(FlyingEntriesTest, HeadingAndAirspeedAreTypedWhereverTheFocusIs) {
    Show();
    Click("cmdGPS");
    Fix(); // 100 knots on a track of 090
    auto& map = Find<QWidget>("picMap");
    Keys(map, "09012");
    QTest::keyClick(&map, Qt::Key_Backspace);
    Keys(Find<QWidget>("cmbRoute"), "1");
    EXPECT_EQ(Entry(), "090 11-");
    QTest::keyClick(&map, Qt::Key_5, Qt::KeypadModifier); // the numeric block is not read
    for (const auto key : {Qt::Key_F3, Qt::Key_Shift, Qt::Key_Left, Qt::Key_Up}) QTest::keyClick(&map, key);
    EXPECT_EQ(Entry(), "090 11-");
    Keys(Find<QWidget>("cmdNext"), "0");
    EXPECT_EQ(Text("lblWind"), "090 / 12"); // TAS 111.8 at 984 ft
    EXPECT_TRUE(Find<QLabel>("lblIAS").toolTip().contains("(ISA)"));
    Click("lblSpeed"); // another unit: the wind is the same
    EXPECT_THAT(Texts({"lblHeading", "lblIAS", "lblWind", "lblSpeedmode"}),
                testing::ElementsAre("090", "204", "090 / 22", "km/h"));
    Click("lblSpeed");
    QTest::keyClick(&map, Qt::Key_Space);
    EXPECT_EQ(Entry(), "090 110");
    EXPECT_EQ(Text("lblWind"), "090 / 12");
    Keys(map, "4");
    EXPECT_EQ(Entry(), "4-- ---");
}

TEST_F(FlyingEntriesTest, TheInstrumentTakesStationAndCourseAndThenGivesTheKeysBack) {
    Show();
    auto& dial = Find<SurfaceWidget>("Kurskreisel");
    const auto click = [&](Qt::MouseButton button) { QTest::mouseClick(&dial, button, {}, {100, 100}); };
    click(Qt::RightButton);
    EXPECT_FALSE(Shows("frmVOR") || Shows("frmKurs") || Shows("lblVOR1"));
    click(Qt::LeftButton);
    click(Qt::RightButton);
    ASSERT_TRUE(Shows("frmVOR"));
    auto& name = Find<QLineEdit>("tVOR1");
    const int zoom = Form.Logic().Map.SlideMap;
    Keys(name, "kb");
    QTest::keyClick(&name, Qt::Key_Up); // not the map's while a name is entered
    EXPECT_EQ(Form.Logic().Map.SlideMap, zoom);
    EXPECT_EQ(Text("lblResult"), "KBO");
    Find<QWidget>("picMap").setFocus();
    click(Qt::RightButton); // again: what was typed stays, and the keys come back to it
    EXPECT_THAT(Texts({"tVOR1", "lblResult"}), testing::ElementsAre("kb", "KBO"));
    Form.Logic().Wind.lblHeading = "090";
    Form.Logic().Wind.lblIAS = "110"; // a complete entry, which any key of the screen would end
    QTest::keyPress(&name, Qt::Key_Return);
    EXPECT_FALSE(Shows("frmVOR"));
    QTest::keyRelease(&Find<QWidget>("picMap"), Qt::Key_Return);
    EXPECT_EQ(Text("lblVOR1"), "KBO");
    EXPECT_EQ(Entry(), "090 110"); // nothing of it went into the wind
    click(Qt::LeftButton);
    click(Qt::RightButton);
    auto& course = Find<QLineEdit>("tKurs");
    QTest::keyClick(&course, Qt::Key_Escape);
    EXPECT_FALSE(Shows("frmKurs"));
    click(Qt::RightButton);
    Keys(course, "052");
    EXPECT_FALSE(Shows("frmKurs"));
    QTest::keyRelease(&Find<QWidget>("picMap"), Qt::Key_2); // the last digit is let go over the map
    EXPECT_EQ(Text("lblKurs"), "052°");
    EXPECT_EQ(Entry(), "090 110");
    Form.Form_Unload();
    frmGPSmain again({Shared, {Port, Timer, TrackTimer, Clock}, Port, Dialogs, Notices, Guard, Charts});
    again.Form_Activate();
    EXPECT_EQ(again.Logic().Instruments.InstrumentMode, DialMode::Hsi);
    EXPECT_EQ(again.Logic().Instruments.lblKurs, "052");
}

TEST_F(FlyingEntriesTest, TheQnhIsEnteredAtItsReadoutByMouseOrKeys) {
    Show();
    Form.Logic().Flags.ShowAirspace = true;
    Form.Logic().UpdateMap();
    auto& readout = Find<QLabel>("lblQNH");
    auto& field = Find<QLineEdit>("tEnterQNH");
    auto& map = Find<QWidget>("picMap");
    EXPECT_TRUE(readout.isVisible());
    EXPECT_EQ(readout.height(), 44);
    Click("lblQNH");
    ASSERT_TRUE(Shows("frmEnterQNH"));
    EXPECT_EQ(field.selectedText(), "1013"); // typed over
    const int zoom = Form.Logic().Map.SlideMap;
    for (const auto key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up}) QTest::keyClick(&field, key);
    EXPECT_EQ(Form.Logic().Map.SlideMap, zoom);
    EXPECT_EQ(Form.Logic().Route.RoutePointsSet.AbsolutePosition(), 1);
    field.selectAll();
    Keys(field, "1020");
    QTest::keyPress(&field, Qt::Key_Return);
    EXPECT_FALSE(Shows("frmEnterQNH"));
    EXPECT_EQ(Form.focusWidget(), &map);
    QTest::keyRelease(&map, Qt::Key_Return);
    EXPECT_EQ(Text("lblQNH"), "QNH 1020");
    EXPECT_EQ(Entry(), "--- ---"); // nothing of it went into the wind
    EXPECT_EQ(Shared.QNH, 1020);
    EXPECT_EQ(Shared.tQNH, "1020");

    for (const char* text : {"1049,6", "1049.6"}) { // 1050 as a whole number, and that would be none
        Click("lblQNH");
        field.selectAll();
        Keys(field, text);
        QTest::keyClick(&field, Qt::Key_Return);
        Click("lblQNH");
        QTest::keyClick(&field, Qt::Key_Return); // a mere look
        EXPECT_EQ(Text("lblQNH"), "QNH 1050") << text;
    }
    Click("lblQNH");
    Keys(field, "1020");
    QTest::keyClick(&field, Qt::Key_Return);

    readout.setFocus();
    QTest::keyClick(&readout, Qt::Key_Return);
    ASSERT_TRUE(Shows("frmEnterQNH"));
    EXPECT_EQ(Form.focusWidget(), &field);
    Keys(field, "9");
    QTest::keyClick(&field, Qt::Key_Escape);
    EXPECT_FALSE(Shows("frmEnterQNH"));
    EXPECT_EQ(Text("lblQNH"), "QNH 1020");
    std::filesystem::remove(Folder.Path() / "LR.crm");
    std::filesystem::create_directory(Folder.Path() / "LR.crm"); // no file can take this name
    Click("lblQNH");
    Keys(field, "1001");
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_FALSE(Shows("frmEnterQNH")); // it counts all the same
    EXPECT_EQ(Text("lblQNH"), "QNH 1001");
}

TEST_F(FlyingEntriesTest, AnUnknownStationLeavesTheScreenUsable) {
    Form.Logic().Instruments.lblVOR1 = "Nowhere";
    Show();
    Form.Logic().Instruments.lblVOR1 = "Nowhere";
    QTest::mouseClick(&Find<QWidget>("Kurskreisel"), Qt::LeftButton);
    QMessageBox* box = nullptr;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* found = qobject_cast<QMessageBox*>(window); found && found->isVisible()) box = found;
    ASSERT_TRUE(box);
    EXPECT_EQ(box->windowTitle(), "Error");
    EXPECT_FALSE(box->isModal());
    box->accept();
}

TEST_F(FlyingEntriesTest, TheRecordButtonTellsItsThreeStates) {
    Show();
    Click("cmdGPS");
    Fix();
    EXPECT_TRUE(Shows("cmdRecord") && !Shows("cmdRecordAuto") && !Shows("picRecord"));
    Click("cmdRecord");
    EXPECT_TRUE(Shows("picRecord") && !Shows("cmdRecord"));
    EXPECT_EQ(Text("lblRecord"), "0");
    Click("picRecord");
    EXPECT_TRUE(Shows("cmdRecord") && !Shows("picRecord"));
    Form.Form_Deactivate();
    Shared.TrackAuto = true;
    Form.Form_Activate();
    EXPECT_TRUE(Shows("cmdRecordAuto") && !Shows("cmdRecord"));
    Fix(); // at 100 knots
    EXPECT_TRUE(Shows("picRecord"));
    Shared.EnglishUI = 1;
    Form.ApplyLanguage();
    for (const char* name : {"cmdRecord", "cmdRecordAuto", "picRecord"})
        EXPECT_TRUE(Find<QWidget>(name).toolTip().contains("ecord")) << name;
}

TEST_F(FlyingEntriesTest, StepsThroughTheChartsByKeyAndClick) {
    Sql("UPDATE Maps SET Oben = 51, Unten = 50 WHERE Name = 'Zulu.JPG'");
    Show();
    Click("cmdGPS");
    Fix();
    auto& map = Find<SurfaceWidget>("picMap");
    QTest::keyClick(&map, Qt::Key_Space);
    EXPECT_EQ(Form.Logic().Map.Name(), "alpha.jpg");
    Click("cmdMapScroll");
    EXPECT_TRUE(Find<LampButton>("cmdMapScroll").IsLit());
    EXPECT_EQ(Text("tNextMap"), "Zulu.JPG");
    EXPECT_TRUE(Shows("tNextMap") && !Shows("LblMapNumber"));
    QTest::keyClick(&map, Qt::Key_Space);
    EXPECT_EQ(Find<QComboBox>("cmbMaps").currentText(), "Zulu.JPG");
    QTest::mouseClick(&map, Qt::LeftButton, {}, {300, 200});
    EXPECT_EQ(Find<QComboBox>("cmbMaps").currentText(), "alpha.jpg");
    QTest::mousePress(&Find<QWidget>("tNextMap"), Qt::LeftButton);
    EXPECT_FALSE(Shows("tNextMap"));
    Click("cmdMapScroll");
    EXPECT_FALSE(Form.Logic().Map.AutoMapSwitch);
    auto& button = Find<QWidget>("cmdMapScroll");
    QTest::keyClick(&button, Qt::Key_Space); // presses it, and gives the keys to the map
    EXPECT_TRUE(Form.Logic().Map.AutoMapSwitch);
    const int zoom = Form.Logic().Map.SlideMap;
    QTest::keyClick(&button, Qt::Key_Up);
    EXPECT_EQ(Form.Logic().Map.SlideMap, zoom + 10);
}

} // namespace
} // namespace ornivane
