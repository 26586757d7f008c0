#include "platform/qt/Events.h"

#include <exception>

#include "base/RuntimeError.h"

namespace ornivane {

EventGuard::EventGuard(Notice& bar, const Language& shownIn) : notices(bar), language(shownIn) {}

bool EventGuard::Run(const std::function<void()>& event) {
    try {
        event();
        return true;
    } catch (const RuntimeError& error) {
        notices.Show(DescribeError(error, language));
    } catch (const std::exception& error) {
        notices.Show(error.what());
    }
    return false;
}

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
    if (!guard) return QApplication::notify(receiver, event);
    bool handled = false;
    guard->Run([&] { handled = QApplication::notify(receiver, event); });
    return handled;
}

} // namespace ornivane
