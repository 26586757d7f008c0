#include <QLabel>
#include <QProgressBar>

#include "planning/frmPlanung.h"
#include "platform/qt/Events.h"
#include "platform/qt/Named.h"
#include "platform/qt/SurfaceWidget.h"

namespace ornivane {

namespace {

constexpr int LeastMapWidth = 300, LeastMapHeight = 300; // pixels

} // namespace

void frmPlanung::MakeMap() {
    picMap = Named(new SurfaceWidget(this), "picMap");
    picMap->setMinimumSize(LeastMapWidth, LeastMapHeight);
    picMap->setFocusPolicy(Qt::StrongFocus);
    picMap->setMouseTracking(true); // the cursor's position shows without a button
    guard.Connect(picMap, &SurfaceWidget::Pressed,
                  [this](QPointF at, Qt::MouseButton button) { MapPressed(at, button); });
    guard.Connect(picMap, &SurfaceWidget::Moved,
                  [this](QPointF at, Qt::MouseButtons held) { MapMoved(at, held); });
    guard.Connect(picMap, &SurfaceWidget::Released,
                  [this](QPointF, Qt::MouseButton button) { MapReleased(button); });
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

void frmPlanung::MapPressed(QPointF at, Qt::MouseButton button) {
    picMap->setFocus();
    if (button == Qt::LeftButton) screen->Map.MouseDown({at.x(), at.y()});
    ShowState();
}

void frmPlanung::MapMoved(QPointF at, Qt::MouseButtons held) {
    screen->MouseMove({at.x(), at.y()}, held.testFlag(Qt::LeftButton));
    ShowState();
}

void frmPlanung::MapReleased(Qt::MouseButton button) {
    if (button == Qt::LeftButton) screen->Map.MouseUp();
}

void frmPlanung::PlaceOverMap() {
    tLR->move(10, 10);
    progBar->move((picMap->width() - progBar->width()) / 2, 12);
    lblNoMap->setGeometry(picMap->rect().adjusted(30, 40, -30, -40));
}

} // namespace ornivane
