#pragma once

#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <mutex>

#include "tiles/TileGeometry.h"

namespace ornivane {

using TilePixels = std::shared_ptr<const Tile>;

// The decoded tiles of all charts, those not used for the longest time let go first. A tile that somebody
// holds is never let go: it would take the same memory and be decoded again. For any thread.
class DecodedTiles {
public:
    explicit DecodedTiles(std::size_t mostBytes) : mostTiles(mostBytes / sizeof(Tile)) {}

    // Of the chart with that number, and it counts as used; null when it is not there.
    TilePixels Find(std::uint64_t chart, const TileKey& key);
    void Add(std::uint64_t chart, const TileKey& key, TilePixels tile);
    void Drop(std::uint64_t chart);
    std::size_t Bytes() const;

private:
    struct Place {
        std::uint64_t Chart = 0;
        TileKey Key;
        auto operator<=>(const Place&) const = default;
    };
    struct Kept {
        Place At;
        TilePixels Pixels;
    };

    void LetGo();

    const std::size_t mostTiles;
    mutable std::mutex guard;
    std::list<Kept> tiles; // the last used first
    std::map<Place, std::list<Kept>::iterator> places;
};

} // namespace ornivane
