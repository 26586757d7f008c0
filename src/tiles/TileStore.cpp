#include "tiles/TileStore.h"

#include <array>
#include <cstring>
#include <xxhash.h>

namespace ornivane {

namespace {

constexpr std::array<char, 8> Magic{'O', 'R', 'N', 'T', 'I', 'L', 'E', 'S'};
constexpr std::uint32_t LongestTile = 1 << 20; // three times what noise takes

struct StoredHeader {
    std::array<char, 8> Magic;
    std::uint32_t Version, Side, Width, Height, Levels, Codec;
    std::uint64_t SourceBytes, SourceSampled, SourceWhole, IndexAt, IndexHash;
    std::array<std::uint64_t, 6> Unused;
    std::uint64_t Hash; // of what is before it
};
static_assert(sizeof(StoredHeader) == TileStore::HeaderBytes);

std::uint64_t HashOfHeader(const StoredHeader& stored) {
    return XXH3_64bits(&stored, sizeof stored - sizeof stored.Hash);
}

std::optional<TileFileHeader> Understood(const StoredHeader& stored) {
    if (stored.Magic != Magic || stored.Version != TileFileHeader::Version || stored.Side != TileSide ||
        stored.Hash != HashOfHeader(stored))
        return std::nullopt;
    TileFileHeader header;
    header.Image = {static_cast<int>(stored.Width), static_cast<int>(stored.Height)};
    header.Codec = static_cast<TileCodec>(stored.Codec);
    const bool known = header.Codec == TileCodec::Jpeg || header.Codec == TileCodec::GreyJpeg ||
                       header.Codec == TileCodec::Lossless;
    if (!known || !header.Image.IsPossible() || static_cast<int>(stored.Levels) != header.Image.Levels())
        return std::nullopt;
    header.Source.State.Bytes = stored.SourceBytes;
    header.Source.Sampled = stored.SourceSampled;
    header.WholeHash = stored.SourceWhole;
    header.IndexAt = stored.IndexAt;
    header.IndexHash = stored.IndexHash;
    return header;
}

} // namespace

std::vector<unsigned char> TileStore::Bytes(const TileFileHeader& header) {
    StoredHeader stored{};
    stored.Magic = Magic;
    stored.Version = TileFileHeader::Version;
    stored.Side = TileSide;
    stored.Width = static_cast<std::uint32_t>(header.Image.Width);
    stored.Height = static_cast<std::uint32_t>(header.Image.Height);
    stored.Levels = static_cast<std::uint32_t>(header.Image.Levels());
    stored.Codec = static_cast<std::uint32_t>(header.Codec);
    stored.SourceBytes = header.Source.State.Bytes;
    stored.SourceSampled = header.Source.Sampled;
    stored.SourceWhole = header.WholeHash;
    stored.IndexAt = header.IndexAt;
    stored.IndexHash = header.IndexHash;
    stored.Hash = HashOfHeader(stored);
    std::vector<unsigned char> bytes(sizeof stored);
    std::memcpy(bytes.data(), &stored, sizeof stored);
    return bytes;
}

TileStore::TileStore(ReadOnlyFile from, const TileFileHeader& of) : file(std::move(from)), header(of) {
    std::size_t count = 0;
    for (int level = 0; level < header.Image.Levels(); ++level) {
        levelStarts.push_back(count);
        const ImageExtent extent = header.Image.At(level);
        count += static_cast<std::size_t>(TilesIn(extent.Width)) * TilesIn(extent.Height);
    }
    levelStarts.push_back(count);
}

Result<std::shared_ptr<TileStore>> TileStore::Open(ReadOnlyFile file) {
    StoredHeader stored{};
    const auto got = file.Read(0, &stored, sizeof stored);
    if (!got) return Failure{Fault::CannotRead, {}};
    const auto header = *got == sizeof stored ? Understood(stored) : std::nullopt;
    if (!header) return Failure{Fault::Damaged, "header of the cache"};
    auto store = std::make_shared<TileStore>(std::move(file), *header);
    if (const Outcome failure = store->ReadIndex()) return *failure;
    return store;
}

Outcome TileStore::ReadIndex() {
    // A damaged header must not ask for more memory than the file is long.
    const auto state = file.State();
    const std::size_t bytes = levelStarts.back() * sizeof(Entry);
    if (!state) return Failure{Fault::CannotRead, {}};
    if (header.IndexAt < HeaderBytes || header.IndexAt > state->Bytes ||
        state->Bytes - header.IndexAt != bytes)
        return Failure{Fault::Damaged, "length of the cache"};
    entries.resize(levelStarts.back());
    if (!file.ReadAll(header.IndexAt, entries.data(), bytes)) return Failure{Fault::CannotRead, {}};
    if (XXH3_64bits(entries.data(), bytes) != header.IndexHash)
        return Failure{Fault::Damaged, "index of the cache"};
    return std::nullopt;
}

std::optional<std::size_t> TileStore::Slot(const TileKey& key) const {
    if (key.Level < 0 || key.Level + 1 >= static_cast<int>(levelStarts.size()) || key.X < 0 || key.Y < 0)
        return std::nullopt;
    const ImageExtent level = header.Image.At(key.Level);
    if (key.X >= TilesIn(level.Width) || key.Y >= TilesIn(level.Height)) return std::nullopt;
    return levelStarts[key.Level] + static_cast<std::size_t>(key.Y) * TilesIn(level.Width) + key.X;
}

TileStore::Entry TileStore::At(const TileKey& key) const {
    const auto slot = Slot(key);
    const std::lock_guard lock(guard);
    return slot && *slot < entries.size() ? entries[*slot] : Entry{};
}

bool TileStore::Has(const TileKey& key) const { return At(key).Length > 0; }

std::uint32_t TileStore::HashOf(const TileKey& key, PackedTile packed) const {
    const std::array<std::uint64_t, 4> place{static_cast<std::uint64_t>(key.Level),
                                             static_cast<std::uint64_t>(key.X),
                                             static_cast<std::uint64_t>(key.Y), header.Source.Sampled};
    const std::uint64_t seed = XXH3_64bits(place.data(), sizeof place);
    return static_cast<std::uint32_t>(XXH3_64bits_withSeed(packed.data(), packed.size(), seed));
}

TileStore::Reading TileStore::Read(const TileKey& key, TileUnpacker& unpacker, Tile& tile) const {
    const Entry entry = At(key);
    if (entry.Length == 0) return Reading::Missing;
    if (entry.Length > LongestTile) return Reading::Damaged;
    std::vector<unsigned char> bytes(entry.Length);
    if (!file.ReadAll(entry.At, bytes.data(), bytes.size())) return Reading::Damaged;
    if (HashOf(key, bytes) != entry.Hash) return Reading::Damaged;
    const bool good = unpacker.Unpack(header.Codec, bytes, ExtentOf(key, header.Image), tile);
    return good ? Reading::Good : Reading::Damaged;
}

void TileStore::Add(const TileKey& key, std::uint64_t at, PackedTile packed) {
    const auto slot = Slot(key);
    if (!slot) return;
    const std::uint32_t hash = HashOf(key, packed);
    const std::lock_guard lock(guard);
    entries.resize(levelStarts.back());
    entries[*slot] = {at, static_cast<std::uint32_t>(packed.size()), hash};
}

std::vector<unsigned char> TileStore::Index() const {
    const std::lock_guard lock(guard);
    std::vector<unsigned char> bytes(entries.size() * sizeof(Entry));
    std::memcpy(bytes.data(), entries.data(), bytes.size());
    return bytes;
}

} // namespace ornivane
