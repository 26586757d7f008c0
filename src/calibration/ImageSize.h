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
// The scan decides which charts a catalogue takes, and existing catalogues were made by it, so it keeps its
// one mistake: after a segment has been skipped, the low byte of its length is the next one looked at. If
// that is FF, the byte behind it, really the FF of a marker, is taken for the marker itself.
SizeReading ReadJpegSize(std::istream& file, ImageSize& size);

// Index into PictureFormats by the last three characters of a name, upper and lower case being the same; what
// is none of the formats is read as a JPEG.
std::size_t FormatOfName(std::string_view name);

// By the file's name. A file that cannot be opened is damaged when it should be a JPEG, else kept.
SizeReading ReadImageSize(const std::filesystem::path& file, ImageSize& size);

} // namespace ornivane
