#include <QAbstractButton>

#include "screens/FlyingFormFixture.h"

namespace ornivane {
namespace {

// Hands that slip: keys that reach another control than the pilot thinks, keys that are held, drags that end
// elsewhere, clicks that come twice.
class FlyingHandsTest : public FlyingFormTest {
protected:
    FlyingHandsTest() {
        AddWaypoint("KBO", 50.45, 7.30);
        Show();
        Form.activateWindow();
    }
    QWidget& Map() { return Find<QWidget>("picMap"); }
    // What is flown: chart, scale, route and active point.
    std::string Flown() {
        const FlyingScreen& screen = Form.Logic();
        return screen.Map.Name() + " " + std::to_string(screen.Map.SlideMap) + " " + screen.Route.cmbRoute +
               " " + std::to_string(screen.Route.RoutePointsSet.AbsolutePosition());
    }
    // The dial's right button in its present mode, after the left one for the next mode.
    QLineEdit& OpenNextEntry() {
        auto& dial = Find<QWidget>("Kurskreisel");
        QTest::mouseClick(&dial, Qt::LeftButton);
        QTest::mouseClick(&dial, Qt::RightButton);
        return Find<QLineEdit>(Shows("frmVOR") ? "tVOR1" : "tKurs");
    }
    void Position(const char* longitude) {
        for (int i = 0; i < 21; ++i) // so many make a redraw
            Port.Say(std::string("GPRMC,120000,A,5030.000,N,") + longitude + ",E,100.0,090.0,221126,,");
    }
    // As a keyboard that repeats: each repetition lets the key go and presses it again.
    static void Repeat(QWidget& to, Qt::Key key) {
        for (int i = 0; i < 3; ++i) {
            SendKey(to, QEvent::KeyRelease, key, true);
            SendKey(to, QEvent::KeyPress, key, true);
        }
    }
};

TEST_F(FlyingHandsTest, WhileANameOrACourseIsEnteredKeysElsewhereChangeNothing) {
    const std::string before = Flown();
    for (int entry = 0; entry < 2; ++entry) {
        const QLineEdit& field = OpenNextEntry();
        for (const char* name : {"cmbRoute", "cmbMaps", "SlideMap", "picMap", "cmdNext"})
            for (const Qt::Key key :
                 {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right, Qt::Key_PageUp, Qt::Key_PageDown,
                  Qt::Key_Home, Qt::Key_End, Qt::Key_S, Qt::Key_Z, Qt::Key_7, Qt::Key_Return}) {
                Find<QWidget>(name).setFocus();
                QTest::keyClick(&Find<QWidget>(name), key);
                EXPECT_EQ(Flown(), before) << name << ' ' << key;
                EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << name;
                EXPECT_EQ(Entry(), "--- ---") << name << ' ' << key;
                ASSERT_TRUE(field.isVisible()) << name << ' ' << key;
            }
    }
}

TEST_F(FlyingHandsTest, AClosedListTakesNoLettersAndOpensByEnter) {
    const std::string before = Flown();
    for (const char* name : {"cmbRoute", "cmbMaps"}) {
        auto& list = Find<QComboBox>(name);
        list.setFocus();
        for (const Qt::Key key : {Qt::Key_S, Qt::Key_Z, Qt::Key_PageDown, Qt::Key_End})
            QTest::keyClick(&list, key);
        EXPECT_EQ(Flown(), before) << name;
        QTest::keyClick(&list, Qt::Key_Return);
        ASSERT_TRUE(list.view()->isVisible()) << name;
        list.hidePopup();
    }
}

TEST_F(FlyingHandsTest, APointThatIsPassedLeavesTheKeysInTheField) {
    Click("cmdGPS");
    Position("00610.000");
    Click("cmdActivateGoto");
    QLineEdit& name = OpenNextEntry();
    QTest::keyClick(&name, Qt::Key_K);
    Position("00629.500");
    EXPECT_EQ(Form.focusWidget(), &name);
    Position("00631.000"); // farther from the point than before: it is passed
    EXPECT_EQ(Form.Logic().Route.RoutePointsSet.AbsolutePosition(), 2);
    EXPECT_EQ(Form.focusWidget(), &name);
    EXPECT_EQ(name.text(), "k");
    Click("cmdPrev"); // who presses the button wants the map
    EXPECT_EQ(Form.focusWidget(), &Map());
    // A button that has the keys gives them to the map as ever: it may be switched off by the step.
    QTest::keyClick(&Map(), Qt::Key_Escape);
    Find<QWidget>("cmdNext").setFocus();
    Position("00629.500");
    Position("00631.000");
    EXPECT_EQ(Form.Logic().Route.RoutePointsSet.AbsolutePosition(), 2);
    EXPECT_EQ(Form.focusWidget(), &Map());
}

TEST_F(FlyingHandsTest, EscapeOnTheMapClosesWhatIsOpenOverIt) {
    Form.Logic().Wind.lblHeading = "090";
    Form.Logic().Wind.lblIAS = "110"; // complete: a key of the screen would end it
    Click("cmdSet");
    for (const char* entry : {"frmVOR", "frmKurs"}) {
        OpenNextEntry();
        Map().setFocus();
        QTest::keyClick(&Map(), Qt::Key_Escape);
        EXPECT_FALSE(Shows(entry));
        EXPECT_TRUE(Shows("frmSet"));
    }
    QTest::keyClick(&Find<QWidget>("cmdWayInfo"), Qt::Key_Escape);
    EXPECT_FALSE(Shows("frmSet"));
    EXPECT_EQ(Form.focusWidget(), &Map());
    EXPECT_EQ(Entry(), "090 110");
    QTest::keyClick(&Map(), Qt::Key_Escape);
    EXPECT_EQ(Entry(), "--- ---");
}

TEST_F(FlyingHandsTest, AKeyThatIsHeldCountsOnceAndOnlyWhereItWasPressed) {
    SendKey(Map(), QEvent::KeyPress, Qt::Key_5, false);
    Repeat(Map(), Qt::Key_5);
    EXPECT_EQ(Entry(), "--- ---");
    SendKey(Map(), QEvent::KeyRelease, Qt::Key_5, false);
    EXPECT_EQ(Entry(), "5-- ---");
    // The third digit of a course ends its entry while the key is still down.
    OpenNextEntry();
    QLineEdit& course = OpenNextEntry();
    QTest::keyClicks(&course, "05");
    QTest::keyPress(&course, Qt::Key_2);
    EXPECT_FALSE(Shows("frmKurs"));
    Repeat(Map(), Qt::Key_2);
    SendKey(Map(), QEvent::KeyRelease, Qt::Key_2, false);
    EXPECT_EQ(Entry(), "5-- ---");
    const std::string before = Flown();
    Repeat(Map(), Qt::Key_Up); // held since before an entry was closed
    EXPECT_EQ(Flown(), before);
    OpenNextEntry();
    QLineEdit& name = OpenNextEntry();
    QTest::keyClick(&name, Qt::Key_K);
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) Repeat(name, key); // as what closed a message
    EXPECT_EQ(name.text(), "k");
    EXPECT_TRUE(Shows("frmVOR") && Text("lblVOR1") != "KBO");
}

TEST_F(FlyingHandsTest, AKeyThatIsLetGoOverAMessageIsForgotten) {
    QTest::keyPress(&Map(), Qt::Key_7);
    QMessageBox box(&Form);
    box.open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
    QTest::keyRelease(&box, Qt::Key_7);
    QTest::keyPress(&box, Qt::Key_7); // this one is let go when the message is gone
    QTest::keyPress(&box, Qt::Key_Escape);
    Form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Form));
    QTest::keyRelease(&Map(), Qt::Key_7);
    QTest::keyRelease(&Map(), Qt::Key_Escape);
    EXPECT_EQ(Entry(), "--- ---");
}

