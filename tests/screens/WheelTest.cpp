#include <QScrollArea>
#include <QScrollBar>
#include <QWheelEvent>

#include "calibration/frmCalRect.h"
#include "calibration/frmCalibrate.h"
#include "flightplan/frmFlugPlan.h"
#include "gps/GpsFakes.h"
#include "nav/frmGPSmain.h"
#include "planning/frmExport.h"
#include "planning/frmLuftraumSettings.h"
#include "planning/frmPlanung.h"
#include "platform/qt/QtTimer.h"
#include "platform/qt/SystemClock.h"
#include "screens/FormFixture.h"
#include "settings/frmGetWaypoints.h"
#include "settings/frmManager.h"
#include "settings/frmSettings.h"
#include "tracks/frmTrack.h"

namespace ornivane {
namespace {

// All that a control tells and what of it is chosen, but not how far a list is scrolled.
QString StateOf(const QWidget& control) {
    QStringList state;
    for (const char* property : {"text", "checked", "value", "currentIndex", "currentText"})
        if (!qobject_cast<const QScrollBar*>(&control)) state << control.property(property).toString();
    if (const auto* view = qobject_cast<const QAbstractItemView*>(&control); view && view->selectionModel()) {
        state << QString::number(view->currentIndex().row());
        for (const QModelIndex& row : view->selectionModel()->selectedRows())
            state << QString::number(row.row());
    }
    return state.join('|');
}

// The first control of the form that is not as it was.
class Watch {
public:
    explicit Watch(QWidget& form) : watched(form), focus(form.focusWidget()) {
        for (QWidget* control : form.findChildren<QWidget*>()) before << StateOf(*control);
    }
    std::string Changed() const {
        const auto controls = watched.findChildren<QWidget*>();
        if (controls.size() != before.size()) return "another number of controls";
        for (int i = 0; i < controls.size(); ++i)
            if (const QString now = StateOf(*controls[i]); now != before[i])
                return (controls[i]->objectName() + ": " + before[i] + " -> " + now).toStdString();
        return watched.focusWidget() == focus ? "" : "the focus";
    }

private:
    QWidget& watched;
    QWidget* focus;
    QStringList before;
};

// As the window system sends it: it goes up to whatever takes it.
void Turn(QWidget& over, QPoint pixels, QPoint angle, Qt::ScrollPhase phase = Qt::NoScrollPhase) {
    const QPointF at = over.rect().center();
    QWheelEvent wheel(at, over.mapToGlobal(at), pixels, angle, Qt::NoButton, Qt::NoModifier, phase, false);
    QSpontaneKeyEvent::setSpontaneous(&wheel);
    qApp->notify(&over, &wheel);
}

void Brush(QWidget& over, int way) {
    Turn(over, {}, {}, Qt::ScrollBegin);
    for (int i = 0; i < 3; ++i) Turn(over, {0, way / 4}, {0, way / 2}, Qt::ScrollUpdate);
    Turn(over, {}, {}, Qt::ScrollEnd);
}

// A wheel's notch and a brush over the touchpad, up and down, over each control that shows, without the focus
// and with it.
void TurnOverEach(QWidget& form) {
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    for (QWidget* control : form.findChildren<QWidget*>()) {
        if (!control->isVisibleTo(&form)) continue;
        for (const bool focused : {false, true}) {
            if (focused && !(control->focusPolicy() & Qt::TabFocus)) continue;
            if (focused) control->setFocus();
            const Watch watch(form);
            for (const int way : {120, -120, -120, 120}) {
                Turn(*control, {}, {0, way});
                EXPECT_EQ(watch.Changed(), "") << control->objectName().toStdString() << " by " << way;
                Brush(*control, way);
                EXPECT_EQ(watch.Changed(), "") << control->objectName().toStdString() << " by pixels";
            }
        }
    }
}

class WheelTest : public FormTest {
protected:
    WheelTest() {
        WriteCharts(WhiteChart(), {"alpha.jpg", "zulu.jpg"});
        AddRoute("R", {6.3, 7.0, 7.3});
        AddRoute("S", {6.4, 6.5});
        AddRoute("T", {6.4, 6.5});
        Sql("INSERT INTO Kategorie VALUES (1, 'A'), (2, 'B'), (3, 'C')");
        AddWaypoint("Bonn", 50, 7, "A");
        AddWaypoint("Bonndorf", 50.1, 7, "B");
        AddWaypoint("Bonnet", 50.2, 7, "B");
        OpenTracks();
        Shared.TrackConn.Execute("INSERT INTO List VALUES (3, 'one'), (5, 'two'), (9, 'three')");
        Shared.TrackConn.Execute("INSERT INTO Track VALUES (3, 1, 50, 7, 300, 'D', 'T')");
        OpenAirfields();
        Shared.TrackEnabled = true;
        Shared.EnglishUI = 1;
        Ports.Numbers = {1, 2, 3};
    }
    FakePort Port;
    FakePortList Ports;
    FakeTimer LinkTimer;
    SystemClock Clock;
    QtDialogs Dialogs;
    QtTimer TrackTimer{Guard};
    frmGPSmain Flying{{Shared, {Port, LinkTimer, TrackTimer, Clock}, Ports, Dialogs, Notices, Guard, Charts}};
    frmSettings Settings{{{Shared, Port, LinkTimer, Ports, Clock, Dialogs}, Guard, [] {}, {}}};
};

TEST_F(WheelTest, ChangesNothingInFlight) {
    Show(Flying);
    ClickOn(In<QWidget>(Flying, "cmdActivateGoto"));
    ClickOn(In<QWidget>(Flying, "cmdSet"));
    const auto& logic = Flying.Logic();
    const auto flown = [&] {
        return logic.Map.Name() + logic.Route.cmbRoute + std::to_string(logic.Map.SlideMap) +
               std::to_string(logic.Route.RoutePointsSet.AbsolutePosition());
    };
    const std::string before = flown();
    TurnOverEach(Flying);
    auto& dial = In<QWidget>(Flying, "Kurskreisel");
    for (const char* entry : {"frmVOR", "frmKurs"}) {
        QTest::mouseClick(&dial, Qt::LeftButton);
        QTest::mouseClick(&dial, Qt::RightButton);
        ASSERT_TRUE(In<QWidget>(Flying, entry).isVisible());
        TurnOverEach(Flying);
    }
    EXPECT_EQ(flown(), before);
}

TEST_F(WheelTest, ChangesNothingOnTheGroundAndInNoDialog) {
    frmPlanung planning(Shared, Dialogs, Guard, Charts);
    TurnOverEach(Show(planning));
    planning.ShowAirspaceSettings();
    TurnOverEach(In<frmLuftraumSettings>(planning, "frmLuftraumSettings"));
    frmExport exporting(Shared, Dialogs, Guard, "R", nullptr);
    TurnOverEach(exporting);
    TurnOverEach(Show(Settings));
    frmManager manager(Shared, Shared.DataConn, Dialogs, Guard, nullptr);
    TurnOverEach(manager);
    frmGetWaypoints airfields(Shared, Shared, Dialogs, Guard, nullptr);
    TurnOverEach(airfields);
    frmFlugPlan plan({Shared, Guard, Dialogs, Notices, [] {}});
    TurnOverEach(Show(plan));
    auto* tracks = new frmTrack(Shared, Guard, Dialogs, &plan);
    tracks->Start();
    TurnOverEach(*tracks);
}

TEST_F(WheelTest, ChangesNothingInTheCatalogueNorWhileCalibrating) {
    frmCalibrate catalogue(Shared, Guard, Dialogs, Charts);
    TurnOverEach(Show(catalogue));
    ClickOn(In<QWidget>(catalogue, "cmdCalibrate"));
    auto& form = In<frmCalRect>(catalogue, "frmCalRect");
    QTest::mouseClick(&In<QWidget>(form, "picMap"), Qt::LeftButton, {}, {100, 100});
    QTest::keyClicks(&In<QWidget>(form, "tQuickfind1"), "Bonn");
    ASSERT_EQ(In<QTableView>(form, "gridWay1").model()->rowCount(), 3);
    TurnOverEach(form);
}

TEST_F(WheelTest, ScrollsAListAndThePageUnderAClosedBox) {
    for (int i = 0; i < 40; ++i) AddRoute("more", {6.3});
    frmPlanung planning(Shared, Dialogs, Guard, Charts);
    Show(planning);
    auto& routes = In<QTableView>(planning, "gridRoute");
    Turn(*routes.viewport(), {}, {0, -120});
    EXPECT_GT(routes.verticalScrollBar()->value(), 0);
    Show(Settings).resize(1024, 300);
    auto& page = *Settings.findChild<QScrollArea*>();
    Turn(In<QWidget>(Settings, "cmbBaud"), {}, {0, -120});
    EXPECT_GT(page.verticalScrollBar()->value(), 0);
    // A list that is open is there to be gone through.
    auto& maps = In<QComboBox>(Show(Flying), "cmbMaps");
    for (int i = 0; i < 40; ++i) maps.addItem(QString::number(i));
    maps.showPopup();
    Turn(*maps.view()->viewport(), {}, {0, -120});
    EXPECT_GT(maps.view()->verticalScrollBar()->value(), 0);
    maps.hidePopup();
}

} // namespace
} // namespace ornivane
