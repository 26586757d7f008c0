#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <atomic>
#include <functional>

namespace ornivane {

// The way from the threads of the tiles to that of the screens. However much comes, it is told once in a turn
// of the event loop and at most 25 times a second: each time a screen paints.
class TileNews : public QObject {
public:
    explicit TileNews(std::function<void()> teller);

    // From any thread.
    void Post();

private:
    void Arrived();
    void Tell();

    std::function<void()> tell;
    std::atomic<bool> posted = false;
    QElapsedTimer sinceTold;
    QTimer pause;
};

} // namespace ornivane
