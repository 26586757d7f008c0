// Whatever the bytes: the scan ends, and a size that it found is one that the catalogue can hold.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "calibration/ImageSize.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace ornivane;
    std::istringstream file(std::string(reinterpret_cast<const char*>(data), size));
    const ImageSize before{-7, -9};
    ImageSize found = before;
    const SizeReading reading = ReadJpegSize(file, found);
    if ((reading == SizeReading::Read) == (found == before)) std::abort();
    if (reading == SizeReading::Read &&
        (found.Width < 0 || found.Width > 32767 || found.Height < 0 || found.Height > 32767))
        std::abort();
    return 0;
}
