#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>

#include "base/LocaleText.h"

namespace ornivane {

struct Language;

// A text in both languages, where it is made before it is known in which of them it will show.
struct Bilingual {
    const char* German;
    const char* English;

    const char* In(const Language& language) const;
    // With this value in the place of %1.
    std::string In(const Language& language, const std::string& value) const;
};

// The language of the texts, and the system's way to write numbers and dates. Each text stands once, where it
// is used, in German and English; which of the two shows is decided here and nowhere else.
struct Language {
    std::int16_t EnglishUI = 0; // 1 English, 0 German
    LocaleText Locale;

    // Takes a number as it is stored; one that stands for no language is German.
    void Choose(int stored) { EnglishUI = stored == 1 ? 1 : 0; }
    // For the tools, which speak English only.
    static Language English() { return {1, {}}; }

    // Of ISO 639: what the names of translation files end with.
    const char* Code() const { return Text("de", "en"); }
    // The text in the language of this moment.
    const char* Text(const char* german, const char* english) const {
        return EnglishUI == 1 ? english : german;
    }
    // The same with values in the place of %1, %2 and so on.
    std::string Text(const char* german, const char* english,
                     std::initializer_list<std::string> values) const;
};

} // namespace ornivane
