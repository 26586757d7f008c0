#include <QListWidget>
#include <set>

#include "screens/FormFixture.h"
#include "tracks/frmTrack.h"

namespace ornivane {
namespace {

class TrackFormTest : public FormTest {
protected:
    TrackFormTest() {
        OpenTracks();
        Shared.TrackConn.Execute("INSERT INTO List VALUES (3, 'one'), (5, 'two'), (9, 'three')");
        Shared.TrackConn.Execute("INSERT INTO Track VALUES (3, 1, 50, 7, 300, 'D', 'T'), "
                                 "(5, 1, 51, 7, 300, 'D', 'T'), (5, 2, 52, 7, 300, 'D', 'T')");
        Shared.EnglishUI = 1;
        Front = Form = new frmTrack(Shared, Guard, Boxes, &Window);
        Form->Start();
    }
    void ClickRow(const char* list, int row) { ornivane::ClickRow(Find<QListWidget>(list), row); }
    // The chosen tracks and what is told of them.
    void ExpectChosen(const std::vector<QString>& tracks, const char* points) {
        std::vector<QString> chosen;
        for (const QListWidgetItem* item : Find<QListWidget>("listTrack").selectedItems())
            chosen.push_back(item->text());
        EXPECT_EQ(chosen, tracks);
        EXPECT_EQ(Find<QLabel>("lblRecords").text(), points);
    }

