#include "screens/PlanningPanelsFixture.h"

#include <QDialog>
#include <QMainWindow>
#include <QVBoxLayout>

namespace ornivane {
namespace {

// The planning screen over the notice, as the main window has them.
class UndoNoticeTest : public PlanningPanelsTest {
protected:
    UndoNoticeTest() {
        auto* centre = new QWidget;
        auto* column = new QVBoxLayout(centre);
        column->setContentsMargins(0, 0, 0, 0);
        column->setSpacing(0);
        column->addWidget(&Window, 1);
        Notices.StandIn(*centre);
        Frame.setCentralWidget(centre);
        Frame.resize(1024, 640);
        Frame.show();
        QApplication::setActiveWindow(&Frame);
        Left->FocusEntry();
    }
    ~UndoNoticeTest() override {
        for (QWidget* widget : std::initializer_list<QWidget*>{&Window, &Notices}) {
            widget->hide();
            widget->setParent(nullptr); // members of this test, not of the frame
        }
    }
    QPushButton& UndoButton() { return *Notices.findChild<QPushButton*>("cmdNotice"); }
    static void DoubleClick(QWidget& button) {
        QTest::mouseClick(&button, Qt::LeftButton);
        for (const auto type : {QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease})
            SendMouse(button, type, button.mapToGlobal(QPointF(button.rect().center())));
    }
    void Settle() { QCoreApplication::processEvents(); }
    std::string Offer() {
        Settle();
        if (!Notices.isVisible()) return "";
        return Notices.text().toStdString() + (UndoButton().isVisible() ? " +" : "");
    }

