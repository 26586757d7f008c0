#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace ornivane {

// SIGTERM and SIGINT as an event of the event loop, so that the program can save before it ends: the session
// closes, somebody presses Ctrl+C, or a sibling ends all instances.
class EndSignals : public QObject {
public:
    explicit EndSignals(std::function<void()> callback);
    ~EndSignals() override;

private:
    int ends[2]; // a signal handler may write to a pipe, and do little else
    std::unique_ptr<QSocketNotifier> notifier;
};

} // namespace ornivane
