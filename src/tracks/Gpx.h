#pragma once

#include <filesystem>
#include <ostream>

#include "tracks/TrackPoints.h"

namespace ornivane {

enum class GpxContent { Track, Waypoints, Both };

// Writes the points as GPX 1.1, byte for byte as the program always has: the stray double quote behind the
// head, the local times with a Z, altitudes without their sign. Other programs have read it for years.
void WriteGpx(std::ostream& to, TrackPoints& points, GpxContent content);

// The same into a file, which is replaced when all is written. RuntimeError when that fails.
void SaveGpx(const std::filesystem::path& file, TrackPoints& points, GpxContent content);

} // namespace ornivane
