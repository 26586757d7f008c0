#include <QFileDialog>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTimer>

#include "planning/RouteImport.h"
#include "planning/frmExport.h"
#include "screens/FormFixture.h"

namespace ornivane {
namespace {

class RouteExchangeForms : public FormTest {
protected:
    RouteExchangeForms() {
        AddRoute("Alpen", {6.3, 7.0});
        AddRoute("Küste & Inseln", {6.3, 7.0});
        Boxes.SetWindow(&Window);
        Window.show();
    }
    void Show(const char* cell) {
        Front = Form = new frmExport(Shared, Boxes, Guard, cell, &Window);
        Form->open();
        ASSERT_TRUE(QTest::qWaitForWindowActive(Form));
    }
    void Key(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    // The text of the message that stands, which Enter takes away.
    std::string Message() {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || !QTest::qWaitFor([&] { return box->isActiveWindow(); })) return {};
        const std::string text = box->text().toStdString();
        Key(Qt::Key_Return);
        if (QApplication::activeModalWidget() != Form) return "the message is still there";
        Form->activateWindow(); // off screen there is no window manager that does it
        return QTest::qWaitFor([&] { return Form->isActiveWindow(); }) ? text : "the form is not back";
    }
    bool IsSaved(const char* name) { return std::filesystem::exists(Folder.Path() / "Route" / name); }

    QWidget Window;
    QtDialogs Boxes;
    QPointer<frmExport> Form;
};

TEST_F(RouteExchangeForms, SavesTheChosenRouteByKeysAloneAndGoesAwayWithEscape) {
    Show("Küste & Inseln");
    EXPECT_TRUE(Form->isModal());
    EXPECT_EQ(Find<QComboBox>("cmbRoute").currentText(), "Küste & Inseln");
    Key(Qt::Key_Up);
    Key(Qt::Key_Return);
    EXPECT_EQ(Message(), "Strecke: Alpen wurde gespeichert.");
    EXPECT_TRUE(IsSaved("Alpen.ovr") && !IsSaved("Küste & Inseln.ovr"));
    EXPECT_TRUE(Find<QLabel>("lblSave").text().endsWith("/Route/Alpen.ovr"));
    Key(Qt::Key_Down);
    Key(Qt::Key_Tab);
    Key(Qt::Key_Enter);
    EXPECT_EQ(Message(), "Strecke: Küste & Inseln wurde gespeichert.");
    EXPECT_TRUE(IsSaved("Küste & Inseln.ovr"));
    Key(Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(Form);
}

TEST_F(RouteExchangeForms, OffersNothingToSaveUntilARouteIsChosen) {
    Show("another");
    EXPECT_FALSE(Find<QPushButton>("cmdExport").isEnabled());
    Key(Qt::Key_Return);
    EXPECT_EQ(Message(), "");
    ASSERT_TRUE(Form);
    Find<QComboBox>("cmbRoute").setFocus();
    Key(Qt::Key_Down);
    Find<QPushButton>("cmdExport").click();
    EXPECT_TRUE(IsSaved("Alpen.ovr"));
}

TEST_F(RouteExchangeForms, TellsInTheNoticeWhyANameCannotBeAFileAndStays) {
    AddRoute("Nord/Süd", {6.3});
    Show("Nord/Süd");
    Find<QPushButton>("cmdExport").click();
    EXPECT_TRUE(Notices.text().contains("Ungültiger Dateiname (52): Nord/Süd"));
    EXPECT_FALSE(std::filesystem::exists(Folder.Path() / "Route"));
    Find<QPushButton>("cmdExit").click();
    EXPECT_FALSE(Form && Form->isVisible());
}

TEST_F(RouteExchangeForms, TakesAFileThatWasChosenByKeysInTheDialog) {
    Sql("INSERT INTO Waypoints (Name, Lat, Long) VALUES ('P1', 50.3, 6.3)");
    Show("Alpen");
    Key(Qt::Key_Return);
    Message();
    Form->close();
    QTimer::singleShot(0, &Window, [this] {
        auto* dialog = Window.findChild<QFileDialog*>("fileDialog");
        EXPECT_EQ(dialog->selectedNameFilter(), "Ornivane Route (*.ovr)");
        EXPECT_TRUE(dialog->directory().absolutePath().endsWith("/Route"));
        auto* entry = dialog->findChild<QLineEdit*>();
        entry->setFocus();
        QTest::keyClicks(entry, "Alpen.ovr");
        QTest::keyClick(entry, Qt::Key_Return);
        if (dialog->isVisible()) dialog->reject();
    });
    RouteImport(Shared, Shared, Shared.DataConn, Boxes, {}).GetRoute();
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_TRUE(box);
    EXPECT_EQ(box->text(), "Strecke: Alpen wurde hinzugefügt");
}

TEST_F(RouteExchangeForms, AMessageWithThousandsOfNamesStaysOnTheScreenAndGoesAwayWithEnter) {
    std::vector<std::string> names;
    for (int i = 0; i < 10000; ++i) names.push_back("Wegpunkt " + std::to_string(i));
    names.push_back(std::string(255, 'W'));
    Boxes.MessageWithList("Datenunterschied", "Weitere Punkte:", names);
    Boxes.MessageWithList("Datenunterschied", "Weitere Punkte:", names); // the same stands already
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_TRUE(box && QTest::qWaitFor([&] { return box->isActiveWindow(); }));
    EXPECT_LE(box->height(), 600);
    EXPECT_LE(box->width(), 1024);
    auto* list = box->findChild<QPlainTextEdit*>("list");
    ASSERT_TRUE(list);
    EXPECT_EQ(list->blockCount(), 10001);
    const QWidget* button = box->button(QMessageBox::Ok);
    EXPECT_TRUE(list->isVisible());
    EXPECT_LT(list->geometry().bottom(), button->mapTo(box, QPoint()).y());
    Key(Qt::Key_Return);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

} // namespace
} // namespace ornivane
