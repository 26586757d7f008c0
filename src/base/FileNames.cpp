#include "base/FileNames.h"

#include <algorithm>
#include <string>

#include "base/RuntimeError.h"

namespace ornivane {

namespace {

bool HoldsControl(std::string_view name) {
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; };
    if (std::any_of(name.begin(), name.end(), isControl)) return true;
    // U+0080 to U+009F, in UTF-8 two bytes.
    for (std::size_t i = 0; i + 1 < name.size(); ++i)
        if (name[i] == '\xC2' && static_cast<unsigned char>(name[i + 1]) < 0xA0) return true;
    return false;
}

} // namespace

bool IsFileName(std::string_view name) {
    return name != "." && name != ".." && name.find_first_of("/\\") == std::string_view::npos &&
           !HoldsControl(name);
}

void CheckFileName(std::string_view name) {
    if (!IsFileName(name)) throw RuntimeError(ErrorNumber::BadFileName, std::string(name));
}

} // namespace ornivane
