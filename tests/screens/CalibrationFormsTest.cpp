#include <QListWidget>
#include <QTimer>

#include "calibration/frmCalRect.h"
#include "calibration/frmCalibrate.h"
#include "geo/NavigationMaths.h"
#include "screens/FormFixture.h"

#include <QListWidget>
#include <QTimer>

namespace ornivane {
namespace {

// A chart of 2000 x 1000 pixels over 6 to 8° E and 50 to 51° N that the store does not know yet.
class CalibrationFormsTest : public FormTest {
protected:
    CalibrationFormsTest() {
        QImage chart = WhiteChart();
        chart.setPixelColor(500, 900, Qt::red);
        WriteCharts(chart, {"alpha.jpg", "zulu.jpg", "scan.jpg", "dot.bmp"});
        AddWaypoint("Hill", 50.564, 7.36);
        AddWaypoint("Hilltop", 1, 2);
        Shared.EnglishUI = 1;
        Form = std::make_unique<frmCalibrate>(Shared, Guard, Dialogs, Charts);
        Front = &Show(*Form);
    }
    std::string Edge(int index) { return Text(("tKarten" + std::to_string(index)).c_str()); }
    double Degrees(int edge) { // of latitudes and longitudes alike
        return ToDecimalDegrees(StoredLatitude(std::stod(Edge(edge)))).Degrees();
    }
    frmCalRect& OpenCalibration(const char* chart) {
        auto& list = Find<QListWidget>("listKarten");
        list.setCurrentItem(list.findItems(chart, Qt::MatchExactly).first());
        Click("cmdCalibrate");
        return Find<frmCalRect>("frmCalRect");
    }
    // Answers the next box and keeps what it said.
    void AnswerBox() {
        QTimer::singleShot(0, Form.get(), [this] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box) return AnswerBox();
            Said = (box->windowTitle() + "|" + box->text() + "|" + box->informativeText()).toStdString();
            QTest::keyClick(box, Qt::Key_Return);
        });
    }
    // By keys alone: the cross-hair to a pixel of the image.
    void Steer(frmCalRect& form, double x, double y) {
        auto& map = In<SurfaceWidget>(form, "picMap");
        for (int step = 0; step < 4000; ++step) {
            const auto at = [&](const char* field) { return In<QLineEdit>(form, field).text().toDouble(); };
            const double dx = x - at("tx"), dy = y - at("ty");
            const double pixel = static_cast<double>(form.Logic().View.SW) / map.width();
            if (std::abs(dx) < pixel && std::abs(dy) < pixel) return;
            const bool across = std::abs(dx) >= std::abs(dy);
            const double left = across ? dx : dy;
            const Qt::Key key =
                across ? (dx > 0 ? Qt::Key_Right : Qt::Key_Left) : (dy > 0 ? Qt::Key_Down : Qt::Key_Up);
            QTest::keyClick(&map, key, std::abs(left) > 20 * pixel ? Qt::ControlModifier : Qt::ShiftModifier);
        }
        ADD_FAILURE() << "never got there";
    }

    QtDialogs Dialogs;
    std::unique_ptr<frmCalibrate> Form;
    std::string Said;
};

