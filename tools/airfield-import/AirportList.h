#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "airfield-import/Airfield.h"
#include "airfield-import/Records.h"

namespace ornivane::airfields {

class Report;

// What of a source is taken: airfields; also places where only helicopters or balloons land; or also closed
// ones and those whose code has not four characters, which charts show as plain points.
enum class Extent { Airfields, Heliports, Everything };

// The airports of a source, and which of them are airfields for the program: those with a location indicator
// of four characters.
class AirportList {
public:
    struct Entry {
        Airfield Field;
        bool LargeOrMedium = false;
        bool Taken = true;
        int Rank = 0; // of the column that the code is from, the surest is 0
        std::string File;
        std::int64_t Line = 0;
    };
    struct Found {
        bool Known = false;     // the source has that airport
        Entry* Taken = nullptr; // null when it is no airfield for the program
    };

    AirportList(Report& to, Extent toTake) : report(to), extent(toTake) {}

    void Take(const AirportRecord& record);
    // After the last airport: decides about codes with digits.
    void Close();
    // By id, or by ident where the id is not known.
    Found Find(std::string_view id, std::string_view ident) const;
    // Those that are taken, sorted by code; leaves none here.
    std::vector<Airfield> Release();

private:
    bool ReadPosition(const AirportRecord& record, Entry& entry);
    bool ReadCode(const AirportRecord& record, Entry& entry) const;
    bool Wanted(const AirportRecord& record, Entry& entry);
    bool WinsItsCode(const Entry& entry);

    Report& report;
    Extent extent;
    std::deque<Entry> entries;
    std::unordered_map<std::string, Entry*> byId, byIdent, byCode; // null: known, not taken
};

} // namespace ornivane::airfields
