#include <gtest/gtest.h>

#include <QLabel>
#include <QTest>

#include "Fakes.h"
#include "app/frmSplash.h"

namespace ornivane::test {

// While it is asked, something else may happen, as it does in a real transfer.
struct SlowWeb : ScriptedWeb {
    std::function<void()> Meanwhile = [] {};
    std::optional<std::string> Fetch(const std::string& address, int milliseconds) override {
        Meanwhile();
        return ScriptedWeb::Fetch(address, milliseconds);
    }
};

class Splash : public testing::Test {
protected:
    Splash() { variablen.ProgramFolder = folder.Path(); }
    void Show() {
        splash = std::make_unique<frmSplash>(variablen, web);
        splash->OnEnd([this] { ++ends; });
        splash->show();
    }
    QLabel* lblUpdate() { return splash->findChild<QLabel*>("lblUpdate"); }

    TemporaryFolder folder;
    Variablen variablen;
    SlowWeb web;
    std::unique_ptr<frmSplash> splash;
    int ends = 0;
};

TEST_F(Splash, AsksTheServerOnceWhenItIsSeenAndTellsOfAnUpdate) {
    web.Answer = "1.0.1";
    Show();
    EXPECT_TRUE(web.Asked.empty());
    EXPECT_FALSE(lblUpdate()->isVisible());
    ASSERT_TRUE(QTest::qWaitFor([this] { return lblUpdate()->isVisible(); }));
    splash->repaint();
    QCoreApplication::processEvents();
    EXPECT_EQ(web.Asked.size(), 1u);
    EXPECT_TRUE(variablen.UpdateAvailable);
    EXPECT_EQ(splash->findChild<QLabel*>("lblVersion")->text(), "Version 1.0.0");
}

TEST_F(Splash, EndsOnceByAClickOrTheTimer) {
    Show();
    QTest::mouseClick(splash.get(), Qt::LeftButton);
    QTest::mouseClick(splash.get(), Qt::LeftButton);
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(web.Asked.size(), 1u) << "a click before the server was asked leaves that out";
    EXPECT_FALSE(splash->findChild<QTimer*>("Timer1")->isActive());
}

TEST_F(Splash, WaitsForTheServersAnswerBeforeItEnds) {
    web.Answer = "2.0.0";
    web.Meanwhile = [this] {
        QTest::mouseClick(splash.get(), Qt::LeftButton);
        EXPECT_EQ(ends, 0);
    };
    Show();
    ASSERT_TRUE(QTest::qWaitFor([this] { return ends > 0; }));
    EXPECT_EQ(ends, 1);
    EXPECT_TRUE(variablen.UpdateAvailable);
}

} // namespace ornivane::test
