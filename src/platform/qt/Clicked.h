#pragma once

#include <QMouseEvent>
#include <QWidget>

namespace ornivane {

// The left button is let go over the control. One that is let go elsewhere belongs to a drag, which begins on
// a control and ends on another: the user thought better of it.
inline bool IsClick(const QWidget& control, const QEvent& event) {
    if (event.type() != QEvent::MouseButtonRelease) return false;
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    return mouse.button() == Qt::LeftButton && control.rect().contains(mouse.position().toPoint());
}

} // namespace ornivane
