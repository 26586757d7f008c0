#include "settings/AirfieldCountries.h"

#include <algorithm>

#include "base/Strings.h"
#include "store/Statement.h"
#include "store/TextOrder.h"

namespace ornivane {

namespace {

// Sorts behind the codes of a prefix. The star is a character like any other here.
std::string BehindPrefix(const std::string& prefix) { return prefix + "ZZ*"; }

std::string NameOf(Statement& names, const std::string& prefix) {
    const StatementRun run(names);
    names.Bind(1, prefix);
    if (!names.Step()) return "Kein Land gefunden";
    return std::string(Trim(names.Text(0)));
}

} // namespace

std::string CountryPrefix(std::string_view icao) {
    std::size_t end = 0;
    for (int characters = 0; characters < 2 && end < icao.size(); ++characters) do
            ++end;
        while (end < icao.size() && (static_cast<unsigned char>(icao[end]) & 0xC0) == 0x80);
    return std::string(Trim(icao.substr(0, end)));
}

std::vector<AirfieldCountry> ReadAirfieldCountries(Connection& airfieldConn) {
    Statement airfields(airfieldConn, "SELECT ICAO FROM ARPT ORDER BY ICAO ASC");
    Statement names(airfieldConn, "SELECT Name FROM ICAOCODE WHERE ICAO = ? LIMIT 1");
    std::vector<AirfieldCountry> countries;
    std::string behind;
    while (airfields.Step()) {
        const std::string_view icao = airfields.Text(0);
        if (CountryPrefix(icao).empty()) continue; // no code: every code would belong to its group
        // A code beyond the stars of its own prefix (EDZZZ) belongs to it as well.
        const bool sameGroup =
            !countries.empty() && (CompareText(icao, behind) <= 0 || StartsWith(icao, countries.back().Icao));
        if (!sameGroup) {
            const std::string prefix = CountryPrefix(icao);
            countries.push_back({prefix, NameOf(names, prefix), 0});
            behind = BehindPrefix(prefix);
        }
        ++countries.back().Anzahl;
    }
    std::ranges::stable_sort(countries, TextBefore(), &AirfieldCountry::Name);
    return countries;
}

} // namespace ornivane
