#pragma once

#include <random>
#include <string>
#include <vector>

namespace ornivane::receiver {

// How a burst is cut into the pieces that the line delivers.
struct ChunkMode {
    enum class Kind { Burst, Sentence, Lines, Byte, Random };
    Kind How = Kind::Burst;
    int Longest = 0; // bytes, for Random

    // "burst", "sentence", "lines" (a sentence behind the line end of the one before, so that none begins
    // with "$"), "byte", "random:N". False when it is none of them.
    bool Read(const std::string& text);
};

// The bytes in order, none left out.
std::vector<std::string> ChunksOf(const std::vector<std::string>& sentences, const ChunkMode& mode,
                                  std::mt19937& chance);

} // namespace ornivane::receiver
