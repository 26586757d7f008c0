#pragma once

#include <string>
#include <vector>

#include "map/MapTransform.h"
#include "store/Recordset.h"
#include "store/Statement.h"

namespace ornivane {

class Connection;

// The only place that knows how a map's frame stands in the store: its columns, the scale that follows from
// them, and which maps cover a position.
class MapCatalogue {
public:
    explicit MapCatalogue(Connection& connection) : dataConn(connection) {}

    // RuntimeError InvalidNull for a row without a value.
    static MapFrame FrameOf(const Recordset& row);
    // RuntimeError DivisionByZero or Overflow for a frame without extent.
    static MapScale ScaleOf(const MapFrame& frame);
    // Names of the active maps whose frame holds the position, edges included, in the order of the store.
    std::vector<std::string> Covering(const Position& position);

private:
    Connection& dataConn;
    Statement covering;
};

} // namespace ornivane
