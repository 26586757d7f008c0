#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "map/ChartPlacement.h"

namespace ornivane {

// The files of the folder of charts: the images, and beside each the text file that keeps its frame when the
// store is lost.

// Names of the files of a folder that match a pattern of the form "*.bmp", upper and lower case being the
// same, sorted by name. Empty optional when the folder is not there or cannot be read, which is not the same
// as a folder without such files. Hidden files are left out, and names that are no UTF-8: the store could not
// hold them.
std::optional<std::vector<std::string>> GetFiles(const std::filesystem::path& folder,
                                                 std::string_view pattern);

// Empty when there is none, or it has too few lines.
std::optional<ChartPlacement> ReadSideFile(const std::filesystem::path& folder, const std::string& map);
// RuntimeError when it cannot be written.
void WriteSideFile(const std::filesystem::path& folder, const std::string& map,
                   const ChartPlacement& placement);

// In the order of the boxes that offer them; LatData.crm has 0 and 1.
enum class Hemisphere { NorthOrEast, SouthOrWest };

// What the catalogue's screen remembers: the hemisphere of each edge, and the preview's switch. LatData.crm
// in the folder of charts.
struct LatData {
    std::array<Hemisphere, 4> Hemispheres{};
    bool Preview = false;
    bool operator==(const LatData&) const = default;
};

// Changes the values up to the first that is missing or none of 0 and 1.
void ReadLatData(const std::filesystem::path& folder, LatData& data);
void WriteLatData(const std::filesystem::path& folder, const LatData& data);

} // namespace ornivane
