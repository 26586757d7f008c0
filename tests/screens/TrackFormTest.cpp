#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <set>

#include <gtest/gtest.h>

#include "platform/qt/Events.h"
#include "platform/qt/QtNotice.h"
#include "support/FlightFolder.h"
#include "support/ScriptedDialogs.h"
#include "tracks/frmTrack.h"

namespace ornivane {
namespace {

class TrackFormTest : public testing::Test, protected FlightFolder {
protected:
    TrackFormTest() {
        CreateStore(Folder.Path() / "track.ovd", StoreKind::Track);
        Connection store;
        store.Open(Folder.Path() / "track.ovd", Connection::Mode::ReadWrite);
        store.Execute("INSERT INTO List VALUES (3, 'one'), (5, 'two'), (9, 'three')");
        store.Execute("INSERT INTO Track VALUES (3, 1, 50, 7, 300, 'D', 'T'), (5, 1, 51, 7, 300, 'D', 'T'), "
                      "(5, 2, 52, 7, 300, 'D', 'T')");
        Shared.EnglishUI = 1;
        Form = new frmTrack(Shared, Guard, Boxes, &Window);
        Form->Start();
    }
    template <typename Widget>
    Widget& Find(const char* name) {
        auto* widget = Form->findChild<Widget*>(name);
        if (!widget) throw std::runtime_error(std::string("no widget ") + name);
        return *widget;
    }
    void ClickRow(const char* list, int row) {
        auto& view = Find<QListWidget>(list);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualItemRect(view.item(row)).center());
    }
    // The chosen tracks and what is told of them.
    void ExpectChosen(const std::vector<QString>& tracks, const char* points) {
        std::vector<QString> chosen;
        for (const QListWidgetItem* item : Find<QListWidget>("listTrack").selectedItems())
            chosen.push_back(item->text());
        EXPECT_EQ(chosen, tracks);
        EXPECT_EQ(Find<QLabel>("lblRecords").text(), points);
    }

    QWidget Window;
    QtNotice Notices;
    ScriptedDialogs Boxes;
    EventGuard Guard{Notices, Shared};
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
    QTest::mouseClick(&Find<QPushButton>("cmdDelete"), Qt::LeftButton);
    QTest::keyClick(&list, Qt::Key_Space);
    ExpectChosen({"one", "three"}, "1 trackpoint");
    QTest::keyClick(&list, Qt::Key_A, Qt::ControlModifier);
    ExpectChosen({"one", "two", "three"}, "3 trackpoints");
    ClickRow("listTrack", 1);
    ClickRow("listTrack", 2);
    ExpectChosen({"one"}, "1 trackpoint");
    Boxes.Answer = true;
    QTest::mouseClick(&Find<QPushButton>("cmdDelete"), Qt::LeftButton);
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
    Connection store;
    store.Open(Folder.Path() / "track.ovd", Connection::Mode::ReadWrite);
    store.Execute("CREATE TRIGGER refuse BEFORE DELETE ON List BEGIN SELECT RAISE(ABORT, 'refused'); END");
    ClickRow("listTrack", 1);
    Boxes.Answer = true;
    QTest::mouseClick(&Find<QPushButton>("cmdDelete"), Qt::LeftButton);
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

} // namespace
} // namespace ornivane
