#include "tiles/BmpRows.h"

#include <algorithm>

#include "tiles/SourceKey.h"

namespace ornivane {

namespace {

constexpr std::uint64_t BlockBytes = 1 << 20;

} // namespace

Result<std::unique_ptr<ImageRows>> BmpRows::Open(const ReadOnlyFile& file) {
    const auto header = BmpHeader::Read(file);
    if (!header) return header.Why();
    return std::unique_ptr<ImageRows>(new BmpRows(file, *header));
}

std::optional<std::uint64_t> BmpRows::WholeHash(const std::stop_token& stop) {
    return ornivane::WholeHash(file, stop);
}

Outcome BmpRows::Next(std::uint32_t* row) {
    const int stored = header.TopDown ? next : header.Extent.Height - 1 - next;
    ++next;
    if (header.Pixels != BmpHeader::Coding::Plain) return NextOfRuns(stored, row);
    if (stored < blockFirst || stored >= blockEnd)
        if (const Outcome failure = ReadBlock(stored)) return failure;
    if (stored - blockFirst < blockRows)
        Convert(block.data() + static_cast<std::uint64_t>(stored - blockFirst) * header.RowBytes(), row);
    else
        std::fill_n(row, header.Extent.Width, header.BitsPerPixel <= 8 ? header.Palette[0] : 0xFF000000U);
    return std::nullopt;
}

Outcome BmpRows::ReadBlock(int storedRow) {
    const std::uint64_t rowBytes = header.RowBytes();
    const int rows = static_cast<int>(std::max<std::uint64_t>(1, BlockBytes / rowBytes));
    blockFirst = header.TopDown ? storedRow : std::max(0, storedRow - rows + 1);
    blockEnd = std::min(blockFirst + rows, header.Extent.Height);
    block.resize(rowBytes * static_cast<unsigned>(blockEnd - blockFirst));
    const auto got =
        file.Read(header.PixelsAt + rowBytes * static_cast<unsigned>(blockFirst), block.data(), block.size());
    if (!got) return Failure{Fault::CannotRead, {}};
    blockRows = static_cast<int>(*got / rowBytes);
    return std::nullopt;
}

Outcome BmpRows::NextOfRuns(int storedRow, std::uint32_t* row) {
    indexes.resize(header.Extent.Width);
    if (const Outcome failure = runs.Row(storedRow, indexes)) return failure;
    for (std::size_t x = 0; x < indexes.size(); ++x) row[x] = header.Palette[indexes[x]];
    return std::nullopt;
}

void BmpRows::Convert(const unsigned char* bytes, std::uint32_t* row) const {
    const int width = header.Extent.Width;
    switch (header.BitsPerPixel) {
    case 1:
        for (int x = 0; x < width; ++x) row[x] = header.Palette[bytes[x >> 3] >> (7 - (x & 7)) & 1];
        break;
    case 4:
        for (int x = 0; x < width; ++x) row[x] = header.Palette[bytes[x >> 1] >> (x & 1 ? 0 : 4) & 15];
        break;
    case 8:
        for (int x = 0; x < width; ++x) row[x] = header.Palette[bytes[x]];
        break;
    case 24:
        for (int x = 0; x < width; ++x, bytes += 3)
            row[x] = 0xFF000000U | static_cast<std::uint32_t>(bytes[2] << 16 | bytes[1] << 8 | bytes[0]);
        break;
    default:
        for (int x = 0; x < width; ++x, bytes += header.BitsPerPixel / 8) {
            std::uint32_t pixel = bytes[0] | static_cast<std::uint32_t>(bytes[1]) << 8;
            if (header.BitsPerPixel == 32)
                pixel |= static_cast<std::uint32_t>(bytes[2]) << 16 | static_cast<std::uint32_t>(bytes[3])
                                                                          << 24;
            row[x] = 0xFF000000U | header.Red.Of(pixel) << 16 | header.Green.Of(pixel) << 8 |
                     header.Blue.Of(pixel);
        }
    }
}

} // namespace ornivane
