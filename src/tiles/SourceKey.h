#pragma once

#include <cstdint>
#include <optional>
#include <stop_token>

#include "tiles/ReadOnlyFile.h"

namespace ornivane {

// What a cache was made of. The name and the folder are no part of it: a chart that is copied or renamed
// keeps its cache.
struct SourceKey {
    FileState State;
    std::uint64_t Sampled = 0; // hash of some parts of the content
    bool operator==(const SourceKey&) const = default;
};

// Reads 96 KB at most. Nothing when the file cannot be read.
std::optional<SourceKey> KeyOf(const ReadOnlyFile& file);

// The hash of all bytes. Nothing when the file cannot be read, or when it was stopped.
std::optional<std::uint64_t> WholeHash(const ReadOnlyFile& file, const std::stop_token& stop);

} // namespace ornivane
