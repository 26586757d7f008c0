#include "settings/frmManager.h"

#include <QGridLayout>
#include <QScopeGuard>
#include <QScrollBar>

#include "platform/qt/EnterKey.h"
#include "platform/qt/Events.h"
#include "platform/qt/FillCombo.h"
#include "settings/frmParts.h"

namespace ornivane {

frmManager::frmManager(const Language& shownIn, Connection& dataConn, Dialogs& dialogs,
                       EventGuard& eventGuard, QWidget* parent)
    : QDialog(parent), language(shownIn), guard(eventGuard), logic(dataConn, dialogs) {
    setObjectName("frmManager");
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    setStyleSheet(parts::SectionStyle);
    resize(760, 600);
    MakeLists();
    Label1 = parts::Label("Label1");
    Label2 = parts::Label("Label2");
    Label3 = parts::Label("Label3");
    cmbKategorie = parts::Combo("cmbKategorie");
    cmdZuweisen = parts::Button("cmdZuweisen");
    cmdEnd = parts::Button("cmdEnd");

    auto* layout = new QGridLayout(this);
    layout->addWidget(Label1, 0, 0);
    layout->addWidget(Label2, 0, 1);
    layout->addWidget(listWegpunkt, 1, 0);
    layout->addWidget(listKategorie, 1, 1);
    layout->addWidget(Label3, 2, 0, Qt::AlignRight);
    layout->addWidget(cmbKategorie, 2, 1);
    layout->addWidget(cmdZuweisen, 3, 0);
    layout->addWidget(cmdEnd, 3, 1);
    layout->setRowStretch(1, 1);
    EnterKey::PressesButtonsOf(*this);

    guard.Connect(cmbKategorie, &QComboBox::activated, [this](int index) {
        logic.cmbKategorie = cmbKategorie->itemText(index).toStdString();
        ShowState();
    });
    connect(cmdZuweisen, &QPushButton::clicked, this, &frmManager::Assign);
    connect(cmdEnd, &QPushButton::clicked, this, &QDialog::close);
    logic.Form_Load();
    waypoints.setStringList(parts::Texts(logic.listWegpunkt));
    ShowCategories();
    FillCombo(*cmbKategorie, logic.Categories, {});
    cmbKategorie->insertItem(0, QString()); // none
    cmbKategorie->setCurrentIndex(0);
    ApplyLanguage();
    ShowState();
}

void frmManager::MakeLists() {
    listWegpunkt = parts::ChoiceList("listWegpunkt");
    listKategorie = parts::ChoiceList("listKategorie");
    listKategorie->setSelectionMode(QAbstractItemView::NoSelection);
    listWegpunkt->setModel(&waypoints);
    listKategorie->setModel(&categories);
    MoveAsOne(*listWegpunkt, *listKategorie);
    MoveAsOne(*listKategorie, *listWegpunkt);
    guard.Connect(listWegpunkt->selectionModel(), &QItemSelectionModel::selectionChanged,
                  [this] { ShowState(); });
}

void frmManager::MoveAsOne(QListView& one, QListView& other) {
    connect(one.verticalScrollBar(), &QScrollBar::valueChanged, other.verticalScrollBar(),
            &QScrollBar::setValue);
    connect(one.selectionModel(), &QItemSelectionModel::currentRowChanged, &other,
            [&other](const QModelIndex& current) {
                if (other.currentIndex().row() == current.row()) return;
                other.selectionModel()->setCurrentIndex(other.model()->index(current.row(), 0),
                                                        QItemSelectionModel::NoUpdate);
            });
}

// Also an assignment that ends in an error has changed something: what it did shows.
void frmManager::Assign() {
    guard.Run([this] {
        setCursor(Qt::WaitCursor);
        const auto after = qScopeGuard([this] { unsetCursor(); });
        logic.cmdZuweisen_Click(parts::ChosenRows(*listWegpunkt));
    });
    ShowCategories();
}

// The waypoints stay as they are, with what is chosen and their top row; the categories follow.
void frmManager::ShowCategories() {
    categories.setStringList(parts::Texts(logic.listKategorie));
    listKategorie->verticalScrollBar()->setValue(listWegpunkt->verticalScrollBar()->value());
}

void frmManager::ShowState() { cmdZuweisen->setEnabled(listWegpunkt->selectionModel()->hasSelection()); }

void frmManager::ApplyLanguage() {
    setWindowTitle(Text("Wegpunkt Manager", "Manage waypoints"));
    Label1->setText(Text("Wegpunkt", "Waypoint"));
    Label2->setText(Text("Kategorie", "Category"));
    Label3->setText(Text("Kategorie", "Category"));
    cmdZuweisen->setText(
        Text("Kategorie ausgewählten Wegpunkten zuweisen", "Add waypoints to selected category"));
    cmdEnd->setText(Text("Schließen", "Close"));
    listWegpunkt->setToolTip(Text("Wegpunkte wählen: Klick oder Leertaste; Strg+A wählt alle",
                                  "Choose waypoints: click or space bar; Ctrl+A takes all"));
    listKategorie->setToolTip(
        Text("Die Kategorie des Wegpunkts in dieser Zeile", "The category of the waypoint in this row"));
    cmbKategorie->setToolTip(
        Text("Die Kategorie, die zugewiesen wird; die leere Zeile nimmt die Wegpunkte aus ihrer heraus",
             "The category that is given; the empty line takes the waypoints out of theirs"));
    cmdZuweisen->setToolTip(Text("Den gewählten Wegpunkten die Kategorie geben, die dort steht; ohne eine "
                                 "kommen sie aus ihrer heraus",
                                 "Give the chosen waypoints the category that stands there; without one they "
                                 "are taken out of theirs"));
    cmdEnd->setToolTip(Text("Dieses Fenster schließen", "Close this window"));
}

} // namespace ornivane
