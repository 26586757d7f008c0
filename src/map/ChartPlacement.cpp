#include "map/ChartPlacement.h"

#include <cmath>

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "geo/NavigationMaths.h"
#include "store/Recordset.h"

namespace ornivane {

namespace {

constexpr std::array EdgeFields = {"Unten", "Oben", "Links", "Rechts"};
constexpr double MetresPerDegree = 60 * 1000 * KilometresPerNauticalMile;

// RuntimeError also for an extent of so many degrees that nothing would be left of the scale.
double PixelsPerTenth(double pixels, double degrees) {
    const double perTenth = CheckedDivide(pixels, degrees * 10.0);
    if (perTenth == 0) throw RuntimeError(ErrorNumber::Overflow);
    return perTenth;
}

} // namespace

Point MapScale::ImageOf(const Position& position) const {
    const double east = position.Long.Degrees() - Links.Degrees();
    const double north = position.Lat.Degrees() - Unten.Degrees();
    return {east * 10 * PixPerTenthLong, Höhe - north * 10 * PixPerTenthLat};
}

Position MapScale::PositionOf(const Point& image) const {
    const double south = CheckedDivide(image.Y - Höhe, PixPerTenthLat * 10);
    const double east = CheckedDivide(image.X, PixPerTenthLong * 10);
    return {Latitude(Unten.Degrees() - south), Longitude(Links.Degrees() + east)};
}

ChartPlacement ChartPlacement::EdgesFromRow(const Recordset& row) {
    FrameEdges edges{};
    for (std::size_t i = 0; i < edges.size(); ++i) edges[i] = row.Number(EdgeFields[i]);
    return ChartPlacement().WithEdges(edges);
}

ChartPlacement ChartPlacement::FromRow(const Recordset& row) {
    return EdgesFromRow(row).WithSize({row.Number("Breite"), row.Number("Höhe")});
}

void ChartPlacement::ToRow(Recordset& row) const {
    const FrameEdges edges = Edges();
    for (std::size_t i = 0; i < edges.size(); ++i) row.Set(EdgeFields[i], edges[i]);
    if (!hasSize) return;
    row.Set("Breite", frame.Breite);
    row.Set("Höhe", frame.Höhe);
}

std::optional<ChartPlacement> ChartPlacement::FromLines(const std::vector<std::string>& lines) {
    FrameEdges edges{};
    if (lines.size() < edges.size()) return std::nullopt;
    for (std::size_t i = 0; i < edges.size(); ++i) edges[i] = LeadingNumber(lines[i]);
    return ChartPlacement().WithEdges(edges);
}

std::vector<std::string> ChartPlacement::Lines() const {
    std::vector<std::string> lines;
    for (const double edge : Edges()) lines.push_back(NumberText(edge));
    return lines;
}

FrameEdges ChartPlacement::Edges() const {
    return {frame.Unten.Value(), frame.Oben.Value(), frame.Links.Value(), frame.Rechts.Value()};
}

ChartPlacement ChartPlacement::WithEdges(const FrameEdges& edges) const {
    ChartPlacement other = *this;
    other.frame.Unten = StoredLatitude(edges[0]);
    other.frame.Oben = StoredLatitude(edges[1]);
    other.frame.Links = StoredLongitude(edges[2]);
    other.frame.Rechts = StoredLongitude(edges[3]);
    return other;
}

ChartPlacement ChartPlacement::WithSize(const Pixels& size) const {
    ChartPlacement other = *this;
    other.frame.Breite = size.Breite;
    other.frame.Höhe = size.Höhe;
    other.hasSize = true;
    return other;
}

MapScale ChartPlacement::Scale() const {
    const Longitude west = ToDecimalDegrees(frame.Links), east = ToDecimalDegrees(frame.Rechts);
    const Latitude south = ToDecimalDegrees(frame.Unten), north = ToDecimalDegrees(frame.Oben);
    return {west, south, frame.Höhe, PixelsPerTenth(frame.Höhe, north.Degrees() - south.Degrees()),
            PixelsPerTenth(frame.Breite, east.Degrees() - west.Degrees())};
}

std::optional<ChartPlacement::PixelOnGround> ChartPlacement::GroundOfPixel() const {
    const double bottom = ToDecimalDegrees(frame.Unten).Degrees();
    const double top = ToDecimalDegrees(frame.Oben).Degrees();
    const double left = ToDecimalDegrees(frame.Links).Degrees();
    const double right = ToDecimalDegrees(frame.Rechts).Degrees();
    if (top <= bottom || right <= left) return std::nullopt;
    return PixelOnGround{(right - left) * MetresPerDegree * std::cos(DegToRad((top + bottom) / 2)) /
                             frame.Breite,
                         (top - bottom) * MetresPerDegree / frame.Höhe};
}

} // namespace ornivane