TEST_F(CalibrationFormsTest, AChartIsCalibratedByTheKeyboardAlone) {
    frmCalRect& form = OpenCalibration("scan.jpg");
    auto& map = In<SurfaceWidget>(form, "picMap");
    QTest::keyClick(&map, Qt::Key_PageDown);
    EXPECT_EQ(form.Logic().SlideMap, 5);
    for (int i = 0; i < 20; ++i) QTest::keyClick(&map, Qt::Key_PageDown);
    Steer(form, 500, 900);
    QTest::keyClick(&map, Qt::Key_Return);
    QTest::keyClick(&map, '5');
    auto& lat = In<QLineEdit>(form, "tLat1");
    QTest::keyClicks(&lat, "0,06");
    QTest::keyClick(&lat, Qt::Key_Return);
    auto& longitude = In<QLineEdit>(form, "tLong1");
    EXPECT_TRUE(form.focusWidget() == &longitude);
    QTest::keyClicks(&longitude, "6.3");
    QTest::keyClick(&longitude, Qt::Key_Return);
    EXPECT_FALSE(lat.isEnabled());
    EXPECT_TRUE(form.focusWidget() == &map);

    Steer(form, 1600, 60);
    QTest::keyClick(&map, Qt::Key_Return);
    QTest::keyClick(&map, 'h');
    auto& find = In<QLineEdit>(form, "tQuickfind2");
    QTest::keyClick(&find, Qt::Key_Down);
    EXPECT_EQ(In<QLineEdit>(form, "tLong2").text(), "2");
    QTest::keyClick(&find, Qt::Key_Up);
    AnswerBox();
    QTest::keyClick(&find, Qt::Key_Return);
    EXPECT_EQ(Said.rfind("Map calibrated|Map calibrated|One pixel: ", 0), 0u) << Said;
    QTest::qWait(1); // the form deletes itself
    // To two pixels: zoomed out, a step of the cross-hair is three of them.
    for (const auto& [edge, degrees] : {std::pair{0, 50}, {1, 51}, {2, 6}, {3, 8}})
        EXPECT_NEAR(Degrees(edge), degrees, 0.005) << edge;
    EXPECT_FALSE(Form->findChild<frmCalRect*>());
}

