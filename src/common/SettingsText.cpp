#include "common/SettingsText.h"

#include <charconv>

#include "base/Strings.h"

namespace ornivane {

SettingsReader::SettingsReader(std::string_view bytes) : text(DecodeText(bytes)) {}

std::nullopt_t SettingsReader::Fail() {
    failed = true;
    return std::nullopt;
}

std::optional<std::string_view> SettingsReader::Bare() {
    if (failed) return std::nullopt;
    at = text.find_first_not_of(" \t", at);
    if (at == std::string::npos || at >= text.size()) return Fail();
    const std::size_t end = std::min(text.find_first_of(",\r\n", at), text.size());
    const std::string_view value = std::string_view(text).substr(at, end - at);
    at = end;
    if (at < text.size()) at += text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n' ? 2 : 1;
    return Trim(value);
}

std::optional<std::string> SettingsReader::Text() {
    const std::size_t start = failed ? std::string::npos : text.find_first_not_of(" \t", at);
    if (start == std::string::npos || text[start] != '"') {
        const auto bare = Bare();
        return bare ? std::optional<std::string>(*bare) : std::nullopt;
    }
    std::string value;
    std::size_t i = start + 1;
    for (; i < text.size(); ++i) {
        if (text[i] == '"') {
            if (i + 1 >= text.size() || text[i + 1] != '"') break;
            ++i;
        }
        value += text[i];
    }
    if (i >= text.size()) return Fail(); // cut before the closing quote
    at = i + 1;
    Bare(); // whatever stands up to the end of the value
    failed = false;
    if (at == std::string::npos) at = text.size();
    return value;
}

std::optional<int> SettingsReader::WholeNumber() {
    const auto bare = Bare();
    if (!bare) return std::nullopt;
    int value = 0;
    const auto [end, error] = std::from_chars(bare->data(), bare->data() + bare->size(), value);
    if (error == std::errc() && end == bare->data() + bare->size()) return value;
    return Fail();
}

std::optional<bool> SettingsReader::Boolean() {
    const auto bare = Bare();
    if (!bare) return std::nullopt;
    const std::string lower = LowerAscii(*bare);
    if (lower == "#true#") return true;
    if (lower == "#false#") return false;
    return Fail();
}

std::optional<Date> SettingsReader::DateValue() {
    const auto bare = Bare();
    if (!bare) return std::nullopt;
    if (bare->size() == 12 && bare->front() == '#' && bare->back() == '#')
        if (const auto date = ParseDate(bare->substr(1, 10))) return date;
    return Fail();
}

SettingsWriter& SettingsWriter::Text(std::string_view value) {
    bytes += '"';
    for (const char c : value) {
        bytes += c;
        if (c == '"') bytes += c;
    }
    bytes += "\"\r\n";
    return *this;
}

SettingsWriter& SettingsWriter::WholeNumber(int value) {
    bytes += std::to_string(value) + "\r\n";
    return *this;
}

SettingsWriter& SettingsWriter::Boolean(bool value) {
    bytes += value ? "#TRUE#\r\n" : "#FALSE#\r\n";
    return *this;
}

SettingsWriter& SettingsWriter::DateValue(const Date& value) {
    bytes += "#" + DateText(value) + "#\r\n";
    return *this;
}

} // namespace ornivane
