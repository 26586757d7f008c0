#include "tiles/Pyramid.h"

#include <algorithm>
#include <type_traits>

namespace ornivane {

namespace {

// Up to this many halvings the sum of a square, 4^4 pixels of at most 255, fits in 16 bits.
constexpr int NarrowDepth = 4;

template <class In, class Sum>
void SetRow(const In* __restrict from, Sum* __restrict to, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) to[i] = from[i];
}

template <class In, class Sum>
void AddRow(const In* __restrict from, Sum* __restrict to, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) to[i] = static_cast<Sum>(to[i] + from[i]);
}

// Pairs of pixels become one, in place.
template <class Sum>
void AddPairs(Sum* sums, int width) {
    const int pairs = width / 2;
    for (int x = 0; x < pairs; ++x)
        for (int channel = 0; channel < 4; ++channel)
            sums[x * 4 + channel] = static_cast<Sum>(sums[x * 8 + channel] + sums[x * 8 + 4 + channel]);
    if (width % 2)
        for (int channel = 0; channel < 4; ++channel)
            sums[pairs * 4 + channel] = sums[(width - 1) * 4 + channel];
}

template <class Sum>
std::uint32_t Average(const Sum* sums, std::uint64_t pixels) {
    std::uint32_t result = 0;
    for (int channel = 3; channel >= 0; --channel)
        result = result << 8 | static_cast<std::uint32_t>((sums[channel] + pixels / 2) / pixels);
    return result;
}

// Squares of 4^depth pixels.
template <class Sum>
void AverageWhole(const Sum* sums, int depth, std::uint32_t* to, int count) {
    auto* bytes = reinterpret_cast<std::uint8_t*>(to);
    const std::uint32_t half = 1U << (2 * depth - 1);
    for (int i = 0; i < count * 4; ++i) bytes[i] = static_cast<std::uint8_t>((sums[i] + half) >> (2 * depth));
}

} // namespace

Pyramid::Pyramid(const ImageExtent& image, int rowsLevel, Sink tileSink)
    : given(image.At(rowsLevel)), first(rowsLevel), sink(std::move(tileSink)) {
    const int count = std::max(1, image.Levels() - rowsLevel);
    levels.resize(count);
    for (int depth = 0; depth < count; ++depth) {
        Level& level = levels[depth];
        level.Extent = given.At(depth);
        level.Pixels.resize(static_cast<std::size_t>(level.Extent.Width) *
                            std::min(TileSide, level.Extent.Height));
        if (depth == 0) continue;
        const std::size_t lanes = static_cast<std::size_t>(levels[depth - 1].Extent.Width) * 4;
        if (depth <= NarrowDepth)
            level.Narrow.resize(lanes);
        else
            level.Wide.resize(lanes);
    }
}

std::uint32_t* Pyramid::NextRow() {
    Level& level = levels.front();
    return level.Pixels.data() + static_cast<std::size_t>(level.Rows) * level.Extent.Width;
}

bool Pyramid::RowDone() {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(NextRow());
    ++rows;
    return (levels.size() == 1 || AddSums(1, bytes)) && FinishRow(0);
}

template <class In>
bool Pyramid::AddSums(int depth, const In* sums) {
    if (depth <= NarrowDepth) {
        if constexpr (sizeof(In) <= sizeof(std::uint16_t))
            return AddSumsAs(depth, levels[depth].Narrow, sums);
        return false; // wide sums come from wide levels only
    }
    return AddSumsAs(depth, levels[depth].Wide, sums);
}

template <class In, class Sum>
bool Pyramid::AddSumsAs(int depth, std::vector<Sum>& own, const In* sums) {
    Level& level = levels[depth];
    const int widthBelow = levels[depth - 1].Extent.Width;
    const std::size_t lanes = static_cast<std::size_t>(widthBelow) * 4;
    if (level.Pending == 0)
        SetRow(sums, own.data(), lanes);
    else
        AddRow(sums, own.data(), lanes);
    const int rowBelow = (level.Band * TileSide + level.Rows) * 2 + level.Pending;
    const bool last = rowBelow + 1 == levels[depth - 1].Extent.Height;
    if (++level.Pending < 2 && !last) return true;
    level.Pending = 0;
    AddPairs(own.data(), widthBelow);
    WriteAverages(depth, own.data());
    const bool more = depth + 1 == static_cast<int>(levels.size()) || AddSums(depth + 1, own.data());
    return more && FinishRow(depth);
}

template <class Sum>
void Pyramid::WriteAverages(int depth, const Sum* sums) {
    Level& level = levels[depth];
    const std::int64_t side = std::int64_t{1} << depth;
    const int row = level.Band * TileSide + level.Rows;
    const auto squareRows = static_cast<std::uint64_t>(std::min(side, given.Height - row * side));
    std::uint32_t* to = level.Pixels.data() + static_cast<std::size_t>(level.Rows) * level.Extent.Width;
    const int width = level.Extent.Width;
    const bool wholeRows = squareRows == static_cast<std::uint64_t>(side);
    const int whole = wholeRows ? given.Width >> depth : 0;
    AverageWhole(sums, depth, to, whole);
    for (int x = whole; x < width; ++x) {
        const auto columns = static_cast<std::uint64_t>(std::min(side, given.Width - x * side));
        to[x] = Average(sums + static_cast<std::size_t>(x) * 4, columns * squareRows);
    }
}

bool Pyramid::FinishRow(int depth) {
    Level& level = levels[depth];
    ++level.Rows;
    const int above = level.Band * TileSide;
    if (level.Rows < TileSide && above + level.Rows < level.Extent.Height) return true;
    for (int x = 0; x * TileSide < level.Extent.Width; ++x) {
        const PixelPart part{level.Pixels.data() + x * TileSide,
                             level.Extent.Width,
                             {std::min(TileSide, level.Extent.Width - x * TileSide), level.Rows}};
        if (!sink({first + depth, x, level.Band}, part)) return false;
    }
    ++level.Band;
    level.Rows = 0;
    return true;
}

PixelPart Pyramid::Unfinished(int atLevel) const {
    const Level& level = levels[atLevel - first];
    return {level.Pixels.data(), level.Extent.Width, {level.Extent.Width, level.Rows}};
}

} // namespace ornivane