// Also with the picture scrolled and at the strongest zoom: the one red pixel is found where it is shown.
TEST_F(CalibrationFormsTest, AClickHitsThePixelUnderThePointerAndADragIsNone) {
    frmCalRect& form = OpenCalibration("dot.bmp");
    auto& map = In<SurfaceWidget>(form, "picMap");
    form.Logic().View.SX = 460;
    form.Logic().View.SY = 880;
    form.Logic().SlideMap_Scroll(SlideMin);
    ASSERT_TRUE(BecomesSharp(map));
    const QImage shown = map.grab().toImage();
    QPoint red(-1, -1);
    for (int y = 0; y < shown.height() && red.x() < 0; ++y)
        for (int x = 0; x < shown.width() && red.x() < 0; ++x)
            if (const QColor c = shown.pixelColor(x, y); c.red() > 150 && c.green() < 110) red = {x, y};
    ASSERT_GE(red.x(), 0);
    QTest::mouseClick(&map, Qt::LeftButton, {}, red + QPoint(3, 3));
    EXPECT_NEAR(form.Logic().ClickX, 500.5, 0.5);
    EXPECT_NEAR(form.Logic().ClickY, 900.5, 0.5);
    QTest::mousePress(&map, Qt::LeftButton, {}, {50, 50});
    QTest::mouseMove(&map, {90, 50});
    QMouseEvent drag(QEvent::MouseMove, QPointF(90, 50), map.mapToGlobal(QPointF(90, 50)), Qt::NoButton,
                     Qt::LeftButton, {});
    QApplication::sendEvent(&map, &drag);
    QTest::mouseRelease(&map, Qt::LeftButton, {}, {90, 50});
    EXPECT_NEAR(form.Logic().ClickX, 500.5, 0.5);
    QTest::keyClick(&map, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(CalibrationFormsTest, AnEscapeThatIsHeldLeavesTheFieldButNotTheForm) {
    frmCalRect& form = OpenCalibration("scan.jpg");
    auto& map = In<SurfaceWidget>(form, "picMap");
    QTest::mouseClick(&map, Qt::LeftButton, {}, {100, 100});
    QTest::keyClick(&map, '5');
    QTest::keyPress(form.focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(form.focusWidget(), &map);
    SendKey(map, QEvent::KeyPress, Qt::Key_Escape, true);
    EXPECT_TRUE(form.isVisible());
    QTest::keyRelease(&map, Qt::Key_Escape);
    QTest::keyClick(&map, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(CalibrationFormsTest, TheCatalogueIsEditedAndTickedByKeyboard) {
    auto& list = Find<QListWidget>("listKarten");
    EXPECT_EQ(list.count(), 4);
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(list.currentItem()->text(), "scan.jpg");
    const char* texts[] = {"50", "51", "6", "8"};
    for (int i = 0; i < 4; ++i) {
        auto& field = Find<QLineEdit>(("tKarten" + std::to_string(i)).c_str());
        EXPECT_TRUE(i == 0 || Form->focusWidget() == &field);
        field.setFocus();
        QTest::keyClicks(&field, texts[i]);
        QTest::keyClick(&field, Qt::Key_Return);
    }
    QTest::keyClick(Form->focusWidget(), Qt::Key_Space);
    EXPECT_EQ(Form->Logic().ActiveMapsSet.RecordCount(), 2);
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Space);
    EXPECT_EQ(Form->Logic().ActiveMapsSet.RecordCount(), 3);
    EXPECT_EQ(list.currentItem()->checkState(), Qt::Checked);
    auto& field = Find<QLineEdit>("tKarten0");
    QTest::keyClicks(&field, "9");
    QTest::keyClick(&field, Qt::Key_Escape);
    EXPECT_EQ(field.text(), "50");
}

// By the mouse, as a hand that is unsure does it.
TEST_F(CalibrationFormsTest, AClickOnTheSelectedMapShowsItAgain) {
    auto& list = Find<QListWidget>("listKarten");
    const auto click = [&list](const char* chart, int x = 120) {
        const QRect row = list.visualItemRect(list.findItems(chart, Qt::MatchExactly).first());
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, {x, row.center().y()});
    };
    click("alpha.jpg");
    QTest::keyClicks(&Find<QLineEdit>("tKarten2"), "9");
    EXPECT_EQ(Edge(2), "69");
    Form->Logic().cmbLatLong[2] = Hemisphere::SouthOrWest;
    click("alpha.jpg");
    EXPECT_EQ(Edge(2), "6");
    EXPECT_EQ(Find<QComboBox>("cmbLatLong2").currentIndex(), 0);
    EXPECT_EQ(Form->Logic().EdgeStates[2], EdgeState::Stored);
    for (const char* chart : {"zulu.jpg", "alpha.jpg", "alpha.jpg", "zulu.jpg"}) click(chart);
    EXPECT_EQ(Edge(0), "60");
    // A file that turned into something else is told once, and so it is when its tick is clicked.
    WriteFileAtomically(Folder.Path() / "Karten" / "zulu.jpg", std::string("\xFF\xD8\xFF\xE1\x80\0", 6));
    for (const int x : {120, 14}) {
        Said.clear();
        AnswerBox();
        click("zulu.jpg", x);
        QTest::qWait(20);
        EXPECT_EQ(Said, "|Fehler im Bild|") << x;
        EXPECT_FALSE(QApplication::activeModalWidget()) << x;
    }
    EXPECT_EQ(list.findItems("zulu.jpg", Qt::MatchExactly).first()->checkState(), Qt::Unchecked);
    EXPECT_EQ(Edge(0), "60");
}

TEST_F(CalibrationFormsTest, AnImageThatCannotBeLoadedOpensNoCalibration) {
    WriteFileAtomically(Folder.Path() / "Karten" / "zulu.jpg", "an image no more");
    auto& list = Find<QListWidget>("listKarten");
    list.setCurrentItem(list.findItems("zulu.jpg", Qt::MatchExactly).first());
    Click("cmdCalibrate");
    QTest::qWait(1);
    EXPECT_FALSE(Form->findChild<frmCalRect*>("frmCalRect"));
    EXPECT_FALSE(Notices.isHidden());
}

} // namespace
} // namespace ornivane
