#include "airfield-import/AirportList.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "airfield-import/Prefixes.h"
#include "airfield-import/Report.h"
#include "base/Numbers.h"
#include "base/Strings.h"

namespace ornivane::airfields {

namespace {

// What can be a location indicator: four characters, the first a letter. A code that begins with a digit is
// one country's private list.
bool IsCode(std::string_view text) {
    const auto letterOrDigit = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); };
    return text.size() == 4 && text[0] >= 'A' && std::all_of(text.begin(), text.end(), letterOrDigit);
}

bool ReadDegrees(std::string_view text, double limit, double& to) {
    const auto degrees = ParsePlainNumber(text);
    if (!degrees || !std::isfinite(*degrees) || std::abs(*degrees) > limit) return false;
    to = *degrees;
    return true;
}

} // namespace

void AirportList::Take(const AirportRecord& record) {
    const std::string ident = UpperAscii(record.Ident);
    Entry entry;
    Entry* taken = nullptr;
    if (Wanted(record, entry) && WinsItsCode(entry)) {
        taken = &entries.emplace_back(std::move(entry));
        byCode[taken->Field.Code] = taken;
    }
    // The first airport of an id stays its airport.
    if (!record.Id.empty()) byId.try_emplace(std::string(record.Id), taken);
    if (!ident.empty()) byIdent.try_emplace(ident, taken);
}

bool AirportList::Wanted(const AirportRecord& record, Entry& entry) {
    entry.File = record.Where.File;
    entry.Line = record.Where.Line;
    entry.LargeOrMedium = record.Type == "large_airport" || record.Type == "medium_airport";
    entry.Field.Country = UpperAscii(record.Country);
    if (record.Ident.empty()) {
        report.Refuse(record.Where, "an airport without ident");
        return false;
    }
    if (!ReadPosition(record, entry)) return false;
    if (record.Type == "closed" && extent != Extent::Everything) {
        report.LeaveOut("closed airports");
    } else if (extent == Extent::Airfields && (record.Type == "heliport" || record.Type == "balloonport")) {
        report.LeaveOut("heliports and balloonports");
    } else if (!ReadCode(record, entry)) {
        report.LeaveOut("airports without a location indicator of four characters");
    } else {
        return true;
    }
    return false;
}

bool AirportList::ReadPosition(const AirportRecord& record, Entry& entry) {
    std::string reason;
    if (!ReadDegrees(record.Latitude, 90, entry.Field.Latitude))
        reason = "latitude " + Shown(record.Latitude) + " is no number from -90 to 90";
    else if (!ReadDegrees(record.Longitude, 180, entry.Field.Longitude))
        reason = "longitude " + Shown(record.Longitude) + " is no number from -180 to 180";
    if (!reason.empty()) report.Refuse(record.Where, reason);
    return reason.empty();
}

bool AirportList::ReadCode(const AirportRecord& record, Entry& entry) const {
    const std::array columns = {record.IcaoCode, record.Ident, record.GpsCode};
    for (std::size_t i = 0; i < columns.size(); ++i) {
        entry.Field.Code = UpperAscii(columns[i]);
        entry.Rank = static_cast<int>(i);
        if (IsCode(entry.Field.Code)) return true;
    }
    if (extent != Extent::Everything || record.Ident.size() < 3) return false;
    entry.Field.Code = UpperAscii(record.Ident);
    entry.Rank = static_cast<int>(columns.size());
    return true;
}

bool AirportList::WinsItsCode(const Entry& entry) {
    const auto found = byCode.find(entry.Field.Code);
    if (found == byCode.end()) return true;
    Entry& other = *found->second;
    const bool wins = entry.Rank < other.Rank;
    const Entry& loser = wins ? other : entry;
    const Entry& winner = wins ? entry : other;
    report.Refuse({loser.File, loser.Line},
                  loser.Field.Code + " is the code of the airport in line " + std::to_string(winner.Line));
    if (wins) other.Taken = false;
    return wins;
}

void AirportList::Close() {
    if (extent == Extent::Everything) return;
    PrefixTally tally;
    for (const Entry& entry : entries)
        if (entry.Taken) tally.Count(entry.Field);
    // OK12 is a strip in Oklahoma and not in Kuwait, whose prefix is OK: it would come with an import of that
    // country.
    for (Entry& entry : entries) {
        if (!entry.Taken || IsAllLetters(entry.Field.Code)) continue;
        entry.Taken = tally.CountryOf(entry.Field.Code) == entry.Field.Country;
        if (!entry.Taken) report.LeaveOut("airports with a national code under another country's prefix");
    }
}

AirportList::Found AirportList::Find(std::string_view id, std::string_view ident) const {
    auto found = id.empty() ? byId.end() : byId.find(std::string(id));
    if (found == byId.end()) {
        found = byIdent.find(UpperAscii(ident));
        if (ident.empty() || found == byIdent.end()) return {};
    }
    Entry* const entry = found->second;
    return {true, entry && entry->Taken ? entry : nullptr};
}

std::vector<Airfield> AirportList::Release() {
    std::vector<Airfield> fields;
    for (Entry& entry : entries)
        if (entry.Taken) fields.push_back(std::move(entry.Field));
    std::ranges::sort(fields, {}, &Airfield::Code);
    byId.clear();
    byIdent.clear();
    byCode.clear();
    entries.clear();
    return fields;
}

} // namespace ornivane::airfields
