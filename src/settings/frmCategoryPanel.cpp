#include "settings/frmCategoryPanel.h"

#include <QEvent>
#include <QGridLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QTableView>

#include "base/Flagged.h"
#include "platform/qt/EnterKey.h"
#include "platform/qt/Events.h"
#include "platform/qt/GridBinding.h"
#include "platform/qt/RecordsetModel.h"
#include "platform/qt/SingleClick.h"
#include "settings/frmParts.h"

namespace ornivane {

constexpr int RowHeight = 34, NumberWidth = 46, EntryHeight = 44; // pixels

frmCategoryPanel::frmCategoryPanel(Categories& categories, const Language& shownIn, EventGuard& eventGuard,
                                   const OpenedDialogs& opened)
    : list(categories), language(shownIn), guard(eventGuard) {
    setObjectName("frmKategorie");
    auto* layout = new QGridLayout(this);
    layout->setSpacing(6);
    MakeGrid();
    tKategorie = Named(new QLineEdit, "tKategorie");
    tKategorie->setMinimumHeight(EntryHeight);
    tKategorie->installEventFilter(this);
    guard.Connect(tKategorie, &QLineEdit::textEdited,
                  [this](const QString& text) { list.tKategorie = text.toStdString(); });
    new EnterKey(*tKategorie, [this] { Run([this] { list.cmdAdd_Click(); }); });
    cmdAdd = CommandButton("cmdAdd", [this] { list.cmdAdd_Click(); });
    cmdChange = CommandButton("cmdChange", [this] { list.cmdChange_Click(); });
    cmdDelete = CommandButton("cmdDelete", [this] { list.cmdDelete_Click(); });
    for (QPushButton* button : {cmdChange, cmdDelete}) new SingleClick(*button);
    cmdManager = CommandButton("cmdManager", opened.ShowManager);
    cmdGetWaypoint = CommandButton("cmdGetWaypoint", opened.ShowGetWaypoints);

    layout->addWidget(gridKategorie, 0, 0, 4, 1);
    layout->addWidget(tKategorie, 4, 0);
    int row = 0;
    for (QPushButton* button : {cmdAdd, cmdChange, cmdDelete, cmdManager, cmdGetWaypoint})
        layout->addWidget(button, row++, 1);
    layout->setColumnStretch(0, 1);
}

frmCategoryPanel::~frmCategoryPanel() = default;

void frmCategoryPanel::MakeGrid() {
    gridKategorie = Named(new QTableView, "gridKategorie");
    model = std::make_unique<RecordsetModel>(
        list.CategoriesSet, std::vector<RecordsetModel::Column>{
                                {"Nummer", [] { return QString("Nr"); }, {}},
                                {"Kategorie", [this] { return Text("Kategorie", "Category"); }, {}}});
    binding = std::make_unique<GridBinding>(*model, *gridKategorie);
    gridKategorie->setMinimumHeight(3 * RowHeight);
    gridKategorie->verticalHeader()->setDefaultSectionSize(RowHeight);
    gridKategorie->horizontalHeader()->setStretchLastSection(true);
    gridKategorie->horizontalHeader()->setSectionsClickable(true);
    gridKategorie->setColumnWidth(0, NumberWidth);
    guard.Connect(model.get(), &RecordsetModel::CurrentMoved, [this] {
        if (running) return;
        list.GridRowChanged();
        ShowState();
    });
    guard.Connect(gridKategorie->horizontalHeader(), &QHeaderView::sectionClicked,
                  [this](int column) { Run([&] { list.HeadClick(column); }); });
}

QPushButton* frmCategoryPanel::CommandButton(const char* name, const std::function<void()>& command) {
    auto* button = parts::Button(name);
    connect(button, &QPushButton::clicked, this, [this, command] { Run(command); });
    return button;
}

// Also a command that ends in an error may have changed something: what it did shows.
void frmCategoryPanel::Run(const std::function<void()>& command) {
    guard.Run([&] {
        const Flagged now(running);
        command();
    });
    ShowState();
}

bool frmCategoryPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched != tKategorie || event->type() != QEvent::MouseButtonDblClick)
        return QGroupBox::eventFilter(watched, event);
    list.tKategorie_DblClick();
    ShowState();
    return true;
}

void frmCategoryPanel::ShowState() {
    const QString entered = QString::fromStdString(list.tKategorie);
    if (tKategorie->text() != entered) tKategorie->setText(entered);
    binding->SelectRow();
    const bool hasRows = list.CategoriesSet.IsOpen() && list.CategoriesSet.RecordCount() > 0;
    cmdChange->setEnabled(hasRows);
    cmdDelete->setEnabled(hasRows);
}

void frmCategoryPanel::ApplyLanguage() {
    setTitle(Text("Wegpunkt Kategorien", "Waypoint categories"));
    cmdAdd->setText(Text(" Kategorie hinzufügen ", " Add Category "));
    cmdChange->setText(Text(" Kategorie ändern ", " Change Category "));
    cmdDelete->setText(Text(" Kategorie löschen ", " Delete Category "));
    cmdManager->setText(Text("Wegpunkt Manager", "Waypoint Manager"));
    cmdGetWaypoint->setText(Text("Flughäfen importieren", "Import airfields"));
    gridKategorie->setToolTip(Text("Die Kategorien in ihrer Reihenfolge", "The categories in their order"));
    tKategorie->setToolTip(Text("Name der Kategorie; Enter fügt sie hinzu, ein Doppelklick leert das Feld",
                                "Name of the category; Enter adds it, a double click empties the field"));
    cmdAdd->setToolTip(Text("Den Namen als neue Kategorie hinter der gewählten einfügen",
                            "Insert the name as a new category behind the chosen one"));
    cmdChange->setToolTip(Text("Die gewählte Kategorie und ihre Wegpunkte umbenennen",
                               "Rename the chosen category and its waypoints"));
    cmdDelete->setToolTip(Text("Die gewählte Kategorie ohne Rückfrage löschen; ihre Wegpunkte bleiben",
                               "Delete the chosen category without a question; its waypoints stay"));
    cmdManager->setToolTip(
        Text("Vielen Wegpunkten auf einmal eine Kategorie geben", "Give many waypoints a category at once"));
    cmdGetWaypoint->setToolTip(Text("Die Flugplätze ganzer Länder zu Wegpunkten machen",
                                    "Make waypoints of the airfields of whole countries"));
    model->HeadersChanged();
}

} // namespace ornivane
