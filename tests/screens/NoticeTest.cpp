#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>

#include "screens/FlyingFormFixture.h"
#include "screens/WindowAround.h"

namespace ornivane {
namespace {

const std::string Long = [] {
    std::string text;
    for (int i = 0; i < 12; ++i) text += "What happened, where and why, and what can be done about it. ";
    return text + std::string(200, 'x');
}();

// The lines of the text, laid out as wide as the notice is.
int HeightOfLines(const QLabel& notice) {
    const int width = notice.contentsRect().width() - 2 * notice.margin();
    return notice.fontMetrics().boundingRect(0, 0, width, 10000, Qt::TextWordWrap, notice.text()).height();
}

class NoticeTest : public testing::Test {
protected:
    void SetUp() override {
        Window.setLayout(new QVBoxLayout);
        Bar->StandIn(Window);
    }
    QWidget Window;
    QtNotice* Bar = new QtNotice; // the window's
};

TEST_F(NoticeTest, GrowsWithADialogAndNeverLiesOnItsButtons) {
    Window.resize(1024, 700);
    Window.show();
    QDialog dialog(&Window);
    auto* rows = new QGridLayout(&dialog);
    rows->addWidget(new QLabel("A name"), 0, 0);
    rows->addWidget(new QLineEdit, 0, 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    rows->addWidget(buttons, 1, 0, 1, 2);
    dialog.open();
    QTest::qWait(0);
    const QSize before = dialog.size();
    Bar->Show(Long);
    QTest::qWait(0);
    auto* over = dialog.findChild<QtNotice*>("noticeBar");
    ASSERT_TRUE(over && over->isVisible());
    const auto isWhole = [&] {
        for (QPushButton* button : dialog.findChildren<QPushButton*>()) {
            if (button->isHidden()) continue; // the notice has one of its own
            const QRect place(button->mapTo(&dialog, QPoint()), button->size());
            EXPECT_FALSE(place.intersects(over->geometry())) << button->text().toStdString();
            EXPECT_GE(place.height(), button->minimumSizeHint().height());
        }
        EXPECT_GE(over->contentsRect().height(), HeightOfLines(*over));
        EXPECT_TRUE(dialog.rect().contains(over->geometry()));
    };
    isWhole();
    Bar->Show("Another one.");
    QTest::qWait(0);
    EXPECT_TRUE(over->text().contains("Another one.") && over->text().contains("What happened"));
    isWhole();
    dialog.resize(before.width() + 300, dialog.height());
    QTest::qWait(0);
    isWhole();
    dialog.resize(before.width(), dialog.height());
    QTest::qWait(0);
    QTest::mouseClick(over, Qt::LeftButton);
    QTest::qWait(0);
    EXPECT_EQ(dialog.size(), before);
    EXPECT_FALSE(Bar->isVisible());
}

// Rather an older text waits in the window than that a button is out of reach.
TEST_F(NoticeTest, InADialogAsHighAsTheScreenTheNewestTextComesFirst) {
    Window.show();
    QDialog dialog(&Window);
    auto* rows = new QVBoxLayout(&dialog);
    auto* button = new QPushButton("OK");
    auto* filled = new QWidget;
    filled->setMinimumSize(600, Window.screen()->availableGeometry().height() - 260);
    rows->addWidget(filled);
    rows->addWidget(button);
    dialog.open();
    for (const char* first : {"1", "2", "3"}) {
        Bar->Show(first + Long);
        QTest::qWait(0);
        auto* over = dialog.findChild<QtNotice*>("noticeBar");
        EXPECT_TRUE(over->text().contains(first + QString("What happened")));
        EXPECT_GE(over->contentsRect().height(), HeightOfLines(*over));
        const QRect place(button->mapTo(&dialog, QPoint()), button->size());
        EXPECT_FALSE(place.intersects(over->geometry())) << first;
    }
    EXPECT_TRUE(Bar->text().contains("2What happened"));
}

TEST_F(NoticeTest, ABoxOverADialogDoesNotKeepTheNoticeFromTheDialog) {
    Window.show();
    QDialog dialog(&Window);
    (new QVBoxLayout(&dialog))->addWidget(new QPushButton("OK"));
    dialog.open();
    QMessageBox box(&Window);
    box.open();
    Bar->Show("A text");
    auto* over = dialog.findChild<QtNotice*>("noticeBar");
    EXPECT_TRUE(over && over->isVisible());
    EXPECT_EQ(box.findChild<QtNotice*>("noticeBar"), nullptr);
}

TEST_F(NoticeTest, SeveralTextsStandTogetherUntilAClickAndNoneTwice) {
    Window.show();
    for (const char* text : {"One", "Two", "One"}) Bar->Show(text);
    EXPECT_EQ(Bar->text().toStdString(), "• Two\n• One");
    for (const char* text : {"Three", "Four"}) Bar->Show(text);
    EXPECT_EQ(Bar->text().toStdString(), "• One\n• Three\n• Four");
    QTest::mouseClick(Bar, Qt::LeftButton);
    EXPECT_FALSE(Bar->isVisible());
    Bar->Show("Five");
    EXPECT_EQ(Bar->text(), "Five");
}

// At the smallest size of the window, below the toolbar.
TEST_F(FlyingFormTest, TheNoticeShowsAllItsLinesAndTheFormGivesWayNoFurtherThanItCan) {
    auto* bar = new QtNotice;
    QWidget* window = WindowAround(Form, *bar, 646);
    Form.Form_Activate();
    const QSize whole = Form.size();
    for (const std::string& text : {std::string("Short."), Long, Long + "!", Long + "?"}) {
        bar->Show(text);
        QTest::qWait(0);
        EXPECT_GE(bar->contentsRect().height(), HeightOfLines(*bar));
        EXPECT_GE(bar->height(), 44);
        EXPECT_EQ(bar->geometry().bottom(), window->rect().bottom());
        EXPECT_GE(Form.height(), Form.minimumSizeHint().height());
    }
    QTest::mouseClick(bar, Qt::LeftButton);
    QTest::qWait(0);
    EXPECT_EQ(Form.size(), whole);
    Form.setParent(nullptr);
    delete window;
}

// What is told in the middle of a redraw makes the map lower, but not before the redraw has ended.
TEST_F(FlyingFormTest, ANoticeLeavesTheRedrawThatItComesFromWhole) {
    QWidget* window = WindowAround(Form, Notices, 700);
    Form.Form_Activate();
    FlyingScreen& screen = Form.Logic();
    Fix();
    screen.SetFlag(&DisplayFlags::ShowRoute, true);
    ASSERT_FALSE(Notices.isVisibleTo(window));
    const auto picture = [this] { return Find<SurfaceWidget>("picMap").Surface().Image().copy(); };
    const QImage before = picture();
    Sql("UPDATE GpsPoints SET Lat = 'north' WHERE Nummer = 2");
    screen.UpdateMap();
    EXPECT_TRUE(Notices.isVisibleTo(window));
    const QImage told = picture();
    screen.UpdateMap();
    EXPECT_EQ(told.size(), before.size());
    EXPECT_EQ(told, picture());
    QTest::qWait(0);
    const QImage lower = picture();
    EXPECT_LT(lower.height(), before.height());
    screen.UpdateMap();
    EXPECT_EQ(lower, picture());
    Form.setParent(nullptr);
    Notices.setParent(nullptr);
    delete window;
}

} // namespace
} // namespace ornivane
