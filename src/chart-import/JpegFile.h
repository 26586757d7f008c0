#pragma once

#include <filesystem>
#include <functional>
#include <stop_token>

#include "chart-import/ImportFailure.h"
#include "tiles/TileGeometry.h"

namespace ornivane {

struct EncodedPicture {
    double WhiteShare = 0; // 0 to 1; all of it for one colour from edge to edge
    bool HasBlackAreas = false;
};

// Encodes a BMP as a baseline JPEG, row by row. Damaged: it has not that extent, or ends early. DiskFull,
// CannotWrite, Cancelled. `told` hears the share that is done.
Imported<EncodedPicture> EncodeJpeg(const std::filesystem::path& bmp, const ImageExtent& expected,
                                    const std::filesystem::path& jpeg, const std::stop_token& stop,
                                    const std::function<void(double)>& told);

} // namespace ornivane
