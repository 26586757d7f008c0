#include "app/EndSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>

namespace ornivane {

namespace {

volatile std::sig_atomic_t writingEnd = -1;

extern "C" void TakeSignal(int) {
    const char byte = 0;
    [[maybe_unused]] const auto written = write(writingEnd, &byte, 1);
}

void Handle(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGTERM, SIGINT}) sigaction(signal, &action, nullptr);
}

} // namespace

EndSignals::EndSignals(std::function<void()> callback) {
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        return; // then the signals end the program as they always do
    writingEnd = ends[1];
    notifier = std::make_unique<QSocketNotifier>(ends[0], QSocketNotifier::Read);
    connect(notifier.get(), &QSocketNotifier::activated, this, [this, callback = std::move(callback)] {
        char byte = 0;
        while (read(ends[0], &byte, 1) == 1) {
        }
        callback();
    });
    Handle(TakeSignal);
}

EndSignals::~EndSignals() {
    if (!notifier) return;
    Handle(SIG_IGN); // what comes now comes to a program that is ending anyway
    notifier.reset();
    close(ends[0]);
    close(ends[1]);
}

} // namespace ornivane