    QMainWindow Frame;
};

TEST_F(UndoNoticeTest, ADeletionIsTakenBackByMouseByKeysAndByItsLetter) {
    const auto remove = [this] {
        Click("cmdDelete");
        EXPECT_EQ(Offer(), "Waypoint aachen deleted +");
        EXPECT_EQ(Seen(), "Bonn 1 / 3");
    };
    remove();
    EXPECT_EQ(Focus(), "tWaypoint1"); // the notice does not take the keys
    ClickOn(UndoButton());
    EXPECT_EQ(Offer(), "");
    EXPECT_EQ(Seen(), "aachen 1 / 4");
    EXPECT_EQ(Focus(), "tWaypoint1");
    remove();
    for (int i = 0; i < 40 && Focus() != "cmdNotice"; ++i) Key(Qt::Key_Tab);
    const QPointer<QWidget> before = QApplication::focusWidget();
    Key(Qt::Key_Return);
    EXPECT_EQ(Seen(), "aachen 1 / 4");
    EXPECT_TRUE(QApplication::focusWidget() && QApplication::focusWidget()->isVisible());
    EXPECT_NE(QApplication::focusWidget(), before);
    remove();
    QTest::keyClick(&Frame, Qt::Key_U, Qt::AltModifier);
    QTest::qWait(150); // a button that a letter presses goes down and up again
    EXPECT_EQ(Offer(), "");
    EXPECT_EQ(Seen(), "aachen 1 / 4");
}

TEST_F(UndoNoticeTest, ItLeavesTheFieldsInSightAndIsLargeEnoughForAFinger) {
    Click("cmdDelete");
    Settle();
    EXPECT_EQ(Frame.size(), QSize(1024, 640));
    EXPECT_EQ(Notices.mapTo(&Frame, QPoint(0, Notices.height())).y(), Frame.height());
    EXPECT_GE(UndoButton().height(), 40);
    EXPECT_GE(UndoButton().width(), 120);
    EXPECT_TRUE(Notices.rect().contains(UndoButton().geometry()));
    EXPECT_GE(UndoButton().x(), Notices.contentsRect().right()) << "the text keeps clear of it";
    const QRect bar(Notices.mapTo(&Frame, QPoint()), Notices.size());
    for (const char* name : {"tWaypoint1", "tWaypoint3", "cmdNew", "cmdChange", "cmdDelete",
                             "cmdDeleteWaypoint", "lblRouteDistanz", "cmbMaps", "gridWaypoints"}) {
        auto& widget = Find<QWidget>(name);
        const QRect place(widget.mapTo(&Frame, QPoint()), widget.size());
        EXPECT_FALSE(bar.intersects(place)) << name;
        EXPECT_TRUE(Frame.rect().contains(place)) << name;
    }
}

TEST_F(UndoNoticeTest, UnderOtherTextsItsLinesAndItsButtonAreWhole) {
    for (const char* first : {"One: ", "Two: "})
        Notices.Show(first + std::string(30, 'w') +
                     " what happened and why, and what can be done about it. " + std::string(39, 'x') +
                     " and a few more words until the line is full, and over");
    Click("cmdDelete");
    Settle();
    EXPECT_EQ(Notices.text().count(QChar('\n')), 2);
    EXPECT_TRUE(Notices.text().endsWith("Waypoint aachen deleted"));
    const QRect lines = Notices.fontMetrics().boundingRect(
        0, 0, Notices.contentsRect().width() - 2 * Notices.margin(), 10000, Qt::TextWordWrap, Notices.text());
    EXPECT_GE(Notices.contentsRect().height(), lines.height());
    EXPECT_TRUE(Notices.rect().contains(UndoButton().geometry()));
    EXPECT_GE(UndoButton().x(), Notices.contentsRect().right());
    EXPECT_GE(Window.height(), Window.minimumSizeHint().height());
    ClickOn(UndoButton());
    Settle();
    EXPECT_EQ(Notices.text().count(QChar('\n')), 1); // the texts before it go on standing
    EXPECT_EQ(Seen(), "aachen 1 / 4");
}

TEST_F(UndoNoticeTest, AnErrorStandsOverTheOfferAndGivesItBack) {
    Click("cmdDelete");
    Notices.Show("An error");
    EXPECT_EQ(Offer(), "An error");
    QTest::mouseClick(&Notices, Qt::LeftButton, {}, {10, 10});
    EXPECT_EQ(Offer(), "Waypoint aachen deleted +");
    Click("cmdDelete");
    EXPECT_EQ(Offer(), "Waypoint Bonn deleted +"); // the next one takes its place
    Sql("CREATE TRIGGER Full BEFORE INSERT ON Waypoints BEGIN SELECT RAISE(ABORT, 'full'); END");
    ClickOn(UndoButton());
    EXPECT_NE(Offer().find("not undone"), std::string::npos) << Offer();
    EXPECT_EQ(Seen(), "Cork 1 / 2");
    Sql("DROP TRIGGER Full");
    ClickOn(UndoButton());
    EXPECT_EQ(Offer(), "");
    EXPECT_EQ(Seen(), "Bonn 1 / 3");
    Click("cmdDelete");
    Notices.Show("An error");
    Window.Form_Deactivate();
    EXPECT_EQ(Offer(), "An error"); // only the offer goes with the screen
    QTest::mouseClick(&Notices, Qt::LeftButton, {}, {10, 10});
    EXPECT_EQ(Offer(), "");
}

// A hand that clicks twice by habit does once what can be taken back once.
TEST_F(UndoNoticeTest, ADoubleClickDeletesAndChangesOnce) {
    AddRoute("A", {6.3, 7.0, 7.3});
    Route.RoutesSet.Requery();
    const auto store = [this] {
        return std::vector{Rows("SELECT * FROM Waypoints ORDER BY PointID"),
                           Rows("SELECT * FROM GpsPoints ORDER BY Nummer")};
    };
    const auto before = store();
    for (const char* name : {"cmdDelete", "cmdDeleteWaypoint", "cmdChange"}) {
        Entry.tWaypoint[2] = "-47.5"; // shows without its sign once it is stored
        DoubleClick(Find<QWidget>(name));
        EXPECT_NE(store(), before) << name;
        ClickOn(UndoButton());
        EXPECT_EQ(store(), before) << name;
    }
    // What is written a second time as it stands there changes nothing, and leaves what there is to undo.
    Entry.tWaypoint[1] = "Other";
    Click("cmdChange");
    Click("cmdChange");
    EXPECT_EQ(Offer(), "Waypoint aachen changed +");
    ClickOn(UndoButton());
    EXPECT_EQ(store(), before);
}

TEST_F(UndoNoticeTest, TheChangeButtonNamesTheRowItWritesAndKeepsItsPlace) {
    auto& button = Find<QPushButton>("cmdChange");
    const QRect place = button.geometry();
    EXPECT_EQ(button.text(), " Change Waypoint ");
    const QImage plain = button.grab().toImage();
    auto& list = Find<QComboBox>("cmbKat");
    const auto choose = [&](int entry) {
        list.setCurrentIndex(entry);
        emit list.activated(entry);
        Settle();
    };
    choose(2);
    EXPECT_EQ(button.text(), " Change Waypoint: Cork ");
    EXPECT_EQ(Text("tWaypoint1"), "aachen");
    EXPECT_NE(button.grab().toImage(), plain);
    Shared.EnglishUI = 0;
    Window.ApplyLanguage();
    EXPECT_EQ(button.text(), " Wegpunkt ändern: Cork ");
    choose(0);
    EXPECT_EQ(button.text(), " Wegpunkt ändern ");
    Sql("UPDATE Waypoints SET Name = 'Tom & " + std::string(300, 'W') + "' WHERE PointID = 4");
    choose(2);
    EXPECT_EQ(button.geometry(), place);
    EXPECT_LT(button.text().size(), 100);
    EXPECT_TRUE(button.text().startsWith(" Wegpunkt ändern: Tom && WWW"));
}

// A text of the window comes over the dialog's own offer, and both are seen.
TEST(UndoNoticeOfTracks, ATextOfTheWindowGivesTheOfferBack) {
    QWidget window;
    window.setLayout(new QVBoxLayout);
    auto* below = new QtNotice;
    below->StandIn(window);
    window.show();
    QDialog dialog(&window);
    auto* bar = new QtNotice(&dialog);
    (new QVBoxLayout(&dialog))->addWidget(bar);
    dialog.open();
    bool pressed = false;
    bar->Offer("Track 3 deleted", "undo", [&] { pressed = true; });
    below->Show("The track is not stored");
    EXPECT_EQ(bar->text(), "The track is not stored");
    QTest::mouseClick(bar, Qt::LeftButton, {}, {10, 10});
    EXPECT_EQ(bar->text(), "Track 3 deleted");
    ASSERT_TRUE(bar->isVisible());
    below->Show("The track is not stored");
    bar->Offer("Track 5 deleted", "undo", [&] { pressed = true; });
    EXPECT_EQ(bar->text().toStdString(), "• The track is not stored\n• Track 5 deleted");
    QTest::mouseClick(bar->findChild<QPushButton*>("cmdNotice"), Qt::LeftButton);
    EXPECT_TRUE(pressed);
}

} // namespace
} // namespace ornivane
