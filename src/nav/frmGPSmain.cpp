#include "nav/frmGPSmain.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QProgressBar>
#include <QSlider>
#include <QTableView>
#include <algorithm>
#include <cmath>

#include "base/Flagged.h"
#include "platform/qt/Events.h"
#include "platform/qt/GridBinding.h"
#include "platform/qt/LampButton.h"
#include "platform/qt/QtPicture.h"
#include "platform/qt/QtProgress.h"
#include "platform/qt/ReadoutLabel.h"
#include "platform/qt/RecordsetModel.h"
#include "platform/qt/SurfaceWidget.h"

namespace ornivane {

namespace {

constexpr int SideWidth = 280, BottomHeight = 53;        // the map has the rest of the form
constexpr int LeastMapWidth = 661, LeastMapHeight = 463; // below that it stays as it is
constexpr int KeyZoomStep = 10;

QString Q(const std::string& text) { return QString::fromStdString(text); }

template <typename Widget>
Widget* Named(Widget* widget, const char* name) {
    widget->setObjectName(name);
    return widget;
}

void FillCombo(QComboBox& combo, const std::vector<std::string>& names, const std::string& current) {
    QStringList texts;
    for (const std::string& name : names) texts << Q(name);
    QStringList shown;
    for (int i = 0; i < combo.count(); ++i) shown << combo.itemText(i);
    if (texts != shown) {
        combo.clear();
        combo.addItems(texts);
    }
    combo.setCurrentIndex(static_cast<int>(texts.indexOf(Q(current))));
}

} // namespace

frmGPSmain::frmGPSmain(const FlyingFormServices& formServices)
    : services(formServices), picStorage(std::make_unique<QtPicture>()) {
    setObjectName("frmGPSmain");
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->setColumnStretch(0, 1);
    layout->setRowStretch(0, 1);
    MakeMap(*layout);
    MakeBottom(*layout);
    progress = std::make_unique<QtProgress>(*progBar);
    screen = std::make_unique<FlyingScreen>(
        FlyingScreenWorld{services.Shared, services.MSComm1, services.timerCheck, services.SystemClock,
                          *picStorage, picMap->Surface(), *progress, services.Messages, services.Notices},
        [this] { ShowState(); }, [this] { picMap->setFocus(); });
    MakeSide(*layout);
    MakePanel();
    ApplyLanguage();
}

frmGPSmain::~frmGPSmain() = default;

void frmGPSmain::MakeMap(QGridLayout& layout) {
    picMap = Named(new SurfaceWidget(this), "picMap");
    picMap->setMinimumSize(LeastMapWidth, LeastMapHeight);
    picMap->setFocusPolicy(Qt::StrongFocus);
    layout.addWidget(picMap, 0, 0);
    services.Guard.Connect(picMap, &SurfaceWidget::Pressed,
                           [this](QPointF at, Qt::MouseButton button) { MapPressed(at, button); });
    services.Guard.Connect(picMap, &SurfaceWidget::Moved,
                           [this](QPointF at, Qt::MouseButtons held) { MapMoved(at, held); });
    services.Guard.Connect(picMap, &SurfaceWidget::Released,
                           [this](QPointF, Qt::MouseButton button) { MapReleased(button); });
    services.Guard.Connect(picMap, &SurfaceWidget::Resized, [this] {
        PlaceOverMap();
        if (loaded) screen->Form_Resize();
    });
    lblStatus = Named(new QLabel(picMap), "lblStatus");
    lblStatus->hide();
    lblNoMap = Named(new QLabel(picMap), "lblNoMap");
    lblNoMap->setAlignment(Qt::AlignCenter);
    lblNoMap->setWordWrap(true);
    lblNoMap->hide();
}

void frmGPSmain::MakeBottom(QGridLayout& layout) {
    auto* bar = Named(new QFrame(this), "bottomBar");
    bar->setFixedHeight(BottomHeight);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(8, 4, 8, 4);
    row->setSpacing(8);
    SlideMap = Named(new QSlider(Qt::Horizontal), "SlideMap");
    SlideMap->setRange(SlideMin, SlideMax);
    SlideMap->setSingleStep(1);
    SlideMap->setPageStep(5);
    SlideMap->setMinimumHeight(44);
    SlideMap->setFocusPolicy(Qt::TabFocus);
    SlideMap->installEventFilter(this);
    services.Guard.Connect(SlideMap, &QSlider::valueChanged, [this](int value) {
        if (showing || !screen->Map.HasMap()) return;
        screen->Map.SetSlide(value);
        ShowState();
    });
    row->addWidget(SlideMap, 3);
    progBar = Named(new QProgressBar, "progBar");
    progBar->setFixedWidth(110);
    QSizePolicy keepsItsPlace = progBar->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    progBar->setSizePolicy(keepsItsPlace);
    progBar->hide();
    row->addWidget(progBar);
    cmbMaps = Named(new QComboBox, "cmbMaps");
    cmbMaps->setMinimumHeight(44);
    cmbMaps->installEventFilter(this);
    cmbMaps->setMinimumWidth(190);
    cmbMaps->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    services.Guard.Connect(cmbMaps, &QComboBox::activated, [this](int index) {
        screen->Map.cmbMaps_Click(cmbMaps->itemText(index).toStdString());
        picMap->setFocus();
        ShowState();
    });
    row->addWidget(cmbMaps, 2);
    layout.addWidget(bar, 1, 0);
}

LampButton* frmGPSmain::Lamp(const char* name, const char* icon, const std::function<void()>& click) {
    auto* button = Named(new LampButton(this), name);
    button->SetIcon(QString(":/icons/%1.svg").arg(icon));
    button->setFocusPolicy(Qt::TabFocus);
    services.Guard.Connect(button, &QAbstractButton::clicked, [this, click] {
        click();
        ShowState();
    });
    return button;
}

void frmGPSmain::MakeSide(QGridLayout& layout) {
    auto* side = Named(new QFrame(this), "sidePanel");
    side->setFixedWidth(SideWidth);
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins(8, 6, 8, 6);
    column->setSpacing(5);
    MakeLinkButtons(*column);
    MakeReadouts(*column);
    MakeRoute(*column);
    MakeTarget(*column);
    layout.addWidget(side, 0, 1, 2, 1);
}

void frmGPSmain::MakeLinkButtons(QBoxLayout& layout) {
    auto* row = new QHBoxLayout;
    row->setSpacing(6);
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
    cmdKartezentrieren = Lamp("cmdKartezentrieren", "centre", [this] {
        if (screen->Map.picKartezentrieren)
            screen->Map.picKartezentrieren_Click();
        else
            screen->Map.cmdKartezentrieren_Click();
    });
    row->addWidget(cmdKartezentrieren, 1);
    cmdSet = Lamp("cmdSet", "settings", [this] {
        frmSet->setVisible(!frmSet->isVisible());
        if (!frmSet->isVisible()) screen->SaveFlightSet();
    });
    row->addWidget(cmdSet, 1);
    layout.addLayout(row);
}

void frmGPSmain::MakeReadouts(QBoxLayout& layout) {
    const auto readout = [this](const char* value, const char* unit, ReadoutLabel::Size size) {
        return new ReadoutLabel(value, unit, size, this);
    };
    speed = readout("lblSpeed", "lblSpeedmode", ReadoutLabel::Size::Large);
    bearing = readout("lblBearing", "lblBearingUnit", ReadoutLabel::Size::Large);
    altitude = readout("lblAlt", "lblAltmode", ReadoutLabel::Size::Large);
    latitude = readout("lblLat", "lblLatUnit", ReadoutLabel::Size::Small);
    longitude = readout("lblLong", "lblLongUnit", ReadoutLabel::Size::Small);
    services.Guard.Connect(speed, &ReadoutLabel::Clicked, [this] { screen->lblSpeed_Click(); });
    services.Guard.Connect(altitude, &ReadoutLabel::Clicked, [this] { screen->lblAlt_Click(); });
    auto* row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(speed, 1);
    row->addWidget(bearing, 1);
    layout.addLayout(row);
    layout.addWidget(altitude);
    layout.addWidget(latitude);
    layout.addWidget(longitude);
}

void frmGPSmain::MakeRoute(QBoxLayout& layout) {
    auto* head = new QHBoxLayout;
    head->setSpacing(6);
    cmbRoute = Named(new QComboBox, "cmbRoute");
    cmbRoute->setMinimumHeight(40);
    cmbRoute->installEventFilter(this);
    cmbRoute->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    services.Guard.Connect(cmbRoute, &QComboBox::activated, [this](int index) {
        screen->Route.cmbRoute_Click(cmbRoute->itemText(index).toStdString());
        picMap->setFocus();
        ShowState();
    });
    head->addWidget(cmbRoute, 1);
    lblRoute = Named(new QLabel, "lblRoute");
    lblRoute->installEventFilter(this);
    head->addWidget(lblRoute);
    layout.addLayout(head);

    gridWaypoints = Named(new QTableView, "gridWaypoints");
    gridWaypoints->setMinimumHeight(96);
    gridWaypoints->setFocusPolicy(Qt::NoFocus); // the arrow keys belong to the map
    pointsModel = std::make_unique<RecordsetModel>(
        screen->Route.RoutePointsSet,
        std::vector<RecordsetModel::Column>{
            {"Nummer", [] { return QString("Nr"); }, {}},
            {"Name",
             [this] { return QString::fromUtf8(services.Shared.Text("Streckenpunkt", "Route point")); },
             {}}});
    pointsBinding = std::make_unique<GridBinding>(*pointsModel, *gridWaypoints);
    gridWaypoints->horizontalHeader()->setStretchLastSection(true);
    gridWaypoints->setColumnWidth(0, 44);
    services.Guard.Connect(gridWaypoints, &QTableView::clicked, [this](const QModelIndex&) {
        picMap->setFocus();
        ShowState();
    });
    layout.addWidget(gridWaypoints, 1);

    auto* row = new QHBoxLayout;
    row->setSpacing(6);
    cmdPrev = Lamp("cmdPrev", "previous", [this] { screen->Route.cmdPrev_Click(); });
    cmdNext = Lamp("cmdNext", "next", [this] { screen->Route.cmdNext_Click(); });
    cmdActivateGoto = Lamp("cmdActivateGoto", "activate", [this] {
        if (screen->Route.picActivateGoto)
            screen->Route.picActivateGoto_Click();
        else
            screen->Route.cmdActivateGoto_Click();
    });
    cmdDirectFly = Lamp("cmdDirectFly", "directfly", [this] {
        if (screen->Route.picDF)
            screen->Route.picDF_Click();
        else
            screen->Route.cmdDirectFly_Click();
    });
    for (LampButton* button : {cmdPrev, cmdNext, cmdActivateGoto, cmdDirectFly}) row->addWidget(button, 1);
    layout.addLayout(row);
}

void frmGPSmain::MakeTarget(QBoxLayout& layout) {
    Frame1 = Named(new QFrame(this), "Frame1");
    QSizePolicy keepsItsPlace = Frame1->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    Frame1->setSizePolicy(keepsItsPlace);
    auto* grid = new QGridLayout(Frame1);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(5);
    distance = new ReadoutLabel("lblDistanz", "lblDistanzUnit", ReadoutLabel::Size::Medium, Frame1);
    course = new ReadoutLabel("lblTrueBearing", "lblTrueBearingUnit", ReadoutLabel::Size::Medium, Frame1);
    time = new ReadoutLabel("lblTime", "lblTimeUnit", ReadoutLabel::Size::Medium, Frame1);
    remaining = new ReadoutLabel("lblRemDist", "lblRemDistUnit", ReadoutLabel::Size::Medium, Frame1);
    services.Guard.Connect(time, &ReadoutLabel::Clicked, [this] {
        screen->lblTime_Click();
        ApplyLanguage();
    });
    grid->addWidget(distance, 0, 0);
    grid->addWidget(course, 0, 1);
    grid->addWidget(time, 1, 0);
    grid->addWidget(remaining, 1, 1);
    lblLatx = Named(new QLabel(Frame1), "lblLatx");
    lblLongx = Named(new QLabel(Frame1), "lblLongx");
    grid->addWidget(lblLatx, 2, 0);
    grid->addWidget(lblLongx, 2, 1);
    layout.addWidget(Frame1);
}

void frmGPSmain::MakePanel() {
    frmSet = Named(new QFrame(picMap), "frmSet");
    frmSet->setAutoFillBackground(true);
    frmSet->setFrameShape(QFrame::StyledPanel);
    auto* column = new QVBoxLayout(frmSet);
    column->setContentsMargins(8, 8, 8, 8);
    column->setSpacing(6);
    cmdshowRoute = Lamp("cmdshowRoute", "route", [this] { screen->SetShowRoute(!screen->Flags.ShowRoute); });
    cmdWayInfo = Lamp("cmdWayInfo", "names", [this] { screen->SetShowNames(!screen->Flags.ShowNames); });
    cmdShowPoints = Lamp("cmdShowPoints", "routepoints", [this] {
        if (screen->Pass.picShowPoints) {
            screen->Pass.picShowPoints = false;
            screen->UpdateMap();
        } else {
            screen->Pass.cmdShowPoints_Click();
        }
    });
    for (LampButton* button : {cmdshowRoute, cmdWayInfo, cmdShowPoints}) {
        button->setMinimumWidth(150);
        column->addWidget(button);
    }
    frmSet->hide();
}

void frmGPSmain::Form_Activate() {
    if (!loaded) {
        screen->Form_Load();
        loaded = true;
    }
    PlaceOverMap();
    screen->Form_Activate();
    ApplyLanguage();
}

void frmGPSmain::Form_Deactivate() {
    screen->Form_Deactivate();
    ShowState();
}

void frmGPSmain::Form_Unload() {
    if (loaded) screen->Form_Unload();
}

void frmGPSmain::MapPressed(QPointF at, Qt::MouseButton button) {
    picMap->setFocus();
    if (button == Qt::RightButton) {
        screen->SetDirectTarget({at.x(), at.y()});
        ShowState();
    }
    dragging = button == Qt::LeftButton && screen->Map.HasMap() && screen->Map.CanPan();
    drag = at;
}

void frmGPSmain::MapMoved(QPointF at, Qt::MouseButtons held) {
    if (!dragging || !(held & Qt::LeftButton)) return;
    screen->Map.Pan(at.x() - drag.x(), at.y() - drag.y());
    drag = at;
}

void frmGPSmain::MapReleased(Qt::MouseButton button) {
    if (!dragging || button != Qt::LeftButton) return;
    dragging = false;
    screen->UpdateMap();
}

// The slider jumps to the pointer instead of being dragged by its knob. Its width counts as 3500 units; in
// the margins at both ends a finger means the end.
void frmGPSmain::SlideTo(double x) {
    constexpr double width = 3500, margin = 200;
    const double units = x * width / std::max(1, SlideMap->width());
    const int value = static_cast<int>(std::nearbyint((units - width / 2) * SlideMax / (width / 2)));
    SlideMap->setValue(units > width - margin ? SlideMax : units < margin ? SlideMin : value);
}

bool frmGPSmain::eventFilter(QObject* watched, QEvent* event) {
    // The arrow keys mean the same wherever the focus is: a list that has it must not change chart or route
    // by accident. Other keys are the control's own.
    if (event->type() == QEvent::KeyPress && HandleKey(*static_cast<QKeyEvent*>(event))) return true;
    if (watched == lblRoute && event->type() == QEvent::MouseButtonRelease) {
        services.Guard.Run([this] { screen->SetShowRoute(false); });
        return true;
    }
    if (watched == SlideMap) {
        const auto type = event->type();
        const bool isMouse = type == QEvent::MouseMove || type == QEvent::MouseButtonPress ||
                             type == QEvent::MouseButtonRelease || type == QEvent::MouseButtonDblClick;
        if (isMouse) return SlideByMouse(*static_cast<QMouseEvent*>(event));
    }
    return Screen::eventFilter(watched, event);
}

bool frmGPSmain::SlideByMouse(const QMouseEvent& event) {
    if (event.button() == Qt::LeftButton || (event.buttons() & Qt::LeftButton)) SlideTo(event.position().x());
    return true;
}

void frmGPSmain::keyPressEvent(QKeyEvent* event) {
    if (!HandleKey(*event)) Screen::keyPressEvent(event);
}

bool frmGPSmain::HandleKey(const QKeyEvent& event) {
    const auto step = [&](void (RouteFollowing::*to)()) {
        // A key that is held would run through the route to its end.
        if (!event.isAutoRepeat()) services.Guard.Run([this, to] { (screen->Route.*to)(); });
    };
    switch (event.key()) {
    case Qt::Key_Up:
        services.Guard.Run([this] { screen->StepZoom(KeyZoomStep); });
        break;
    case Qt::Key_Down:
        services.Guard.Run([this] { screen->StepZoom(-KeyZoomStep); });
        break;
    case Qt::Key_Right:
        step(&RouteFollowing::cmdNext_Click);
        break;
    case Qt::Key_Left:
        step(&RouteFollowing::cmdPrev_Click);
        break;
    default:
        return false;
    }
    ShowState();
    return true;
}

void frmGPSmain::PlaceOverMap() {
    lblStatus->move(12, 12);
    frmSet->adjustSize();
    frmSet->move(picMap->width() - frmSet->width() - 8, 8);
    lblNoMap->setGeometry(picMap->rect().adjusted(40, 40, -40, -40));
}

void frmGPSmain::ShowState() {
    if (showing || !screen) return;
    const Flagged now(showing);
    ShowLink();
    ShowReadouts();
    ShowMapControls();
    ShowRoute();
}

void frmGPSmain::ShowLink() {
    const GpsLink& link = screen->Link;
    bool isOn = false;
    for (std::size_t i = 0; i < picGPSCheck.size(); ++i) {
        picGPSCheck[i]->setVisible(link.picGPSCheck[i].Visible);
        isOn = isOn || link.picGPSCheck[i].Visible;
        const QString satellites = Q(link.picGPSCheck[i].ToolTip);
        picGPSCheck[i]->setToolTip(satellites.isEmpty() ? lampTips[i] : satellites);
    }
    cmdGPS->setVisible(!isOn);
    lblStatus->setText(Q(link.lblStatus.Caption));
    lblStatus->adjustSize();
    lblStatus->setVisible(link.lblStatus.Visible);
    if (link.Hourglass)
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
}

void frmGPSmain::ShowReadouts() {
    const FlightState& s = screen->State;
    speed->Show(Q(s.lblSpeed), Q(s.lblSpeedmode));
    bearing->Show(Q(s.lblBearing), "°");
    altitude->Show(Q(s.lblAlt), Q(s.lblAltmode));
    latitude->Show(Q(s.lblLat));
    longitude->Show(Q(s.lblLong));
    distance->Show(Q(s.lblDistanz));
    course->Show(Q(s.lblTrueBearing));
    time->Show(Q(s.lblTime));
    remaining->Show(Q(screen->Route.lblRemDist));
}

void frmGPSmain::ShowMapControls() {
    const ActiveMap& map = screen->Map;
    SlideMap->setValue(map.SlideMap);
    SlideMap->setEnabled(map.HasMap());
    FillCombo(*cmbMaps, map.MapNames, map.cmbMaps);
    lblNoMap->setVisible(!map.HasMap());
    cmdKartezentrieren->SetLit(map.picKartezentrieren);
    cmdSet->SetLit(frmSet->isVisible());
    cmdshowRoute->SetLit(screen->Flags.ShowRoute);
    cmdWayInfo->SetLit(screen->Flags.ShowNames);
    cmdShowPoints->SetLit(screen->Pass.picShowPoints);
}

void frmGPSmain::ShowRoute() {
    const RouteFollowing& route = screen->Route;
    FillCombo(*cmbRoute, route.RouteNames, route.cmbRoute);
    cmbRoute->setEnabled(!route.RouteNames.empty());
    lblRoute->setText(route.lblRoute.empty() ? QString() : Q(route.lblRoute) + " NM");
    cmdActivateGoto->SetLit(route.picActivateGoto);
    cmdDirectFly->SetLit(route.picDF);
    cmdNext->setEnabled(route.cmdNextEnabled);
    cmdPrev->setEnabled(route.cmdPrevEnabled);
    Frame1->setVisible(route.Frame1);
    lblLatx->setText(Q(route.lblLatx));
    lblLongx->setText(Q(route.lblLongx));
    lblLatx->setVisible(route.GotoActive);
    lblLongx->setVisible(route.GotoActive);
    if (route.RowSelected)
        pointsBinding->SelectRow();
    else
        pointsBinding->ClearRowSelection();
}

} // namespace ornivane
