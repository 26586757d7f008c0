#include <QHeaderView>
#include <QListView>
#include <QScrollBar>

#include "common/SettingsFiles.h"
#include "gps/GpsFakes.h"
#include "screens/FormFixture.h"
#include "settings/frmGetWaypoints.h"
#include "settings/frmManager.h"
#include "settings/frmSettings.h"
#include "support/Rows.h"
#include "support/SetClock.h"

namespace ornivane {
namespace {

using testing::ElementsAre;

class SettingsFormTest : public FormTest {
protected:
    SettingsFormTest() {
        OpenAirfields();
        Ports.Numbers = {5, 7};
        Sql("INSERT INTO Kategorie VALUES (1, 'A & B'), (2, 'VOR'), (3, 'Platz')");
        AddWaypoint("Bonn", 50, 7, "VOR");
        Front = &Form;
    }
    void Show() { FormTest::Show(Form); }
    std::string One(const char* sql) { return RowsOf(Shared.DataConn, sql).at(0); }

    FakePort Port;
    FakeTimer Timer;
    FakePortList Ports;
    ScriptedDialogs Boxes;
    SetClock Clock;
    frmSettings Form{
        {{Shared, Port, Timer, Ports, Clock, Boxes}, Guard, [this] { Form.ApplyLanguage(); }, {}}};
};

TEST_F(SettingsFormTest, AllFitsOnASmallScreenInBothLanguages) {
    Shared.TrackConn.Open(Folder.Path() / "ovdata.ovd", Connection::Mode::ReadWrite); // any store
    Shared.LuftraumConn.Open(Folder.Path() / "ovdata.ovd", Connection::Mode::ReadWrite);
    Port.Failure = ErrorNumber::FileAlreadyOpen; // the longest status
    for (const char* language : {"OptGer", "OptEng"}) {
        Show();
        Click(language);
        Find<QComboBox>("cmbCom").activated(0);
        Click("cmdCheck");
        QTest::qWait(1);
        for (QScrollBar* bar : Form.findChildren<QScrollBar*>())
            if (!qobject_cast<QTableView*>(bar->parentWidget()->parentWidget())) {
                EXPECT_EQ(bar->maximum(), 0) << language;
            }
        for (const QPushButton* button : Form.findChildren<QPushButton*>()) {
            EXPECT_GE(button->height(), 44) << button->objectName().toStdString();
            EXPECT_GE(button->width(), button->sizeHint().width()) << button->text().toStdString();
            EXPECT_FALSE(button->toolTip().isEmpty()) << button->objectName().toStdString();
        }
    }
}

TEST_F(SettingsFormTest, TestsThePortThatWasChosenAndKeepsTheChoiceShutMeanwhile) {
    Show();
    auto& ports = Find<QComboBox>("cmbCom");
    ports.setCurrentIndex(1);
    emit ports.activated(1);
    Click("cmdCheck");
    EXPECT_FALSE(ports.isEnabled());
    EXPECT_EQ(Form.cursor().shape(), Qt::WaitCursor);
    Port.Receive(Sentence("GPRMC,120000,A,5030.0,N,00700.0,E,,,") + "\r\n");
    EXPECT_EQ(Text("lblLat"), "N 50° 30.0'");
    Timer.Fire(2);
    EXPECT_TRUE(ports.isEnabled());
    EXPECT_EQ(Form.cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(Text("lblStatus"), "OK - Daten gespeichert");
    Click("OptEng");
    EXPECT_EQ(Text("lblStatus"), "OK - Data saved");
    EXPECT_EQ(Text("lblComVerbindung"), "COM 7 connected");
}

TEST_F(SettingsFormTest, OffersTheOnlyPortThereIsAndABaudRateOfItsOwn) {
    WriteComSettings(Shared.ProgramFolder, {"9", "115200"});
    Ports.Numbers = {5};
    Show();
    EXPECT_EQ(Find<QComboBox>("cmbCom").currentText(), "5");
    EXPECT_EQ(Find<QComboBox>("cmbBaud").currentText(), "115200");
    EXPECT_TRUE(Shows("lblHint"));
    Click("cmdCheck");
    EXPECT_THAT(Port.Attempts, ElementsAre(5));
    EXPECT_EQ(Port.Settings, "115200,n,8,1");
    EXPECT_FALSE(Shows("lblHint"));
    Timer.Fire(2);
    Ports.Numbers.clear();
    Form.Form_Activate();
    EXPECT_FALSE(Find<QPushButton>("cmdCheck").isEnabled());
}

TEST_F(SettingsFormTest, KeepsGridEntryAndRowTogether) {
    Show();
    auto& grid = Find<QTableView>("gridKategorie");
    auto& entry = Find<QLineEdit>("tKategorie");
    QTest::keyClick(&grid, Qt::Key_Down);
    EXPECT_EQ(entry.text(), "VOR");
    QTest::mouseDClick(&entry, Qt::LeftButton);
    EXPECT_EQ(entry.text(), "");
    QTest::keyClicks(&entry, "NDB");
    QTest::keyClick(&entry, Qt::Key_Return);
    EXPECT_EQ(grid.currentIndex().row(), 2);
    EXPECT_TRUE(grid.selectionModel()->isRowSelected(2));
    // Held it adds once, and what is typed outlives another head and another screen.
    entry.clear();
    QTest::keyClicks(&entry, "Wald");
    QTest::keyPress(&entry, Qt::Key_Return);
    EXPECT_EQ(grid.model()->rowCount(), 4);
    emit grid.horizontalHeader()->sectionClicked(1);
    Form.Form_Deactivate();
    Form.Form_Activate();
    EXPECT_EQ(entry.text(), "Wald");
    ClickRow(grid, 1, 1);
    entry.clear();
    QTest::keyClicks(&entry, "Funk");
    Click("cmdChange");
    EXPECT_EQ(One("SELECT Kategorie FROM Waypoints"), "Funk");
    Click("cmdDelete");
    EXPECT_EQ(entry.text(), "NDB");
    EXPECT_EQ(grid.currentIndex().row(), 1);
    EXPECT_EQ(One("SELECT group_concat(Kategorie) FROM (SELECT * FROM Kategorie ORDER BY Nummer)"),
              "A & B,NDB,Platz");
}

TEST_F(SettingsFormTest, TakesTheIntervalAsItWasTyped) {
    Shared.TrackConn.Open(Folder.Path() / "ovdata.ovd", Connection::Mode::ReadWrite); // any store
    Show();
    Click("chkTrack");
    auto& interval = Find<QComboBox>("cmbTrack");
    interval.lineEdit()->selectAll();
    QTest::keyClicks(&interval, "6");
    Form.Form_Deactivate();
    EXPECT_EQ(interval.currentText(), "6");
    interval.lineEdit()->selectAll();
    QTest::keyClicks(&interval, "30");
    Form.Form_Deactivate();
    Form.Form_Activate();
    QTest::keyClick(&interval, Qt::Key_Down);
    EXPECT_EQ(interval.currentText(), "60");
}

TEST_F(SettingsFormTest, AStoreThatFailsLeavesTheOtherSettings) {
    Sql("ALTER TABLE Kategorie RENAME TO away");
    {
        frmSettings form{{{Shared, Port, Timer, Ports, Clock, Boxes}, Guard, [] {}, {}}};
        EXPECT_FALSE(Notices.isHidden());
        EXPECT_THROW(form.Form_Activate(), RuntimeError);
        EXPECT_EQ(In<QComboBox>(form, "cmbCom").count(), 2);
        EXPECT_FALSE(In<QPushButton>(form, "cmdChange").isEnabled());
        Sql("ALTER TABLE away RENAME TO Kategorie");
        form.Form_Activate();
        EXPECT_EQ(In<QLineEdit>(form, "tKategorie").text(), "A & B");
    }
}

TEST_F(SettingsFormTest, TheManagersListsMoveAsOne) {
    Sql("INSERT INTO Waypoints (Name, Lat, Long, Kategorie) WITH RECURSIVE n(i) AS (SELECT 1000 UNION ALL "
        "SELECT i + 1 FROM n WHERE i < 1400) SELECT 'W' || i, 50, 7, '' FROM n");
    frmManager manager(Shared, Shared.DataConn, Boxes, Guard, nullptr);
    manager.setAttribute(Qt::WA_DeleteOnClose, false);
    manager.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&manager));
    auto& waypoints = In<QListView>(manager, "listWegpunkt");
    auto& categories = In<QListView>(manager, "listKategorie");
    auto& assign = In<QPushButton>(manager, "cmdZuweisen");
    QTest::keyClick(&waypoints, Qt::Key_End);
    EXPECT_EQ(categories.currentIndex().row(), 401);
    EXPECT_EQ(categories.verticalScrollBar()->value(), waypoints.verticalScrollBar()->value());
    EXPECT_GT(categories.verticalScrollBar()->value(), 300);
    categories.verticalScrollBar()->setValue(200);
    EXPECT_EQ(waypoints.verticalScrollBar()->value(), 200);

