#include "tiles/TiledChart.h"

#include <chrono>
#include <sys/resource.h>
#include <unistd.h>

namespace ornivane {

namespace {

using Clock = std::chrono::steady_clock;

// Levels of at most so many pixels are shown while the pass goes on and stay in memory: 8 MB.
constexpr std::int64_t CoarsePixels = 2 << 20;
constexpr std::int64_t AtOncePixels = 4LL * TileSide * TileSide; // what opening decodes by itself
constexpr auto ShowEvery = std::chrono::milliseconds(100);
constexpr int RowsBetweenLooks = 16;

int FirstLevelWithin(const ImageExtent& image, std::int64_t pixels) {
    int level = 0;
    while (level + 1 < image.Levels() && image.At(level).Pixels() > pixels) ++level;
    return level;
}

// Where threads have a priority of their own: the pass must not take the processor from a redraw.
void StepBack() { ::setpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()), 10); }

} // namespace

struct TiledChart::Work {
    ImageRows& Rows;
    std::stop_token Stop;
    int FirstKept; // level
    TilePacker* Packer = nullptr;
    TileFileWriter* Writer = nullptr;
    Outcome Failed;
    std::unique_ptr<Pyramid> Levels;
    Clock::time_point Shown = Clock::now();
};

TiledChart::TiledChart(std::uint64_t chartNumber, ReadOnlyFile of, const SourceKey& key,
                       const ImageExtent& extent, const TileOptions& how, const CacheFolder& caches,
                       DecodedTiles& tiles)
    : number(chartNumber), file(std::move(of)), source(key), image(extent), options(how), folder(caches),
      decoded(tiles) {
    store = folder.Find(source);
    if (store && store->Header().Image != image) store = nullptr;
    if (store) {
        status = {Phase::Ready, 100, {}};
        LoadCoarsest();
    } else {
        pass = std::jthread([this](const std::stop_token& stop) { Run(stop, false); });
    }
}

TiledChart::~TiledChart() {
    {
        const std::lock_guard lock(guard);
        closing = true;
        pass.request_stop();
        repair.request_stop();
    }
    if (pass.joinable()) pass.join();
    if (repair.joinable()) repair.join();
    decoded.Drop(number);
}

void TiledChart::LoadCoarsest() {
    TileUnpacker unpacker;
    const int level = FirstLevelWithin(image, AtOncePixels);
    const ImageExtent extent = image.At(level);
    for (int y = 0; y < TilesIn(extent.Height); ++y)
        for (int x = 0; x < TilesIn(extent.Width); ++x)
            if (TilePixels tile = Load({level, x, y}, unpacker)) {
                const std::lock_guard lock(guard);
                kept[{level, x, y}] = std::move(tile);
            }
}

TiledChart::Status TiledChart::Now() const {
    const std::lock_guard lock(guard);
    return status;
}

int TiledChart::FinestLevel() const {
    const std::lock_guard lock(guard);
    return finest;
}

TilePixels TiledChart::Find(const TileKey& key) {
    {
        const std::lock_guard lock(guard);
        if (const auto found = kept.find(key); found != kept.end()) return found->second;
    }
    return decoded.Find(number, key);
}

bool TiledChart::CanLoad(const TileKey& key) const {
    const std::lock_guard lock(guard);
    return store && !bad.contains(key) && store->Has(key);
}

TilePixels TiledChart::Load(const TileKey& key, TileUnpacker& unpacker) {
    std::shared_ptr<TileStore> from;
    {
        const std::lock_guard lock(guard);
        if (bad.contains(key)) return nullptr;
        from = store;
    }
    if (!from) return nullptr;
    auto tile = std::make_shared_for_overwrite<Tile>();
    switch (from->Read(key, unpacker, *tile)) {
    case TileStore::Reading::Good:
        decoded.Add(number, key, tile);
        return tile;
    case TileStore::Reading::Missing:
        return nullptr;
    case TileStore::Reading::Damaged:
        break;
    }
    const std::lock_guard lock(guard);
    if (from == store) bad.insert(key);
    Repair();
    return nullptr;
}

void TiledChart::Repair() {
    if (repaired || closing || status.At != Phase::Ready) return;
    repaired = true; // once: a disk that damages what is written to it would keep the pass busy for ever
    if (store) folder.Remove(source, *store);
    status = {Phase::Building, 0, {}};
    // A thread of its own: the pass may still be telling that it is over.
    repair = std::jthread([this](const std::stop_token& stop) { Run(stop, true); });
}

void TiledChart::Tell(const std::shared_ptr<ViewSignal>& signal) {
    const std::lock_guard lock(guard);
    std::erase_if(listeners, [](const auto& old) { return old.expired(); });
    listeners.push_back(signal);
}

void TiledChart::SendAll() {
    std::vector<std::weak_ptr<ViewSignal>> all;
    {
        const std::lock_guard lock(guard);
        all = listeners;
    }
    for (const auto& one : all)
        if (const auto signal = one.lock()) signal->Send();
}

void TiledChart::Set(const Status& now) {
    {
        const std::lock_guard lock(guard);
        status = now;
    }
    SendAll();
}

void TiledChart::SetStore(std::shared_ptr<TileStore> from) {
    const std::lock_guard lock(guard);
    store = std::move(from);
    bad.clear();
}

