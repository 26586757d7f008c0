#pragma once

#include <string>

namespace ornivane {

// Tells the user of a store that the program goes on without. The calls return at once.
class Hints {
public:
    virtual ~Hints() = default;
    // The reason is empty when the file is simply not there.
    virtual void TrackStoreUnavailable(const std::string& reason) = 0;
    virtual void AirspaceStoreUnavailable(const std::string& reason) = 0;
};

} // namespace ornivane
