#pragma once

#include <string>
#include <string_view>

namespace ornivane {

// The bytes as a text that XML has place for. It has none for most control characters, not even as
// references: a reader that knows the rules refuses the whole file. So they are left out, and so is a byte
// order mark in front, which would be gone after the next reading. What is no UTF-8 is taken as Windows-1252.
std::string XmlText(std::string_view bytes);

// The same with the characters that mean something in XML as references: for texts between tags and for
// values in either quotes.
std::string EscapedXml(std::string_view bytes);

} // namespace ornivane
