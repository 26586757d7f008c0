#pragma once

#include <string>
#include <vector>

#include "map/ChartPlacement.h"
#include "store/Recordset.h"
#include "store/Statement.h"

namespace ornivane {

class Connection;

// The table Maps of the main store: its lists, its rows, and which charts cover a position. RuntimeError
// StoreError when the store cannot be read.
class MapCatalogue {
public:
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

    // The row of that name becomes the current one. False, and none is, without such a row.
    static bool StandOn(Recordset& list, const std::string& name);
    // Adds the row of a chart to the list of all, or changes it. RuntimeError TypeMismatch for a new one
    // without a size; whatever fails, nothing of it stays pending.
    static void Write(Recordset& all, const std::string& name, const ChartPlacement& placement, Tick tick);

private:
    Connection& dataConn;
    Statement covering;
};

} // namespace ornivane
