// Whatever the bytes, by the first of them: an image file is decoded or refused, a cache file gives tiles or
// says that they are damaged, a packed tile is unpacked or refused. The hashes of a cache file are made
// right, or nothing behind them would ever be reached.

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>
#include <xxhash.h>

#include "tiles/ImageRows.h"
#include "tiles/TileStore.h"

namespace {

using namespace ornivane;

constexpr std::int64_t MostPixels = 1 << 20; // a few bytes can ask for hours of blank rows
constexpr std::size_t IndexAt = 56, IndexHash = 64, HeaderHash = 120;

ReadOnlyFile FileOf(const std::vector<unsigned char>& bytes) {
    const int descriptor = memfd_create("fuzz", 0);
    if (write(descriptor, bytes.data(), bytes.size()) < 0) std::abort();
    return ReadOnlyFile(descriptor);
}

void ReadImage(const std::vector<unsigned char>& bytes) {
    const ReadOnlyFile file = FileOf(bytes);
    ImageReading reading;
    reading.MostCoefficientBytes = 4 << 20;
    const auto rows = OpenImageRows(file, reading);
    if (!rows || (*rows)->Stored().Pixels() > MostPixels) return;
    std::vector<std::uint32_t> row((*rows)->Stored().Width);
    for (int y = 0; y < (*rows)->Stored().Height; ++y)
        if ((*rows)->Next(row.data())) return;
}

void ReadStore(std::vector<unsigned char> bytes) {
    if (bytes.size() < TileStore::HeaderBytes) return;
    std::uint64_t at = 0;
    std::memcpy(&at, &bytes[IndexAt], sizeof at);
    if (at <= bytes.size()) {
        const std::uint64_t hash = XXH3_64bits(bytes.data() + at, bytes.size() - at);
        std::memcpy(&bytes[IndexHash], &hash, sizeof hash);
    }
    const std::uint64_t hash = XXH3_64bits(bytes.data(), HeaderHash);
    std::memcpy(&bytes[HeaderHash], &hash, sizeof hash);
    const auto store = TileStore::Open(FileOf(bytes));
    if (!store) return;
    TileUnpacker unpacker;
    const auto tile = std::make_unique<Tile>();
    for (int level = -1; level < 14; ++level)
        for (int place = -1; place < 3; ++place) (*store)->Read({level, place, place}, unpacker, *tile);
}

void UnpackTile(const std::vector<unsigned char>& bytes) {
    TileUnpacker unpacker;
    const auto tile = std::make_unique<Tile>();
    for (const auto codec : {TileCodec::Jpeg, TileCodec::Lossless})
        for (const ImageExtent extent : {ImageExtent{256, 256}, {20, 20}, {1, 256}})
            unpacker.Unpack(codec, bytes, extent, *tile);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::vector<unsigned char> bytes(data + 1, data + size);
    switch (data[0] % 3) {
    case 0:
        ReadImage(bytes);
        break;
    case 1:
        ReadStore(bytes);
        break;
    default:
        UnpackTile(bytes);
    }
    return 0;
}
