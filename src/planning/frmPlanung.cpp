#include "planning/frmPlanung.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <algorithm>

#include "base/Flagged.h"
#include "planning/RouteImport.h"
#include "planning/frmLuftraumSettings.h"
#include "planning/frmRoutePanel.h"
#include "planning/frmWaypointPanel.h"
#include "platform/qt/ChartWatch.h"
#include "platform/qt/Events.h"
#include "platform/qt/FillCombo.h"
#include "platform/qt/LampButton.h"
#include "platform/qt/Named.h"
#include "platform/qt/QtPicture.h"
#include "platform/qt/QtProgress.h"
#include "platform/qt/ReadoutLabel.h"
#include "platform/qt/Spaced.h"
#include "platform/qt/SurfaceWidget.h"
#include "platform/qt/ZoomSlider.h"

namespace ornivane {

namespace {

// Pixels.
constexpr int WaypointsWidth = 332, WidestWaypoints = 420, RoutesWidth = 232, WidestRoutes = 320;
constexpr int BottomHeight = 66, LeastComboWidth = 150;
constexpr int CoordinateWidth = 148, DistanceWidth = 148, CourseWidth = 92; // the longest usual value
constexpr int MeasureWidth = 172;                                           // both languages, lit or not
constexpr int LeastMapWidth = 300, LeastMapHeight = 300;

QString Q(const std::string& text) { return QString::fromStdString(text); }

} // namespace

frmPlanung::frmPlanung(Variablen& variablen, Dialogs& messages, EventGuard& eventGuard, SharedCharts& charts)
    : shared(variablen), dialogs(messages), guard(eventGuard),
      picStorage(std::make_unique<QtPicture>(charts)) {
    setObjectName("frmPlanung");
    // The longest captions fit beside each other, lists are hit with gloves.
    setStyleSheet("QPushButton { padding: 0 4px; } QComboBox { min-height: 40px; }");
    MakeMap();
    MakeScreen();
    auto* layout = Spaced(new QGridLayout(this), 0);
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(0, 1);
    layout->addWidget(waypoints, 0, 0);
    layout->addWidget(picMap, 0, 1);
    layout->addWidget(routes, 0, 2);
    layout->addWidget(MakeBottom(), 1, 0, 1, 3);
    ChainFocus();
    ApplyLanguage();
}

// The panels look at the lists of the logic to their end.
frmPlanung::~frmPlanung() {
    delete waypoints;
    delete routes;
}

void frmPlanung::resizeEvent(QResizeEvent*) {
    waypoints->setFixedWidth(std::clamp(width() / 4, WaypointsWidth, WidestWaypoints));
    routes->setFixedWidth(std::clamp(width() / 6, RoutesWidth, WidestRoutes));
    layout()->activate(); // at once, or the map would be drawn twice
}

// The logic draws on the surface, and the panels speak to the logic.
void frmPlanung::MakeScreen() {
    progress = std::make_unique<QtProgress>(*progBar);
    screen = std::make_unique<PlanningScreen>(
        PlanningScreenWorld{shared, *picStorage, picMap->Surface(), *progress, dialogs, guard.Notices()},
        PlanningScreen::Form{[this] { ShowChanges(); }, [this] { ShowState(); },
                             [this](PlanEffect effect) { Focus(effect); }});
    chartWatch = std::make_unique<ChartWatch>(
        ChartWatch::World{*picStorage, *picMap, *progBar, guard, shared}, [this] { screen->PaintAgain(); });
    const auto run = [this](const frmListPanel::Event& event) { Do([&] { screen->Act(event()); }); };
    const auto addWaypoint = [this] { return screen->cmdAddwaypoint(); };
    waypoints = new frmWaypointPanel(this, screen->Waypoints, shared, run, addWaypoint);
    waypoints->TakeKeysOf(*picMap);
    routes = new frmRoutePanel(this, screen->Routes, shared, run, addWaypoint);
}

void frmPlanung::Focus(PlanEffect effect) {
    if (effect == PlanEffect::FocusMap) picMap->setFocus();
    if (effect == PlanEffect::FocusWaypoints) waypoints->FocusList();
    if (effect == PlanEffect::FocusRoutes) routes->FocusList();
    if (effect == PlanEffect::FocusName) waypoints->FocusEntry(1);
    if (effect == PlanEffect::FocusLatitude) waypoints->FocusEntry(2);
    if (effect == PlanEffect::FocusLongitude) waypoints->FocusEntry(3);
}

QFrame* frmPlanung::MakeBottom() {
    auto* bar = Named(new QFrame(this), "bottomBar");
    bar->setFixedHeight(BottomHeight);
    auto* row = Spaced(new QHBoxLayout(bar), 6, {8, 3, 8, 3});
    SlideMap = Named(new ZoomSlider, "SlideMap");
    guard.Connect(SlideMap, &ZoomSlider::valueChanged, [this](int value) {
        if (!showing && screen->Map.HasMap()) screen->Map.SetSlide(value);
    });
    row->addWidget(SlideMap, 3);
    MakeReadouts(*row);
    MakeMeasuring(*row);
    cmbMaps = Named(new QComboBox, "cmbMaps");
    cmbMaps->setMinimumWidth(LeastComboWidth);
    cmbMaps->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(cmbMaps, &QComboBox::activated, this, [this](int index) {
        shown.reset(); // the choice shows already, also one that cannot be taken
        Do([&] { screen->Act(screen->Map.cmbMaps_Change(cmbMaps->itemText(index).toStdString())); });
        picMap->setFocus();
    });
    row->addWidget(cmbMaps, 2);
    return bar;
}

void frmPlanung::MakeReadouts(QBoxLayout& layout) {
    const auto readout = [&](const char* value, const char* unit, int width) {
        auto* label = new ReadoutLabel({value, unit}, ReadoutLabel::Size::Wide, this);
        label->setFixedWidth(width);
        layout.addWidget(label);
        return label;
    };
    latitude = readout("lblLatx", "lblNS", CoordinateWidth);
    longitude = readout("lblLongx", "lblEW", CoordinateWidth);
    distance = readout("lblDistanz", "lblDistanzUnit", DistanceWidth);
    course = readout("lblKurs", "lblKursUnit", CourseWidth);
}

// The picture of the switch that is on lies over its button.
void frmPlanung::MakeMeasuring(QBoxLayout& layout) {
    auto* place = new QGridLayout;
    cmdMessen = MeasureButton("cmdMessen", &PlanMap::cmdMessen_Click);
    picMessen = MeasureButton("picMessen", &PlanMap::picMessen_Click);
    picMessen->SetLit(true);
    for (LampButton* button : {cmdMessen, picMessen}) place->addWidget(button, 0, 0);
    layout.addLayout(place);
}

LampButton* frmPlanung::MeasureButton(const char* name, PlanEffects (PlanMap::*click)()) {
    auto* button = Named(new LampButton(this), name);
    button->SetIcon(":/icons/measure.svg");
    button->setFocusPolicy(Qt::TabFocus);
    button->setMinimumWidth(MeasureWidth);
    QSizePolicy keepsItsPlace(QSizePolicy::Fixed, QSizePolicy::Fixed);
    keepsItsPlace.setRetainSizeWhenHidden(true); // both languages, lit or not: nothing moves
    button->setSizePolicy(keepsItsPlace);
    connect(button, &QAbstractButton::clicked, this, [this, click] {
        const bool hadFocus = focusWidget() == cmdMessen || focusWidget() == picMessen;
        Do([this, click] { screen->Act((screen->Map.*click)()); });
        if (hadFocus) (picMessen->isVisible() ? picMessen : cmdMessen)->setFocus();
    });
    return button;
}

// Tab goes from the waypoints over the map to the routes, as the eye does.
void frmPlanung::ChainFocus() {
    const QList<QWidget*> ofRoutes = routes->findChildren<QWidget*>();
    QWidget* before = nullptr;
    for (QWidget* widget : waypoints->findChildren<QWidget*>())
        if (widget->focusPolicy() & Qt::TabFocus) before = widget;
    const auto then = [&](QWidget* widget) {
        if (before) setTabOrder(before, widget);
        before = widget;
    };
    for (QWidget* widget : std::initializer_list<QWidget*>{picMap, SlideMap, cmdMessen, picMessen, cmbMaps})
        then(widget);
    for (QWidget* widget : ofRoutes)
        if (widget->focusPolicy() & Qt::TabFocus) then(widget);
}

void frmPlanung::Do(const std::function<void()>& event) {
    guard.Run(event);
    ShowState();
}

void frmPlanung::Form_Activate() {
    if (!loaded) {
        screen->Form_Load();
        loaded = true;
    }
    PlaceOverMap();
    RestoreOnError([&] { screen->Form_Activate(); },
                   [&] { ApplyLanguage(); }); // what could be read shows all the same
    ApplyLanguage();
}

void frmPlanung::Form_Deactivate() {
    if (loaded) screen->Form_Deactivate();
}

void frmPlanung::ShowAirspaceSettings() {
    if (auto* open = findChild<frmLuftraumSettings*>()) {
        open->raise();
        open->activateWindow();
        return;
    }
    auto* dialog = new frmLuftraumSettings(this, shared, screen->Airspace, guard, [this] {
        screen->RedrawPlan();
        ShowState();
    });
    dialog->open();
}

void frmPlanung::ImportRoute() {
    RouteImport import(shared, shared, shared.DataConn, dialogs,
                       {[this] { screen->Waypoints.ReadAgain(); },
                        [this](const Value& route) { screen->Routes.RouteAdded(route); },
                        [this] { screen->Routes.PointsAdded(); }});
    Do([&] { import.GetRoute(); });
    Do([this] { screen->RedrawPlan(); }); // also after an error: the lists have followed by themselves
}

void frmPlanung::ShowState() {
    ShowChanges();
    waypoints->ShowSelection();
}

// A redraw shows no selection of the waypoints anew, as the zoom and a drag of the map are no choice in their
// list.
void frmPlanung::ShowChanges() {
    if (showing) return;
    const Flagged now(showing);
    // Showing may move the focus, and that may change the state.
    for (PlanningSnapshot state = screen->Snapshot(); shown != state; state = screen->Snapshot()) {
        const auto before = std::exchange(shown, state);
        if (!before || before->Map != state.Map) ShowMap(state.Map);
        if (!before || before->Waypoints != state.Waypoints || before->OtherTarget != state.OtherTarget)
            waypoints->Show(state.Waypoints, state.OtherTarget);
        if (!before || before->Routes != state.Routes) routes->Show(state.Routes);
    }
    ShowCursor();
    routes->ShowSelection();
}

void frmPlanung::ShowMap(const PlanMapControls& map) {
    const bool hasMap = map.WhyNoMap.empty();
    SlideMap->setValue(map.SlideMap);
    SlideMap->setEnabled(hasMap);
    FillCombo(*cmbMaps, map.MapNames, map.cmbMaps);
    lblNoMap->setVisible(!hasMap);
    if (!hasMap) lblNoMap->setText(Q(map.WhyNoMap));
    cmdMessen->setVisible(!map.MeasureOn);
    picMessen->setVisible(map.MeasureOn);
    tLR->setText(Q(map.tLR));
    tLR->adjustSize();
    tLR->setVisible(!map.tLR.empty() && hasMap);
}

void frmPlanung::ShowCursor() {
    const PlanMap& map = screen->Map;
    latitude->Show(Q(map.lblLatx), Q(map.lblNS));
    longitude->Show(Q(map.lblLongx), Q(map.lblEW));
    distance->Show(Q(map.Measuring.lblDistanz));
    course->Show(Q(map.Measuring.lblKurs));
}

void frmPlanung::MakeMap() {
    picMap = Named(new SurfaceWidget(this), "picMap");
    picMap->setMinimumSize(LeastMapWidth, LeastMapHeight);
    picMap->setFocusPolicy(Qt::StrongFocus);
    picMap->setMouseTracking(true); // the cursor's position shows without a button
    guard.Connect(picMap, &SurfaceWidget::Pressed, [this](QPointF at, Qt::MouseButton button) {
        picMap->setFocus();
        if (button == Qt::LeftButton) screen->Map.MouseDown({at.x(), at.y()});
        ShowCursor();
    });
    guard.Connect(picMap, &SurfaceWidget::Moved, [this](QPointF at, Qt::MouseButtons held) {
        screen->MouseMove({at.x(), at.y()}, held.testFlag(Qt::LeftButton));
        ShowCursor();
    });
    guard.Connect(picMap, &SurfaceWidget::Released, [this](QPointF, Qt::MouseButton button) {
        if (button == Qt::LeftButton) screen->Map.MouseUp();
    });
    guard.Connect(picMap, &SurfaceWidget::DoubleClicked, [this](QPointF at, Qt::MouseButton button) {
        if (button != Qt::LeftButton) return;
        screen->DblClick({at.x(), at.y()});
        ShowState();
    });
    guard.Connect(picMap, &SurfaceWidget::Resized, [this] {
        PlaceOverMap();
        if (loaded) screen->Form_Resize();
    });
    tLR = Named(new QLabel(picMap), "tLR");
    tLR->setAttribute(Qt::WA_TransparentForMouseEvents); // the map under it can be dragged
    lblNoMap = Named(new QLabel(picMap), "lblNoMap");
    lblNoMap->setAlignment(Qt::AlignCenter);
    lblNoMap->setWordWrap(true);
    progBar = Named(new QProgressBar(picMap), "progBar");
    progBar->setFixedWidth(220);
    for (QWidget* hidden : std::initializer_list<QWidget*>{tLR, lblNoMap, progBar}) hidden->hide();
}

void frmPlanung::PlaceOverMap() {
    tLR->move(10, 10);
    progBar->move((picMap->width() - progBar->width()) / 2, 12);
    lblNoMap->setGeometry(picMap->rect().adjusted(30, 40, -30, -40));
}

void frmPlanung::ApplyLanguage() {
    setWindowTitle(Text("Planung", "Plan mode"));
    distance->SetCaption(Text("Distanz", "Distance"));
    course->SetCaption(Text("Kurs", "Bearing"));
    latitude->SetCaption(Text("Breitengrad", "Latitude"));
    longitude->SetCaption(Text("Längengrad", "Longitude"));
    cmdMessen->setText(Text(" Messen An ", " Measure On "));
    picMessen->setText(Text(" Messen Aus ", " Measure Off "));
    ApplyToolTips();
    waypoints->ApplyLanguage();
    routes->ApplyLanguage();
    shown.reset();
    ShowState();
}

void frmPlanung::ApplyToolTips() {
    const std::pair<QWidget*, QString> tips[] = {
        {picMap, Text("Ziehen verschiebt, Doppelklick beginnt einen Wegpunkt; Pfeiltasten auf/ab: voriger "
                      "und nächster Wegpunkt, Eingabe hängt ihn an die Strecke",
                      "Drag to move, double-click to begin a waypoint; arrow keys up/down: previous and "
                      "next waypoint, Enter adds it to the route")},
        {SlideMap, Text("Maßstab", "Zoom")},
        {cmbMaps, Text("Karte wählen", "Choose the chart")},
        {progBar, Text("Karte wird geladen", "Loading the chart")},
        {latitude, Text("Breite unter dem Mauszeiger: Grad, Minuten hinter dem Komma",
                        "Latitude under the cursor: degrees, minutes behind the point")},
        {longitude, Text("Länge unter dem Mauszeiger: Grad, Minuten hinter dem Komma",
                         "Longitude under the cursor: degrees, minutes behind the point")},
        {distance, Text("Gemessene Entfernung", "Measured distance")},
        {course, Text("Gemessener rechtweisender Kurs", "Measured true bearing")},
        {cmdMessen, Text("Entfernung und Kurs vom eingegebenen Wegpunkt zum Mauszeiger messen",
                         "Measure distance and bearing from the waypoint entered to the cursor")},
        {picMessen, Text("Messen beenden", "Stop measuring")},
    };
    for (const auto& [widget, tip] : tips) widget->setToolTip(tip);
}

} // namespace ornivane
