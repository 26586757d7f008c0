#include "planning/frmExport.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/qt/EnterKey.h"
#include "platform/qt/Spaced.h"

namespace ornivane {

namespace {

constexpr int NarrowestPath = 560; // pixels
constexpr int PathLines = 2;       // kept free from the start, so that the buttons stay where they are
constexpr int ListedAtOnce = 12;   // routes of the opened list

} // namespace

frmExport::frmExport(Variablen& variablen, Dialogs& dialogs, EventGuard& guard,
                     const std::string& gridRouteCell, QWidget* parent)
    : QDialog(parent), language(variablen), logic(variablen, variablen, variablen.DataConn, dialogs) {
    setObjectName("frmExport");
    setAttribute(Qt::WA_DeleteOnClose);
    // The list is as high as the buttons.
    setStyleSheet("QLabel, QComboBox, QPushButton { font-size: 18px } QComboBox { min-height: 40px }");
    LayOut();
    guard.Run([&] { logic.Form_Load(gridRouteCell); });
    for (const std::string& name : logic.cmbRoute) cmbRoute.addItem(QString::fromStdString(name));
    cmbRoute.setCurrentIndex(logic.cmbRouteIndex);
    guard.Connect(&cmbRoute, &QComboBox::currentIndexChanged, [this](int chosen) {
        logic.cmbRouteIndex = chosen;
        ShowState();
    });
    guard.Connect(&cmdExport, &QPushButton::clicked, [this] {
        logic.cmdExport();
        ShowState();
    });
    guard.Connect(&cmdExit, &QPushButton::clicked, [this] { close(); });
    ApplyLanguage();
    ShowState();
}

void frmExport::LayOut() {
    Label1.setObjectName("Label1");
    Label2.setObjectName("Label2");
    lblSave.setObjectName("lblSave");
    cmbRoute.setObjectName("cmbRoute");
    cmdExport.setObjectName("cmdExport");
    cmdExit.setObjectName("cmdExit");
    cmbRoute.setMaxVisibleItems(ListedAtOnce);
    cmbRoute.setSizeAdjustPolicy(
        QComboBox::AdjustToMinimumContentsLengthWithIcon); // whatever routes are called
    Label2.setBuddy(&cmbRoute);
    lblSave.setTextFormat(Qt::PlainText); // a name is never markup
    lblSave.setWordWrap(true);
    lblSave.setMinimumWidth(NarrowestPath);
    lblSave.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    cmdExport.setDefault(true);
    cmdExit.setAutoDefault(false);
    new EnterKey(cmdExit, [this] { close(); }); // elsewhere Enter saves

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(&cmdExport);
    buttons->addWidget(&cmdExit);
    auto* layout = Spaced(new QVBoxLayout(this), 8, {24, 20, 24, 20});
    layout->addWidget(&Label2);
    layout->addWidget(&cmbRoute);
    layout->addSpacing(12);
    layout->addWidget(&Label1);
    layout->addWidget(&lblSave);
    layout->addSpacing(12);
    layout->addStretch();
    layout->addLayout(buttons);
}

void frmExport::ApplyLanguage() {
    setWindowTitle(Text("Strecke exportieren", "Export route"));
    Label1.setText(Text("Verzeichnis", "Directory"));
    Label2.setText(Text("Strecke auswählen", "Select route"));
    cmdExport.setText(Text("Speichern", "Save"));
    cmdExit.setText(Text("Schließen", "Close"));
    cmbRoute.setToolTip(Text("Die Strecke, die gespeichert wird", "The route that is saved"));
    lblSave.setToolTip(Text("Hierhin wird gespeichert; die Datei kann weitergegeben werden",
                            "Where it is saved to; the file can be passed on"));
    cmdExport.setToolTip(Text("Die Strecke mit ihren Wegpunkten speichern (Enter); eine Datei dieses Namens "
                              "wird ersetzt",
                              "Save the route with its waypoints (Enter); a file of that name is replaced"));
    cmdExit.setToolTip(Text("Dieses Fenster schließen (Esc)", "Close this window (Esc)"));
}

void frmExport::ShowState() {
    lblSave.setText(QString::fromStdString(logic.lblSave));
    lblSave.ensurePolished();
    const int free = PathLines * lblSave.fontMetrics().lineSpacing();
    lblSave.setMinimumHeight(
        std::max(free, lblSave.heightForWidth(std::max(lblSave.width(), NarrowestPath))));
    cmdExport.setEnabled(logic.cmbRouteIndex >= 0);
}

} // namespace ornivane
