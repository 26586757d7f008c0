#pragma once

#include <filesystem>
#include <ostream>

#include "tracks/TrackPoints.h"

namespace ornivane {

enum class GpxContent { Track, Waypoints, Both };

// Writes the points as GPX 1.1, byte for byte as the program always has: the stray double quote behind the
// head, the computer's date and the receiver's time with a Z, altitudes without their sign. Texts of the
// store are escaped.
void WriteGpx(std::ostream& to, TrackPoints& points, GpxContent content);

// The same into a file, which is replaced when all is written. RuntimeError PathNotFound, PermissionDenied,
// DiskFull or DeviceError when that fails, others when the points cannot be read.
void SaveGpxFile(const std::filesystem::path& file, TrackPoints& points, GpxContent content);

} // namespace ornivane
