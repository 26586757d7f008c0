#include "settings/frmPortPanel.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "platform/PortList.h"
#include "platform/qt/Events.h"
#include "platform/qt/FillCombo.h"
#include "settings/frmParts.h"

namespace ornivane {

namespace {

QString Q(const std::string& text) { return QString::fromStdString(text); }

// The lamp is the background of its text, which stays readable by day and by night.
void ShowLamp(QLabel& label, const PortTest::Label& lamp) {
    label.setText(Q(lamp.Caption));
    const QString style = QString("background: #%1; color: #000000; border-radius: 6px; padding: 6px 10px; "
                                  "font-size: 17px; font-weight: bold;")
                              .arg(lamp.ForeColor, 6, 16, QChar('0'));
    if (label.styleSheet() != style) label.setStyleSheet(style);
}

} // namespace

frmPortPanel::frmPortPanel(PortTest& portTest, const PortList& portList, const Language& shownIn,
                           EventGuard& guard)
    : test(portTest), ports(portList), language(shownIn) {
    setObjectName("frmGPS");
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(6);
    MakeChoice(*layout, guard);
    MakeDisplays(*layout);
}

void frmPortPanel::MakeChoice(QBoxLayout& layout, EventGuard& guard) {
    auto* row = new QHBoxLayout;
    auto* portCaption = parts::Label("Label1", "COM");
    cmbCom = parts::Combo("cmbCom");
    cmbCom->setMinimumWidth(110);
    auto* baudCaption = parts::Label("Label2", "Baud");
    cmbBaud = parts::Combo("cmbBaud");
    for (QWidget* widget : std::initializer_list<QWidget*>{portCaption, cmbCom, baudCaption, cmbBaud})
        row->addWidget(widget);
    row->addStretch();
    layout.addLayout(row);
    cmdCheck = parts::Button("cmdCheck");
    layout.addWidget(cmdCheck);

    guard.Connect(cmbCom, &QComboBox::activated,
                  [this](int index) { test.SelectedCom = cmbCom->itemData(index).toInt(); });
    guard.Connect(cmbBaud, &QComboBox::activated,
                  [this](int index) { test.cmbBaud = static_cast<std::size_t>(index); });
    guard.Connect(cmdCheck, &QPushButton::clicked, [this] { test.cmdCheck_Click(); });
}

void frmPortPanel::MakeDisplays(QBoxLayout& layout) {
    lblStatus = parts::Label("lblStatus");
    lblHint = parts::Label("lblHint");
    for (QLabel* label : {lblStatus, lblHint}) {
        label->setWordWrap(true);
        layout.addWidget(label);
    }
    lblHint->setStyleSheet("font-weight: bold");
    tGPS = Named(new QLineEdit, "tGPS");
    tGPS->setReadOnly(true);
    tGPS->setMinimumHeight(34);
    tGPS->setStyleSheet("font-size: 14px; font-weight: normal; font-family: monospace");
    lblComVerbindung = parts::Label("lblComVerbindung");
    LabelStatus = parts::Label("LabelStatus");
    lblSatellites = parts::Label("lblSatellites");
    layout.addWidget(tGPS);
    auto* lamps = new QHBoxLayout;
    for (QLabel* lamp : {lblComVerbindung, LabelStatus}) {
        lamp->setAlignment(Qt::AlignCenter);
        lamps->addWidget(lamp, 1);
    }
    layout.addLayout(lamps);

    auto* position = new QGridLayout;
    latCaption = parts::Label("Label3");
    longCaption = parts::Label("Label4");
    lblLat = parts::Label("lblLat");
    lblLong = parts::Label("lblLong");
    for (QLabel* value : {lblLat, lblLong, lblSatellites})
        value->setStyleSheet("font-size: 17px; font-weight: bold");
    position->addWidget(latCaption, 0, 0);
    position->addWidget(lblLat, 0, 1);
    position->addWidget(longCaption, 1, 0);
    position->addWidget(lblLong, 1, 1);
    position->setColumnStretch(1, 1);
    layout.addLayout(position);
    layout.addWidget(lblSatellites);
}

void frmPortPanel::FillPorts() {
    std::vector<int> shown;
    shown.reserve(static_cast<std::size_t>(cmbCom->count()));
    for (int i = 0; i < cmbCom->count(); ++i) shown.push_back(cmbCom->itemData(i).toInt());
    if (shown != test.cmbCom) {
        cmbCom->clear();
        for (const int number : test.cmbCom) {
            cmbCom->addItem(QString::number(number), number);
            cmbCom->setItemData(cmbCom->count() - 1, Q(ports.Description(number)), Qt::ToolTipRole);
        }
    }
    cmbCom->setCurrentIndex(cmbCom->findData(test.SelectedCom));
}

void frmPortPanel::ShowState() {
    FillPorts();
    FillCombo(*cmbBaud, test.BaudRates, test.BaudRates.at(test.cmbBaud));
    // What is tested is what is saved.
    cmbCom->setEnabled(!test.IsTesting());
    cmbBaud->setEnabled(!test.IsTesting());
    cmdCheck->setEnabled(!test.cmbCom.empty());
    lblStatus->setText(Q(test.lblStatus()));
    lblHint->setText(Q(test.lblHint()));
    lblHint->setVisible(!test.lblHint().empty());
    if (tGPS->text() != Q(test.tGPS())) {
        tGPS->setText(Q(test.tGPS()));
        tGPS->setCursorPosition(0);
    }
    ShowLamp(*lblComVerbindung, test.lblComVerbindung());
    ShowLamp(*LabelStatus, test.LabelStatus());
    lblSatellites->setText(Q(test.lblSatellites()));
    lblLat->setText(Q(test.lblLat));
    lblLong->setText(Q(test.lblLong));
    const QCursor pointer(test.IsTesting() ? Qt::WaitCursor : Qt::ArrowCursor);
    if (window()->cursor().shape() != pointer.shape()) window()->setCursor(pointer);
}

void frmPortPanel::ApplyLanguage() {
    setTitle("GPS");
    cmdCheck->setText(Text(" GPS Verbindung überprüfen ", " Check GPS Connection "));
    latCaption->setText(Text("Breitengrad", "Latitude"));
    longCaption->setText(Text("Längengrad", "Longitude"));
    cmbCom->setToolTip(Text("Der Anschluss des Empfängers; beim Zeigen auf einen Eintrag steht sein Gerät",
                            "The receiver's port; hold the mouse over an entry for its device"));
    cmbBaud->setToolTip(Text("Geschwindigkeit des Empfängers; die meisten senden mit 4800 oder 9600 Baud",
                             "Speed of the receiver; most send at 4800 or 9600 baud"));
    cmdCheck->setToolTip(Text("Zwei Sekunden lang zuhören; kommen Daten, wird der Anschluss gespeichert",
                              "Listen for two seconds; when data come, the port is saved"));
    lblLat->setToolTip(Text("Breite, wie der Empfänger sie meldet", "Latitude as the receiver tells it"));
    lblLong->setToolTip(Text("Länge, wie der Empfänger sie meldet", "Longitude as the receiver tells it"));
    lblHint->setToolTip(Text("Woran es liegen kann", "What may be the reason"));
    lblStatus->setToolTip(Text("Was der Test ergab", "What the test found"));
    tGPS->setToolTip(Text("Die erste Zeile, die zuletzt ankam, wie der Empfänger sie sandte",
                          "The first line that came last, as the receiver sent it"));
    lblComVerbindung->setToolTip(Text("Ob Daten ankommen", "Whether data come in"));
    LabelStatus->setToolTip(
        Text("Ob der Empfänger seine Position kennt", "Whether the receiver knows its position"));
    lblSatellites->setToolTip(Text("Satelliten: benutzt / sichtbar", "Satellites: used / in view"));
}

} // namespace ornivane
