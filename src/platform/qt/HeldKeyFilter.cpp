#include "platform/qt/HeldKeyFilter.h"

#include <QKeyEvent>
#include <QWidget>

namespace ornivane {

HeldKeyFilter::HeldKeyFilter(QObject& application) { application.installEventFilter(this); }

bool HeldKeyFilter::IsOfAnother(const QWidget& window, int key) const {
    const auto found = pressedIn.find(key);
    return found != pressedIn.end() && found->second != &window;
}

bool HeldKeyFilter::Pressed(const QWidget& window, const QKeyEvent& key) {
    if (key.isAutoRepeat()) return IsOfAnother(window, key.key());
    pressedIn[key.key()] = &window;
    return false;
}

bool HeldKeyFilter::Released(const QWidget& window, const QKeyEvent& key) {
    const bool isOfAnother = IsOfAnother(window, key.key());
    if (!key.isAutoRepeat()) pressedIn.erase(key.key());
    return isOfAnother;
}

bool HeldKeyFilter::eventFilter(QObject* watched, QEvent* event) {
    const bool isPress = event->type() == QEvent::KeyPress;
    if ((!isPress && event->type() != QEvent::KeyRelease) || !watched->isWidgetType()) return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const QWidget& window = *static_cast<const QWidget*>(watched)->window();
    // A list of proposals comes and goes while one types into its field.
    if (window.windowType() == Qt::Popup) {
        pressedIn.erase(key.key());
        return false;
    }
    return isPress ? Pressed(window, key) : Released(window, key);
}

} // namespace ornivane
