#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "geo/Position.h"
#include "map/Viewport.h"

namespace ornivane {

class Recordset;

// The edges of a chart as the store and the side files have them, whole degrees and minutes / 100, in the
// order Unten, Oben, Links, Rechts.
using FrameEdges = std::array<double, 4>;

// The four edges of a map, and the size of its image in pixels as the catalogue has it.
struct MapFrame {
    StoredLatitude Unten, Oben;
    StoredLongitude Links, Rechts;
    double Breite = 0, Höhe = 0;
    bool operator==(const MapFrame&) const = default;
};

// How image pixels follow from positions: one scale an axis, no projection, no rotation.
struct MapScale {
    Longitude Links;
    Latitude Unten;
    double Höhe = 0;           // pixels
    double PixPerTenthLat = 0; // pixels per tenth of a degree
    double PixPerTenthLong = 0;

    Point ImageOf(const Position& position) const;
    // RuntimeError DivisionByZero or Overflow for a scale without extent.
    Position PositionOf(const Point& image) const;
    bool operator==(const MapScale&) const = default;
};

// Where the pixels of a chart's image lie on the earth: by the four edges, with north up. Nothing else knows
// the columns of the table Maps and the lines of a side file that tell it.
class ChartPlacement {
public:
    struct Pixels {
        double Breite = 0, Höhe = 0;
    };
    struct PixelOnGround { // metres
        double Across = 0, Down = 0;
    };

    // RuntimeError InvalidNull for a row without a value.
    static ChartPlacement FromRow(const Recordset& row);
    // The same of a row that may have no size.
    static ChartPlacement EdgesFromRow(const Recordset& row);
    // Without a size the row keeps the one that it has.
    void ToRow(Recordset& row) const;
    // The condition that a chart covers a position, its edges included: longitude, then latitude, as stored.
    static constexpr const char* Covers = "? BETWEEN Links AND Rechts AND ? BETWEEN Unten AND Oben";

    // Of a side file. None for fewer lines than it has; a line that is no number reads as 0.
    static std::optional<ChartPlacement> FromLines(const std::vector<std::string>& lines);
    std::vector<std::string> Lines() const;

    const MapFrame& Frame() const { return frame; } // its size is 0 x 0 without HasSize
    bool HasSize() const { return hasSize; }
    FrameEdges Edges() const;
    ChartPlacement WithEdges(const FrameEdges& edges) const;
    ChartPlacement WithSize(const Pixels& size) const;

    // RuntimeError DivisionByZero or Overflow for a frame without extent.
    MapScale Scale() const;
    // What a pixel covers in the middle of the chart; none for a frame that is the wrong way round.
    std::optional<PixelOnGround> GroundOfPixel() const;

    bool operator==(const ChartPlacement&) const = default;

private:
    MapFrame frame;
    bool hasSize = false;
};

} // namespace ornivane
