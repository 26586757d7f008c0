#include "platform/qt/SecondClickFilter.h"

#include <QAbstractButton>
#include <QGuiApplication>
#include <QStyleHints>

namespace ornivane {

SecondClickFilter::SecondClickFilter(QObject& application) { application.installEventFilter(this); }

// A press that a control has no use for goes up through those around it, one after another.
bool SecondClickFilter::IsPassedOn(const QWidget& widget, const QMouseEvent& press) const {
    return press.timestamp() == last.Timestamp && last.Widget && widget.isAncestorOf(last.Widget);
}

bool SecondClickFilter::Refuses(const QWidget& widget, const QMouseEvent& press) const {
    const QStyleHints& hints = *QGuiApplication::styleHints();
    const bool isSecond =
        last.WasHere && press.button() == last.Button &&
        press.timestamp() - last.Timestamp < static_cast<quint64>(hints.mouseDoubleClickInterval()) &&
        (press.globalPosition() - last.At).manhattanLength() <= hints.mouseDoubleClickDistance();
    if (!isSecond || last.Widget == &widget) return false;
    return last.Window != widget.window() || !qobject_cast<const QAbstractButton*>(&widget);
}

bool SecondClickFilter::Pressed(QWidget& widget, const QMouseEvent& press) {
    if (press.timestamp() == 0 || IsPassedOn(widget, press)) return false; // 0: nobody knows when
    const bool isRefused = Refuses(widget, press);
    refused = isRefused ? &widget : nullptr;
    last = {&widget, widget.window(), !isRefused, press.timestamp(), press.button(), press.globalPosition()};
    return isRefused;
}

bool SecondClickFilter::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWidgetType()) return false;
    auto& widget = static_cast<QWidget&>(*watched);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return Pressed(widget, static_cast<QMouseEvent&>(*event));
    case QEvent::MouseMove:
        return refused == &widget && static_cast<QMouseEvent&>(*event).buttons() != Qt::NoButton;
    case QEvent::MouseButtonRelease:
        if (refused != &widget) return false;
        refused = nullptr;
        return true;
    default:
        return false;
    }
}

} // namespace ornivane
