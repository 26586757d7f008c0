#include "tiles/ChartTiles.h"

namespace ornivane {

ChartTiles::ChartTiles(TileOptions how)
    : options(std::move(how)), folder(options.CacheFolder, options.Limits), decoded(options.DecodedBytes) {}

std::shared_ptr<TiledChart> ChartTiles::OpenAlready(const SourceKey& key) {
    std::erase_if(charts, [](const auto& chart) { return chart.expired(); });
    for (const auto& one : charts)
        if (auto chart = one.lock())
            // One that failed is tried again: its file may be back.
            if (chart->Key() == key && chart->Now().At != TiledChart::Phase::Failed) return chart;
    return nullptr;
}

Result<std::shared_ptr<TiledChart>> ChartTiles::Open(const std::filesystem::path& image) {
    auto file = ReadOnlyFile::Open(image);
    if (!file) return file.Why();
    const auto key = KeyOf(*file);
    if (!key) return Failure{Fault::CannotRead, {}};
    const std::lock_guard lock(guard);
    if (auto chart = OpenAlready(*key)) return chart;
    ImageExtent extent;
    {
        const auto rows = OpenImageRows(*file, {0, {}, options.MostCoefficientBytes});
        if (!rows) return rows.Why();
        extent = (*rows)->Stored();
    }
    auto chart =
        std::make_shared<TiledChart>(++lastNumber, std::move(*file), *key, extent, options, folder, decoded);
    charts.push_back(chart);
    return chart;
}

std::unique_ptr<ChartViewer> ChartTiles::View(std::shared_ptr<TiledChart> chart,
                                              std::function<void()> better) {
    return std::make_unique<ChartViewer>(std::move(chart), worker, std::move(better));
}

} // namespace ornivane
