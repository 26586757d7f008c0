#include "nav/frmGPSmain.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTableView>

#include "base/Flagged.h"
#include "nav/frmInstrumentPanel.h"
#include "nav/frmRecordPanel.h"
#include "nav/frmStageButton.h"
#include "nav/frmWindPanel.h"
#include "platform/qt/ChartWatch.h"
#include "platform/qt/Events.h"
#include "platform/qt/FillCombo.h"
#include "platform/qt/FittedText.h"
#include "platform/qt/GridBinding.h"
#include "platform/qt/LampButton.h"
#include "platform/qt/Named.h"
#include "platform/qt/QtPicture.h"
#include "platform/qt/QtProgress.h"
#include "platform/qt/ReadoutLabel.h"
#include "platform/qt/RecordsetModel.h"
#include "platform/qt/Spaced.h"
#include "platform/qt/SurfaceWidget.h"
#include "platform/qt/ZoomSlider.h"

namespace ornivane {

namespace {

constexpr int SideWidth = 280; // the map has the rest of the form's width

QString Q(const std::string& text) { return QString::fromStdString(text); }

} // namespace

frmGPSmain::frmGPSmain(const FlyingFormServices& formServices)
    : services(formServices), picStorage(std::make_unique<QtPicture>(formServices.Charts)) {
    setObjectName("frmGPSmain");
    auto* layout = Spaced(new QGridLayout(this), 0);
    layout->setColumnStretch(0, 1);
    layout->setRowStretch(0, 1);
    MakeMap(*layout);
    MakeBottom(*layout);
    instruments = new frmInstrumentPanel(this, services.Shared, services.Shared, services.Guard);
    wind = new frmWindPanel(this, services.Shared, services.Guard);
    record = new frmRecordPanel(this, services.Shared, services.Guard, services.Notices);
    MakeScreen();
    MakeSide(*layout);
    MakePanel();
    ApplyLanguage();
}

// After the surfaces, which the logic draws on, and before the controls that call the logic.
void frmGPSmain::MakeScreen() {
    progress = std::make_unique<QtProgress>(*progBar);
    screen = std::make_unique<FlyingScreen>(
        FlyingScreenWorld{services.Shared, services.Devices, *picStorage, picMap->Surface(),
                          instruments->Card(), instruments->Surface(), wind->Surface(), *progress,
                          services.Messages, services.Notices},
        [this] { ShowState(); },
        [this](FocusBy by) {
            // A route point that is passed is no press of a button: what is being typed keeps its keys.
            if (by == FocusBy::Hand || !IsTyping()) picMap->setFocus();
        });
    chartWatch = std::make_unique<ChartWatch>(
        ChartWatch::World{*picStorage, *picMap, *progBar, services.Guard, services.Shared},
        [this] { screen->PaintAgain(); });
    instruments->Attach(
        screen->Instruments, screen->Qnh, [this] { picMap->setFocus(); }, [this] { ShowState(); });
    wind->Attach(screen->Wind);
    record->Attach(
        screen->Logger, [this] { screen->cmdRecord_Click(); }, [this] { screen->picRecord_Click(); },
        [this] { ShowState(); });
}

frmGPSmain::~frmGPSmain() = default;

LampButton* frmGPSmain::Lamp(const char* name, const char* icon, const std::function<void()>& click) {
    auto* button = Named(new LampButton(this), name);
    button->SetIcon(QString(":/icons/%1.svg").arg(icon));
    button->setFocusPolicy(Qt::TabFocus);
    button->installEventFilter(this);
    connect(button, &QAbstractButton::clicked, this, [this, click] { Click(click); });
    return button;
}

LampButton* frmGPSmain::Switch(const char* name, const char* icon, const bool& isOn, Routine on,
                               Routine off) {
    return Lamp(name, icon, [this, &isOn, on, off] { (screen.get()->*(isOn ? off : on))(); });
}

// An event that ends in an error may have changed something before it: the state is shown in any case.
void frmGPSmain::Click(const std::function<void()>& event) {
    services.Guard.Run(event);
    ShowState();
}

void frmGPSmain::MakeSide(QGridLayout& layout) {
    auto* side = Named(new QFrame(this), "sidePanel");
    side->setFixedWidth(SideWidth);
    auto* column = Spaced(new QVBoxLayout(side), 5, {8, 6, 8, 6});
    MakeLinkButtons(*column);
    column->addWidget(instruments);
    MakeReadouts(*column);
    column->addWidget(wind);
    MakeRoute(*column);
    layout.addWidget(side, 0, 1, 2, 1);
}

void frmGPSmain::MakeLinkButtons(QBoxLayout& layout) {
    auto* row = Spaced(new QHBoxLayout, 6);
    auto* gps = new QGridLayout; // the three lamps lie over the button
    cmdGPS = Lamp("cmdGPS", "gps", [this] { screen->Link.cmdGPS_Click(); });
    gps->addWidget(cmdGPS, 0, 0);
    constexpr const char* icons[] = {"lamp-check", "lamp-fix", "lamp-lost"};
    for (int i = 0; i < 3; ++i) {
        const QByteArray name = "picGPSCheck" + QByteArray::number(i);
        LampButton* lamp = Lamp(name.constData(), icons[i], [this, i] { screen->Link.picGPSCheck_Click(i); });
        lamp->SetLit(true);
        lamp->hide();
        gps->addWidget(lamp, 0, 0);
        picGPSCheck[static_cast<std::size_t>(i)] = lamp;
    }
    row->addLayout(gps, 1);
    cmdKartezentrieren =
        Switch("cmdKartezentrieren", "centre", screen->Map.CenterMap, &FlyingScreen::cmdKartezentrieren_Click,
               &FlyingScreen::picKartezentrieren_Click);
    row->addWidget(cmdKartezentrieren, 1);
    cmdMapScroll = Switch("cmdMapScroll", "mapscroll", screen->Map.AutoMapSwitch,
                          &FlyingScreen::cmdMapScroll_Click, &FlyingScreen::PicMapScroll_Click);
    row->addWidget(cmdMapScroll, 1);
    row->addWidget(record, 1);
    cmdSet = Lamp("cmdSet", "settings", [this] { ShowPanel(!frmSet->isVisible()); });
    row->addWidget(cmdSet, 1);
    layout.addLayout(row);
}

void frmGPSmain::MakeReadouts(QBoxLayout& layout) {
    const auto readout = [this](const char* value, const char* unit, ReadoutLabel::Size size) {
        return new ReadoutLabel({value, unit}, size, this);
    };
    speed = readout("lblSpeed", "lblSpeedmode", ReadoutLabel::Size::Large);
    bearing = readout("lblBearing", "lblBearingUnit", ReadoutLabel::Size::Large);
    altitude = readout("lblAlt", "lblAltmode", ReadoutLabel::Size::Large);
    services.Guard.Connect(speed, &ReadoutLabel::Clicked, [this] { screen->lblSpeed_Click(); });
    services.Guard.Connect(altitude, &ReadoutLabel::Clicked, [this] { screen->lblAlt_Click(); });
    auto* row = Spaced(new QHBoxLayout, 6);
    row->addWidget(speed, 1);
    row->addWidget(bearing, 1);
    layout.addLayout(row);
    auto* second = Spaced(new QHBoxLayout, 6);
    second->addWidget(altitude, 1);
    auto* position = new QFrame(this);
    position->setProperty("role", "readout");
    auto* lines = Spaced(new QVBoxLayout(position), 0, {4, 2, 4, 2});
    for (QLabel** label : {&lblLat, &lblLong}) {
        *label = Named(new FittedText(15, position), label == &lblLat ? "lblLat" : "lblLong");
        (*label)->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        lines->addWidget(*label);
    }
    second->addWidget(position, 1);
    layout.addLayout(second);
}

void frmGPSmain::MakeRoute(QBoxLayout& layout) {
    MakeRouteList(layout);
    auto* target = new QHBoxLayout;
    lblLatx = Named(new QLabel(this), "lblLatx");
    lblLongx = Named(new QLabel(this), "lblLongx");
    for (QLabel* label : {lblLatx, lblLongx}) {
        label->setProperty("role", "instrument");
        label->setAlignment(Qt::AlignCenter);
        target->addWidget(label);
    }
    layout.addLayout(target);
    MakeRouteButtons(layout);
}

void frmGPSmain::MakeRouteList(QBoxLayout& layout) {
    auto* head = Spaced(new QHBoxLayout, 6);
    cmbRoute = Named(new QComboBox, "cmbRoute");
    cmbRoute->setMinimumHeight(40);
    cmbRoute->installEventFilter(this);
    OpenByEnter(*cmbRoute);
    cmbRoute->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(cmbRoute, &QComboBox::activated, this, [this](int index) {
        Click([&] { screen->cmbRoute_Click(cmbRoute->itemText(index).toStdString()); });
        picMap->setFocus();
    });
    head->addWidget(cmbRoute, 1);
    tRoute = Named(new QLabel(cmbRoute), "tRoute");
    tRoute->hide();
    tRoute->setAttribute(Qt::WA_TransparentForMouseEvents); // a click opens the list under it
    lblRoute = Named(new QLabel, "lblRoute");
    lblRoute->installEventFilter(this);
    head->addWidget(lblRoute);
    layout.addLayout(head);

    gridWaypoints = Named(new QTableView, "gridWaypoints");
    gridWaypoints->setMinimumHeight(56);
    gridWaypoints->setFocusPolicy(Qt::NoFocus); // the arrow keys belong to the map
    pointsModel = std::make_unique<RecordsetModel>(
        screen->Route.RoutePointsSet,
        std::vector<RecordsetModel::Column>{
            {"Nummer", [] { return QString("Nr"); }, {}},
            {"Name", [this] { return Text("Streckenpunkt", "Route point"); }, {}}});
    pointsBinding = std::make_unique<GridBinding>(*pointsModel, *gridWaypoints);
    gridWaypoints->horizontalHeader()->setStretchLastSection(true);
    gridWaypoints->setColumnWidth(0, 44);
    services.Guard.Connect(gridWaypoints, &QTableView::clicked, [this](const QModelIndex&) {
        picMap->setFocus();
        ShowState();
    });
    layout.addWidget(gridWaypoints, 1);
}

void frmGPSmain::MakeRouteButtons(QBoxLayout& layout) {
    auto* row = Spaced(new QHBoxLayout, 6);
    cmdPrev = Lamp("cmdPrev", "previous", [this] { screen->cmdPrev_Click(); });
    cmdNext = Lamp("cmdNext", "next", [this] { screen->cmdNext_Click(); });
    cmdActivateGoto = Switch("cmdActivateGoto", "activate", screen->Route.RouteActive,
                             &FlyingScreen::cmdActivateGoto_Click, &FlyingScreen::picActivateGoto_Click);
    cmdDirectFly = Switch("cmdDirectFly", "directfly", screen->Route.GotoActive,
                          &FlyingScreen::cmdDirectFly_Click, &FlyingScreen::picDF_Click);
    for (LampButton* button : {cmdPrev, cmdNext, cmdActivateGoto, cmdDirectFly}) row->addWidget(button, 1);
    layout.addLayout(row);
}

void frmGPSmain::Form_Activate() {
    if (!loaded) {
        screen->Form_Load();
        loaded = true;
    }
    PlaceOverMap();
    // What could be read shows all the same.
    RestoreOnError([this] { screen->Form_Activate(); }, [this] { ApplyLanguage(); });
    ApplyLanguage();
}

void frmGPSmain::Form_Deactivate() {
    screen->Form_Deactivate();
    ShowState();
}

void frmGPSmain::Form_Unload() {
    if (loaded) screen->Form_Unload();
}

void frmGPSmain::ShowState() {
    if (showing || !screen) return;
    const Flagged now(showing);
    ShowLink();
    ShowReadouts();
    ShowMapControls();
    ShowMapRing();
    ShowRoute();
    instruments->ShowState(screen->Airspace.frmQNH, screen->Airspace.lblQNHColour);
    wind->ShowState();
    record->ShowState();
}

void frmGPSmain::ShowLink() {
    const GpsLink::Signs link = screen->Link.Shown();
    for (std::size_t i = 0; i < picGPSCheck.size(); ++i) picGPSCheck[i]->setVisible(link.picGPSCheck == i);
    cmdGPS->setVisible(!link.picGPSCheck);
    ShowLinkToolTips();
    lblStatus->setText(Q(link.lblStatus));
    lblStatus->adjustSize();
    lblStatus->setVisible(!link.lblStatus.empty());
    if (link.Hourglass)
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
}

void frmGPSmain::ShowLinkToolTips() {
    const GpsLink::Signs link = screen->Link.Shown();
    const std::string heard = screen->Link.LinkToolTip();
    const QString more = heard.empty() ? QString() : "\n" + Q(heard);
    for (std::size_t i = 0; i < picGPSCheck.size(); ++i) {
        const QString satellites = Q(link.ToolTips[i]);
        picGPSCheck[i]->setToolTip((satellites.isEmpty() ? lampTips[i] : satellites) + more);
    }
    cmdGPS->setToolTip(connectTip + more);
}

void frmGPSmain::ShowReadouts() {
    const FlightState& s = screen->State;
    const LocaleText& locale = services.Shared.Locale;
    speed->Show(s.lblSpeed, locale);
    bearing->Show(s.lblBearing, locale);
    altitude->Show(s.lblAlt, locale);
    lblLat->setText(Q(s.lblLat));
    lblLong->setText(Q(s.lblLong));
    distance->Show(Q(s.lblDistanz.TextWithUnit(locale)));
    course->Show(Q(s.lblTrueBearing.TextWithUnit(locale)));
    time->Show(Q(s.lblTime));
    remaining->Show(Q(screen->Route.lblRemDist.TextWithUnit(locale)));
}

void frmGPSmain::ShowMapControls() {
    const ActiveMap& map = screen->Map;
    SlideMap->setValue(map.SlideMap);
    SlideMap->setEnabled(map.HasMap());
    FillCombo(*cmbMaps, map.MapNames, map.cmbMaps);
    lblNoMap->setVisible(loaded && !map.HasMap()); // before that no chart was tried
    if (!map.HasMap()) lblNoMap->setText(WhyNoMap());
    cmdKartezentrieren->SetLit(map.CenterMap);
    cmdSet->SetLit(frmSet->isVisible());
    cmdShowPoints->SetLit(screen->picShowPoints);
    // Without their stores some would be switches without effect.
    const DisplayFlags& flags = screen->Flags;
    const bool hasAirspace = services.Shared.LuftraumConn.IsOpen();
    for (const auto& [entry, lamp] : flagLamps) {
        lamp->SetLit(flags.*entry.Flag);
        if (entry.OfAirspace) lamp->setVisible(hasAirspace);
    }
    airspaceButton->ShowStage(flags.ShowAirspace, flags.ShowAirspaceText);
    airspaceButton->setVisible(hasAirspace);
    lblLegend->setVisible(hasAirspace);
    airfieldButton->ShowStage(flags.ShowAirfields, flags.ShowAirfieldText);
    airfieldButton->setVisible(services.Shared.AirfieldStoreOpen);
}

void frmGPSmain::ShowMapRing() {
    const MapRing& ring = screen->Ring;
    cmdMapScroll->SetLit(screen->Map.AutoMapSwitch);
    tNextMap->setText(Q(ring.tNextMap));
    tNextMap->adjustSize();
    tNextMap->setVisible(ring.tNextMapShows);
    LblMapNumber->setText(Q(ring.LblMapNumber));
    LblMapNumber->adjustSize();
    LblMapNumber->move(ring.tNextMapShows ? tNextMap->width() + 6 : 0, 0);
    LblMapNumber->setVisible(ring.LblMapNumberShows);
}

void frmGPSmain::ShowRoute() {
    const RouteFollowing& route = screen->Route;
    FillCombo(*cmbRoute, route.RouteNames, route.cmbRoute);
    cmbRoute->setEnabled(!route.RouteNames.empty());
    tRoute->setText(Q(route.tRoute));
    lblRoute->setText(Q(route.lblRoute.TextWithUnit(services.Shared.Locale)));
    cmdActivateGoto->SetLit(route.RouteActive);
    cmdDirectFly->SetLit(route.GotoActive);
    cmdNext->setEnabled(route.cmdNextEnabled);
    cmdPrev->setEnabled(route.cmdPrevEnabled);
    Frame1->setVisible(route.Frame1());
    lblLatx->setText(Q(route.lblLatx.Text(services.Shared.Locale)));
    lblLongx->setText(Q(route.lblLongx.Text(services.Shared.Locale)));
    lblLatx->setVisible(route.GotoActive);
    lblLongx->setVisible(route.GotoActive);
    if (route.RowSelected)
        pointsBinding->SelectRow();
    else
        pointsBinding->ClearRowSelection();
}

} // namespace ornivane
