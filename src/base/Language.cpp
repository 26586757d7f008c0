#include "base/Language.h"

namespace ornivane {

const char* Bilingual::In(const Language& language) const { return language.Text(German, English); }

std::string Bilingual::In(const Language& language, const std::string& value) const {
    return language.Text(German, English, {value});
}

std::string Language::Text(const char* german, const char* english,
                           std::initializer_list<std::string> values) const {
    std::string filled;
    for (const char* c = Text(german, english); *c != '\0'; ++c) {
        const auto number = static_cast<std::size_t>(*c == '%' ? c[1] - '1' : -1);
        if (number < values.size()) {
            filled += values.begin()[number];
            ++c;
        } else {
            filled += *c;
        }
    }
    return filled;
}

} // namespace ornivane
