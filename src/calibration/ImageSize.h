#pragma once

#include <cstdint>
#include <filesystem>
#include <istream>
#include <string_view>

namespace ornivane {

// As the file's header has it, in pixels of the stored image; a BMP that is stored top-down has a negative
// height.
struct ImageSize {
    std::int32_t Width = 0, Height = 0;
    bool operator==(const ImageSize&) const = default;
};

enum class SizeReading {
    Read,   // the size was replaced, perhaps by 0 x 0
    Kept,   // no such image: the size that was shown stays, and nothing is said
    Damaged // the size that was shown stays, and the user is told
};

// Width and height of a BMP, from its first 26 bytes. What is no BMP, or ends within its size, is 0 x 0; what
// is shorter than 18 bytes is kept.
SizeReading ReadBmpSize(std::istream& file, ImageSize& size);

// Width and height of a JPEG from the first frame header (markers C0 to C3). An image whose scan comes before
// any frame is 0 x 0. What does not begin as a JPEG is kept. Damaged: a segment, width or height of 32,768
// and more, a segment length below 2, a file that ends within the scan.
//
// Charts of many users passed this scan or were refused by it, and their catalogues say so; it stays as it
// always was. After a segment has been skipped, the low byte of its length is still the one looked at: if
// that is FF, the next byte, really the FF of a marker, is taken for the marker itself.
SizeReading ReadJpegSize(std::istream& file, ImageSize& size);

// The last three characters decide which reader a file gets: "BMP" in any case, else the one for JPEG.
bool IsBmpName(std::string_view name);

// By the file's name. A file that cannot be opened is damaged when it should be a JPEG, else kept.
SizeReading ReadImageSize(const std::filesystem::path& file, ImageSize& size);

} // namespace ornivane
