#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "geo/Position.h"
#include "store/KeptColumn.h"
#include "store/KeptRows.h"
#include "store/Recordset.h"
#include "store/Statement.h"

namespace ornivane {

// The waypoints: all SQL on the table Waypoints of data.ovd but that of WaypointWindow, which draws them.
// Lists are in the order of the names. Every routine throws RuntimeError StoreError when the store refuses.
class Waypoints {
public:
    // The connection may be opened later; it outlives this.
    explicit Waypoints(Connection& data) : connection(data) {}

    void Open(Recordset& waypoints) const;
    void OpenCategory(Recordset& waypoints, const std::string& category) const;
    void OpenBeginningWith(Recordset& waypoints, const std::string& text) const; // none for an empty text

    // By queries that are prepared once. Upper and lower case are the same; of equal names the first counts.
    // RuntimeError InvalidNull or TypeMismatch for a damaged place.
    std::optional<DegMin> PlaceOf(const std::string& name);
    std::string FirstNameFrom(const std::string& text); // in the order of the names; empty without one
    // False when there is no waypoint at all; those without a name are passed over.
    bool ForEachName(const std::function<void(std::string_view)>& action) const;

    void Add(const std::string& name, const DegMin& place, const std::string& category);
    void SetCategory(const Value& pointID, const std::string& category);
    void MoveCategory(const std::string& from, const std::string& to) const;

    // As they are now, to be put back.
    KeptRows Keep(const Value& pointID) const;
    KeptColumn KeepCategory(const std::string& category) const;

private:
    Connection& connection;
    Statement byName, fromName, insert, setCategory;
};

} // namespace ornivane