    QWidget Window;
    ScriptedDialogs Boxes;
    frmTrack* Form = nullptr;
};

TEST_F(TrackFormTest, TracksAreChosenByMouseAndByKeys) {
    ExpectChosen({}, "0 trackpoints");
    EXPECT_FALSE(Find<QPushButton>("cmdTrack").isEnabled());
    ClickRow("listTrack", 1);
    ExpectChosen({"two"}, "2 trackpoints");
    EXPECT_EQ(Find<QTableView>("gridTracks").model()->rowCount(), 2);
    EXPECT_EQ(Find<QTableView>("gridTracks").model()->index(1, 2).data().toString(), "52");
    auto& list = Find<QListWidget>("listTrack");
    QTest::keyClick(&list, Qt::Key_Up);
    ExpectChosen({"two"}, "2 trackpoints"); // moving chooses nothing
    QTest::keyClick(&list, Qt::Key_Space);
    ExpectChosen({"one", "two"}, "3 trackpoints");
    ClickRow("listIndex", 2);
    EXPECT_EQ(list.currentRow(), 2);
    ExpectChosen({"one", "two"}, "3 trackpoints");
    EXPECT_TRUE(Find<QListWidget>("listIndex").item(2)->isSelected());
    ClickRow("listTrack", 1);
    ExpectChosen({"one"}, "1 trackpoint");
    // The row that was reached by keys is still the one after a question.
    QTest::keyClick(&list, Qt::Key_Down);
    Click("cmdDelete");
    QTest::keyClick(&list, Qt::Key_Space);
    ExpectChosen({"one", "three"}, "1 trackpoint");
    QTest::keyClick(&list, Qt::Key_A, Qt::ControlModifier);
    ExpectChosen({"one", "two", "three"}, "3 trackpoints");
    ClickRow("listTrack", 1);
    ClickRow("listTrack", 2);
    ExpectChosen({"one"}, "1 trackpoint");
    Boxes.Answer = true;
    Click("cmdDelete");
    ExpectChosen({}, "0 trackpoints");
    EXPECT_EQ(list.count(), 2);
    EXPECT_EQ(Find<QListWidget>("listIndex").item(0)->text(), "5");
    QTest::keyClick(Form, Qt::Key_Escape);
    EXPECT_FALSE(Form->isVisible());
}

TEST_F(TrackFormTest, EveryControlIsReachedByTabAndExplained) {
    ClickRow("listTrack", 1);
    std::set<std::string> reached;
    for (int i = 0; i < 12; ++i) {
        reached.insert(Form->focusWidget()->objectName().toStdString());
        QTest::keyClick(Form->focusWidget(), Qt::Key_Tab);
    }
    for (const char* name :
         {"listTrack", "gridTracks", "cmdDelete", "cmdTrack", "cmdWpt", "cmdWptTrack", "cmdExit"}) {
        EXPECT_TRUE(reached.contains(name)) << name;
        EXPECT_FALSE(Find<QWidget>(name).toolTip().isEmpty()) << name;
    }
    EXPECT_EQ(Find<QTableView>("gridTracks").model()->headerData(3, Qt::Horizontal).toString(),
              "  Longitude");
}

// The dialog hides the window's notice bar and takes its clicks.
TEST_F(TrackFormTest, AnErrorIsToldOverTheDialog) {
    Shared.TrackConn.Execute(
        "CREATE TRIGGER refuse BEFORE DELETE ON List BEGIN SELECT RAISE(ABORT, 'refused'); END");
    ClickRow("listTrack", 1);
    Boxes.Answer = true;
    Click("cmdDelete");
    auto& notice = Find<QLabel>("noticeBar");
    EXPECT_TRUE(notice.isVisible() && Form->rect().contains(notice.geometry()));
    EXPECT_EQ(notice.text(), Notices.text());
    Notices.Show(
        "A second one, which does not hide the first and is long enough for more than one line in this "
        "dialog, because it tells what happened, where it happened, why it happened and what can be "
        "done about it.");
    QTest::qWait(0);
    EXPECT_TRUE(notice.text().contains("refused")) << notice.text().toStdString();
    EXPECT_GE(notice.height(), notice.heightForWidth(notice.width()));
    for (const QPushButton* button : Form->findChildren<QPushButton*>()) {
        const QRect onForm(button->mapTo(Form, QPoint()), button->size());
        EXPECT_FALSE(button->isVisible() && onForm.intersects(notice.geometry()))
            << button->objectName().toStdString();
    }
    QTest::mouseClick(&notice, Qt::LeftButton);
    EXPECT_FALSE(notice.isVisible() || Notices.isVisible());
}

TEST_F(TrackFormTest, TheOfferToUndoStandsBesideTheButtons) {
    Window.resize(1024, 700);
    Boxes.Answer = true;
    ClickRow("listTrack", 0);
    Click("cmdDelete");
    QCoreApplication::processEvents();
    auto* bar = Form->findChild<QtNotice*>("noticeBar");
    ASSERT_TRUE(bar && bar->isVisible());
    EXPECT_EQ(bar->text(), "Track 3 deleted");
    EXPECT_FALSE(Notices.isVisible());
    const QRect place(bar->mapTo(Form, QPoint()), bar->size());
    for (const char* name : {"cmdDelete", "cmdExit", "cmdTrack"}) {
        auto* button = Form->findChild<QWidget*>(name);
        EXPECT_FALSE(place.intersects(QRect(button->mapTo(Form, QPoint()), button->size()))) << name;
    }
    auto* undo = bar->findChild<QPushButton*>("cmdNotice");
    Notices.Offer("Category See deleted", "undo", [] {}); // of the window behind, as the error is
    Notices.Show("An error");                             // which gives back both offers
    EXPECT_EQ(bar->text(), "An error");
    EXPECT_FALSE(undo->isVisible());
    QTest::mouseClick(bar, Qt::LeftButton, {}, {10, 10});
    EXPECT_EQ(bar->text(), "Track 3 deleted");
    ASSERT_TRUE(bar->isVisible() && undo->isVisible());
    QTest::mouseClick(undo, Qt::LeftButton);
    EXPECT_FALSE(bar->isVisible());
    EXPECT_EQ(Text("lblRecords"), "1 trackpoint");
    Click("cmdDelete");
    QTest::mouseClick(bar, Qt::LeftButton, {}, {10, 10}); // away with this offer alone
    EXPECT_FALSE(bar->isVisible());
    EXPECT_EQ(Notices.text(), "Category See deleted");
    Form->close();
}

} // namespace
} // namespace ornivane
