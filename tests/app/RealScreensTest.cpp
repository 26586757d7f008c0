#include <QLineEdit>
#include <QMenu>
#include <QTabBar>
#include <QTimer>
#include <QWheelEvent>

#include "MainWindowFixture.h"
#include "calibration/frmCalibrate.h"
#include "flightplan/frmFlugPlan.h"
#include "nav/frmGPSmain.h"
#include "planning/frmPlanung.h"
#include "support/TestCharts.h"

namespace ornivane::test {

// The main window with the screens that the pilot sees.
class RealScreensTest : public MainWindowTest {
protected:
    ~RealScreensTest() override { form.reset(); } // the screens look at the charts to their end
    Screen* Make(Mode mode) override {
        switch (mode) {
        case Mode::Flight:
            return new frmGPSmain(
                {variablen, {port, timer, trackTimer, clock}, ports, boxes, notices, guard, charts});
        case Mode::Planning:
            return new frmPlanung(variablen, boxes, guard, charts);
        case Mode::Settings:
            return MakeSettings();
        case Mode::MapData:
            return new frmCalibrate(variablen, guard, boxes, charts);
        case Mode::FlightPlan:
            break;
        }
        return new frmFlugPlan({variablen, guard, boxes, notices, [] {}});
    }
    std::string Title() { return form->windowTitle().toStdString(); }

    TestCharts charts;
};

TEST_F(RealScreensTest, TheWindowsTitleTellsTheScreenInTheLanguageOfThisMoment) {
    ASSERT_TRUE(form->Form_Load());
    const std::pair<const char*, std::array<const char*, 2>> screens[] = {
        {"button1", {"Ornivane GPS", "Ornivane GPS"}},
        {"button3", {"Planung – Ornivane GPS", "Plan mode – Ornivane GPS"}},
        {"button5", {"Einstellungen – Ornivane GPS", "Settings – Ornivane GPS"}},
        {"button7", {"Kartendaten – Ornivane GPS", "Map Data – Ornivane GPS"}},
        {"button9", {"Flugplan – Ornivane GPS", "Flightplan – Ornivane GPS"}}};
    for (std::size_t english = 0; english < 2; ++english) {
        for (const auto& [button, titles] : screens) {
            Click(button);
            EXPECT_EQ(Title(), titles[english]);
        }
        Click("button5");
        Click("OptEng");
        EXPECT_EQ(Title(), screens[2].second[1]); // at once
    }
}

TEST_F(RealScreensTest, TheToolbarsKeysWorkWhileANameIsEnteredAndItsLettersStay) {
    ASSERT_TRUE(form->Form_Load());
    Click("Kurskreisel");
    Click("Kurskreisel", Qt::RightButton);
    auto& name = Find<QLineEdit>("tVOR1");
    QTest::keyClicks(&name, "kb");
    Key(Qt::Key_F1); // in front already
    Key(Qt::Key_F9);
    EXPECT_EQ(form->focusWidget(), &name);
    const std::pair<Qt::Key, const char*> screens[] = {{Qt::Key_F2, "frmPlanung"},
                                                       {Qt::Key_F3, "frmSettings"},
                                                       {Qt::Key_F4, "frmCalibrate"},
                                                       {Qt::Key_F5, "frmFlugPlan"}};
    for (const auto& [key, screen] : screens) {
        Key(key);
        EXPECT_TRUE(Find<QWidget>(screen).isVisible()) << screen;
        Key(Qt::Key_F1);
        EXPECT_TRUE(name.isVisible() && name.text() == "kb") << screen;
    }
    bool opened = false;
    QTimer::singleShot(0, form.get(), [&] { // the menu waits for its answer
        opened = Find<QMenu>("mnuMain").isVisible();
        QTest::keyClick(&Find<QMenu>("mnuMain"), Qt::Key_Escape);
    });
    Key(Qt::Key_F10);
    EXPECT_TRUE(opened && name.isVisible());
    Key(Qt::Key_Escape);
    EXPECT_FALSE(name.isVisible());
}

TEST_F(RealScreensTest, TheWheelTurnsNoPageOfTheAboutBox) {
    ASSERT_TRUE(form->Form_Load());
    Find<QAction>("mnuabout").trigger();
    auto& bar = *Find<QDialog>("frmAbout").findChild<QTabBar*>();
    QWheelEvent wheel({9, 9}, bar.mapToGlobal(QPointF(9, 9)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&bar, &wheel);
    EXPECT_EQ(bar.currentIndex(), 0);
}

} // namespace ornivane::test
