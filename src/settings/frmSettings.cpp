#include "settings/frmSettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollArea>

#include "platform/qt/EnterKey.h"
#include "platform/qt/Events.h"
#include "platform/qt/Spaced.h"
#include "settings/frmCategoryPanel.h"
#include "settings/frmGetWaypoints.h"
#include "settings/frmManager.h"
#include "settings/frmParts.h"
#include "settings/frmPortPanel.h"

namespace ornivane {

namespace {

constexpr int PressHeight = 44; // pixels

// A choice of the language: the number by which it is stored, its button and the button's texts.
struct LanguageChoice {
    std::int16_t Number;
    const char *Control, *Name, *GermanTip, *EnglishTip;
};
constexpr LanguageChoice Languages[] = {
    {0, "OptGer", "Deutsch", "Alle Texte auf Deutsch", "All texts in German"},
    {1, "OptEng", "English", "Alle Texte auf Englisch", "All texts in English"}};

template <typename Tick>
Tick* Choice(const char* name) {
    auto* choice = Named(new Tick, name);
    choice->setMinimumHeight(PressHeight);
    return choice;
}

} // namespace

frmSettings::frmSettings(const SettingsFormServices& formServices)
    : services(formServices), logic(std::make_unique<SettingsScreen>(
                                  services.World, services.Guard.Notices(),
                                  SettingsScreen::Form{[this] { ShowState(); }, services.LanguageChanged})) {
    setObjectName("frmSettings");
    setStyleSheet(parts::SectionStyle);
    port = new frmPortPanel(logic->Port, services.World.Ports, services.World.Shared, services.Guard);
    categories = new frmCategoryPanel(
        logic->CategoryList, services.World.Shared, services.Guard,
        {[this] {
             const SettingsWorld& world = services.World;
             (new frmManager(world.Shared, world.Shared.DataConn, world.Messages, services.Guard, this))
                 ->open();
         },
         [this] {
             const SettingsWorld& world = services.World;
             if (logic->cmdGetWaypoint_Click())
                 (new frmGetWaypoints(world.Shared, world.Shared, world.Messages, services.Guard, this))
                     ->open();
         }});

    auto* page = new QWidget;
    auto* columns = Spaced(new QHBoxLayout(page), 14, {14, 4, 14, 10});
    auto* left = new QVBoxLayout;
    auto* right = new QVBoxLayout;
    columns->addLayout(left, 1);
    columns->addLayout(right, 1);
    MakeLeft(*left);
    right->addWidget(MakeTrack());
    right->addWidget(MakeAirspace());
    right->addWidget(categories, 1);
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

// Tab goes down the left column, then down the right one.
void frmSettings::OrderTabs() {
    std::vector<QWidget*> order(languages.begin(), languages.end());
    for (const char* name : {"Option1", "Option2", "cmbCom", "cmbBaud", "cmdCheck", "tGPS", "chkTrack",
                             "chkAutoOn", "cmbTrack", "cmdTrack", "tQNH", "gridKategorie", "tKategorie",
                             "cmdAdd", "cmdChange", "cmdDelete", "cmdManager", "cmdGetWaypoint"})
        order.push_back(findChild<QWidget*>(name));
    for (std::size_t i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

// The panels refer to members of the logic, so they are deleted first.
frmSettings::~frmSettings() {
    delete categories;
    delete port;
}

QWidget* frmSettings::Row(QGroupBox*& box, const char* name, const std::vector<QRadioButton*>& choices) {
    box = Named(new QGroupBox, name);
    auto* layout = new QHBoxLayout(box);
    layout->setContentsMargins(4, 0, 4, 0);
    for (QRadioButton* button : choices) layout->addWidget(button, 1, Qt::AlignLeft);
    return box;
}

void frmSettings::MakeLeft(QBoxLayout& column) {
    lblTitle = parts::Label("lblTitle");
    lblTitle->setStyleSheet("font-size: 24px; font-weight: bold");
    for (const LanguageChoice& choice : Languages) {
        auto* button = languages.emplace_back(Choice<QRadioButton>(choice.Control));
        services.Guard.Connect(button, &QRadioButton::clicked,
                               [this, &choice] { logic->ChooseLanguage(choice.Number); });
    }
    Option1 = Choice<QRadioButton>("Option1");
    Option2 = Choice<QRadioButton>("Option2");
    column.addWidget(lblTitle);
    column.addWidget(Row(frmLanguage, "frmLanguage", languages));
    column.addWidget(Row(frmSymbol, "frmSymbol", {Option1, Option2}));
    column.addWidget(port);
    column.addStretch();
    services.Guard.Connect(Option1, &QRadioButton::clicked, [this] { logic->Option_Click(1); });
    services.Guard.Connect(Option2, &QRadioButton::clicked, [this] { logic->Option_Click(2); });
}

QGroupBox* frmSettings::MakeTrack() {
    Frame4 = Named(new QGroupBox, "Frame4");
    auto* layout = new QGridLayout(Frame4);
    layout->setContentsMargins(4, 0, 4, 4);
    chkTrack = Choice<QCheckBox>("chkTrack");
    chkAutoOn = Choice<QCheckBox>("chkAutoOn");
    intervalCaption = parts::Label("Label5");
    auto* intervalUnit = parts::Label("Label6", "[ s ]");
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
    auto* qnhCaption = parts::Label("Label8", "QNH");
    auto* qnhUnit = parts::Label("Label9", "hPa");
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
    RestoreOnError(step, [this] { ApplyLanguage(); });
    ShowState();
}

void frmSettings::ShowState() {
    if (!tQNH) return; // the logic is there before its controls
    const Variablen& shared = services.World.Shared;
    for (std::size_t i = 0; i < languages.size(); ++i)
        if (Languages[i].Number == shared.EnglishUI) languages[i]->setChecked(true);
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
    logic->ApplyLanguage();
    lblTitle->setText(Text("Einstellungen", "Settings"));
    setWindowTitle(lblTitle->text());
    frmLanguage->setTitle(Text("Sprache", "Language"));
    for (std::size_t i = 0; i < languages.size(); ++i) {
        languages[i]->setText(Languages[i].Name);
        languages[i]->setToolTip(Text(Languages[i].GermanTip, Languages[i].EnglishTip));
    }
    frmSymbol->setTitle(Text("Flugzeugsymbol", "Airplane symbol"));
    Option1->setText(Text("Pfeil", "Arrow"));
    Option2->setText(Text("Flugzeug", "Aeroplane"));
    Frame4->setTitle("Track Logger");
    chkTrack->setText(Text("Track Logger aktivieren", "activate track logger"));
    chkAutoOn->setText(Text("Automatisch loggen ( ab 30 kts )", "automatically log at speed > 30 kts"));
    intervalCaption->setText(Text("Intervall", "Interval"));
    cmdTrack->setText(Text("Track Manager", "Track Manager"));
    port->ApplyLanguage();
    categories->ApplyLanguage();
    ApplyTooltips();
    ShowState();
}

void frmSettings::ApplyTooltips() {
    const auto tip = [this](QWidget* widget, const char* german, const char* english) {
        widget->setToolTip(Text(german, english));
    };
    tip(frmLanguage, "Die Sprache aller Bildschirme", "The language of all screens");
    tip(frmSymbol, "Das eigene Flugzeug auf der Karte", "The own aircraft on the chart");
    tip(Frame4, "Aufzeichnung des Flugs", "Recording of the flight");
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
