#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

#include "tiles/CacheFolder.h"
#include "tiles/DecodedTiles.h"
#include "tiles/ImageRows.h"
#include "tiles/Pyramid.h"
#include "tiles/ViewSignal.h"

namespace ornivane {

struct TileOptions {
    std::filesystem::path CacheFolder; // of the user, not of the charts
    CacheLimits Limits;
    std::size_t DecodedBytes = 64 << 20;
    // Where there is no cache the chart is held in memory, reduced until it is at most so large.
    std::int64_t WithoutCacheBytes = 64 << 20;
    std::int64_t MostCoefficientBytes = 512 << 20;
};

// One chart and where its tiles come from: its cache, the pass that makes it, and when neither is possible a
// reduced image in memory. The pass runs in a thread of its own, which ends with this object.
class TiledChart {
public:
    enum class Phase {
        Building,     // tiles come as the rows do
        Ready,        // all there is
        WithoutCache, // all there is, coarser than the chart, and why
        Failed        // no more will come, and why; what has come can still be painted
    };
    struct Status {
        Phase At = Phase::Building;
        int Percent = 0; // of the pass
        Outcome Why;
        bool operator==(const Status&) const = default;
    };

    // Opens its cache, or begins to make it. All arguments must outlive the chart but the file, the key and
    // the extent, which the image's header tells.
    TiledChart(std::uint64_t chartNumber, ReadOnlyFile of, const SourceKey& key, const ImageExtent& extent,
               const TileOptions& how, const CacheFolder& caches, DecodedTiles& tiles);
    ~TiledChart();
    TiledChart(const TiledChart&) = delete;
    TiledChart& operator=(const TiledChart&) = delete;

    // From any thread, all of them.
    ImageExtent Extent() const { return image; }
    const SourceKey& Key() const { return source; }
    Status Now() const;
    // The finest level that there is or will be.
    int FinestLevel() const;
    // Decoded already; null when it is not.
    TilePixels Find(const TileKey& key);
    // Reads and decodes it; null when it cannot be had, perhaps not yet.
    TilePixels Load(const TileKey& key, TileUnpacker& unpacker);
    // Whether Load is worth trying.
    bool CanLoad(const TileKey& key) const;
    // Will be sent to when the pass has more to show.
    void Tell(const std::shared_ptr<ViewSignal>& signal);

private:
    struct Work; // of one run over the rows

    void Run(const std::stop_token& stop, bool again);
    Outcome MakeCache(const std::stop_token& stop, bool again);
    Outcome MakeReduced(const std::stop_token& stop, const Failure& why);
    Outcome ReadRows(Work& work);
    Outcome WhyChanged() const;
    void Show(Work& work);
    void Keep(const TileKey& key, const PixelPart& pixels);
    void SetStore(std::shared_ptr<TileStore> from);
    void Set(const Status& now);
    void SendAll();
    void LoadCoarsest();
    void Repair();

    const std::uint64_t number;
    const ReadOnlyFile file;
    const SourceKey source;
    const ImageExtent image;
    const TileOptions& options;
    const CacheFolder& folder;
    DecodedTiles& decoded;

    mutable std::mutex guard; // of all that follows
    Status status;
    int finest = 0;
    std::shared_ptr<TileStore> store;
    std::map<TileKey, TilePixels> kept; // of the coarse levels
    std::set<TileKey> bad;
    bool repaired = false, closing = false;
    std::vector<std::weak_ptr<ViewSignal>> listeners;

    std::jthread pass, repair; // last: their ends are waited for before anything else goes
};

} // namespace ornivane
