#include "planning/frmLuftraumSettings.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>

#include "platform/qt/Events.h"
#include "platform/qt/Named.h"
#include "platform/qt/Spaced.h"

namespace ornivane {

namespace {

using Which = AirspaceChoice::Which;

constexpr int LineLength = 84, LineWidth = 6, PieceLength = 12, LineHeight = 28; // pixels

// An outline as the map draws it, on the paper's white: the colours are the map's in every palette.
QPixmap LineSample(const std::vector<Colour>& colours, double ratio) {
    QPixmap sample(QSize(LineLength, LineHeight) * ratio);
    sample.setDevicePixelRatio(ratio);
    sample.fill(Qt::white);
    QPainter painter(&sample);
    for (int piece = 0; piece * PieceLength < LineLength; ++piece) {
        const Colour colour = colours[static_cast<std::size_t>(piece) % colours.size()];
        painter.fillRect(piece * PieceLength, (LineHeight - LineWidth) / 2, PieceLength, LineWidth,
                         QColor::fromRgb(colour));
    }
    return sample;
}

} // namespace

frmLuftraumSettings::frmLuftraumSettings(QWidget* parent, const Variablen& shared, AirspaceChoice& airspace,
                                         EventGuard& eventGuard, std::function<void()> isTaken)
    : QDialog(parent), language(shared), guard(eventGuard), taken(std::move(isTaken)),
      settings(shared, shared, shared, airspace) {
    setObjectName("frmLuftraumSettings");
    setAttribute(Qt::WA_DeleteOnClose);
    settings.Form_Load();
    auto* column = Spaced(new QVBoxLayout(this), 4, {18, 14, 18, 14});
    Option1 = Option("Option1", Which::All);
    Option2 = Option("Option2", Which::None);
    Option3 = Option("Option3", Which::AtHeight);
    for (QRadioButton* option : {Option1, Option2}) column->addWidget(option);
    MakeHeight(*column);
    chkPL = Named(new QCheckBox, "chkPL");
    guard.Connect(chkPL, &QCheckBox::clicked, [this](bool on) { settings.chkPL = on; });
    column->addWidget(chkPL);
    column->addSpacing(6);
    const char* controlled = language.Text("A,B,C,D und CTR", "A,B,C,D and CTR");
    column->addWidget(Legend(
        "Frame1",
        {{{AirspaceRed, AirspaceBlack}, controlled}, {{TmzColour}, "TMZ"}, {{DangerColour}, "Danger Area"}}));
    column->addWidget(
        Legend("Frame2", {{{PatternColour}, language.Text("Platzrunden", "Traffic patterns")}}));
    auto* row = new QHBoxLayout;
    lblLR = Named(new QLabel, "lblLR");
    row->addWidget(lblLR, 1);
    cmdExit = Named(new QPushButton, "cmdExit");
    cmdExit->setMinimumHeight(44);
    cmdExit->setDefault(true);
    guard.Connect(cmdExit, &QPushButton::clicked, [this] {
        Take();
        accept();
    });
    row->addWidget(cmdExit);
    column->addSpacing(6);
    column->addLayout(row);
    ApplyLanguage();
    ShowState();
    for (QRadioButton* option : {Option1, Option2, Option3})
        if (option->isChecked()) option->setFocus();
}

QRadioButton* frmLuftraumSettings::Option(const char* name, Which which) {
    auto* option = Named(new QRadioButton(this), name);
    guard.Connect(option, &QRadioButton::clicked, [this, which] { settings.Chosen = which; });
    return option;
}

// A height that is typed or chosen is meant to be shown.
void frmLuftraumSettings::MakeHeight(QBoxLayout& layout) {
    auto* row = new QHBoxLayout;
    row->addWidget(Option3);
    cmbHoehe = Named(new QComboBox, "cmbHoehe");
    cmbHoehe->setEditable(true);
    cmbHoehe->setInsertPolicy(QComboBox::NoInsert);
    cmbHoehe->setCompleter(nullptr); // it would make 4000 of 40
    cmbHoehe->setMinimumHeight(44);
    cmbHoehe->setFixedWidth(130);
    for (const int height : LuftraumSettings::Heights) cmbHoehe->addItem(QString::number(height));
    Named(cmbHoehe->lineEdit(), "tHoehe");
    const auto entered = [this](const QString& text) {
        settings.cmbHoehe = text.toStdString();
        settings.Chosen = Which::AtHeight;
        Option3->setChecked(true);
    };
    guard.Connect(cmbHoehe->lineEdit(), &QLineEdit::textEdited, entered);
    guard.Connect(cmbHoehe, &QComboBox::textActivated, entered);
    row->addWidget(cmbHoehe);
    lblFeet = new QLabel("ft");
    lblFeet->setProperty("role", "instrument");
    row->addWidget(lblFeet);
    row->addStretch(1);
    layout.addLayout(row);
}

QGroupBox* frmLuftraumSettings::Legend(const char* name, const std::vector<LegendLine>& lines) {
    auto* frame = Named(new QGroupBox, name);
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(8, 4, 8, 4);
    grid->setHorizontalSpacing(12);
    grid->setColumnStretch(1, 1);
    for (int row = 0; const auto& [colours, meaning] : lines) {
        auto* sample = new QLabel;
        sample->setPixmap(LineSample(colours, devicePixelRatioF()));
        grid->addWidget(sample, row, 0);
        grid->addWidget(new QLabel(meaning), row++, 1);
    }
    return frame;
}

void frmLuftraumSettings::ShowState() {
    Option1->setChecked(settings.Chosen == Which::All);
    Option2->setChecked(settings.Chosen == Which::None);
    Option3->setChecked(settings.Chosen == Which::AtHeight);
    cmbHoehe->setEditText(QString::fromStdString(settings.cmbHoehe));
    chkPL->setChecked(settings.chkPL);
    lblLR->setText(QString::fromStdString(settings.lblLR));
}

void frmLuftraumSettings::ApplyLanguage() {
    setWindowTitle(Text("Einstellungen Luftraumansicht", "Airspace view settings"));
    for (QGroupBox* frame : findChildren<QGroupBox*>()) {
        frame->setTitle(Text("Luftraum Kennzeichnung", "Airspace legend"));
        frame->setToolTip(Text("Farben der Lufträume auf der Karte", "Colours of airspace on the chart"));
    }
    Option1->setText(Text("Alle Lufträume anzeigen", "Show all airspaces"));
    Option2->setText(Text("Keine Lufträume anzeigen", "Show no airspaces"));
    Option3->setText(Text("Luftraum anzeigen in Flughöhe", "Show airspace at altitude"));
    chkPL->setText(Text("Platzrunden anzeigen", "Show traffic patterns"));
    cmdExit->setText(Text("Schließen", "Close"));
    Option1->setToolTip(Text("Lufträume jeder Höhe", "Airspace of all altitudes"));
    Option2->setToolTip(Text("Auch keine Platzrunden", "No traffic patterns either"));
    Option3->setToolTip(
        Text("Lufträume, deren Grenzen die Höhe einschließen", "Airspace whose limits enclose the altitude"));
    cmbHoehe->setToolTip(Text("Flughöhe in Fuß, 0 ist am Boden; Eingabe übernimmt",
                              "Altitude in feet, 0 is on the ground; Enter takes it"));
    chkPL->setToolTip(Text("Platzrunden der Flugplätze zeigen", "Show the traffic patterns of airfields"));
    lblLR->setToolTip(Text("Stand der Luftraumdaten", "Release of the airspace data"));
    cmdExit->setToolTip(Text("Übernimmt die Wahl; Esc lässt alles, wie es war",
                             "Takes the choice; Esc leaves all as it was"));
}

void frmLuftraumSettings::Take() {
    settings.cmdExit_Click();
    taken();
}

void frmLuftraumSettings::closeEvent(QCloseEvent* event) {
    guard.Run([this] { Take(); });
    event->accept();
}

} // namespace ornivane
