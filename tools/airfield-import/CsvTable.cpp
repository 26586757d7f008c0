#include "airfield-import/CsvTable.h"

#include "airfield-import/Report.h"
#include "base/RuntimeError.h"
#include "base/Strings.h"

namespace ornivane::airfields {

CsvTable::CsvTable(std::string_view fileName, std::initializer_list<std::string_view> needed,
                   std::string_view text)
    : file(fileName), reader(text) {
    const std::string place(file);
    if (!reader.Next() || !reader.Fault().empty())
        throw RuntimeError(ErrorNumber::InvalidCall, place + ":1: no line with the names of the columns");
    names = reader.Fields();
    for (std::size_t i = 0; i < names.size(); ++i) columns.try_emplace(Trim(names[i]), i);
    for (const std::string_view name : needed)
        if (!columns.contains(name))
            throw RuntimeError(ErrorNumber::InvalidCall, place + ":1: no column " + std::string(name));
}

bool CsvTable::Next(Report& report) {
    while (reader.Next()) {
        const std::size_t count = reader.Fields().size();
        if (!reader.Fault().empty())
            report.Refuse(Where(), reader.Fault());
        else if (count != names.size())
            report.Refuse(Where(), std::to_string(count) + " fields where " + std::to_string(names.size()) +
                                       " belong");
        else
            return true;
    }
    return false;
}

std::string_view CsvTable::Field(std::string_view column) const {
    const auto found = columns.find(column);
    return found == columns.end() ? std::string_view() : Trim(reader.Fields()[found->second]);
}

} // namespace ornivane::airfields
