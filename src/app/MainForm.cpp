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
#include "platform/qt/QtNotice.h"

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

void Caption(QAction* action, Bilingual text, Bilingual tip, bool english) {
    action->setText(text.In(english));
    action->setToolTip(tip.In(english));
}

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

// A lit button is bold. Its neighbours must not move for that: the pilot's finger knows their places.
void KeepWidthWhenLit(QToolButton& button) {
    button.ensurePolished();
    QFont bold = button.font();
    bold.setBold(true);
    constexpr int frameAndPadding = 28;
    button.setMinimumWidth(QFontMetrics(bold).horizontalAdvance(button.text()) + frameAndPadding);
}

} // namespace

MainForm::MainForm(Variablen& variablenOf, Services servicesOf)
    : variablen(variablenOf), services(std::move(servicesOf)),
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
    auto* layout = new QVBoxLayout(centre);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    stack = new QStackedWidget;
    stack->setObjectName("screens");
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
        services.Guard->Connect(button, &QToolButton::clicked,
                                [this, button] { toolMain_ButtonClick(button->text()); });
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
    menu = new QMenu(this);
    menu->setObjectName("mnuMain");
    menu->setToolTipsVisible(true);
    menu->setStyleSheet(MenuStyle);
    mnuUpdate = AddEntry("mnuUpdate", &MainForm::mnuUpdate_Click);
    mnuExport = AddEntry("mnuExport", &MainForm::mnuExport_Click);
    mnuImport = AddEntry("mnuImport", &MainForm::mnuImport_Click);
    mnuLuftEin = AddEntry("mnuLuftEin", &MainForm::mnuLuftEin_Click);
    mnuabout = AddEntry("mnuabout", &MainForm::mnuabout_Click);
    mnuUpdate->setVisible(false);

    cmdMenu = ToolbarButton("cmdMenu");
    cmdMenu->setPopupMode(QToolButton::InstantPopup);
    cmdMenu->setMenu(menu);
    connect(new QShortcut(QKeySequence(Qt::Key_F10), this), &QShortcut::activated, cmdMenu,
            &QToolButton::showMenu);
    toolMain->addWidget(cmdMenu);
}

QAction* MainForm::AddEntry(const char* name, void (MainForm::*handler)()) {
    QAction* entry = menu->addAction(QString());
    entry->setObjectName(name);
    services.Guard->Connect(entry, &QAction::triggered, [this, handler] { (this->*handler)(); });
    return entry;
}

bool MainForm::Form_Load() {
    if (!StoreOpening(variablen, *services.Boxes, *this).Run()) return false;
    // A program folder that cannot be written costs the update tool its knowledge, and nobody the flight.
    services.Guard->Run([this] { WriteVersion(variablen.ProgramFolder, ProgramVersion()); });
    mnuUpdate->setVisible(variablen.UpdateAvailable);
    ApplyLanguage();
    showMaximized();
    ShowMode(Mode::Flight);
    for (frmInfo* hint : findChildren<frmInfo*>()) hint->show(); // above the window, so after it
    return true;
}

void MainForm::ApplyLanguage() {
    const bool english = variablen.EnglishUI == 1;
    if (services.SetLanguage) services.SetLanguage(english);
    for (const auto& [mode, button] : buttons) {
        button->setText(ModeCaption(mode).In(english));
        KeepWidthWhenLit(*button);
        button->setToolTip(ModeTooltip(mode).In(english));
    }
    cmdNight->setText(captions::Night.In(english));
    KeepWidthWhenLit(*cmdNight);
    cmdNight->setToolTip(captions::NightTip.In(english));
    cmdMenu->setText(captions::Menu.In(english));
    cmdMenu->setToolTip(captions::MenuTip.In(english));
    Caption(mnuUpdate, captions::Update, captions::UpdateTip, english);
    Caption(mnuExport, captions::Export, captions::ExportTip, english);
    Caption(mnuImport, captions::Import, captions::ImportTip, english);
    Caption(mnuLuftEin, captions::Airspace, captions::AirspaceTip, english);
    Caption(mnuabout, captions::About, captions::AboutTip, english);
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
    ShowCaption();
}

// The screen first: a row of windows shows only the beginning. The flying screen has no name of its own.
void MainForm::ShowCaption() {
    const QWidget* front = stack->currentWidget();
    const QString caption = front ? front->windowTitle() : QString();
    setWindowTitle(caption.isEmpty() ? ProgramName : caption + " – " + ProgramName);
}

void MainForm::toolMain_ButtonClick(const QString& caption) {
    const auto mode = ModeOfCaption(caption.toStdString(), variablen.EnglishUI == 1);
    if (mode) ShowMode(*mode);
    ShowState();
}

void MainForm::ShowMode(Mode mode) {
    screens.Show(mode);
    ShowState();
    // A screen that knows where its keys belong has taken the focus already.
    QWidget* front = stack->currentWidget();
    if (front && !front->isAncestorOf(focusWidget())) front->setFocus();
}

void MainForm::mnuExport_Click() { services.ShowExport(this); }

void MainForm::mnuImport_Click() { services.ImportRoute(); }

void MainForm::mnuLuftEin_Click() {
    if (services.ShowAirspaceSettings) services.ShowAirspaceSettings();
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

void MainForm::TrackStoreUnavailable(const std::string& reason) {
    frmInfo::ForTrackStore(variablen, *services.Links, reason, this);
}

void MainForm::AirspaceStoreUnavailable(const std::string& reason) {
    frmInfo::ForAirspaceStore(variablen, *services.Links, reason, this);
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
