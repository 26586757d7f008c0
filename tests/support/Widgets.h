#pragma once

#include <QAbstractItemView>
#include <QApplication>
#include <QTest>
#include <stdexcept>
#include <string>

namespace ornivane {

// The control of a form by its object name.
template <typename Widget>
Widget& In(const QWidget& form, const char* name) {
    auto* widget = form.findChild<Widget*>(name);
    if (!widget) throw std::runtime_error(std::string("no widget ") + name);
    return *widget;
}

inline void ClickOn(QWidget& widget, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(&widget, button);
}

inline void ClickRow(QAbstractItemView& view, int row, int column = 0) {
    const QModelIndex index = view.model()->index(row, column);
    view.scrollTo(index);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
}

// A key as the window system sends it; a held one repeats.
inline void SendKey(QWidget& to, QEvent::Type type, int key, bool isHeld = false) {
    QKeyEvent event(type, key, Qt::NoModifier, QString(), isHeld);
    QApplication::sendEvent(&to, &event);
}

inline void SendMouse(QWidget& to, QEvent::Type type, QPointF onScreen, quint64 when = 0) {
    QMouseEvent event(type, to.mapFromGlobal(onScreen), onScreen, Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    event.setTimestamp(when);
    QApplication::sendEvent(&to, &event);
}

} // namespace ornivane
