#pragma once

#include <QApplication>
#include <QObject>
#include <functional>
#include <type_traits>

#include "base/Language.h"
#include "platform/Dialogs.h"
#include "platform/qt/HeldKeyFilter.h"
#include "platform/qt/SecondClickFilter.h"
#include "platform/qt/WheelFilter.h"

namespace ornivane {

// The top of every event: a run-time error ends the event in which it happens, is shown in the notice, and
// the program goes on.
class EventGuard {
public:
    // The notices are in the language that `shownIn` has at that moment.
    EventGuard(Notice& bar, const Language& shownIn);

    Notice& Notices() { return notices; }

    // False when an error ended it.
    bool Run(const std::function<void()>& event);

    template <typename Sender, typename Signal, typename Handler>
    void Connect(Sender* sender, Signal signal, Handler handler) {
        QObject::connect(sender, signal, sender, [this, handler](const auto&... arguments) {
            Run([&] { Call(handler, arguments...); });
        });
    }

private:
    // As in Qt, a handler may leave out the arguments of the signal.
    template <typename Handler, typename... Arguments>
    static void Call(const Handler& handler, const Arguments&... arguments) {
        if constexpr (std::is_invocable_v<const Handler&, const Arguments&...>)
            handler(arguments...);
        else
            handler();
    }

    Notice& notices;
    const Language& language;
};

// The program's application, with what holds for every event of every window: what no guard has caught is
// shown as well and never ends the program, and a slip of the hand changes nothing.
class GuardedApplication : public QApplication {
public:
    using QApplication::QApplication;
    void SetGuard(EventGuard* toUse) { guard = toUse; }
    bool notify(QObject* receiver, QEvent* event) override;

private:
    EventGuard* guard = nullptr;
    WheelFilter wheel{*this};
    SecondClickFilter clicks{*this};
    HeldKeyFilter keys{*this};
};

} // namespace ornivane
