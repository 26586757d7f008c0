#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ornivane {

// Without the blanks at both ends; other white space stays.
std::string_view Trim(std::string_view text);

// The pieces between the separators, empty ones kept; at least one piece.
std::vector<std::string> Split(std::string_view text, std::string_view separator);

// Bytes of a file as UTF-8: kept when they are valid UTF-8 (a byte order mark is dropped), else taken as
// Windows-1252, in which older installations wrote their files.
std::string DecodeText(std::string_view bytes);

bool IsValidUtf8(std::string_view bytes);

// How many characters (code points) the UTF-8 text has.
std::size_t CharacterCount(std::string_view text);

// Its beginning: at most so many characters; at most so many bytes, without a character that is cut in two.
std::string_view FirstCharacters(std::string_view text, std::size_t characters);
std::string_view FirstBytes(std::string_view text, std::size_t bytes);

// At most so many characters, the last one "…" when some are left out. For names in messages and on buttons.
std::string Shortened(std::string_view text, std::size_t characters);

// The folder and file name of a path in lower-case ASCII, for look-ups that ignore case. Umlauts in names
// compare as written.
std::string LowerAscii(std::string_view text);

// The letters of ASCII in upper case, all others as they are.
std::string UpperAscii(std::string_view text);

} // namespace ornivane
