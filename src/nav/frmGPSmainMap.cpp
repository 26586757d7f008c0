#include "nav/frmGPSmain.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>

#include "nav/frmStageButton.h"
#include "platform/qt/Events.h"
#include "platform/qt/LampButton.h"
#include "platform/qt/Named.h"
#include "platform/qt/ReadoutLabel.h"
#include "platform/qt/Spaced.h"
#include "platform/qt/SurfaceWidget.h"
#include "platform/qt/ZoomSlider.h"

namespace ornivane {

namespace {

constexpr int BottomHeight = 53;                         // the map has the rest of the form's height
constexpr int LeastMapWidth = 661, LeastMapHeight = 463; // below that it stays as it is

} // namespace

void frmGPSmain::MakeMap(QGridLayout& layout) {
    picMap = Named(new SurfaceWidget(this), "picMap");
    picMap->setMinimumSize(LeastMapWidth, LeastMapHeight);
    picMap->setFocusPolicy(Qt::StrongFocus);
    layout.addWidget(picMap, 0, 0);
    services.Guard.Connect(picMap, &SurfaceWidget::Pressed,
                           [this](QPointF at, Qt::MouseButton button) { MapPressed(at, button); });
    services.Guard.Connect(picMap, &SurfaceWidget::Moved, [this](QPointF at, Qt::MouseButtons held) {
        if (!dragging || !(held & Qt::LeftButton)) return;
        screen->Pan(at.x() - drag.x(), at.y() - drag.y());
        drag = at;
    });
    services.Guard.Connect(picMap, &SurfaceWidget::Released, [this](QPointF, Qt::MouseButton button) {
        if (!dragging || button != Qt::LeftButton) return;
        dragging = false;
        screen->UpdateMap();
    });
    services.Guard.Connect(picMap, &SurfaceWidget::Resized, [this] {
        PlaceOverMap();
        if (loaded) screen->Form_Resize();
    });
    MakeOverMap();
}

void frmGPSmain::MakeOverMap() {
    lblStatus = Named(new QLabel(picMap), "lblStatus");
    lblStatus->hide();
    lblNoMap = Named(new QLabel(picMap), "lblNoMap");
    lblNoMap->setAlignment(Qt::AlignCenter);
    lblNoMap->setWordWrap(true);
    lblNoMap->hide();
    tNextMap = Named(new QLabel(picMap), "tNextMap");
    tNextMap->installEventFilter(this);
    LblMapNumber = Named(new QLabel(picMap), "LblMapNumber");
    LblMapNumber->setAttribute(Qt::WA_TransparentForMouseEvents);
    progBar = Named(new QProgressBar(picMap), "progBar");
    progBar->setFixedWidth(220);
    for (QWidget* hidden : std::initializer_list<QWidget*>{tNextMap, LblMapNumber, progBar}) hidden->hide();
}

void frmGPSmain::MakeBottom(QGridLayout& layout) {
    auto* bar = Named(new QFrame(this), "bottomBar");
    bar->setFixedHeight(BottomHeight);
    auto* row = Spaced(new QHBoxLayout(bar), 8, {8, 4, 8, 4});
    SlideMap = Named(new ZoomSlider, "SlideMap");
    SlideMap->installEventFilter(this);
    services.Guard.Connect(SlideMap, &ZoomSlider::valueChanged, [this](int value) {
        if (showing || !screen->Map.HasMap()) return;
        screen->SetSlide(value);
        ShowState();
    });
    row->addWidget(SlideMap, 2);
    MakeTarget(*row);
    cmbMaps = Named(new QComboBox, "cmbMaps");
    cmbMaps->setMinimumHeight(44);
    cmbMaps->installEventFilter(this);
    OpenByEnter(*cmbMaps);
    cmbMaps->setMinimumWidth(130);
    cmbMaps->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(cmbMaps, &QComboBox::activated, this, [this](int index) {
        Click([&] { screen->cmbMaps_Click(cmbMaps->itemText(index).toStdString()); });
        picMap->setFocus();
    });
    row->addWidget(cmbMaps, 2);
    layout.addWidget(bar, 1, 0);
}

void frmGPSmain::MakeTarget(QBoxLayout& layout) {
    Frame1 = Named(new QFrame(this), "Frame1");
    QSizePolicy keepsItsPlace = Frame1->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    Frame1->setSizePolicy(keepsItsPlace);
    auto* values = Spaced(new QHBoxLayout(Frame1), 5);
    const auto readout = [&](const char* value, const char* unit, int width) {
        auto* label = new ReadoutLabel({value, unit}, ReadoutLabel::Size::Medium, Frame1);
        label->setFixedWidth(width); // the longest value that can come
        values->addWidget(label);
        return label;
    };
    distance = readout("lblDistanz", "lblDistanzUnit", 108);
    course = readout("lblTrueBearing", "lblTrueBearingUnit", 76);
    time = readout("lblTime", "lblTimeUnit", 80);
    remaining = readout("lblRemDist", "lblRemDistUnit", 112);
    services.Guard.Connect(time, &ReadoutLabel::Clicked, [this] {
        screen->lblTime_Click();
        ApplyLanguage();
    });
    layout.addWidget(Frame1);
}

void frmGPSmain::MakePanel() {
    frmSet = Named(new QFrame(picMap), "frmSet");
    frmSet->setAutoFillBackground(true);
    frmSet->setFrameShape(QFrame::StyledPanel);
    auto* column = Spaced(new QVBoxLayout(frmSet), 6, {8, 8, 8, 8});
    MakeFlagLamps(*column, false);
    cmdShowPoints = Switch("cmdShowPoints", "routepoints", screen->picShowPoints,
                           &FlyingScreen::cmdShowPoints_Click, &FlyingScreen::picShowPoints_Click);
    cmdShowPoints->setMinimumWidth(190); // all lamps are as wide
    column->addWidget(cmdShowPoints);
    MakeStageButtons(*column);
    lblLegend = Named(new QLabel(frmSet), "lblLegend");
    lblLegend->setTextFormat(Qt::RichText);
    column->addWidget(lblLegend);
    frmSet->hide();
}

void frmGPSmain::MakeFlagLamps(QBoxLayout& layout, bool ofAirspace) {
    for (const DisplayFlag& entry : DisplayFlagTable) {
        if (!entry.Name || entry.OfAirspace != ofAirspace) continue;
        LampButton* lamp = Lamp(entry.Name, entry.Icon,
                                [this, flag = entry.Flag] { screen->SetFlag(flag, !(screen->Flags.*flag)); });
        layout.addWidget(lamp);
        flagLamps.emplace_back(entry, lamp);
    }
}

void frmGPSmain::ShowPanel(bool visible) {
    frmSet->setVisible(visible);
    if (!visible) screen->SaveFlightSet();
}

void frmGPSmain::MakeStageButtons(QBoxLayout& layout) {
    airspaceButton = new frmStageButton(frmSet, services.Guard, "airspace", {"cmdLR1", "cmdLR2", "picLR3"},
                                        [this](bool on, bool withText) {
                                            screen->Airspace.SetAirspace(on, withText);
                                            ShowState();
                                        });
    layout.addWidget(airspaceButton);
    MakeFlagLamps(layout, true);
    airfieldButton = new frmStageButton(frmSet, services.Guard, "airfield", {"cmdAPT1", "cmdAPT2", "picAPT3"},
                                        [this](bool on, bool withText) {
                                            screen->Airspace.SetAirfields(on, withText);
                                            ShowState();
                                        });
    layout.addWidget(airfieldButton);
    for (const QWidget* stages : {airspaceButton, airfieldButton})
        for (auto* button : stages->findChildren<QAbstractButton*>())
            button->installEventFilter(this); // arrows mean the same on them as elsewhere
}

void frmGPSmain::MapPressed(QPointF at, Qt::MouseButton button) {
    picMap->setFocus();
    if (button == Qt::RightButton) screen->SetDirectTarget({at.x(), at.y()});
    if (button == Qt::LeftButton) screen->StepRing();
    ShowState();
    dragging = button == Qt::LeftButton && screen->Map.HasMap() && screen->Map.CanPan();
    drag = at;
}

void frmGPSmain::PlaceOverMap() {
    lblStatus->move(12, 56); // below the name of the next map
    progBar->move((picMap->width() - progBar->width()) / 2, 12);
    frmSet->adjustSize();
    frmSet->move(picMap->width() - frmSet->width() - 8, 8);
    lblNoMap->setGeometry(picMap->rect().adjusted(40, 40, -40, -40));
}

} // namespace ornivane
