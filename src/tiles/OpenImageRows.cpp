#include <array>

#include "tiles/BmpRows.h"
#include "tiles/ImageRows.h"
#include "tiles/JpegRows.h"

namespace ornivane {

Result<std::unique_ptr<ImageRows>> OpenImageRows(const ReadOnlyFile& file, const ImageReading& reading) {
    std::array<unsigned char, 3> start{};
    const auto got = file.Read(0, start.data(), start.size());
    if (!got) return Failure{Fault::CannotRead, {}};
    if (start[0] == 'B' && start[1] == 'M') return BmpRows::Open(file);
    if (start[0] == 0xFF && start[1] == 0xD8 && start[2] == 0xFF) return JpegRows::Open(file, reading);
    return Failure{Fault::NotAPicture, {}};
}

} // namespace ornivane
