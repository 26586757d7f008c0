#pragma once

#include <map>
#include <string>

#include "store/Connection.h"
#include "store/TextOrder.h"
#include "store/Value.h"

namespace ornivane {

// All waypoints by name, for imports that look up thousands: each look-up finds what a search from the first
// row of Waypoints::Open would find, without walking there. Values are as they are stored, of whatever type.
class WaypointBook {
public:
    struct Waypoint {
        Value PointID, Name, Lat, Long;
    };

    // Reads the waypoints of this moment. RuntimeError StoreError.
    explicit WaypointBook(Connection& data);

    bool IsEmpty() const { return isEmpty; }
    // Names compare as everywhere in the stores, so upper and lower case are the same. Null when there is
    // none.
    const Waypoint* Find(const std::string& name) const;
    // One that was just stored; of equal names the first is the one that is found.
    void Add(const Waypoint& waypoint);

private:
    bool isEmpty = true;
    std::map<std::string, Waypoint, TextBefore> waypoints;
};

} // namespace ornivane
