#include "settings/frmSettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollArea>

#include "platform/qt/EnterKey.h"
#include "platform/qt/Events.h"
#include "settings/frmCategoryPanel.h"
#include "settings/frmGetWaypoints.h"
#include "settings/frmManager.h"
#include "settings/frmParts.h"
#include "settings/frmPortPanel.h"

namespace ornivane {

namespace {

constexpr int PressHeight = 44; // pixels

template <typename Tick>
Tick* Choice(const char* name) {
    auto* choice = Named(new Tick, name);
    choice->setMinimumHeight(PressHeight);
    return choice;
}

} // namespace

frmSettings::frmSettings(const SettingsFormServices& formServices)
    : services(formServices),
      logic(std::make_unique<SettingsScreen>(
          services.World, services.Guard.Notices(), [this] { ShowState(); }, services.LanguageChanged)) {
    setObjectName("frmSettings");
    setStyleSheet(parts::SectionStyle);
    port = new frmPortPanel(logic->Port, services.World.Ports, services.World.Shared, services.Guard);
    categories = new frmCategoryPanel(
        logic->CategoryList, services.World.Shared, services.Guard,
        {[this] {
             (new frmManager(services.World.Shared, services.World.Messages, services.Guard, this))->open();
         },
         [this] {
             if (logic->cmdGetWaypoint_Click())
                 (new frmGetWaypoints(services.World.Shared, services.World.Messages, services.Guard, this))
                     ->open();
         }});

    auto* page = new QWidget;
    auto* columns = new QHBoxLayout(page);
    columns->setContentsMargins(14, 4, 14, 10);
    columns->setSpacing(14);
    auto* left = new QVBoxLayout;
    auto* right = new QVBoxLayout;
    columns->addLayout(left, 1);
    columns->addLayout(right, 1);
    MakeLeft(*left);
    MakeRight(*right);
    // A screen smaller than the page shows all of it by scrolling.
    auto* area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidget(page);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(area);
    OrderTabs();
    EnterKey::PressesButtonsOf(*this);
    services.Guard.Run([this] { logic->Form_Load(); });
    frmSettings::ApplyLanguage();
}

// As one reads: down the left column, down the right one.
void frmSettings::OrderTabs() {
    QWidget* before = nullptr;
    for (const char* name :
         {"OptGer",     "OptEng",   "Option1",   "Option2",   "cmbCom",     "cmbBaud",       "cmdCheck",
          "tGPS",       "chkTrack", "chkAutoOn", "cmbTrack",  "cmdTrack",   "tQNH",          "gridKategorie",
          "tKategorie", "cmdAdd",   "cmdChange", "cmdDelete", "cmdManager", "cmdGetWaypoint"}) {
        auto* next = findChild<QWidget*>(name);
        if (before) setTabOrder(before, next);
        before = next;
    }
}

// The panels look at what the logic owns, so they go first.
frmSettings::~frmSettings() {
    delete categories;
    delete port;
}

QWidget* frmSettings::Pair(QGroupBox*& box, const char* name, QRadioButton* first, QRadioButton* second) {
    box = Named(new QGroupBox, name);
    auto* layout = new QHBoxLayout(box);
    layout->setContentsMargins(4, 0, 4, 0);
    for (QRadioButton* button : {first, second}) layout->addWidget(button, 1, Qt::AlignLeft);
    return box;
}

void frmSettings::MakeLeft(QBoxLayout& column) {
    lblTitle = parts::Label("lblTitle");
    lblTitle->setStyleSheet("font-size: 24px; font-weight: bold");
    OptGer = Choice<QRadioButton>("OptGer");
    OptEng = Choice<QRadioButton>("OptEng");
    Option1 = Choice<QRadioButton>("Option1");
    Option2 = Choice<QRadioButton>("Option2");
    column.addWidget(lblTitle);
    column.addWidget(Pair(frmLanguage, "frmLanguage", OptGer, OptEng));
    column.addWidget(Pair(frmSymbol, "frmSymbol", Option1, Option2));
    column.addWidget(port);
    column.addStretch();
    services.Guard.Connect(OptGer, &QRadioButton::clicked, [this] { logic->OptGer_Click(); });
    services.Guard.Connect(OptEng, &QRadioButton::clicked, [this] { logic->OptEng_Click(); });
    services.Guard.Connect(Option1, &QRadioButton::clicked, [this] { logic->Option_Click(1); });
    services.Guard.Connect(Option2, &QRadioButton::clicked, [this] { logic->Option_Click(2); });
}

void frmSettings::MakeRight(QBoxLayout& column) {
    column.addWidget(MakeTrack());
    column.addWidget(MakeAirspace());
    column.addWidget(categories, 1);
}

QGroupBox* frmSettings::MakeTrack() {
    Frame4 = Named(new QGroupBox, "Frame4");
    auto* layout = new QGridLayout(Frame4);
    layout->setContentsMargins(4, 0, 4, 4);
    chkTrack = Choice<QCheckBox>("chkTrack");
    chkAutoOn = Choice<QCheckBox>("chkAutoOn");
    intervalCaption = parts::Label("Label5");
    intervalUnit = parts::Label("Label6");
    intervalUnit->setText("[ s ]");
    cmbTrack = parts::Combo("cmbTrack");
    cmbTrack->setEditable(true);
    cmbTrack->setInsertPolicy(QComboBox::NoInsert);
    cmbTrack->setCompleter(nullptr); // it would make 60 of 6
    cmbTrack->setFixedWidth(92);
    for (const char* interval : SettingsScreen::Intervals) cmbTrack->addItem(interval);
    cmdTrack = parts::Button("cmdTrack");
    cmdTrack->setEnabled(static_cast<bool>(services.ShowTrackManager));
    auto* interval = new QHBoxLayout;
    for (QWidget* widget : std::initializer_list<QWidget*>{intervalCaption, cmbTrack, intervalUnit})
        interval->addWidget(widget);
    interval->addStretch();
    interval->addWidget(cmdTrack);
    layout->addWidget(chkTrack, 0, 0, Qt::AlignLeft);
    layout->addWidget(chkAutoOn, 1, 0, Qt::AlignLeft);
    layout->addLayout(interval, 2, 0);

    connect(chkTrack, &QCheckBox::clicked, this,
            [this](bool on) { Run([&] { logic->chkTrack_Click(on); }); });
    connect(chkAutoOn, &QCheckBox::clicked, this,
            [this](bool on) { Run([&] { logic->chkAutoOn_Click(on); }); });
    services.Guard.Connect(cmbTrack, &QComboBox::currentTextChanged,
                           [this](const QString& text) { logic->cmbTrack = text.toStdString(); });
    services.Guard.Connect(cmdTrack, &QPushButton::clicked, [this] {
        if (services.ShowTrackManager) services.ShowTrackManager();
    });
    return Frame4;
}

QGroupBox* frmSettings::MakeAirspace() {
    frmLuftraum = Named(new QGroupBox, "frmLuftraum");
    auto* layout = new QHBoxLayout(frmLuftraum);
    layout->setContentsMargins(4, 0, 4, 4);
    qnhCaption = parts::Label("Label8");
    qnhUnit = parts::Label("Label9");
    qnhCaption->setText("QNH");
    qnhUnit->setText("hPa");
    tQNH = Named(new QLineEdit, "tQNH");
    tQNH->setMinimumHeight(PressHeight);
    tQNH->setFixedWidth(110);
    tQNH->setInputMethodHints(Qt::ImhFormattedNumbersOnly);
    for (QWidget* widget : std::initializer_list<QWidget*>{qnhCaption, tQNH, qnhUnit})
        layout->addWidget(widget);
    layout->addStretch();
    services.Guard.Connect(tQNH, &QLineEdit::textEdited,
                           [this](const QString& text) { services.World.Shared.tQNH = text.toStdString(); });
    return frmLuftraum;
}

// Also an event that ends in an error has changed something: what it did shows.
void frmSettings::Run(const std::function<void()>& event) {
    services.Guard.Run(event);
    ShowState();
}

void frmSettings::Form_Activate() {
    ShownAfter([this] { logic->Form_Activate(); });
    ApplyLanguage();
}

void frmSettings::Form_Deactivate() {
    ShownAfter([this] { logic->Form_Deactivate(); });
}

void frmSettings::ShownAfter(const std::function<void()>& step) {
    try {
        step();
    } catch (...) {
        ApplyLanguage();
        throw;
    }
    ShowState();
}

void frmSettings::ShowState() {
    if (!tQNH) return; // the logic is there before its controls
    const Variablen& shared = services.World.Shared;
    (shared.EnglishUI == 1 ? OptEng : OptGer)->setChecked(true);
    (shared.SymbolType == 1 ? Option1 : Option2)->setChecked(true);
    Frame4->setVisible(logic->Frame4);
    chkTrack->setChecked(logic->chkTrack);
    chkAutoOn->setChecked(logic->chkAutoOn);
    chkAutoOn->setEnabled(logic->TrackEnabledControls);
    cmbTrack->setEnabled(logic->TrackEnabledControls);
    const QString interval = QString::fromStdString(logic->cmbTrack);
    const int listed = cmbTrack->findText(interval);
    if (cmbTrack->currentText() != interval || cmbTrack->currentIndex() != listed) {
        cmbTrack->setCurrentIndex(listed); // where the arrow keys go on from
        cmbTrack->setEditText(interval);
    }
    frmLuftraum->setVisible(logic->frmLuftraumShows);
    frmLuftraum->setTitle(QString::fromStdString(logic->frmLuftraum));
    const QString qnh = QString::fromStdString(shared.tQNH);
    if (tQNH->text() != qnh) tQNH->setText(qnh);
    port->ShowState();
    categories->ShowState();
}

void frmSettings::ApplyLanguage() {
    const auto text = [this](const char* german, const char* english) {
        return QString::fromUtf8(services.World.Shared.Text(german, english));
    };
    logic->ApplyLanguage();
    lblTitle->setText(text("Einstellungen", "Settings"));
    setWindowTitle(lblTitle->text());
    frmLanguage->setTitle(text("Sprache", "Language"));
    OptGer->setText("Deutsch");
    OptEng->setText("English");
    frmSymbol->setTitle(text("Flugzeugsymbol", "Airplane symbol"));
    Option1->setText(text("Pfeil", "Arrow"));
    Option2->setText(text("Flugzeug", "Aeroplane"));
    Frame4->setTitle("Track Logger");
    chkTrack->setText(text("Track Logger aktivieren", "activate track logger"));
    chkAutoOn->setText(text("Automatisch loggen ( ab 30 kts )", "automatically log at speed > 30 kts"));
    intervalCaption->setText(text("Intervall", "Interval"));
    cmdTrack->setText(text("Track Manager", "Track Manager"));
    port->ApplyLanguage();
    categories->ApplyLanguage();
    ApplyTooltips();
    ShowState();
}

void frmSettings::ApplyTooltips() {
    const auto tip = [this](QWidget* widget, const char* german, const char* english) {
        widget->setToolTip(QString::fromUtf8(services.World.Shared.Text(german, english)));
    };
    tip(frmLanguage, "Die Sprache aller Bildschirme", "The language of all screens");
    tip(frmSymbol, "Das eigene Flugzeug auf der Karte", "The own aircraft on the chart");
    tip(Frame4, "Aufzeichnung des Flugs", "Recording of the flight");
    tip(OptGer, "Alle Texte auf Deutsch", "All texts in German");
    tip(OptEng, "Alle Texte auf Englisch", "All texts in English");
    tip(Option1, "Das eigene Flugzeug als Pfeil zeigen", "Show the own aircraft as an arrow");
    tip(Option2, "Das eigene Flugzeug als Umriss zeigen", "Show the own aircraft as an outline");
    tip(chkTrack, "Auf dem Flugbildschirm kann der Flug aufgezeichnet werden",
        "The flight can be recorded on the flying screen");
    tip(chkAutoOn, "Die Aufzeichnung beginnt von selbst über 30 kts und endet darunter",
        "Recording begins by itself above 30 kts and ends below");
    tip(cmbTrack, "Sekunden von Punkt zu Punkt, höchstens 60", "Seconds from point to point, 60 at most");
    tip(cmdTrack, "Aufzeichnungen ansehen, speichern und löschen",
        "Look at recordings, save and delete them");
    tip(tQNH, "Luftdruck in hPa von 950 bis 1049; gilt für heute. Alles andere zählt als 1013",
        "Air pressure in hPa, 950 to 1049; holds for today. Anything else counts as 1013");
    tip(frmLuftraum, "Stand der Luftraumdaten, und der Luftdruck, nach dem Flugflächen gezeigt werden",
        "Date of the airspace data, and the air pressure by which flight levels are shown");
}

} // namespace ornivane
