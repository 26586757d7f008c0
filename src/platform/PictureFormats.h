#pragma once

#include <array>

namespace ornivane {

// An image format of charts. A new one is an entry here, and a reader of the size in its header in
// calibration/ImageSize.cpp.
struct PictureFormat {
    const char* Ending;  // of its file names, in lower case
    const char* Decoder; // the name that the image library has for it
};

// In the order in which the catalogue lists their files.
inline constexpr std::array<PictureFormat, 2> PictureFormats{{{"bmp", "bmp"}, {"jpg", "jpeg"}}};

} // namespace ornivane