// Whatever dialog lies below: it neither acts nor closes by a key that closed the message over it.
TEST_F(FlyingHandsTest, AKeyThatClosedAMessageDoesNothingBelowWhileItIsHeld) {
    int pressed = 0;
    QDialog below(&Form);
    QPushButton act("act", &below);
    act.setDefault(true);
    QObject::connect(&act, &QPushButton::clicked, &below, [&] { ++pressed; });
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        below.open();
        QMessageBox box(&below);
        box.open();
        QTest::keyPress(&box, key);
        ASSERT_FALSE(box.isVisible());
        Repeat(below, key);
        SendKey(below, QEvent::KeyRelease, key, false);
        EXPECT_TRUE(below.isVisible() && pressed == 0);
        QTest::keyClick(&below, key);
        EXPECT_TRUE(key == Qt::Key_Return ? pressed == 1 : !below.isVisible());
        pressed = 0;
    }
}

TEST_F(FlyingHandsTest, ADragThatEndsElsewhereIsNoClick) {
    Form.Logic().SetFlag(&DisplayFlags::ShowRoute, true);
    auto& length = Find<QWidget>("lblRoute");
    const QPoint outside(-60, 80);
    QTest::mousePress(&length, Qt::LeftButton);
    QTest::mouseRelease(&length, Qt::LeftButton, {}, outside);
    EXPECT_TRUE(Form.Logic().Flags.ShowRoute);
    QTest::mouseClick(&length, Qt::RightButton);
    EXPECT_TRUE(Form.Logic().Flags.ShowRoute);
    Click("cmdActivateGoto");
    const std::string before = Flown();
    QTest::mousePress(&Find<QWidget>("cmdNext"), Qt::LeftButton);
    QTest::mouseRelease(&Find<QWidget>("cmdNext"), Qt::LeftButton, {}, outside);
    EXPECT_EQ(Flown(), before);
}

