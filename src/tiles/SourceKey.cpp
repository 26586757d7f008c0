#include "tiles/SourceKey.h"

#include <algorithm>
#include <vector>
#include <xxhash.h>

#include "tiles/ContentHash.h"

namespace ornivane {

namespace {

constexpr std::uint64_t Ends = 16 << 10; // bytes at the beginning and at the end
constexpr std::uint64_t Sample = 4 << 10;
constexpr std::uint64_t Samples = 16; // spread over what lies between
constexpr std::size_t Block = 1 << 20;

} // namespace

std::optional<SourceKey> KeyOf(const ReadOnlyFile& file) {
    const auto state = file.State();
    if (!state) return std::nullopt;
    SourceKey key{*state, XXH3_64bits(&state->Bytes, sizeof state->Bytes)};
    std::vector<char> bytes(Ends);
    const auto add = [&](std::uint64_t offset, std::uint64_t count) {
        const auto got = file.Read(offset, bytes.data(), count);
        if (got) key.Sampled = XXH3_64bits_withSeed(bytes.data(), *got, key.Sampled);
        return got.has_value();
    };
    if (!add(0, Ends)) return std::nullopt;
    if (state->Bytes <= Ends) return key;
    if (!add(state->Bytes - Ends, Ends)) return std::nullopt;
    for (std::uint64_t i = 1; i <= Samples; ++i)
        if (!add(state->Bytes / (Samples + 1) * i, Sample)) return std::nullopt;
    return key;
}

std::optional<std::uint64_t> WholeHash(const ReadOnlyFile& file, const std::stop_token& stop) {
    std::vector<char> bytes(Block);
    ContentHash hash;
    for (std::uint64_t offset = 0; !stop.stop_requested(); offset += Block) {
        const auto got = file.Read(offset, bytes.data(), Block);
        if (!got) return std::nullopt;
        hash.Add(bytes.data(), *got);
        if (*got < Block) return hash.Value();
    }
    return std::nullopt;
}

} // namespace ornivane
