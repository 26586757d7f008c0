#include "app/MainForm.h"

#include <QCloseEvent>
#include <QFontMetrics>
#include <QShortcut>
#include <QVBoxLayout>

#include "app/StoreOpening.h"
#include "app/UpdateCheck.h"
#include "app/frmAbout.h"
#include "app/frmInfo.h"
#include "common/SettingsFiles.h"
#include "platform/qt/Named.h"
#include "platform/qt/QtNotice.h"
#include "platform/qt/Spaced.h"

namespace ornivane {

namespace {

constexpr int ButtonHeight = 48; // pixels: pressed in turbulence and with gloves
constexpr QSize SmallestSize(1024, 700);
// Entries as high as buttons, the chosen one and those that are off told by more than a shade.
constexpr const char* MenuStyle = R"(
QMenu { background: palette(base); border: 2px solid palette(mid); }
QMenu::item { min-height: 44px; padding: 0 28px; font-size: 18px; color: palette(text); }
QMenu::item:selected { background: palette(highlight); color: palette(highlighted-text); }
QMenu::item:disabled { color: palette(mid); font-style: italic; }
)";

// Focus by the Tab key only: a click must not take the keys away from the flying screen.
QToolButton* ToolbarButton(const QString& name) {
    auto* button = new QToolButton;
    button->setObjectName(name);
    button->setMinimumHeight(ButtonHeight);
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    button->setFocusPolicy(Qt::TabFocus);
    button->setStyleSheet("font-size: 18px");
    return button;
}

// A lit button is bold. Its neighbours must not move for that: the pilot presses them by their place.
void KeepWidthWhenLit(QToolButton& button) {
    button.ensurePolished();
    QFont bold = button.font();
    bold.setBold(true);
    constexpr int frameAndPadding = 28;
    button.setMinimumWidth(QFontMetrics(bold).horizontalAdvance(button.text()) + frameAndPadding);
}

} // namespace

MainForm::MainForm(Variablen& shared, Services programServices)
    : variablen(shared), services(std::move(programServices)),
      screens({services.MakeScreen,
               [this](Screen* screen) {
                   if (stack->indexOf(screen) < 0) stack->addWidget(screen);
                   stack->setCurrentWidget(screen);
               },
               [this](const std::function<void()>& step) { return services.Guard->Run(step); }}) {
    setObjectName("Main");
    setWindowTitle(ProgramName);
    setMinimumSize(SmallestSize);
    resize(SmallestSize);
    setContextMenuPolicy(Qt::NoContextMenu); // the toolbar cannot be hidden away

    MakeToolbar();
    MakeMenu();
    auto* centre = new QWidget;
    auto* layout = Spaced(new QVBoxLayout(centre), 0);
    stack = Named(new QStackedWidget, "screens");
    layout->addWidget(stack, 1);
    if (services.NoticeBar) services.NoticeBar->StandIn(*centre);
    setCentralWidget(centre);
    ApplyLanguage();
}

MainForm::~MainForm() = default;

void MainForm::MakeToolbar() {
    toolMain = addToolBar("toolMain");
    toolMain->setObjectName("toolMain");
    toolMain->setMovable(false);
    int number = 1;
    for (const Mode mode : AllModes) {
        if (mode != AllModes.front()) toolMain->addSeparator();
        // Numbered as the places of the toolbar are, separators included.
        QToolButton* button = ToolbarButton(QString("button%1").arg(2 * number - 1));
        button->setCheckable(true);
        services.Guard->Connect(button, &QToolButton::clicked, [this, mode] { toolMain_ButtonClick(mode); });
        auto* key = new QShortcut(QKeySequence(Qt::Key_F1 + number - 1), this);
        connect(key, &QShortcut::activated, button, &QToolButton::click);
        toolMain->addWidget(button);
        buttons[mode] = button;
        ++number;
    }
    auto* gap = new QWidget;
    gap->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    toolMain->addWidget(gap);

    cmdNight = ToolbarButton("cmdNight");
    cmdNight->setCheckable(true);
    services.Guard->Connect(cmdNight, &QToolButton::toggled, [this](bool night) {
        if (services.SetNight) services.SetNight(night);
    });
    connect(new QShortcut(QKeySequence(Qt::Key_F9), this), &QShortcut::activated, cmdNight,
            &QToolButton::click);
    toolMain->addWidget(cmdNight);
}

void MainForm::MakeMenu() {
    menu = Named(new QMenu(this), "mnuMain");
    menu->setToolTipsVisible(true);
    menu->setStyleSheet(MenuStyle);
    mnuUpdate = AddEntry("mnuUpdate", [this] { mnuUpdate_Click(); });
    mnuExport = AddEntry("mnuExport", [this] { services.ShowExport(this); });
    mnuImport = AddEntry("mnuImport", [this] { services.ImportRoute(); });
    mnuLuftEin = AddEntry("mnuLuftEin", [this] {
        if (services.ShowAirspaceSettings) services.ShowAirspaceSettings();
    });
    mnuabout = AddEntry("mnuabout", [this] { mnuabout_Click(); });
    mnuUpdate->setVisible(false);

    cmdMenu = ToolbarButton("cmdMenu");
    cmdMenu->setPopupMode(QToolButton::InstantPopup);
    cmdMenu->setMenu(menu);
    connect(new QShortcut(QKeySequence(Qt::Key_F10), this), &QShortcut::activated, cmdMenu,
            &QToolButton::showMenu);
    toolMain->addWidget(cmdMenu);
}

