#include "tiles/DecodedTiles.h"

namespace ornivane {

TilePixels DecodedTiles::Find(std::uint64_t chart, const TileKey& key) {
    const std::lock_guard lock(guard);
    const auto found = places.find({chart, key});
    if (found == places.end()) return nullptr;
    tiles.splice(tiles.begin(), tiles, found->second);
    return found->second->Pixels;
}

void DecodedTiles::Add(std::uint64_t chart, const TileKey& key, TilePixels tile) {
    const std::lock_guard lock(guard);
    const Place at{chart, key};
    if (const auto found = places.find(at); found != places.end()) {
        found->second->Pixels = std::move(tile);
        return;
    }
    tiles.push_front({at, std::move(tile)});
    places[at] = tiles.begin();
    LetGo();
}

void DecodedTiles::LetGo() {
    for (auto at = tiles.end(); tiles.size() > mostTiles && at != tiles.begin();) {
        --at;
        if (at->Pixels.use_count() > 1) continue;
        places.erase(at->At);
        at = tiles.erase(at);
    }
}

void DecodedTiles::Drop(std::uint64_t chart) {
    const std::lock_guard lock(guard);
    std::erase_if(places, [chart](const auto& place) { return place.first.Chart == chart; });
    std::erase_if(tiles, [chart](const Kept& kept) { return kept.At.Chart == chart; });
}

std::size_t DecodedTiles::Bytes() const {
    const std::lock_guard lock(guard);
    return tiles.size() * sizeof(Tile);
}

} // namespace ornivane
