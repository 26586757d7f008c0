#pragma once

#include "platform/PictureSurface.h"

// The shapes of the round instrument, on a scale of 200 by 200 with the middle at (100, 100). Angles are
// clockwise from the top.
namespace ornivane::InstrumentDrawing {

constexpr Colour Needle = 0x00FFFF, Parked = 0xFF0000; // the station's needle
constexpr Colour Selected = 0xFFFF00;                  // the selected course

// The fixed outline of the aircraft and the ten marks of the bezel.
void DrawInstrumentAircraft(PictureSurface& surface);
// A double arrow through the middle that leaves the inner units free on both sides of it.
void Arrow(PictureSurface& surface, double degrees, double lengthUnits, double innerUnits, Colour colour);
// The circle of the VOR needle in the middle.
void Hub(PictureSurface& surface);
// Of the HSI: the small aircraft, the dots for 5 and 10 degrees across the course, the triangle of to or
// from, and the bar, its offset to the left of the course.
void SmallAircraft(PictureSurface& surface);
void DeviationScale(PictureSurface& surface, double courseDegrees);
void ToFrom(PictureSurface& surface, double courseDegrees, bool isTo);
void DeviationBar(PictureSurface& surface, double courseDegrees, double offsetUnits);

} // namespace ornivane::InstrumentDrawing
