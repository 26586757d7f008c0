#include "base/Xml.h"

#include "base/Strings.h"

namespace ornivane {

std::string XmlText(std::string_view bytes) {
    const std::string text = DecodeText(bytes);
    std::string clean;
    clean.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::string_view three = std::string_view(text).substr(i, 3);
        const bool isMark = clean.empty() && three == "\xEF\xBB\xBF";
        if (isMark || three == "\xEF\xBF\xBE" || three == "\xEF\xBF\xBF") // U+FFFE, U+FFFF: no characters
            i += 2;
        else if (static_cast<unsigned char>(text[i]) >= 0x20 || text[i] == '\t' || text[i] == '\n' ||
                 text[i] == '\r')
            clean += text[i];
    }
    return clean;
}

std::string EscapedXml(std::string_view bytes) {
    std::string escaped;
    for (const char c : XmlText(bytes)) {
        switch (c) {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        case '\'':
            escaped += "&apos;";
            break;
        default:
            escaped += c;
        }
    }
    return escaped;
}

} // namespace ornivane
