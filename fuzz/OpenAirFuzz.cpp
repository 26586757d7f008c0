// Whatever the bytes: what is taken can be drawn and stored.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "airspace-import/OpenAir.h"
#include "airspace-import/Outline.h"
#include "base/Strings.h"

namespace {

using namespace ornivane;

void Require(bool condition) {
    if (!condition) std::abort();
}

void RequirePlace(const Position& position) {
    Require(std::fabs(position.Lat.Degrees()) <= 90 && std::fabs(position.Long.Degrees()) <= 180);
    Require(std::isfinite(StoredNumber(position.Lat) + StoredNumber(position.Long)));
}

void RequireDrawable(const Airspace& airspace) {
    Require(!airspace.AspType.empty() && airspace.AspType != "A" && airspace.Line > 0);
    Require(airspace.High.Feet > 0 && airspace.High.Feet <= Limit::Unlimited && airspace.Low.Feet >= 0);
    Require(!airspace.Outline.empty() && airspace.Outline.size() <= 3 * MostElements);
    bool arc = false;
    for (const OutlineRow& row : airspace.Outline) {
        for (const Position& position : {row.Place, row.Centre, row.Start, row.End}) RequirePlace(position);
        Require(row.As != OutlineRow::Draw::Circle || (airspace.Outline.size() == 1 && row.Radius > 0));
        arc = arc || row.As != OutlineRow::Draw::Point;
    }
    Require(arc || airspace.Outline.size() >= 3);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const OpenAirContent content = ReadOpenAir({reinterpret_cast<const char*>(data), size});
    for (const Airspace& airspace : content.Airspaces) RequireDrawable(airspace);
    for (const Refusal& refusal : content.Refusals)
        Require(refusal.Line > 0 && refusal.Reason.size() < 300 && IsValidUtf8(refusal.Reason));
    Require(content.Records >= static_cast<int>(content.Airspaces.size()));
    return 0;
}
