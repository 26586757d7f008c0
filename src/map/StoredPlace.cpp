#include "map/StoredPlace.h"

#include "base/RuntimeError.h"
#include "geo/NavigationMaths.h"

namespace ornivane {

StoredPlace StoredPlace::Of(const Statement& row, const std::string& route) {
    try {
        return {row.Number(0), row.Number(1)};
    } catch (const RuntimeError& error) {
        throw Located("data.ovd, " + route + ", " + std::string(row.Text(2)), error);
    }
}

Position StoredPlace::Decimal() const { return {ToDecimalDegrees(Lat), ToDecimalDegrees(Long)}; }

} // namespace ornivane
