#include "map/MapCatalogue.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "geo/NavigationMaths.h"
#include "store/Connection.h"

namespace ornivane {

namespace {

// RuntimeError also for an extent of so many degrees that nothing would be left of the scale.
double PixelsPerTenth(double pixels, double degrees) {
    const double perTenth = CheckedDivide(pixels, degrees * 10.0);
    if (perTenth == 0) throw RuntimeError(ErrorNumber::Overflow);
    return perTenth;
}

} // namespace

MapFrame MapCatalogue::FrameOf(const Recordset& row) {
    return {row.Number("Unten"),  row.Number("Oben"),   row.Number("Links"),
            row.Number("Rechts"), row.Number("Breite"), row.Number("Höhe")};
}

MapScale MapCatalogue::ScaleOf(const MapFrame& frame) {
    const double west = ToDecimalDegrees(frame.Links), east = ToDecimalDegrees(frame.Rechts);
    const double south = ToDecimalDegrees(frame.Unten), north = ToDecimalDegrees(frame.Oben);
    return {west, south, frame.Höhe, PixelsPerTenth(frame.Höhe, north - south),
            PixelsPerTenth(frame.Breite, east - west)};
}

std::vector<std::string> MapCatalogue::Covering(const Position& position) {
    if (!covering.IsPrepared())
        covering = Statement(dataConn, "Select Name from Maps Where Active <> 0 AND ? BETWEEN Links AND "
                                       "Rechts AND ? BETWEEN Unten AND Oben");
    std::vector<std::string> names;
    const StatementRun run(covering);
    // As stored, so that the floor of southern and western values is the same on both sides.
    covering.Bind(1, ToDegMinValue(position.Long));
    covering.Bind(2, ToDegMinValue(position.Lat));
    while (covering.Step()) names.emplace_back(covering.Text(0));
    return names;
}

} // namespace ornivane
