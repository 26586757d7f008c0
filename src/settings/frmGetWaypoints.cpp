#include "settings/frmGetWaypoints.h"

#include <QGridLayout>
#include <QScopeGuard>

#include "platform/qt/EnterKey.h"
#include "platform/qt/Events.h"
#include "platform/qt/FillCombo.h"
#include "settings/frmParts.h"

namespace ornivane {

frmGetWaypoints::frmGetWaypoints(const Language& shownIn, OpenStores& stores, Dialogs& dialogs,
                                 EventGuard& guard, QWidget* parent)
    : QDialog(parent), language(shownIn), logic(shownIn, stores, dialogs) {
    setObjectName("frmGetWaypoints");
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    setStyleSheet(parts::SectionStyle);
    resize(620, 600);
    logic.Form_Load();
    LayOut();
    EnterKey::PressesButtonsOf(*this);
    QStringList names;
    for (const AirfieldCountry& country : logic.listAP) names << QString::fromStdString(country.Name);
    countries.setStringList(names);
    FillCombo(*cmbKategorie, logic.Categories, logic.cmbKategorie);

    guard.Connect(listAP->selectionModel(), &QItemSelectionModel::selectionChanged, [this] {
        logic.listAP_Click(parts::ChosenRows(*listAP));
        ShowState();
    });
    guard.Connect(cmbKategorie, &QComboBox::activated, [this](int index) {
        logic.cmbKategorie_Click(cmbKategorie->itemText(index).toStdString());
        ShowState();
    });
    guard.Connect(cmdTransfer, &QPushButton::clicked, [this] {
        setCursor(Qt::WaitCursor); // every airport of the world takes a second or two
        const auto after = qScopeGuard([this] { unsetCursor(); });
        logic.cmdTransfer_Click(parts::ChosenRows(*listAP));
    });
    connect(cmdEnd, &QPushButton::clicked, this, &QDialog::close);
    ApplyTexts();
    ShowState();
}

void frmGetWaypoints::LayOut() {
    auto* Label1 = parts::Label("Label1", "Länder");
    auto* Label2 = parts::Label("Label2", "Kategorie");
    lblCount = parts::Label("lblCount");
    lblCount->setStyleSheet("font-size: 18px; font-weight: bold");
    listAP = parts::ChoiceList("listAP");
    listAP->setModel(&countries);
    cmbKategorie = parts::Combo("cmbKategorie");
    cmdTransfer = parts::Button("cmdTransfer");
    cmdEnd = parts::Button("cmdEnd");
    auto* layout = new QGridLayout(this);
    layout->addWidget(Label1, 0, 0);
    layout->addWidget(lblCount, 0, 1, Qt::AlignRight);
    layout->addWidget(listAP, 1, 0, 1, 2);
    layout->addWidget(Label2, 2, 0);
    layout->addWidget(cmbKategorie, 2, 1);
    layout->addWidget(cmdTransfer, 3, 0, 1, 2);
    layout->addWidget(cmdEnd, 4, 0, 1, 2);
    layout->setRowStretch(1, 1);
    layout->setColumnStretch(1, 1);
}

void frmGetWaypoints::ShowState() {
    lblCount->setText(QString::fromStdString(logic.lblCount));
    // An ampersand in a name is no key.
    cmdTransfer->setText(QString::fromStdString(logic.cmdTransfer).replace("&", "&&"));
}

void frmGetWaypoints::ApplyTexts() {
    setWindowTitle("Flughäfen importieren");
    cmdEnd->setText("Schließen");
    const auto tip = [this](QWidget* widget, const char* german, const char* english) {
        widget->setToolTip(language.Text(german, english));
    };
    tip(listAP, "Länder wählen: Klick oder Leertaste; Strg+A wählt alle",
        "Choose countries: click or space bar; Ctrl+A takes all");
    tip(lblCount, "So viele Flugplätze sind gewählt", "So many airfields are chosen");
    tip(cmbKategorie, "Die Kategorie, in die sie kommen", "The category that they get");
    tip(cmdTransfer,
        "Die Flugplätze der gewählten Länder als Wegpunkte hinzufügen; vorhandene bleiben, wie sie sind",
        "Add the airfields of the chosen countries as waypoints; those that exist stay as they are");
    tip(cmdEnd, "Dieses Fenster schließen", "Close this window");
}

} // namespace ornivane
