#include "platform/qt/TileNews.h"

namespace ornivane {

namespace {

constexpr qint64 ShortestPause = 40; // milliseconds

} // namespace

TileNews::TileNews(std::function<void()> teller) : tell(std::move(teller)) {
    pause.setSingleShot(true);
    connect(&pause, &QTimer::timeout, this, [this] { Tell(); });
}

void TileNews::Post() {
    if (posted.exchange(true)) return;
    QMetaObject::invokeMethod(
        this, [this] { Arrived(); }, Qt::QueuedConnection);
}

void TileNews::Arrived() {
    const qint64 left = sinceTold.isValid() ? ShortestPause - sinceTold.elapsed() : 0;
    if (left > 0) return pause.start(static_cast<int>(left));
    Tell();
}

void TileNews::Tell() {
    sinceTold.start();
    posted = false; // what comes while it is told is told again
    tell();
}

} // namespace ornivane