    EXPECT_FALSE(assign.isEnabled()) << "no waypoint is chosen";
    waypoints.selectAll();
    auto& choice = In<QComboBox>(manager, "cmbKategorie");
    const auto assignChoice = [&](int index) {
        choice.setCurrentIndex(index);
        emit choice.activated(index);
        ClickOn(assign);
    };
    EXPECT_EQ(choice.currentText(), "");
    assignChoice(choice.findText("Platz"));
    EXPECT_EQ(One("SELECT count(*) FROM Waypoints WHERE Kategorie = 'Platz'"), "402");
    EXPECT_EQ(categories.model()->index(401, 0).data().toString(), "Platz");
    EXPECT_EQ(categories.verticalScrollBar()->value(), 200);
    assignChoice(0); // the empty text takes them out again
    EXPECT_EQ(One("SELECT count(*) FROM Waypoints WHERE Kategorie = ''"), "402");
    EXPECT_EQ(categories.model()->index(401, 0).data().toString(), "");
}

TEST_F(SettingsFormTest, TheImportShowsWhatItWillTake) {
    Shared.AirfieldConn.Execute("INSERT INTO ARPT (ICAO, WGS_DLAT, WGS_DLONG) VALUES ('EDKB', 50.75, 7.25), "
                                "('LFPB', 48.5, 2.5)");
    Shared.AirfieldConn.Execute("INSERT INTO ICAOCODE VALUES ('LF', 'Frankreich'), ('ED', 'Deutschland')");
    frmGetWaypoints transfer(Shared, Shared, Boxes, Guard, nullptr);
    transfer.setAttribute(Qt::WA_DeleteOnClose, false);
    transfer.show();
    auto& button = In<QPushButton>(transfer, "cmdTransfer");
    EXPECT_EQ(button.text(), "Flughäfen in Kategorie A && B importieren");
    auto& list = In<QListView>(transfer, "listAP");
    ClickRow(list, 0);
    EXPECT_EQ(In<QLabel>(transfer, "lblCount").text(), "1 Flughafen");
    QTest::keyClick(&list, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(In<QLabel>(transfer, "lblCount").text(), "2 Flughäfen");
    ClickOn(button);
    EXPECT_THAT(Boxes.Shown, ElementsAre("2 Flughäfen hinzugefügt|Es wurden 2 Flughäfen hinzugefügt."));
}

} // namespace
} // namespace ornivane
