#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "tiles/TileView.h"
#include "tiles/TileWorker.h"

namespace ornivane {

// A part of a chart, in its pixels as stored, and how many pixels it is to be stretched over. Parts of it may
// lie outside of the chart.
struct ViewRequest {
    double X = 0, Y = 0, Width = 0, Height = 0;
    double TargetWidth = 0, TargetHeight = 0;
};

// One screen's look at a chart: gives what can be painted now, without waiting for file or decoder, has the
// rest decoded, and tells when to ask again. Used from one thread; the callback comes on another one and must
// only post, not call back.
class ChartViewer {
public:
    // `better` is not called any more when the destructor has returned.
    ChartViewer(std::shared_ptr<TiledChart> of, TileWorker& by, std::function<void()> better);
    ~ChartViewer();
    ChartViewer(const ChartViewer&) = delete;
    ChartViewer& operator=(const ChartViewer&) = delete;

    TiledChart& Chart() const { return *chart; }
    // The level is the one whose pixels are about as large as the target's (0.6 to 1.25 of them), or the next
    // one of which anything is there.
    TileView View(const ViewRequest& request);
    // Waits until nothing better can come, or the time is over: for printing, not for a screen.
    TileView SharpView(const ViewRequest& request, std::chrono::milliseconds most);

private:
    // Tiles of a level, ends excluded.
    struct Range {
        int Level = 0, Left = 0, Top = 0, Right = 0, Bottom = 0;
        bool operator==(const Range&) const = default;

        bool Has(const TileKey& key) const {
            return key.X >= Left && key.X < Right && key.Y >= Top && key.Y < Bottom;
        }
    };

    int LevelFor(const ViewRequest& request) const;
    Range TilesOf(const ViewRequest& request, int level) const;
    bool HasAnyOf(const Range& range) const;
    TileView PutTogether(const Range& range) const;
    void OrderMissing(const Range& range, const ViewRequest& request);
    std::vector<TileKey> MissingIn(const Range& range, const Range& except) const;
    Range Ahead(const Range& range, const ViewRequest& request) const;

    std::shared_ptr<TiledChart> chart;
    TileWorker& worker;
    std::shared_ptr<ViewSignal> signal;
    ViewRequest last; // where the view was before
    TileView pinned;  // holds the tiles of the last view
};

} // namespace ornivane
