#include "receiver/Chunks.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>

namespace ornivane::receiver {

bool ChunkMode::Read(const std::string& text) {
    constexpr std::string_view names[] = {"burst", "sentence", "lines", "byte"}; // in the order of Kind
    const auto* named = std::ranges::find(names, text);
    const bool isRandom = text.starts_with("random:") && std::atoi(text.c_str() + 7) > 0;
    if (named == std::end(names) && !isRandom) return false;
    if (isRandom) Longest = std::atoi(text.c_str() + 7);
    How = static_cast<Kind>(named - names);
    return true;
}

namespace {

// Each piece as long as `length` says.
template <typename Length>
std::vector<std::string> Cut(const std::string& all, Length length) {
    std::vector<std::string> chunks;
    for (std::size_t at = 0; at < all.size(); at += chunks.back().size())
        chunks.push_back(all.substr(at, length()));
    return chunks;
}

std::vector<std::string> BehindLineEnds(const std::vector<std::string>& sentences) {
    std::vector<std::string> chunks;
    std::string lineEnd;
    for (const std::string& sentence : sentences) {
        const std::size_t end = std::min(sentence.find('\r'), sentence.size());
        chunks.push_back(lineEnd + sentence.substr(0, end));
        lineEnd = sentence.substr(end);
    }
    chunks.push_back(lineEnd);
    return chunks;
}

} // namespace

std::vector<std::string> ChunksOf(const std::vector<std::string>& sentences, const ChunkMode& mode,
                                  std::mt19937& chance) {
    if (mode.How == ChunkMode::Kind::Sentence) return sentences;
    if (mode.How == ChunkMode::Kind::Lines) return BehindLineEnds(sentences);
    const std::string all = std::accumulate(sentences.begin(), sentences.end(), std::string());
    if (mode.How == ChunkMode::Kind::Byte) return Cut(all, [] { return std::size_t{1}; });
    if (mode.How == ChunkMode::Kind::Burst) return {all};
    std::uniform_int_distribution<std::size_t> length(1, static_cast<std::size_t>(mode.Longest));
    return Cut(all, [&] { return length(chance); });
}

} // namespace ornivane::receiver
