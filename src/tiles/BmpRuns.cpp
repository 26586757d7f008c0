#include "tiles/BmpRuns.h"

#include <algorithm>

namespace ornivane {

namespace {

constexpr std::size_t WindowBytes = 64 << 10;
enum Escape : unsigned char { EndOfRow = 0, EndOfImage = 1, Jump = 2 };

} // namespace

std::optional<unsigned char> BmpRuns::Byte(std::uint64_t at) {
    if (at >= end) return std::nullopt;
    if (at < windowAt || at >= windowAt + window.size()) {
        // Rows are read backwards as often as forwards: what lies before is as likely to be wanted next.
        windowAt = at > WindowBytes / 2 ? at - WindowBytes / 2 : 0;
        window.resize(WindowBytes);
        const auto got = file.Read(windowAt, window.data(), WindowBytes);
        readFailed = readFailed || !got;
        window.resize(got.value_or(0));
        if (window.size() < WindowBytes) end = windowAt + window.size();
        if (at >= windowAt + window.size()) return std::nullopt;
    }
    return window[at - windowAt];
}

void BmpRuns::Literal(Place& place, int count, std::span<unsigned char> indexes) {
    const bool nibbles = header.Pixels == BmpHeader::Coding::Runs4;
    const int bytes = nibbles ? (count + 1) / 2 : count;
    const int shown = std::min(count, header.Extent.Width - place.X);
    for (int i = 0; i < shown && !indexes.empty(); ++i) {
        const unsigned char byte = Byte(place.At + (nibbles ? i / 2 : i)).value_or(0);
        indexes[place.X + i] = !nibbles ? byte : i % 2 == 0 ? byte >> 4 : byte & 15;
    }
    place.X += shown;
    place.At += (bytes + 1) / 2 * 2; // words
}

BmpRuns::Step BmpRuns::DoEscape(Place& place, unsigned char code, std::span<unsigned char> indexes) {
    switch (code) {
    case EndOfRow:
        place.X = 0;
        ++place.Y;
        return Step::OtherRow;
    case EndOfImage:
        return Step::End;
    case Jump: {
        const int right = Byte(place.At).value_or(0), on = Byte(place.At + 1).value_or(0);
        place.At += 2;
        place.X = std::min(place.X + right, header.Extent.Width - 1);
        const int before = place.Y;
        place.Y = std::min(place.Y + on, header.Extent.Height - 1);
        return place.Y == before ? Step::SameRow : Step::OtherRow;
    }
    default:
        Literal(place, code, indexes);
        return Step::SameRow;
    }
}

BmpRuns::Step BmpRuns::DoCode(Place& place, std::span<unsigned char> indexes) {
    const auto count = Byte(place.At), value = Byte(place.At + 1);
    if (!count || !value) return Step::End;
    place.At += 2;
    if (*count == 0) return DoEscape(place, *value, indexes);
    const bool nibbles = header.Pixels == BmpHeader::Coding::Runs4;
    const int shown = std::min<int>(*count, header.Extent.Width - place.X);
    for (int i = 0; i < shown && !indexes.empty(); ++i)
        indexes[place.X + i] = !nibbles ? *value : i % 2 == 0 ? *value >> 4 : *value & 15;
    place.X += shown;
    return Step::SameRow;
}

Outcome BmpRuns::FindRows() {
    starts.assign(header.Extent.Height, {});
    Place place{header.PixelsAt, 0, 0};
    starts[0] = {place.At, 0};
    for (Step step = Step::SameRow; step != Step::End;) {
        step = DoCode(place, {});
        if (place.Y >= header.Extent.Height) break;
        if (step == Step::OtherRow) starts[place.Y] = {place.At, place.X};
    }
    if (readFailed) return Failure{Fault::CannotRead, {}};
    return std::nullopt;
}

Outcome BmpRuns::Row(int row, std::span<unsigned char> indexes) {
    if (starts.empty())
        if (const Outcome failure = FindRows()) return failure;
    std::fill(indexes.begin(), indexes.end(), static_cast<unsigned char>(0));
    Place place{starts[row].At, starts[row].X, row};
    if (place.At == 0) return std::nullopt;
    while (DoCode(place, indexes) == Step::SameRow) {
    }
    if (readFailed) return Failure{Fault::CannotRead, {}};
    return std::nullopt;
}

} // namespace ornivane
