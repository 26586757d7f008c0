#pragma once

#include <cstddef>
#include <iosfwd>
#include <map>
#include <string>
#include <string_view>

#include "airfield-import/Records.h"

namespace ornivane::airfields {

// What was not taken, and why. A refused row has a fault and is reported at once, with its place; a row left
// out is sound but of no use to the program (a closed airport) and only counted.
class Report {
public:
    explicit Report(std::ostream& to) : out(to) {}

    void Refuse(const Place& place, std::string_view reason);
    void LeaveOut(const std::string& reason) { ++leftOut[reason]; }
    // Something about the source as a whole.
    void Note(std::string_view text);

    std::size_t Refused() const { return refused; }
    const std::map<std::string, std::size_t>& LeftOut() const { return leftOut; }

private:
    std::ostream& out;
    std::size_t refused = 0;
    std::map<std::string, std::size_t> leftOut;
};

// A foreign text fit for a message: quoted, short, on one line.
std::string Shown(std::string_view text);

} // namespace ornivane::airfields
