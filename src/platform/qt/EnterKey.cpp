#include "platform/qt/EnterKey.h"

#include <QKeyEvent>
#include <QPushButton>

namespace ornivane {

EnterKey::EnterKey(QWidget& widget, std::function<void()> does) : QObject(&widget), action(std::move(does)) {
    widget.installEventFilter(this);
}

void EnterKey::PressesButtonsOf(QWidget& form) {
    for (auto* button : form.findChildren<QPushButton*>())
        new EnterKey(*button, [button] { button->click(); });
}

bool EnterKey::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut) pressed = false;
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)
        return QObject::eventFilter(watched, event);
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (key.key() != Qt::Key_Return && key.key() != Qt::Key_Enter) return false;
    if (event->type() == QEvent::KeyPress) {
        if (!key.isAutoRepeat()) pressed = true;
    } else if (pressed && !key.isAutoRepeat()) {
        pressed = false;
        action();
    }
    return true;
}

} // namespace ornivane
