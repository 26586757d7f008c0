#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "tiles/BmpHeader.h"

namespace ornivane {

// The rows of a run-length coded BMP in any order. Their lengths differ, so a first pass over the file notes
// where each begins.
class BmpRuns {
public:
    // Both must outlive this.
    BmpRuns(const ReadOnlyFile& from, const BmpHeader& of) : file(from), header(of) {}

    // The palette indexes of a row as stored; 0 where the file says nothing.
    Outcome Row(int row, std::span<unsigned char> indexes);

private:
    struct Start {
        std::uint64_t At = 0; // 0: the row has no pixels of its own
        int X = 0;
    };
    // Where the decoder stands.
    struct Place {
        std::uint64_t At = 0;
        int X = 0, Y = 0;
    };
    enum class Step { SameRow, OtherRow, End };

    std::optional<unsigned char> Byte(std::uint64_t at);
    // One code of the file; its pixels are written when there is a row to write to.
    Step DoCode(Place& place, std::span<unsigned char> indexes);
    Step DoEscape(Place& place, unsigned char code, std::span<unsigned char> indexes);
    void Literal(Place& place, int count, std::span<unsigned char> indexes);
    Outcome FindRows();

    const ReadOnlyFile& file;
    const BmpHeader& header;
    std::vector<Start> starts;
    bool readFailed = false;

    std::vector<unsigned char> window; // bytes of the file from windowAt on
    std::uint64_t windowAt = 0;
    std::uint64_t end = UINT64_MAX; // of the file, once it was seen
};

} // namespace ornivane
