// Makes the store of airfields from public airport data.

#include <iostream>
#include <string_view>
#include <vector>

#include "airfield-import/Import.h"

namespace {

constexpr const char* Usage =
    "airfield-import [--replace] [--heliports | --all] STORE SOURCE\n"
    "Makes the store of airfields (ovdata.ovd) from public airport data. SOURCE is a folder with the files\n"
    "airports.csv, runways.csv, airport-frequencies.csv and countries.csv, or a database file with the\n"
    "tables airports, runways, runway_ends and frequencies. A store that is there is replaced only with\n"
    "--replace. Heliports and balloonports are left out unless --heliports asks for them;\n"
    "--all takes closed airports and codes that have not four characters as well.\n"
    "Rows that cannot be used are told with file, line and reason; the rest is taken.\n"
    "Exit status: 0 all was taken, 1 some rows were refused, 2 wrong call, 3 nothing was written.\n";

bool Parse(const std::vector<std::string_view>& arguments, ornivane::airfields::Options& options) {
    std::vector<std::string_view> names;
    for (const std::string_view argument : arguments) {
        if (argument == "--replace")
            options.Replace = true;
        else if (argument == "--heliports")
            options.Take = ornivane::airfields::Extent::Heliports;
        else if (argument == "--all")
            options.Take = ornivane::airfields::Extent::Everything;
        else if (argument.starts_with("-") || argument.empty())
            return false;
        else
            names.push_back(argument);
    }
    if (names.size() != 2) return false;
    options.Store = names[0];
    options.Source = names[1];
    return true;
}

} // namespace

int main(int count, char** values) {
    ornivane::airfields::Options options;
    if (!Parse({values + 1, values + count}, options)) {
        std::cerr << Usage;
        return 2;
    }
    return static_cast<int>(ornivane::airfields::Import(options, std::cout, std::cerr));
}
