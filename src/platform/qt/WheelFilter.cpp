#include "platform/qt/WheelFilter.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QScrollBar>
#include <QWidget>

namespace ornivane {

namespace {

// A list, a page or their view; a scroll bar; or an open menu, which scrolls when it is longer than the
// screen.
bool Scrolls(const QWidget& widget) {
    return qobject_cast<const QAbstractScrollArea*>(&widget) || qobject_cast<const QScrollBar*>(&widget) ||
           qobject_cast<const QAbstractScrollArea*>(widget.parentWidget()) ||
           widget.windowType() == Qt::Popup;
}

// Lists and pages ask for the focus when the wheel is turned over them.
void KeepFocusFromWheel(QWidget& widget) {
    if (widget.focusPolicy() == Qt::WheelFocus) widget.setFocusPolicy(Qt::StrongFocus);
}

} // namespace

WheelFilter::WheelFilter(QObject& application) { application.installEventFilter(this); }

bool WheelFilter::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWidgetType()) return false;
    auto& widget = static_cast<QWidget&>(*watched);
    if (event->type() == QEvent::Polish) KeepFocusFromWheel(widget); // once, before it first shows
    if (event->type() != QEvent::Wheel || Scrolls(widget)) return false;
    event->ignore();
    return true;
}

} // namespace ornivane
