#include <QApplication>
#include <QPointer>
#include <QTest>

#include <gtest/gtest.h>

#include "planning/frmExport.h"
#include "platform/qt/QtNotice.h"
#include "support/FlightFolder.h"
#include "support/ScriptedDialogs.h"

namespace ornivane {
namespace {

class ExportFormTest : public testing::Test, protected FlightFolder {
protected:
    ExportFormTest() {
        AddRoute("Alpen", {6.3, 7.0});
        AddRoute("Küste & Inseln", {6.3, 7.0});
    }
    void Show(const char* cell) {
        Form = new frmExport(Shared, Boxes, Guard, cell, &Window);
        Form->open();
        ASSERT_TRUE(QTest::qWaitForWindowActive(Form));
    }
    void Key(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    template <typename Widget>
    Widget& Find(const char* name) {
        return *Form->findChild<Widget*>(name);
    }
    bool IsSaved(const char* name) { return std::filesystem::exists(Folder.Path() / "Route" / name); }

    QWidget Window;
    QtNotice Notices;
    ScriptedDialogs Boxes;
    EventGuard Guard{Notices, [] { return false; }};
    QPointer<frmExport> Form;
};

TEST_F(ExportFormTest, SavesTheChosenRouteByKeysAloneAndGoesAwayWithEscape) {
    Show("Küste & Inseln");
    EXPECT_TRUE(Form->isModal());
    EXPECT_EQ(Find<QComboBox>("cmbRoute").currentText(), "Küste & Inseln");
    Key(Qt::Key_Up);
    Key(Qt::Key_Return);
    EXPECT_TRUE(IsSaved("Alpen.ovr") && !IsSaved("Küste & Inseln.ovr"));
    EXPECT_TRUE(Find<QLabel>("lblSave").text().endsWith("/Route/Alpen.ovr"));
    Key(Qt::Key_Down);
    Key(Qt::Key_Tab);
    Key(Qt::Key_Enter);
    EXPECT_TRUE(IsSaved("Küste & Inseln.ovr"));
    EXPECT_EQ(Boxes.Shown.size(), 2u);
    Key(Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(Form);
}

TEST_F(ExportFormTest, OffersNothingToSaveUntilARouteIsChosen) {
    Show("another");
    EXPECT_FALSE(Find<QPushButton>("cmdExport").isEnabled());
    Key(Qt::Key_Return);
    EXPECT_TRUE(Boxes.Shown.empty());
    ASSERT_TRUE(Form);
    Find<QComboBox>("cmbRoute").setFocus();
    Key(Qt::Key_Down);
    Find<QPushButton>("cmdExport").click();
    EXPECT_TRUE(IsSaved("Alpen.ovr"));
}

TEST_F(ExportFormTest, TellsInTheNoticeWhyANameCannotBeAFileAndStays) {
    AddRoute("Nord/Süd", {6.3});
    Show("Nord/Süd");
    Find<QPushButton>("cmdExport").click();
    EXPECT_TRUE(Notices.text().contains("Ungültiger Dateiname (52): Nord/Süd"));
    EXPECT_FALSE(std::filesystem::exists(Folder.Path() / "Route"));
    Find<QPushButton>("cmdExit").click();
    EXPECT_FALSE(Form && Form->isVisible());
}

} // namespace
} // namespace ornivane
