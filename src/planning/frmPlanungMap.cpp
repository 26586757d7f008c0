#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>

#include "planning/frmPlanung.h"
#include "platform/qt/Events.h"
#include "platform/qt/Named.h"
#include "platform/qt/SurfaceWidget.h"

namespace ornivane {

namespace {

constexpr int LeastMapWidth = 300, LeastMapHeight = 300; // pixels

bool IsEnter(int key) { return key == Qt::Key_Return || key == Qt::Key_Enter; }
bool IsStep(int key) { return key == Qt::Key_Up || key == Qt::Key_Down; }

} // namespace

void frmPlanung::MakeMap() {
    picMap = Named(new SurfaceWidget(this), "picMap");
    picMap->setMinimumSize(LeastMapWidth, LeastMapHeight);
    picMap->setFocusPolicy(Qt::StrongFocus);
    picMap->setMouseTracking(true); // the cursor's position shows without a button
    picMap->installEventFilter(this);
    guard.Connect(picMap, &SurfaceWidget::Pressed,
                  [this](QPointF at, Qt::MouseButton button) { MapPressed(at, button); });
    guard.Connect(picMap, &SurfaceWidget::Moved,
                  [this](QPointF at, Qt::MouseButtons held) { MapMoved(at, held); });
    guard.Connect(picMap, &SurfaceWidget::Released,
                  [this](QPointF, Qt::MouseButton button) { MapReleased(button); });
    guard.Connect(picMap, &SurfaceWidget::DoubleClicked, [this](QPointF at, Qt::MouseButton button) {
        if (button != Qt::LeftButton) return;
        screen->Map.DblClick({at.x(), at.y()});
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
    ShowCursor();
}

void frmPlanung::MapMoved(QPointF at, Qt::MouseButtons held) {
    screen->Map.MouseMove({at.x(), at.y()}, held.testFlag(Qt::LeftButton));
    ShowCursor();
}

void frmPlanung::MapReleased(Qt::MouseButton button) {
    if (button == Qt::LeftButton) screen->Map.MouseUp();
}

bool frmPlanung::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    if (type == QEvent::FocusOut) pressedKeys.clear();
    if (type == QEvent::KeyPress || type == QEvent::KeyRelease) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
        return type == QEvent::KeyPress ? MapKeyPressed(key.key(), key.isAutoRepeat())
                                        : MapKeyReleased(key.key(), key.isAutoRepeat());
    }
    return Screen::eventFilter(watched, event);
}

// One that is held since before it came here, as the Enter that closed a message, is no press.
bool frmPlanung::MapKeyPressed(int key, bool isHeld) {
    if (!IsEnter(key) && !IsStep(key)) return false;
    if (!isHeld) pressedKeys.insert(key);
    return true;
}

// The keys act when they are let go; the arrows of a key that is held come again and again.
bool frmPlanung::MapKeyReleased(int key, bool isHeld) {
    if (!pressedKeys.contains(key)) return false;
    if (isHeld && !IsStep(key)) return true;
    if (!isHeld) pressedKeys.erase(key);
    Do([&] {
        if (IsEnter(key))
            screen->Routes.cmdAddwaypoint();
        else if (key == Qt::Key_Down)
            screen->Waypoints.cmdNext();
        else
            screen->Waypoints.cmdPrev();
    });
    return true;
}

void frmPlanung::PlaceOverMap() {
    tLR->move(10, 10);
    progBar->move((picMap->width() - progBar->width()) / 2, 12);
    lblNoMap->setGeometry(picMap->rect().adjusted(30, 40, -30, -40));
}

} // namespace ornivane