void TiledChart::Run(const std::stop_token& stop, bool again) {
    StepBack();
    if (auto found = again ? nullptr : folder.FindAtOtherTime(source, file, stop);
        found && found->Header().Image == image) {
        SetStore(std::move(found));
        return Set({Phase::Ready, 100, {}});
    }
    Outcome failure = MakeCache(stop, again);
    if (!failure) return Set({Phase::Ready, 100, {}});
    if (failure->Kind == Fault::DiskFull || failure->Kind == Fault::CannotWrite) {
        const Failure why = *failure;
        failure = again ? failure : MakeReduced(stop, why);
        if (!failure) return Set({Phase::WithoutCache, 100, why});
    }
    Set({Phase::Failed, Now().Percent, failure});
}

Outcome TiledChart::MakeCache(const std::stop_token& stop, bool again) {
    auto rows = OpenImageRows(file, {0, stop, options.MostCoefficientBytes});
    if (!rows) return rows.Why();
    TileFileHeader header;
    header.Image = image;
    header.Source = source;
    header.Codec = (*rows)->IsLossless() ? TileCodec::Lossless
                   : (*rows)->IsGrey()   ? TileCodec::GreyJpeg
                                         : TileCodec::Jpeg;
    auto writer = folder.NewPart(header);
    if (!writer) return writer.Why();
    // A damaged cache is still better than the first rows of the new one.
    if (!again) SetStore((*writer)->Store());
    TilePacker packer(header.Codec);
    Work work{**rows, stop, FirstLevelWithin(image, CoarsePixels), &packer, writer->get(), {}, {}};
    Outcome failure = ReadRows(work);
    if (failure) return failure;
    const auto whole = (*rows)->WholeHash(stop);
    if (stop.stop_requested()) return Failure{Fault::Cancelled, {}};
    if (!whole) return Failure{Fault::CannotRead, {}};
    if (Outcome changed = WhyChanged()) return changed;
    if (!folder.HasRoomFor((*writer)->BytesAppended())) return Failure{Fault::DiskFull, {}};
    failure = (*writer)->Finish(*whole, folder.NameOf(source));
    if (!failure && again) SetStore((*writer)->Store());
    return failure;
}

Outcome TiledChart::WhyChanged() const {
    const auto now = file.State();
    if (!now) return Failure{Fault::CannotRead, {}};
    if (*now != source.State) return Failure{Fault::Changed, {}};
    return std::nullopt;
}

Outcome TiledChart::MakeReduced(const std::stop_token& stop, const Failure& why) {
    // Once more a third for the levels above it.
    const int level = FirstLevelWithin(image, options.WithoutCacheBytes / 4 * 3 / 4);
    SetStore(nullptr);
    auto rows = OpenImageRows(file, {level, stop, options.MostCoefficientBytes});
    if (!rows) return rows.Why();
    {
        const std::lock_guard lock(guard);
        finest = level;
        status.Why = why;
    }
    Work work{**rows, stop, level, nullptr, nullptr, {}, {}};
    return ReadRows(work);
}

Outcome TiledChart::ReadRows(Work& work) {
    work.Levels =
        std::make_unique<Pyramid>(image, work.Rows.Level(), [&](const TileKey& key, const PixelPart& pixels) {
            if (work.Stop.stop_requested()) work.Failed = Failure{Fault::Cancelled, {}};
            if (key.Level >= work.FirstKept) Keep(key, pixels);
            if (work.Failed || !work.Writer) return !work.Failed;
            const bool newRow = key.Level == 0 && key.X == 0;
            if (newRow && !folder.HasRoomFor(work.Writer->BytesAppended()))
                work.Failed = Failure{Fault::DiskFull, {}};
            const PackedTile packed = work.Failed ? PackedTile{} : work.Packer->Pack(pixels);
            if (!work.Failed)
                work.Failed = packed.empty() ? Failure{Fault::CannotWrite, "no memory"}
                                             : work.Writer->Append(key, packed);
            return !work.Failed;
        });
    const int height = image.At(work.Rows.Level()).Height;
    for (int y = 0; y < height; ++y) {
        if (Outcome failure = work.Rows.Next(work.Levels->NextRow())) return failure;
        if (!work.Levels->RowDone()) return work.Failed;
        if (y % RowsBetweenLooks != 0) continue;
        if (work.Stop.stop_requested()) return Failure{Fault::Cancelled, {}};
        if (Clock::now() - work.Shown > ShowEvery) Show(work);
    }
    return std::nullopt;
}

void TiledChart::Show(Work& work) {
    for (int level = std::max(work.FirstKept, work.Rows.Level()); level < image.Levels(); ++level) {
        const PixelPart band = work.Levels->Unfinished(level);
        const int row = work.Levels->BandOf(level);
        for (int x = 0; x * TileSide < band.Extent.Width && band.Extent.Height > 0; ++x)
            Keep({level, x, row},
                 {band.Bits + x * TileSide,
                  band.Stride,
                  {std::min(TileSide, band.Extent.Width - x * TileSide), band.Extent.Height}});
    }
    const auto height = image.At(work.Rows.Level()).Height;
    {
        const std::lock_guard lock(guard);
        status.Percent = static_cast<int>(100LL * work.Levels->RowsDone() / height);
    }
    SendAll();
    work.Shown = Clock::now();
}

void TiledChart::Keep(const TileKey& key, const PixelPart& pixels) {
    auto tile = std::make_shared_for_overwrite<Tile>();
    if (pixels.Extent.Width < TileSide || pixels.Extent.Height < TileSide) tile->Pixels.fill(0xFFFFFFFF);
    for (int y = 0; y < pixels.Extent.Height; ++y)
        std::copy_n(pixels.Row(y), pixels.Extent.Width, tile->Row(y));
    const std::lock_guard lock(guard);
    kept[key] = std::move(tile);
}

} // namespace ornivane
