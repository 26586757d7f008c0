#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTextBrowser>

#include "MainWindowFixture.h"

namespace ornivane::test {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class MainFormTest : public MainWindowTest {
protected:
    Screen* Make(Mode mode) override {
        if (mode == Mode::Settings) return MakeSettings();
        return new RecordedScreen(ModeCaption(mode).English, calls);
    }
    QToolButton* Button(int place) { return form->findChild<QToolButton*>(QString("button%1").arg(place)); }
    QAction* Entry(const char* name) { return form->findChild<QAction*>(name); }
    QDialog* Dialog(const char* name) { return form->findChild<QDialog*>(name); }
};

TEST_F(MainFormTest, StartsInFlightModeAndWritesItsVersion) {
    ASSERT_TRUE(form->Form_Load());
    EXPECT_THAT(calls, ElementsAre("Flight activate"));
    EXPECT_TRUE(Button(1)->isChecked());
    EXPECT_FALSE(Entry("mnuUpdate")->isVisible());
    EXPECT_EQ(folder.Bytes("version.crm"), "\"1.0.0\"\r\n");
}

TEST_F(MainFormTest, SwitchesByButtonAndKeyAndLightsTheScreenInFront) {
    ASSERT_TRUE(form->Form_Load());
    QTest::mouseClick(Button(7), Qt::LeftButton);
    EXPECT_TRUE(Button(7)->isChecked());
    EXPECT_FALSE(Button(1)->isChecked());
    QTest::mouseClick(Button(7), Qt::LeftButton);
    EXPECT_TRUE(Button(7)->isChecked()) << "a second press leaves it lit";
    Key(Qt::Key_F2);
    EXPECT_TRUE(Button(3)->isChecked());
    EXPECT_THAT(calls, ElementsAre("Flight activate", "Flight deactivate", "  Map  Data   activate",
                                   "  Map  Data   deactivate", "Plan Mode activate"));
}

TEST_F(MainFormTest, OffersRouteExchangeOnlyWhilePlanning) {
    ASSERT_TRUE(form->Form_Load());
    for (const auto& [place, offered] : {std::pair{3, true}, {9, false}, {3, true}, {1, false}}) {
        Button(place)->click();
        EXPECT_EQ(Entry("mnuExport")->isEnabled(), offered) << place;
        EXPECT_EQ(Entry("mnuImport")->isEnabled(), offered) << place;
    }
}

TEST_F(MainFormTest, TakesTheNewLanguageEverywhereAtOnceAndGoesOnSwitching) {
    ASSERT_TRUE(form->Form_Load());
    EXPECT_EQ(Button(3)->text(), "Planung");
    Button(5)->click();
    Find<QAbstractButton>("OptEng").click();
    EXPECT_EQ(Button(7)->text(), "  Map  Data  ");
    EXPECT_EQ(Entry("mnuExport")->text(), "Export Route");
    Button(9)->click();
    EXPECT_TRUE(Button(9)->isChecked());
    EXPECT_EQ(folder.Bytes("lang.crm"), "1\r\n");
}

TEST_F(MainFormTest, ChangesTheLanguageThoughItCannotBeWritten) {
    std::filesystem::create_directory(folder.Path() / "lang.crm"); // no file can take this name
    ASSERT_TRUE(form->Form_Load());
    Button(5)->click();
    Find<QAbstractButton>("OptEng").click();
    EXPECT_EQ(notices.Shown.size(), 1u);
    EXPECT_EQ(Button(1)->text(), "Flight");
}

TEST_F(MainFormTest, GoesOnWithANoticeWhenTheVersionCannotBeWritten) {
    std::filesystem::create_directory(folder.Path() / "version.crm");
    EXPECT_TRUE(form->Form_Load());
    EXPECT_EQ(notices.Shown.size(), 1u);
    EXPECT_THAT(boxes.Shown, IsEmpty());
}

TEST_F(MainFormTest, ShowsTheHintsOfMissingStoresWithoutStopping) {
    std::filesystem::remove(folder.Path() / "track.ovd");
    std::filesystem::remove(folder.Path() / "Luftraum.ovd");
    ASSERT_TRUE(form->Form_Load());
    ASSERT_TRUE(Dialog("frmInfo1") && Dialog("frmInfo3"));
    EXPECT_TRUE(Dialog("frmInfo1")->isVisible() && !Dialog("frmInfo1")->isModal());
    const char* texts[] = {"Die Datei track.ovd wurde nicht im Ornivane Verzeichnis gefunden",
                           "Die Datei wird für den Track Logger benötigt",
                           "Download Datei:", "Nach dem Download muss der Ornivane neu gestartet werden."};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(Dialog("frmInfo1")->findChild<QLabel*>(QString("Label%1").arg(i + 1))->text(), texts[i]);
    Dialog("frmInfo3")->findChild<QPushButton*>("lblLink")->click();
    EXPECT_THAT(links.Opened, ElementsAre(HasSubstr("ornivane.example")));
}

TEST_F(MainFormTest, EndsOnceSavingFirst) {
    ASSERT_TRUE(form->Form_Load());
    Button(9)->click();
    calls.clear();
    form->close();
    form->QueryUnload();
    EXPECT_THAT(calls, ElementsAre("Flightplan deactivate", "Flight unload", "Flightplan unload", "ended"));
    EXPECT_THAT(programs.Calls, ElementsAre("EndSiblings"));
}

TEST_F(MainFormTest, StaysWhenTheUpdateProgramIsMissingAndEndsWhenItStarts) {
    variablen.UpdateAvailable = true;
    ASSERT_TRUE(form->Form_Load());
    EXPECT_TRUE(Entry("mnuUpdate")->isVisible());
    Entry("mnuUpdate")->trigger();
    EXPECT_THAT(boxes.Shown, ElementsAre(HasSubstr("|Datei fehlt")));
    EXPECT_THAT(calls, Not(Contains("ended")));

    programs.CanStart = true;
    Entry("mnuUpdate")->trigger();
    EXPECT_THAT(programs.Calls, Contains("Start " + folder.Path().string() + "/update.exe"));
    EXPECT_THAT(calls, Contains("ended"));
}

TEST_F(MainFormTest, SwitchesToNightColoursByKey) {
    ASSERT_TRUE(form->Form_Load());
    Key(Qt::Key_F9);
    EXPECT_TRUE(night);
}

TEST_F(MainFormTest, TheAboutBoxTellsVersionAndLicencesAndOpensLinks) {
    ASSERT_TRUE(form->Form_Load());
    for (const auto& [english, changes] : {std::pair{0, "Änderungen"}, {1, "Change log"}}) {
        variablen.EnglishUI = static_cast<std::int16_t>(english);
        Entry("mnuabout")->trigger();
        Entry("mnuabout")->trigger();
        ASSERT_EQ(form->findChildren<QDialog*>("frmAbout").size(), 1);
        QDialog& about = *Dialog("frmAbout");
        EXPECT_EQ(about.findChild<QLabel*>("lblVersion")->text(), "Version 1.0.0");
        EXPECT_EQ(about.findChild<QTabWidget*>("tabs")->tabText(1), changes);
        auto* credits = about.findChild<QTextBrowser*>("pageCredits");
        for (const char* licence : {"LGPL", "MIT", "ODbL", "SQLite", "GSHHG"})
            EXPECT_TRUE(credits->toPlainText().contains(licence)) << licence;
        emit credits->anchorClicked(QUrl("https://www.sqlite.org/"));
        about.findChild<QPushButton*>("cmdClose")->click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    EXPECT_THAT(links.Opened, ElementsAre("https://www.sqlite.org/", "https://www.sqlite.org/"));
}

TEST_F(MainFormTest, GivesEveryControlATooltipInBothLanguages) {
    ASSERT_TRUE(form->Form_Load());
    for (const char* button : {"button5", "button1"}) form->findChild<QToolButton*>(button)->click();
    for (const auto* control : form->findChildren<QAbstractButton*>()) {
        variablen.EnglishUI = 0;
        form->ApplyLanguage();
        const QString german = control->toolTip();
        variablen.EnglishUI = 1;
        form->ApplyLanguage();
        // Parts of Qt's own widgets: the arrows of the toolbar, the corner of a grid.
        if (control->objectName().isEmpty() || control->objectName().startsWith("qt_")) continue;
        EXPECT_FALSE(german.isEmpty()) << control->objectName().toStdString();
        EXPECT_NE(german, control->toolTip()) << control->objectName().toStdString();
    }
}

} // namespace ornivane::test
