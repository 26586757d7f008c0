#include "planning/frmRoutePanel.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

#include "platform/qt/Clicked.h"
#include "platform/qt/FittedText.h"
#include "platform/qt/GridBinding.h"
#include "platform/qt/LampButton.h"
#include "platform/qt/Named.h"
#include "platform/qt/RecordsetModel.h"
#include "platform/qt/SingleClick.h"
#include "platform/qt/Spaced.h"

namespace ornivane {

namespace {

constexpr int PanelWidth = 244, NumberWidth = 44, DistanceSize = 22; // pixels

} // namespace

frmRoutePanel::frmRoutePanel(QWidget* parent, RouteEditing& toShow, const Language& texts,
                             std::function<void(const Event&)> toRun, const Event& addWaypoint)
    : frmListPanel(parent, texts, std::move(toRun)), routes(toShow) {
    setObjectName("frmRoutePanel");
    setFixedWidth(PanelWidth);
    auto* column = Spaced(new QVBoxLayout(this), 5, {8, 6, 8, 6});
    route = MakeList(
        "gridRoute", routes.RoutesSet, [this] { return Text("      Strecke", "      Route"); },
        &RouteEditing::RoutesHeadClick);
    cmdNewRoute = Button("cmdNewRoute", [this] { return routes.cmdNewRoute(); });
    cmdRouteDelete = Button("cmdRouteDelete", [this] { return routes.cmdRouteDelete(); });
    points = MakeList(
        "gridPoints", routes.RoutePointsSet, [this] { return Text("   Streckenpunkte", "    Routepoints"); },
        &RouteEditing::PointsHeadClick);
    connect(points.Binding.get(), &GridBinding::RowChosen, this,
            [this] { Do([this] { return routes.PointRowChanged(); }); });
    cmdAddwaypoint = Button("cmdAddwaypoint", addWaypoint);
    cmdDeleteWaypoint = Button("cmdDeleteWaypoint", [this] { return routes.cmdDeleteWaypoint(); });
    new SingleClick(*cmdDeleteWaypoint);
    column->addWidget(route.Grid, 2);
    column->addWidget(cmdNewRoute);
    column->addWidget(cmdRouteDelete);
    column->addSpacing(6);
    column->addWidget(points.Grid, 3);
    column->addWidget(cmdAddwaypoint);
    column->addWidget(cmdDeleteWaypoint);
    MakeDrawing(*column);
}

frmRoutePanel::~frmRoutePanel() = default;

frmRoutePanel::List frmRoutePanel::MakeList(const char* name, Recordset& rows,
                                            std::function<QString()> caption,
                                            void (RouteEditing::*headClick)(int)) {
    List list;
    list.Grid = Grid(name);
    list.Model = std::make_unique<RecordsetModel>(
        rows, std::vector<RecordsetModel::Column>{{"Nummer", [] { return QString(" Nr"); }, {}},
                                                  {"Name", std::move(caption), {}}});
    list.Binding = std::make_unique<GridBinding>(*list.Model, *list.Grid);
    list.Grid->setMinimumHeight(70);
    list.Grid->setColumnWidth(0, NumberWidth);
    list.Grid->horizontalHeader()->setStretchLastSection(true);
    connect(list.Grid->horizontalHeader(), &QHeaderView::sectionClicked, this,
            [this, headClick](int column) { Do([&] { (routes.*headClick)(column); }); });
    connect(list.Binding.get(), &GridBinding::RowChosen, this, [this] { Do([] {}); });
    connect(list.Model.get(), &RecordsetModel::CurrentMoved, this, [this] { Do([] {}); });
    return list;
}

LampButton* frmRoutePanel::Switch(const char* name, const Event& click) {
    auto* button = new LampButton(this);
    button->SetIcon(":/icons/route.svg");
    Wire(*button, name, click);
    return button;
}

void frmRoutePanel::MakeDrawing(QBoxLayout& layout) {
    auto* row = Spaced(new QHBoxLayout, 5);
    cmdshowRoute = Switch("cmdshowRoute", [this] { return routes.cmdshowRoute(); });
    picShowRoute = Switch("picShowRoute", [this] { return routes.picShowRoute(); });
    picShowRoute->SetLit(true);
    lblRouteDistanz = Named(new FittedText(DistanceSize, this), "lblRouteDistanz");
    lblRouteDistanz->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lblRouteDistanz->installEventFilter(this);
    row->addWidget(cmdshowRoute, 1);
    row->addWidget(picShowRoute, 1);
    row->addWidget(lblRouteDistanz, 2);
    layout.addLayout(row);
}

bool frmRoutePanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lblRouteDistanz && IsClick(*lblRouteDistanz, *event)) {
        Do([this] { return routes.picShowRoute(); });
        return true;
    }
    return frmListPanel::eventFilter(watched, event);
}

