#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <unordered_map>

#include "airfield-import/CsvReader.h"
#include "airfield-import/Records.h"

namespace ornivane::airfields {

class Report;

// Rows of a CSV text whose columns are found by the names in its first record, in any order.
class CsvTable {
public:
    // Name and text must outlive the table. RuntimeError InvalidCall when the first record cannot be read or
    // lacks one of the needed columns.
    CsvTable(std::string_view fileName, std::initializer_list<std::string_view> needed,
             std::string_view text);
    CsvTable(const CsvTable&) = delete;
    CsvTable& operator=(const CsvTable&) = delete;

    // Goes to the next row that can be read; the others are refused in the report. False at the end.
    bool Next(Report& report);
    // The field of that column without the blanks around it; empty when there is no such column. Valid until
    // the next Next.
    std::string_view Field(std::string_view column) const;
    Place Where() const { return {file, reader.Line()}; }

private:
    std::string_view file;
    CsvReader reader;
    std::unordered_map<std::string_view, std::size_t> columns;
    std::vector<std::string> names;
};

} // namespace ornivane::airfields
