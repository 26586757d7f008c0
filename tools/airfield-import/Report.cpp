#include "airfield-import/Report.h"

#include <ostream>

namespace ornivane::airfields {

void Report::Refuse(const Place& place, std::string_view reason) {
    ++refused;
    out << place.File << ':' << place.Line << ": " << reason << '\n';
}

void Report::Note(std::string_view text) { out << text << '\n'; }

std::string Shown(std::string_view text) {
    constexpr std::size_t Longest = 40;
    std::string shown = "\"";
    for (const char c : text.substr(0, Longest)) {
        const auto byte = static_cast<unsigned char>(c);
        shown += byte < 0x20 || byte == 0x7F ? '?' : c;
    }
    // A character cut in two is left away whole.
    if (text.size() > Longest) {
        std::size_t end = Longest;
        while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
        shown.resize(1 + end);
        shown += "...";
    }
    return shown + '"';
}

} // namespace ornivane::airfields
