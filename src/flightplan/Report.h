#pragma once

#include <string>
#include <vector>

#include "base/LocaleText.h"
#include "store/Recordset.h"

namespace ornivane {

// The printed navigation log "Flugplan". All measures are twips, 1/1440 inch, from the top left corner of the
// area within the margins.
namespace report {

constexpr int TwipsPerInch = 1440;
constexpr int Width = 10995;
constexpr int HeaderHeight = 2415, RowHeight = 825;

// A text in its box, its top left there, in smaller type when the box is too narrow; or a line, whose width
// or height is 0.
struct Item {
    enum class Kind { Label, Value, Line };
    Kind What = Kind::Label;
    std::string Name; // of the control
    int Left = 0, Top = 0, Width = 0, Height = 0;
    std::string Text; // lines are parted by a line feed
    bool operator==(const Item&) const = default;
};

using Page = std::vector<Item>;

// The totals of every page's header, as the form shows them.
struct Totals {
    std::string Distanz, Zeit, FFh, FF, Wind;
};

// A value of a plan, in the report and in the grid; empty for Null.
std::string Shown(const Value& value, const LocaleText& locale);

// How many rows fit on a page of that height; at least one.
int RowsOnPage(int height);

// The pages of a plan as it stands; at least one. Breaks are between rows.
std::vector<Page> LayOut(const Recordset& plan, const Totals& totals, int pageHeight,
                         const LocaleText& locale);

} // namespace report
} // namespace ornivane
