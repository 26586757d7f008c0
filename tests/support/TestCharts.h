#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include "platform/qt/SharedCharts.h"
#include "platform/qt/SurfaceWidget.h"
#include "support/TemporaryFolder.h"

namespace ornivane {

// Charts whose caches are gone with the test.
class TestCharts {
public:
    operator SharedCharts&() { return all; }
    const std::filesystem::path& Folder() const { return folder.Path(); }

private:
    TemporaryFolder folder;
    SharedCharts all{folder.Path()};
};

// Lets events in until it is so; a failure of the test otherwise.
template <typename Condition>
bool Becomes(Condition isSo) {
    const QDeadlineTimer end(20000);
    QTimer wakes; // or a loop without events would not look at the time
    wakes.start(10);
    while (!isSo() && !end.hasExpired()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return isSo();
}

// Tiles come from threads of their own: until the chart is painted as it is.
inline bool BecomesSharp(SurfaceWidget& map) {
    return Becomes([&map] { return map.Surface().IsSharp(); });
}

} // namespace ornivane
