#include "nav/frmGPSmain.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <algorithm>

#include "nav/frmInstrumentPanel.h"
#include "platform/qt/Clicked.h"
#include "platform/qt/EnterKey.h"
#include "platform/qt/Events.h"
#include "platform/qt/SurfaceWidget.h"

namespace ornivane {

namespace {

constexpr int KeyZoomStep = 10;

// A digit of the main row or Backspace as its key code; 0 for any other key, those of the numeric block
// included.
int EntryCode(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Backspace) return WindCalculator::Backspace;
    const bool isDigit = event.key() >= Qt::Key_0 && event.key() <= Qt::Key_9;
    return isDigit && !(event.modifiers() & Qt::KeypadModifier) ? event.key() : 0;
}

// Keys that are not this screen's: the toolbar's, and those that move the focus or only change other keys.
bool LeadsOn(int key) {
    constexpr int leading[] = {Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Shift, Qt::Key_Control,
                               Qt::Key_Alt, Qt::Key_AltGr,   Qt::Key_Meta};
    return std::ranges::count(leading, key) > 0 || (key >= Qt::Key_F1 && key <= Qt::Key_F35);
}

// Keys with a meaning of their own do not touch the entry of heading and airspeed.
bool IsCommand(int key) {
    const bool isArrow =
        key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Left || key == Qt::Key_Right;
    return isArrow || key == Qt::Key_Space || LeadsOn(key);
}

} // namespace

bool frmGPSmain::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    if (type == QEvent::ToolTip) ShowLinkToolTips(); // as things stand now
    // The flying screen's keys mean the same wherever the focus is: a list that has it must not change chart
    // or route by accident. It opens by Enter, and takes letters then. The space bar presses a button; other
    // keys are the control's own.
    const bool isKey = type == QEvent::KeyPress || type == QEvent::KeyRelease;
    const int key = isKey ? static_cast<QKeyEvent*>(event)->key() : 0;
    if (key == Qt::Key_Space && qobject_cast<QAbstractButton*>(watched)) return false;
    if (type == QEvent::KeyPress && HandleKey(*static_cast<QKeyEvent*>(event))) return true;
    if (type == QEvent::KeyRelease && HandleKeyUp(*static_cast<QKeyEvent*>(event))) return true;
    if (isKey && qobject_cast<QComboBox*>(watched)) return !LeadsOn(key);
    if (watched == cmbRoute && (type == QEvent::FocusIn || type == QEvent::FocusOut))
        ShowRouteMask(type == QEvent::FocusIn);
    if (watched == lblRoute && IsClick(*lblRoute, *event)) {
        services.Guard.Run([this] { screen->SetFlag(&DisplayFlags::ShowRoute, false); });
        return true;
    }
    if (watched == tNextMap && type == QEvent::MouseButtonPress) {
        screen->Ring.tNextMap_MouseDown();
        ShowState();
        return true;
    }
    return Screen::eventFilter(watched, event);
}

// While the list has the focus, a label with a dashed frame covers its text: the arrow keys do not choose
// here.
void frmGPSmain::ShowRouteMask(bool visible) {
    constexpr int arrow = 34; // pixels of the list's own arrow, which stays in sight
    tRoute->setGeometry(0, 0, cmbRoute->width() - arrow, cmbRoute->height());
    tRoute->setVisible(visible);
}

void frmGPSmain::keyPressEvent(QKeyEvent* event) {
    if (!HandleKey(*event)) Screen::keyPressEvent(event);
}

void frmGPSmain::keyReleaseEvent(QKeyEvent* event) {
    if (!HandleKeyUp(*event)) Screen::keyReleaseEvent(event);
}

// A key that is pressed here and released in another window, or the other way round, does nothing here.
bool frmGPSmain::event(QEvent* event) {
    if (event->type() == QEvent::WindowDeactivate || event->type() == QEvent::Hide) pressedKeys.clear();
    return Screen::event(event);
}

void frmGPSmain::OpenByEnter(QComboBox& list) {
    new EnterKey(list, [this, &list] {
        if (!screen->IsEntering()) list.showPopup();
    });
}

bool frmGPSmain::IsTyping() const {
    const QWidget* focus = window()->focusWidget();
    return qobject_cast<const QLineEdit*>(focus) || qobject_cast<const QAbstractSpinBox*>(focus);
}

// Closes what is open over the map: the entry of a name or a course first, then the panel of switches.
bool frmGPSmain::CloseEntry() {
    if (screen->IsEntering()) {
        instruments->CancelEntry();
        return true;
    }
    if (!frmSet->isVisible()) return false;
    Click([this] { ShowPanel(false); });
    picMap->setFocus();
    return true;
}

bool frmGPSmain::HandleKey(const QKeyEvent& event) {
    if (LeadsOn(event.key())) return false;
    // A repeat without a press here: the press was meant for an entry or a message that is closed now.
    if (event.isAutoRepeat() && !pressedKeys.contains(event.key())) return true;
    if (event.key() == Qt::Key_Escape && CloseEntry()) return true;
    if (screen->IsEntering()) return true; // nothing else happens, wherever the keys are
    pressedKeys.insert(event.key());
    const auto step = [&](void (FlyingScreen::*to)()) {
        // A key that is held would run through the route to its end.
        if (!event.isAutoRepeat()) services.Guard.Run([this, to] { (screen.get()->*to)(); });
    };
    switch (event.key()) {
    case Qt::Key_Up:
        services.Guard.Run([this] { screen->StepZoom(KeyZoomStep); });
        break;
    case Qt::Key_Down:
        services.Guard.Run([this] { screen->StepZoom(-KeyZoomStep); });
        break;
    case Qt::Key_Right:
        step(&FlyingScreen::cmdNext_Click);
        break;
    case Qt::Key_Left:
        step(&FlyingScreen::cmdPrev_Click);
        break;
    case Qt::Key_Space:
        if (!event.isAutoRepeat()) services.Guard.Run([this] { screen->StepRing(); });
        break;
    default:
        return EntryCode(event) != 0; // taken when it is let go
    }
    ShowState();
    return true;
}

bool frmGPSmain::HandleKeyUp(const QKeyEvent& event) {
    if (event.isAutoRepeat() || pressedKeys.erase(event.key()) == 0 || IsCommand(event.key())) return false;
    services.Guard.Run([&] { screen->EntryKey(EntryCode(event)); });
    return true;
}

} // namespace ornivane
