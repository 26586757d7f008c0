#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "common/Date.h"

namespace ornivane {

// The comma-delimited form of the settings files: text in double quotes, whole numbers plain, booleans as
// #TRUE# and #FALSE#, dates as #yyyy-mm-dd#. A line break and a comma both end a value.

// Reads values in order. The first value that is missing or of another type is a failure: it and everything
// after it is empty, so that a damaged file gives the values up to the damage.
class SettingsReader {
public:
    // The bytes of the file; UTF-8, or Windows-1252 as older installations wrote.
    explicit SettingsReader(std::string_view bytes);

    // Quoted or bare. Inside quotes "" is one quote, and a comma or line break is a character like any other.
    std::optional<std::string> Text();
    // -2,147,483,648 to 2,147,483,647.
    std::optional<int> WholeNumber();
    std::optional<bool> Boolean();
    std::optional<Date> DateValue();

private:
    std::optional<std::string_view> Bare();
    std::nullopt_t Fail();

    std::string text;
    std::size_t at = 0;
    bool failed = false;
};

// Writes one value a line, ended with carriage return and line feed, UTF-8.
class SettingsWriter {
public:
    SettingsWriter& Text(std::string_view value);
    SettingsWriter& WholeNumber(int value);
    SettingsWriter& Boolean(bool value);
    SettingsWriter& DateValue(const Date& value);
    const std::string& Bytes() const { return bytes; }

private:
    std::string bytes;
};

} // namespace ornivane
