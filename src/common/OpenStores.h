#pragma once

#include "common/Event.h"
#include "store/Connection.h"

namespace ornivane {

// The stores of the program, opened at its start; one that could not be opened stays closed.
struct OpenStores {
    Connection DataConn;
    Connection TrackConn;
    Connection LuftraumConn;
    Connection AirfieldConn;
    bool AirfieldStoreOpen = false;
    // Raised by whoever changes a row or a tick of the table Maps.
    Event ChartsChanged;
};

} // namespace ornivane
