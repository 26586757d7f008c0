#pragma once

#include <vector>

#include "tiles/BmpHeader.h"
#include "tiles/BmpRuns.h"
#include "tiles/ImageRows.h"

namespace ornivane {

// A BMP, row by row from the top, wherever that is in the file. What a file that ends early does not have is
// black, or the first colour of its palette.
class BmpRows : public ImageRows {
public:
    static Result<std::unique_ptr<ImageRows>> Open(const ReadOnlyFile& file);

    ImageExtent Stored() const override { return header.Extent; }
    bool IsLossless() const override { return true; }
    Outcome Next(std::uint32_t* row) override;
    std::optional<std::uint64_t> WholeHash(const std::stop_token& stop) override;

private:
    BmpRows(const ReadOnlyFile& from, const BmpHeader& of) : file(from), header(of), runs(from, of) {}
    Outcome ReadBlock(int storedRow);
    Outcome NextOfRuns(int storedRow, std::uint32_t* row);
    void Convert(const unsigned char* bytes, std::uint32_t* row) const;

    const ReadOnlyFile& file;
    BmpHeader header;
    BmpRuns runs;
    int next = 0; // from the top

    // Rows of the file read at once: from blockFirst on, blockRows of them whole.
    std::vector<unsigned char> block;
    int blockFirst = -1, blockRows = 0, blockEnd = -1;
    std::vector<unsigned char> indexes; // of a row of runs
};

} // namespace ornivane
