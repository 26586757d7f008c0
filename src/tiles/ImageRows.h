#pragma once

#include <cstdint>
#include <memory>
#include <stop_token>

#include "tiles/ReadOnlyFile.h"
#include "tiles/TileGeometry.h"

namespace ornivane {

// The rows of an image file from the top to the bottom, each once, with memory for a few of them only.
class ImageRows {
public:
    virtual ~ImageRows() = default;
    // Of the image as stored; what a camera noted of its turn is not applied.
    virtual ImageExtent Stored() const = 0;
    // The level of the rows: above 0 the decoder brings the image down while it reads.
    virtual int Level() const { return 0; }
    virtual bool IsGrey() const { return false; }
    // The pixels are not what a lossy format has left of them.
    virtual bool IsLossless() const { return false; }
    // The next row, as long as the level is wide, 0xFFRRGGBB.
    virtual Outcome Next(std::uint32_t* row) = 0;
    // The hash of all bytes of the file; may read what is left of them.
    virtual std::optional<std::uint64_t> WholeHash(const std::stop_token& stop) = 0;
};

struct ImageReading {
    // The first level wanted: JPEG 0 to 3, others have 0 only.
    int Level = 0;
    // Asked in between when a single step takes long.
    std::stop_token Stop;
    std::int64_t MostCoefficientBytes = 512 << 20; // of a progressive JPEG
};

// By the content, not by the name. The file must outlive the rows.
Result<std::unique_ptr<ImageRows>> OpenImageRows(const ReadOnlyFile& file, const ImageReading& reading = {});

} // namespace ornivane
