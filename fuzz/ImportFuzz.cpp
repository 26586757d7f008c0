// What GDAL's programs say of files from outside: virtual copies, places of pixels, progress.

#include <cstddef>
#include <cstdint>

#include "chart-import/GdalProgress.h"
#include "chart-import/PixelPlaces.h"
#include "chart-import/SourcePicture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string text(reinterpret_cast<const char*>(data), size);
    ornivane::GdalProgress progress;
    progress.Hear(text);
    if (!(progress.Share() >= 0 && progress.Share() <= 1)) __builtin_trap();
    if (const auto answer = ornivane::PixelPlaces(100, 100).Read(text))
        if (const auto plan = ornivane::PlanSheets(ornivane::RoundedOutwards(answer->Box), answer->Pixel))
            if (plan->Sheets.empty()) __builtin_trap();
    if (const auto picture = ornivane::ReadSourcePicture(text)) static_cast<void>(picture->Translation());
    return 0;
}