bool frmRoutePanel::TakesKey(QObject* watched, int key) const {
    return IsEnter(key) && (watched == route.Grid || watched == points.Grid);
}

// From the waypoints points are picked.
void frmRoutePanel::KeyDone(QObject*, int) {
    Do([] { return PlanEffects{PlanEffect::FocusWaypoints}; });
}

void frmRoutePanel::FocusList() { route.Grid->setFocus(); }

void frmRoutePanel::ShowSelection() {
    for (List* list : {&route, &points}) list->Binding->SelectRow();
}

void frmRoutePanel::Show(const RouteControls& controls) {
    lblRouteDistanz->setText(QString::fromStdString(controls.lblRouteDistanz));
    LampButton* shows = controls.ShowRouteOn ? picShowRoute : cmdshowRoute;
    LampButton* hides = controls.ShowRouteOn ? cmdshowRoute : picShowRoute;
    const bool hadFocus = hides->hasFocus();
    shows->show();
    if (hadFocus) shows->setFocus(); // before the other is hidden: the keys would go on elsewhere
    hides->hide();
}

void frmRoutePanel::ApplyLanguage() {
    cmdNewRoute->setText(Text(" Strecke hinzufügen ", " Add Route "));
    cmdRouteDelete->setText(Text(" Strecke löschen ", " Delete Route "));
    cmdAddwaypoint->setText(Text(" Streckenpunkt hinzufügen ", " Add Routepoint "));
    cmdDeleteWaypoint->setText(Text(" Streckenpunkt löschen ", " Delete Routepoint "));
    cmdshowRoute->setToolTip(Text("Route anzeigen", "Show route"));
    picShowRoute->setToolTip(Text("Route nicht anzeigen", "Don't show route"));
    lblRouteDistanz->setToolTip(Text("Länge der gezeichneten Strecke; Klick zeigt sie nicht mehr",
                                     "Length of the route drawn; a click hides the route"));
    route.Grid->setToolTip(Text("Die gewählte Strecke; Klick auf Nr ordnet, Eingabe geht zu den Wegpunkten",
                                "The chosen route; a click on Nr sorts, Enter leads to the waypoints"));
    points.Grid->setToolTip(Text("Hinter dem gewählten Punkt wird eingefügt; Klick auf Nr ordnet",
                                 "New points go behind the chosen one; a click on Nr sorts"));
    cmdNewRoute->setToolTip(Text("Neue Strecke hinter der gewählten", "A new route behind the chosen one"));
    cmdRouteDelete->setToolTip(
        Text("Löscht die gewählte Strecke nach einer Rückfrage", "Deletes the chosen route after asking"));
    cmdAddwaypoint->setToolTip(Text("Fügt den gewählten Wegpunkt hinter dem gewählten Streckenpunkt ein",
                                    "Puts the chosen waypoint behind the chosen route point"));
    cmdDeleteWaypoint->setToolTip(
        Text("Nimmt den gewählten Punkt aus der Strecke", "Takes the chosen point out of the route"));
    for (List* list : {&route, &points}) list->Model->HeadersChanged();
}

} // namespace ornivane
