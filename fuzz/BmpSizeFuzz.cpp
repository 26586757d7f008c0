// Whatever the bytes: a size is only taken from a file that says that it is a BMP and holds one.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "calibration/ImageSize.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace ornivane;
    std::istringstream file(std::string(reinterpret_cast<const char*>(data), size));
    ImageSize found{-7, -9};
    const SizeReading reading = ReadBmpSize(file, found);
    if ((reading == SizeReading::Kept) != (size < 18)) std::abort();
    const bool isBmp = size >= 26 && data[0] == 'B' && data[1] == 'M';
    if (reading == SizeReading::Read && !isBmp && found != ImageSize{}) std::abort();
    return 0;
}
