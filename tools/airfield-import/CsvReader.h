#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ornivane::airfields {

// Records of comma-separated text as RFC 4180 has it: fields may stand in double quotes, a quote inside
// doubled, and then hold commas and line ends; lines end with CR LF or LF. Fields are UTF-8; bytes that are
// none are taken as Windows-1252.
class CsvReader {
public:
    // Longer records have a quote that never ends, or are no airport data.
    static constexpr std::size_t LongestRecord = 16384; // bytes

    // The text must outlive the reader. A byte order mark is passed over.
    explicit CsvReader(std::string_view csvText);

    // Goes to the next record; empty lines are passed over. False at the end.
    bool Next();
    // Why the record cannot be read; empty when it can. After a record with a fault, reading goes on at the
    // line after its first, so that a quote that never ends takes one line with it and not the file.
    const std::string& Fault() const { return fault; }
    // The line where the record begins, from 1.
    std::int64_t Line() const { return line; }
    // The decoded fields; valid until the next Next.
    const std::vector<std::string>& Fields() const { return fields; }

private:
    bool ReadRecord();
    bool ReadField();
    bool ReadQuoted(std::string& field);
    bool ReadPlain(std::string& field);
    bool AtLineEnd() const;
    void PassLineEnd();
    bool Fail(const char* reason);

    std::string_view text;
    std::size_t at = 0, start = 0;
    std::int64_t line = 0, lineAt = 1; // of the record, of the reading position
    std::size_t count = 0;             // fields of this record; the strings are kept for their memory
    std::vector<std::string> fields;
    std::string fault;
};

} // namespace ornivane::airfields