QAction* MainForm::AddEntry(const char* name, const std::function<void()>& handler) {
    QAction* entry = menu->addAction(QString());
    entry->setObjectName(name);
    services.Guard->Connect(entry, &QAction::triggered, handler);
    return entry;
}

bool MainForm::Form_Load() {
    const StoreOpening::Result stores = StoreOpening(variablen, *services.Boxes).Run();
    if (stores.MustEnd) return false;
    const auto addHint = [this](frmInfo::Store about, const std::optional<std::string>& failure) {
        if (failure) new frmInfo(about, variablen, *services.Links, *failure, this);
    };
    addHint(frmInfo::Store::Track, stores.TrackFailure);
    addHint(frmInfo::Store::Airspace, stores.AirspaceFailure);
    // A program folder that cannot be written costs the update tool its knowledge, and nobody the flight.
    services.Guard->Run([this] { WriteVersion(variablen.ProgramFolder, ProgramVersion()); });
    mnuUpdate->setVisible(variablen.UpdateAvailable);
    ApplyLanguage();
    showMaximized();
    toolMain_ButtonClick(Mode::Flight);
    for (frmInfo* hint : findChildren<frmInfo*>()) hint->show(); // above the window, so after it
    return true;
}

void MainForm::ApplyLanguage() {
    if (services.SetLanguage) services.SetLanguage(variablen);
    const auto show = [this](auto* control, Bilingual text, Bilingual tip) {
        control->setText(text.In(variablen));
        control->setToolTip(tip.In(variablen));
    };
    for (const auto& [mode, button] : buttons) {
        show(button, ModeCaption(mode), ModeTooltip(mode));
        KeepWidthWhenLit(*button);
    }
    show(cmdNight, {"Nacht", "Night"},
         {"Dunkle Farben für die Nacht, die Karte bleibt wie sie ist (F9)",
          "Dark colours for the night, the chart stays as it is (F9)"});
    KeepWidthWhenLit(*cmdNight);
    show(cmdMenu, {"Menü", "Menu"},
         {"Strecken austauschen, Luftraumanzeige, Über das Programm (F10)",
          "Exchange routes, airspace view, about the program (F10)"});
    show(mnuUpdate, captions::Update,
         {"Das Update-Programm starten; Ornivane GPS wird dazu beendet",
          "Start the update program; this ends Ornivane GPS"});
    show(mnuExport, {"Strecke exportieren", "Export Route"},
         {"Eine Strecke als Datei speichern (im Bildschirm Planung)",
          "Save a route to a file (on the planning screen)"});
    show(mnuImport, {"Strecke importieren", "Import Route"},
         {"Eine Strecke aus einer Datei einlesen (im Bildschirm Planung)",
          "Read a route from a file (on the planning screen)"});
    show(mnuLuftEin, {"Luftraumanzeige", "Airspace View"},
         {"Wählen, welche Lufträume die Planungskarte zeigt (im Bildschirm Planung)",
          "Choose which airspaces the planning map shows (on the planning screen)"});
    show(mnuabout, captions::About,
         {"Version und Herkunft des Programms", "Version and origin of the program"});
    for (frmInfo* hint : findChildren<frmInfo*>()) hint->ApplyLanguage();
    for (Screen* screen : screens.Loaded()) services.Guard->Run([&] { screen->ApplyLanguage(); });
    ShowState();
}

void MainForm::ShowState() {
    const std::optional<Mode> current = screens.Current();
    for (const auto& [mode, button] : buttons) button->setChecked(mode == current);
    mnuExport->setEnabled(current == Mode::Planning);
    mnuImport->setEnabled(current == Mode::Planning);
    mnuLuftEin->setEnabled(current == Mode::Planning);
    // The screen first: a row of windows shows only the beginning. The flying screen has no name of its own.
    const QWidget* front = stack->currentWidget();
    const QString caption = front ? front->windowTitle() : QString();
    setWindowTitle(caption.isEmpty() ? ProgramName : caption + " – " + ProgramName);
}

void MainForm::toolMain_ButtonClick(Mode mode) {
    screens.Show(mode);
    ShowState(); // also when that mode was in front: a click has switched its button off
    // A screen that knows where its keys belong has taken the focus already.
    QWidget* front = stack->currentWidget();
    if (front && !front->isAncestorOf(focusWidget())) front->setFocus();
}

void MainForm::mnuabout_Click() {
    if (auto* open = findChild<frmAbout*>()) return open->raise();
    (new frmAbout(variablen, *services.Links, this))->open();
}

void MainForm::mnuUpdate_Click() {
    const std::filesystem::path program = variablen.ProgramFolder.string() + "/" + "update.exe";
    if (services.Programs->Start(program)) {
        QueryUnload();
        return;
    }
    services.Boxes->Message(ProgramName, "Datei fehlt");
}

void MainForm::QueryUnload() {
    if (unloaded) return;
    unloaded = true;
    screens.UnloadAllForms(objectName().toStdString());
    services.Guard->Run([this] { services.Programs->EndSiblings(); });
    services.Ended();
}

void MainForm::closeEvent(QCloseEvent* event) {
    QueryUnload();
    event->accept();
}

} // namespace ornivane
