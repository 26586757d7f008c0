#include "platform/qt/Resample.h"

#include <algorithm>
#include <cstring>
#include <vector>

// These loops are the cost of every redraw. They are plain C++ in the shape that the compiler turns into
// vector instructions (this file is built with -O3): bytes in, 16-bit lanes out, four lanes a pixel. The 16
// bits never overflow: weights add up to 256.

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

} // namespace ornivane
