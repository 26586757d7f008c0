// Whatever the bytes: every kind of value is read or refused, the reader always ends, and texts come out as
// UTF-8.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "base/Strings.h"
#include "common/SettingsText.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace ornivane;
    if (size == 0) return 0;
    SettingsReader reader({reinterpret_cast<const char*>(data) + 1, size - 1});
    for (unsigned kinds = data[0], i = 0; i < 64; ++i) {
        switch ((kinds >> (2 * (i % 4))) & 3u) {
        case 0:
            if (const auto text = reader.Text(); text && !IsValidUtf8(*text)) std::abort();
            break;
        case 1:
            static_cast<void>(reader.WholeNumber());
            break;
        case 2:
            static_cast<void>(reader.Boolean());
            break;
        default:
            static_cast<void>(reader.DateValue());
            break;
        }
    }
    return 0;
}
