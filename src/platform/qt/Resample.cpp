#include "platform/qt/Resample.h"

#include <algorithm>
#include <cstring>
#include <vector>

// These loops are the cost of every redraw. They are plain C++ in the shape that the compiler turns into
// vector instructions (this file is built with -O3): bytes in, 16-bit lanes out, four lanes a pixel. The 16
// bits never overflow: weights add up to 256, and a square of level 4 has 256 pixels of at most 255.

namespace ornivane {

namespace {

using Lane = std::uint16_t;
using Lanes = std::uint64_t; // the four channels of a pixel, 16 bits each

constexpr Lanes RoundingHalf = 0x0080008000800080ULL;

const std::uint8_t* Bytes(const std::uint32_t* pixels) {
    return reinterpret_cast<const std::uint8_t*>(pixels);
}

std::uint32_t Pack(Lanes lanes) {
    lanes = (lanes | lanes >> 8) & 0x0000FFFF0000FFFFULL;
    return static_cast<std::uint32_t>(lanes | lanes >> 16);
}

Lanes Load(const Lane* lanes) {
    Lanes value;
    std::memcpy(&value, lanes, sizeof value);
    return value;
}

void MixTwo(const std::uint8_t* __restrict a, const std::uint8_t* __restrict b, Lane weightA, Lane weightB,
            Lane* __restrict out, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        out[i] = static_cast<Lane>(static_cast<Lane>(a[i] * weightA + b[i] * weightB + 128) >> 8);
}

void MixThree(const std::uint8_t* __restrict a, const std::uint8_t* __restrict b,
              const std::uint8_t* __restrict c, Lane weightA, Lane weightB, Lane weightC,
              Lane* __restrict out, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        out[i] =
            static_cast<Lane>(static_cast<Lane>(a[i] * weightA + b[i] * weightB + c[i] * weightC + 128) >> 8);
}

void AddWeighted(const std::uint8_t* __restrict row, Lane weight, Lane* __restrict sum, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) sum[i] = static_cast<Lane>(sum[i] + row[i] * weight);
}

void DivideBy256(Lane* lanes, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) lanes[i] = static_cast<Lane>(lanes[i] >> 8);
}

void Add(const std::uint8_t* __restrict row, Lane* __restrict sum, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) sum[i] = static_cast<Lane>(sum[i] + row[i]);
}

// The rows of one target row mixed into one, still as long as the source.
void MixRows(const ResampleAxis& y, int target, int from, int to, const RowReader& rows,
             std::vector<Lane>& out) {
    const std::size_t count = static_cast<std::size_t>(to - from) * 4;
    const std::uint16_t* weights = y.WeightsOf(target);
    const auto row = [&](int tap) { return Bytes(rows(y.FirstOf(target) + tap, from, to) + from); };
    if (y.Taps == 2) {
        MixTwo(row(0), row(1), weights[0], weights[1], out.data(), count);
    } else if (y.Taps == 3) {
        MixThree(row(0), row(1), row(2), weights[0], weights[1], weights[2], out.data(), count);
    } else {
        std::fill_n(out.begin(), count, Lane{128});
        for (int tap = 0; tap < y.Taps; ++tap) AddWeighted(row(tap), weights[tap], out.data(), count);
        DivideBy256(out.data(), count);
    }
}

// The taps known to the compiler, 0 for any number.
template <int KnownTaps>
void MixColumns(const ResampleAxis& x, int from, const Lane* source, std::uint32_t* target) {
    const int taps = KnownTaps ? KnownTaps : x.Taps;
    const std::uint16_t* weights = x.Weights.data();
    for (int i = x.Begin; i < x.End; ++i, weights += taps) {
        const Lane* pixel = source + static_cast<std::size_t>(x.First[i - x.Begin] - from) * 4;
        Lanes sum = RoundingHalf;
        for (std::ptrdiff_t tap = 0; tap < taps; ++tap) sum += Load(pixel + tap * 4) * weights[tap];
        target[i] = Pack((sum >> 8) & 0x00FF00FF00FF00FFULL) | 0xFF000000U;
    }
}

// Squares that the border of the picture cuts.
std::uint32_t AverageOf(const Lane* sums, int columns, int rows) {
    std::uint32_t result = 0;
    for (int channel = 3; channel >= 0; --channel) {
        unsigned sum = 0;
        for (int column = 0; column < columns; ++column) sum += sums[column * 4 + channel];
        const unsigned pixels = static_cast<unsigned>(columns * rows);
        result = result << 8 | (sum + pixels / 2) / pixels;
    }
    return result;
}

template <int Level>
void AverageWholeSquares(const Lane* sums, std::uint32_t* target, int count) {
    constexpr int Side = 1 << Level;
    constexpr Lanes Half = 0x0001000100010001ULL << (2 * Level - 1);
    for (std::ptrdiff_t i = 0; i < count; ++i) {
        Lanes sum = Half;
        for (std::ptrdiff_t column = 0; column < Side; ++column) sum += Load(sums + (i * Side + column) * 4);
        target[i] = Pack((sum >> (2 * Level)) & 0x00FF00FF00FF00FFULL);
    }
}

void AverageWhole(int level, const Lane* sums, std::uint32_t* target, int count) {
    switch (level) {
    case 1:
        return AverageWholeSquares<1>(sums, target, count);
    case 2:
        return AverageWholeSquares<2>(sums, target, count);
    case 3:
        return AverageWholeSquares<3>(sums, target, count);
    default:
        return AverageWholeSquares<4>(sums, target, count);
    }
}

} // namespace

void Resample(const PixelBlock& target, const ResampleAxis& x, const ResampleAxis& y, const RowReader& rows) {
    if (x.IsEmpty() || y.IsEmpty()) return;
    const int from = x.First.front();
    const int to = x.First.back() + x.Taps;
    std::vector<Lane> mixed(static_cast<std::size_t>(to - from) * 4);
    for (int row = y.Begin; row < y.End; ++row) {
        MixRows(y, row, from, to, rows, mixed);
        switch (x.Taps) {
        case 2:
            MixColumns<2>(x, from, mixed.data(), target.Row(row));
            break;
        case 3:
            MixColumns<3>(x, from, mixed.data(), target.Row(row));
            break;
        default:
            MixColumns<0>(x, from, mixed.data(), target.Row(row));
        }
    }
}

void ReduceToLevel(const PixelBlock& target, int level, const SourcePart& source, const RowReader& rows) {
    const int side = 1 << level;
    const int endX = std::min(source.X + target.Width * side, source.Width);
    const std::size_t count = static_cast<std::size_t>(endX - source.X) * 4;
    std::vector<Lane> sums(count);
    for (int y = 0; y < target.Height; ++y) {
        const int top = source.Y + y * side;
        const int height = std::min(side, source.Height - top);
        std::fill(sums.begin(), sums.end(), Lane{0});
        for (int row = top; row < top + height; ++row)
            Add(Bytes(rows(row, source.X, endX) + source.X), sums.data(), count);
        const int whole = height == side ? (endX - source.X) / side : 0;
        AverageWhole(level, sums.data(), target.Row(y), whole);
        for (int x = whole; x < target.Width; ++x) {
            const int columns = std::min(side, endX - source.X - x * side);
            target.Row(y)[x] =
                AverageOf(sums.data() + static_cast<std::size_t>(x) * side * 4, columns, height);
        }
    }
}

} // namespace ornivane
