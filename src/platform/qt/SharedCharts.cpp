#include "platform/qt/SharedCharts.h"

#include <QStandardPaths>

namespace ornivane {

SharedCharts::SharedCharts(const std::filesystem::path& cacheFolder)
    : tiles([&] {
          TileOptions options;
          options.CacheFolder = cacheFolder;
          return options;
      }()),
      ending([this](const std::stop_token& stop) { EndThem(stop); }) {}

SharedCharts::~SharedCharts() {
    ending.request_stop();
    ending.join();
}

std::filesystem::path SharedCharts::CacheFolderOfUser() {
    const QString caches = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    return std::filesystem::path(caches.toStdU16String()) / "ornivane" / "charts";
}

void SharedCharts::LetGo(std::shared_ptr<TiledChart> chart) {
    if (!chart) return;
    const std::lock_guard lock(guard);
    gone.push_back(std::move(chart));
    changed.notify_one();
}

void SharedCharts::EndThem(const std::stop_token& stop) {
    while (true) {
        std::vector<std::shared_ptr<TiledChart>> charts;
        {
            std::unique_lock lock(guard);
            changed.wait(lock, stop, [this] { return !gone.empty(); });
            charts.swap(gone);
        }
        if (charts.empty()) return;
    }
}

} // namespace ornivane
