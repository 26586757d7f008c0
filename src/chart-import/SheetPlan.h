#pragma once

#include <array>
#include <string>
#include <vector>

#include "chart-import/ImportFailure.h"
#include "tiles/TileGeometry.h"

namespace ornivane {

// Degrees, north and east positive.
struct DegreeBox {
    double South = 0, North = 0, West = 0, East = 0;
};

inline constexpr int TenthsPerDegree = 600;

// Edges in whole tenths of minutes, which the stores keep exactly.
struct TenthBox {
    int South = 0, North = 0, West = 0, East = 0;
    bool operator==(const TenthBox&) const = default;

    bool IsEmpty() const { return North <= South || East <= West; }
    TenthBox Within(const TenthBox& other) const;
    DegreeBox Degrees() const;
    // Degrees and minutes in one number, the lower, upper, left and right edge, as the table Maps has them.
    std::array<double, 4> Stored() const;
};

// Not beyond the poles and 180 degrees.
TenthBox RoundedOutwards(const DegreeBox& box);
TenthBox RoundedInwards(const DegreeBox& box);

// Degrees of a pixel.
struct PixelDegrees {
    double Across = 0, Down = 0;
};

// One image of a chart.
struct Sheet {
    TenthBox Box;
    ImageExtent Extent;
    int Row = 1, Column = 1; // from 1, of the northernmost and of the westernmost
};

struct SheetPlan {
    std::vector<Sheet> Sheets; // row by row from the north
    int Rows = 1, Columns = 1;

    std::int64_t Pixels() const;
    std::int64_t LargestPixels() const; // of one sheet
    // The name of a sheet of a chart: the chart's own when it has one only, else "Chart 2-1", row and column.
    std::string NameOf(const Sheet& sheet, const std::string& chart) const;
};

// What the header of an image holds: its sizes are read as signed numbers of 16 bits.
inline constexpr int MostPixelsOfSide = 32767;

// As few sheets as hold the box with pixels no larger than those; neighbours share a twentieth. TooFine.
Imported<SheetPlan> PlanSheets(const TenthBox& box, const PixelDegrees& pixel,
                               int mostPixels = MostPixelsOfSide);

} // namespace ornivane
