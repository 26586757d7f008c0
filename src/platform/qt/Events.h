#pragma once

#include <QApplication>
#include <QObject>
#include <functional>
#include <type_traits>
#include <utility>

#include "platform/Dialogs.h"
#include "platform/qt/HeldKeyFilter.h"
#include "platform/qt/SecondClickFilter.h"
#include "platform/qt/WheelFilter.h"

namespace ornivane {

// The top of every event: a run-time error ends the event in which it happens, is shown in the notice, and
// the program goes on.
class EventGuard {
public:
    // `english`: the language of this moment.
    EventGuard(Notice& notices, std::function<bool()> english);

    Notice& Notices() { return notices; }

    // False when an error ended it.
    bool Run(const std::function<void()>& event);

    template <typename Sender, typename Signal, typename Handler>
    void Connect(Sender* sender, Signal signal, Handler handler) {
        QObject::connect(sender, signal, sender, [this, handler](auto&&... arguments) {
            Run([&] {
                if constexpr (std::is_invocable_v<const Handler&, decltype(arguments)...>)
                    handler(std::forward<decltype(arguments)>(arguments)...);
                else
                    handler(); // as in Qt, a handler may leave out what it does not need
            });
        });
    }

private:
    Notice& notices;
    std::function<bool()> isEnglish;
};

// The program's application, with what holds for every event of every window: what no guard has caught is
// shown as well and never ends the program, and a hand that slips changes nothing.
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
