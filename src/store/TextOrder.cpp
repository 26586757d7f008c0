#include "store/TextOrder.h"

#include <algorithm>

namespace ornivane {

namespace {

// The base letters of U+00E0 to U+00FF and U+0100 to U+017F; a blank stands for a character that is its own.
constexpr std::string_view Latin1Base = "aaaaaaaceeeeiiiidnooooo ouuuuy y";
constexpr std::string_view LatinABase =
    "aaaaaaccccccccddddeeeeeeeeeegggggggghhhhiiiiiiiiiiiijjkk llllllllllnnnnnnnnnoooooooorrrrrr"
    "ssssssssttttttuuuuuuuuuuuuwwyyyzzzzzzs";

static_assert(Latin1Base.size() == 0x100 - 0xE0 && LatinABase.size() == 0x180 - 0x100);

constexpr char32_t SharpS = 0xDF;

char32_t Lower(char32_t c) {
    if (c >= 'A' && c <= 'Z') return c + 32;
    if (c < 0xC0) return c;
    if (c <= 0xDE) return c == 0xD7 ? c : c + 32;
    if (c == 0x178) return 0xFF;
    if (c == 0x1E9E) return SharpS;
    if (c >= 0x100 && c <= 0x17F) {
        const bool oddIsUpper = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
        if (c == 0x130 || c == 0x138 || c == 0x149 || c == 0x17F) return c;
        return oddIsUpper ? ((c & 1) != 0 ? c + 1 : c) : (c | 1);
    }
    if ((c >= 0x391 && c <= 0x3A9) || (c >= 0x410 && c <= 0x42F)) return c + 32;
    if (c >= 0x400 && c <= 0x40F) return c + 80;
    return c;
}

char32_t Base(char32_t lower) {
    char base = ' ';
    if (lower >= 0xE0 && lower <= 0xFF) base = Latin1Base[lower - 0xE0];
    if (lower >= 0x100 && lower <= 0x17F) base = LatinABase[lower - 0x100];
    return base == ' ' ? lower : static_cast<char32_t>(base);
}

// Characters of a UTF-8 text in lower case, one after another. A byte that is no UTF-8 counts as a character
// beyond all others, by its value.
class Letters {
public:
    explicit Letters(std::string_view of) : text(of) {}

    bool AtEnd() const { return at >= text.size(); }
    char32_t Next() {
        const auto lead = static_cast<unsigned char>(text[at]);
        if (lead < 0x80) {
            ++at;
            return Lower(lead);
        }
        const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC2 ? 2 : 0;
        if (length == 0 || at + length > text.size()) return Broken(lead);
        char32_t code = lead & (0x7F >> length);
        for (std::size_t i = 1; i < length; ++i) {
            const auto next = static_cast<unsigned char>(text[at + i]);
            if ((next & 0xC0) != 0x80) return Broken(lead);
            code = (code << 6) | (next & 0x3F);
        }
        at += length;
        return Lower(code);
    }

private:
    char32_t Broken(unsigned char byte) {
        ++at;
        return 0x110000u + byte;
    }

    std::string_view text;
    std::size_t at = 0;
};

// The same as base letters, ß as two s.
class BaseLetters {
public:
    explicit BaseLetters(std::string_view of) : letters(of) {}
    bool AtEnd() const { return !secondS && letters.AtEnd(); }
    char32_t Next() {
        if (secondS) {
            secondS = false;
            return 's';
        }
        const char32_t letter = letters.Next();
        secondS = letter == SharpS;
        return secondS ? U's' : Base(letter);
    }

private:
    Letters letters;
    bool secondS = false;
};

template <typename Sequence>
int CompareSequences(std::string_view a, std::string_view b) {
    Sequence left(a), right(b);
    while (!left.AtEnd() && !right.AtEnd()) {
        const char32_t l = left.Next(), r = right.Next();
        if (l != r) return l < r ? -1 : 1;
    }
    return static_cast<int>(right.AtEnd()) - static_cast<int>(left.AtEnd());
}

bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

} // namespace

int CompareText(std::string_view a, std::string_view b) {
    // Most names have only letters that are their own base letters: then one look decides. What is equal at
    // the start does not matter for the rest.
    std::size_t start = 0;
    const std::size_t common = std::min(a.size(), b.size());
    for (; start < common && IsAscii(a[start]) && IsAscii(b[start]); ++start) {
        if (a[start] == b[start]) continue;
        const char32_t l = Lower(static_cast<unsigned char>(a[start]));
        const char32_t r = Lower(static_cast<unsigned char>(b[start]));
        if (l == r) continue;
        return l < r ? -1 : 1;
    }
    a.remove_prefix(start);
    b.remove_prefix(start);
    if (a.empty() || b.empty()) return static_cast<int>(b.empty()) - static_cast<int>(a.empty());
    const int byBase = CompareSequences<BaseLetters>(a, b);
    return byBase != 0 ? byBase : CompareSequences<Letters>(a, b);
}

bool StartsWith(std::string_view text, std::string_view prefix) {
    Letters left(text), right(prefix);
    while (!right.AtEnd())
        if (left.AtEnd() || left.Next() != right.Next()) return false;
    return true;
}

} // namespace ornivane
