#include "airfield-import/CsvReader.h"

#include <algorithm>

#include "base/Strings.h"

namespace ornivane::airfields {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

CsvReader::CsvReader(std::string_view csvText) : text(csvText) {
    if (text.starts_with(ByteOrderMark)) text.remove_prefix(ByteOrderMark.size());
}

bool CsvReader::Next() {
    while (at < text.size() && AtLineEnd()) PassLineEnd();
    if (at >= text.size()) return false;
    start = at;
    line = lineAt;
    fault.clear();
    count = 0;
    if (ReadRecord()) {
        PassLineEnd();
    } else {
        at = std::min(text.find('\n', start), text.size());
        lineAt = line;
        PassLineEnd();
    }
    fields.resize(count);
    return true;
}

bool CsvReader::ReadRecord() {
    while (ReadField()) {
        if (at >= text.size() || AtLineEnd()) return true;
        ++at; // the comma
    }
    return false;
}

bool CsvReader::ReadField() {
    if (count == fields.size()) fields.emplace_back();
    std::string& field = fields[count];
    ++count;
    field.clear();
    const bool quoted = at < text.size() && text[at] == '"';
    if (!(quoted ? ReadQuoted(field) : ReadPlain(field))) return false;
    if (field.find('\0') != std::string::npos) return Fail("a NUL byte");
    if (!IsValidUtf8(field)) field = DecodeText(field);
    return true;
}

bool CsvReader::ReadQuoted(std::string& field) {
    for (++at;; ++at) {
        if (at >= text.size()) return Fail("a quote that is not closed");
        if (at - start >= LongestRecord) return Fail("the record is too long, or a quote is not closed");
        if (text[at] == '\n') ++lineAt;
        if (text[at] == '"') {
            ++at;
            if (at >= text.size() || text[at] != '"') break;
        }
        field += text[at];
    }
    if (at >= text.size() || text[at] == ',' || AtLineEnd()) return true;
    return Fail("text after a closing quote");
}

bool CsvReader::ReadPlain(std::string& field) {
    const std::size_t from = at;
    for (; at < text.size() && text[at] != ',' && !AtLineEnd(); ++at) {
        if (text[at] == '"') return Fail("a quote inside a field without quotes");
        if (at - start >= LongestRecord) return Fail("the record is too long");
    }
    field.assign(text.substr(from, at - from));
    return true;
}

bool CsvReader::AtLineEnd() const {
    return text[at] == '\n' || (text[at] == '\r' && (at + 1 == text.size() || text[at + 1] == '\n'));
}

void CsvReader::PassLineEnd() {
    if (at < text.size() && text[at] == '\r') ++at;
    if (at < text.size() && text[at] == '\n') {
        ++at;
        ++lineAt;
    }
}

bool CsvReader::Fail(const char* reason) {
    fault = reason;
    return false;
}

} // namespace ornivane::airfields
