#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "map/MapTransform.h"
#include "store/Recordset.h"
#include "store/Statement.h"

namespace ornivane {

class Connection;

// The edges of a chart as the store and the side files have them, whole degrees and minutes / 100, in the
// order Unten, Oben, Links, Rechts.
using FrameEdges = std::array<double, 4>;

// The table Maps of the main store: its lists, its columns, the scale that follows from a row, and which
// charts cover a position. Nothing else knows them. RuntimeError StoreError when the store cannot be read.
class MapCatalogue {
public:
    // What a save or a tick writes of a chart.
    struct Entry {
        std::string Name;
        FrameEdges Edges{};
        struct Pixels {
            double Breite = 0, Höhe = 0;
        };
        std::optional<Pixels> Size; // empty: the row keeps the one that it has
    };
    enum class Tick { Keep, Flip }; // of Active; a new row begins without

    explicit MapCatalogue(Connection& connection) : dataConn(connection) {}

    // The charts by name. Whoever shows them has a list of its own, whose current row is its choice.
    void OpenAll(Recordset& list) const;
    void OpenActive(Recordset& list) const;
    // Of the active charts, by name; empty for a row without one.
    std::vector<std::string> ActiveNames() const;
    // Of the active charts whose frame holds the position, edges included, in the order of the store.
    std::vector<std::string> Covering(const Position& position);

    static std::string NameOf(const Recordset& row) { return row.TextOrEmpty("Name"); }
    static bool IsActive(const Recordset& row);
    // RuntimeError InvalidNull for a row without a value.
    static FrameEdges EdgesOf(const Recordset& row);
    static MapFrame FrameOf(const Recordset& row);
    // RuntimeError DivisionByZero or Overflow for a frame without extent.
    static MapScale ScaleOf(const MapFrame& frame);

    // The row of that name becomes the current one. False, and none is, without such a row.
    static bool StandOn(Recordset& list, const std::string& name);
    // Adds the row of a chart to the list of all, or changes it. RuntimeError TypeMismatch for a new one
    // without a size; whatever fails, nothing of the entry stays pending.
    static void Write(Recordset& all, const Entry& entry, Tick tick);

private:
    Connection& dataConn;
    Statement covering;
};

} // namespace ornivane
