#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "tiles/ChartViewer.h"
#include "tiles/TileWorker.h"
#include "tiles/TiledChart.h"

namespace ornivane {

// The charts of a program as tiles, of any size: one object for all screens, which must outlive the charts
// and viewers that it gave. Screens with the same chart share it.
class ChartTiles {
public:
    explicit ChartTiles(TileOptions how);

    // Reads the header and looks for the cache: a few milliseconds when the file's device answers. A chart
    // without a cache comes at once, too, and fills up (TiledChart::Now). Fails when the file is no image
    // that could be shown.
    Result<std::shared_ptr<TiledChart>> Open(const std::filesystem::path& image);
    std::unique_ptr<ChartViewer> View(std::shared_ptr<TiledChart> chart, std::function<void()> better);

    std::size_t DecodedBytes() const { return decoded.Bytes(); }

private:
    std::shared_ptr<TiledChart> OpenAlready(const SourceKey& key);

    const TileOptions options;
    const CacheFolder folder;
    DecodedTiles decoded;
    std::mutex guard;
    std::uint64_t lastNumber = 0;
    std::vector<std::weak_ptr<TiledChart>> charts;
    TileWorker worker; // last: it holds charts while it decodes
};

} // namespace ornivane