class DoubleClickTest : public FlyingHandsTest {
protected:
    // Both presses of a quick double click at one place of the screen, each sent to what lies there.
    void Twice(QWidget& first, const std::function<QWidget&()>& second) {
        const QPointF at = first.mapToGlobal(QPointF(8, 8));
        static quint64 now = 1000000; // after every click before
        now += 10000;
        SendMouse(first, QEvent::MouseButtonPress, at, now);
        SendMouse(first, QEvent::MouseButtonRelease, at, now + 80);
        QWidget& below = second();
        SendMouse(below, QEvent::MouseButtonDblClick, at, now + 160);
        SendMouse(below, QEvent::MouseButtonRelease, at, now + 240);
    }
};

TEST_F(DoubleClickTest, TheSecondPressDoesNotFallThroughWhatTheFirstHasClosed) {
    Form.Form_Deactivate();
    Sql("UPDATE Maps SET Oben = 51, Unten = 50 WHERE Name = 'Zulu.JPG'");
    Form.Form_Activate();
    Click("cmdGPS");
    Fix();
    Click("cmdMapScroll");
    ASSERT_TRUE(Shows("tNextMap"));
    const std::string before = Flown();
    Twice(Find<QWidget>("tNextMap"), [this]() -> QWidget& { return Map(); });
    EXPECT_FALSE(Shows("tNextMap"));
    EXPECT_EQ(Flown(), before); // a press on the map is the next chart
    QMessageBox box(QMessageBox::NoIcon, "", "", QMessageBox::Ok, &Form);
    box.open();
    Twice(*box.button(QMessageBox::Ok), [this]() -> QWidget& { return Find<QWidget>("cmdMapScroll"); });
    EXPECT_FALSE(box.isVisible());
    EXPECT_TRUE(Form.Logic().Map.AutoMapSwitch);
    QTest::mouseClick(&Map(), Qt::LeftButton, {}, {300, 200}); // the next click counts
    EXPECT_NE(Flown(), before);
}

TEST_F(DoubleClickTest, ButtonsFollowEachOtherAsFastAsOneClicks) {
    Click("cmdSet");
    Shared.AirfieldStoreOpen = true;
    Form.ApplyLanguage();
    Twice(Find<QWidget>("cmdAPT1"), [this]() -> QWidget& { return Find<QWidget>("cmdAPT2"); });
    EXPECT_TRUE(Form.Logic().Flags.ShowAirfieldText);
    Twice(Find<QWidget>("cmdNext"), [this]() -> QWidget& { return Find<QWidget>("cmdNext"); });
    EXPECT_EQ(Form.Logic().Route.RoutePointsSet.AbsolutePosition(), 3);
}

} // namespace
} // namespace ornivane
