#include "airfield-import/Report.h"

#include <ostream>

#include "base/Strings.h"

namespace ornivane::airfields {

void Report::Refuse(const Place& place, std::string_view reason) {
    ++refused;
    out << place.File << ':' << place.Line << ": " << reason << '\n';
}

void Report::Note(std::string_view text) { out << text << '\n'; }

std::string Shown(std::string_view text) {
    constexpr std::size_t longest = 40;
    const std::string_view kept = FirstBytes(text, longest);
    std::string shown = "\"";
    for (const char c : kept) {
        const auto byte = static_cast<unsigned char>(c);
        shown += byte < 0x20 || byte == 0x7F ? '?' : c;
    }
    if (kept.size() < text.size()) shown += "...";
    return shown + '"';
}

} // namespace ornivane::airfields
