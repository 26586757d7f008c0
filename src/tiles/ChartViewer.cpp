#include "tiles/ChartViewer.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace ornivane {

namespace {

// Of a view stretched from a level this much finer than itself, or more, the next coarser one is taken:
// fewer pixels to mix, and no difference that is seen.
constexpr double CoarserFrom = 1.6;
constexpr int Margin = 2; // pixels of the level that a stretch may reach beyond the view

bool HasArea(const ViewRequest& request) {
    return std::isfinite(request.X) && std::isfinite(request.Y) && request.Width > 0 && request.Height > 0 &&
           std::isfinite(request.X + request.Width) && std::isfinite(request.Y + request.Height) &&
           request.TargetWidth > 0 && request.TargetHeight > 0;
}

struct Span {
    int From = 0, To = 0;
};

// The tiles that a stretch of the chart covers at a level.
Span TilesAlong(double start, double length, int level, int levelLength) {
    const double scale = 1.0 / (1 << level);
    const double from = std::max(std::floor(start * scale) - Margin, 0.0);
    const double to =
        std::min(std::ceil((start + length) * scale) + Margin, static_cast<double>(levelLength));
    if (!(from < to)) return {};
    return {static_cast<int>(from) / TileSide, TilesIn(static_cast<int>(to))};
}

} // namespace

ChartViewer::ChartViewer(std::shared_ptr<TiledChart> of, TileWorker& by, std::function<void()> better)
    : chart(std::move(of)), worker(by), signal(std::make_shared<ViewSignal>(std::move(better))) {
    chart->Tell(signal);
}

ChartViewer::~ChartViewer() {
    signal->Close();
    worker.Withdraw(signal);
}

int ChartViewer::LevelFor(const ViewRequest& request) const {
    const double sourcePerTarget =
        std::min(request.Width / request.TargetWidth, request.Height / request.TargetHeight);
    const auto whole = static_cast<unsigned>(std::clamp(sourcePerTarget * (2 / CoarserFrom), 1.0, 1e6));
    return std::clamp(static_cast<int>(std::bit_width(whole)) - 1, chart->FinestLevel(),
                      std::max(chart->FinestLevel(), chart->Extent().Levels() - 1));
}

ChartViewer::Range ChartViewer::TilesOf(const ViewRequest& request, int level) const {
    const ImageExtent extent = chart->Extent().At(level);
    const Span x = TilesAlong(request.X, request.Width, level, extent.Width);
    const Span y = TilesAlong(request.Y, request.Height, level, extent.Height);
    return {level, x.From, y.From, x.To, y.To};
}

bool ChartViewer::HasAnyOf(const Range& range) const {
    for (int y = range.Top; y < range.Bottom; ++y)
        for (int x = range.Left; x < range.Right; ++x)
            if (chart->Find({range.Level, x, y})) return true;
    return false;
}

TileView ChartViewer::View(const ViewRequest& request) {
    if (!HasArea(request)) return {};
    const int level = LevelFor(request);
    const Range wanted = TilesOf(request, level);
    if (wanted.Left >= wanted.Right || wanted.Top >= wanted.Bottom) return {};
    // Stretched from a whole coarser level, a picture is smoother than from single pixels that stand in.
    Range shown = wanted;
    while (shown.Level + 1 < chart->Extent().Levels() && !HasAnyOf(shown))
        shown = TilesOf(request, shown.Level + 1);
    pinned = PutTogether(shown);
    const bool growing = chart->Now().At == TiledChart::Phase::Building; // its coarse tiles are partly blank
    if (shown.Level != level || growing) pinned.SetUnsharp();
    OrderMissing(wanted, request);
    last = request;
    return pinned;
}

TileView ChartViewer::PutTogether(const Range& range) const {
    TileView view(chart->Extent(), {range.Level, range.Left, range.Top}, range.Right - range.Left,
                  range.Bottom - range.Top);
    const int levels = chart->Extent().Levels();
    for (int y = range.Top; y < range.Bottom; ++y)
        for (int x = range.Left; x < range.Right; ++x) {
            const TileKey key{range.Level, x, y};
            for (int up = 0; key.Level + up < levels; ++up)
                if (TilePixels tile = chart->Find(key.Above(up))) {
                    view.Set(x - range.Left, y - range.Top, std::move(tile), up);
                    break;
                } else if (key.Level + up + 1 == levels) {
                    view.SetUnsharp();
                }
        }
    return view;
}

std::vector<TileKey> ChartViewer::MissingIn(const Range& range, const Range& except) const {
    std::vector<TileKey> missing;
    for (int y = range.Top; y < range.Bottom; ++y)
        for (int x = range.Left; x < range.Right; ++x) {
            const TileKey key{range.Level, x, y};
            if (!except.Has(key) && !chart->Find(key) && chart->CanLoad(key)) missing.push_back(key);
        }
    return missing;
}

ChartViewer::Range ChartViewer::Ahead(const Range& range, const ViewRequest& request) const {
    // A zoom or a jump goes nowhere in particular.
    const double dx = request.X - last.X, dy = request.Y - last.Y;
    const bool moved = request.Width == last.Width && request.Height == last.Height &&
                       std::abs(dx) < request.Width && std::abs(dy) < request.Height;
    if (!moved) return range;
    const ImageExtent extent = chart->Extent().At(range.Level);
    Range ahead = range;
    if (dx < 0) ahead.Left = std::max(0, range.Left - 1);
    if (dx > 0) ahead.Right = std::min(TilesIn(extent.Width), range.Right + 1);
    if (dy < 0) ahead.Top = std::max(0, range.Top - 1);
    if (dy > 0) ahead.Bottom = std::min(TilesIn(extent.Height), range.Bottom + 1);
    return ahead;
}

void ChartViewer::OrderMissing(const Range& range, const ViewRequest& request) {
    TileWorker::Order order{chart, signal, MissingIn(range, {range.Level, 0, 0, 0, 0}),
                            MissingIn(Ahead(range, request), range)};
    // From the middle of the view outwards: the aircraft is there, or what was pointed at.
    const int middleX = range.Left + range.Right - 1, middleY = range.Top + range.Bottom - 1;
    std::stable_sort(order.Seen.begin(), order.Seen.end(), [=](const TileKey& a, const TileKey& b) {
        const auto distance = [=](const TileKey& key) {
            return std::abs(2 * key.X - middleX) + std::abs(2 * key.Y - middleY);
        };
        return distance(a) < distance(b);
    });
    worker.Place(std::move(order));
}

TileView ChartViewer::SharpView(const ViewRequest& request, std::chrono::milliseconds most) {
    const auto until = std::chrono::steady_clock::now() + most;
    while (true) {
        const int sent = signal->Sent();
        const auto phase = chart->Now().At;
        TileView view = View(request);
        const bool over = std::chrono::steady_clock::now() >= until;
        if (over || phase == TiledChart::Phase::Failed) return view;
        if (view.IsSharp() && phase != TiledChart::Phase::Building) return view;
        signal->Wait(sent, until);
    }
}

} // namespace ornivane
