#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "map/Viewport.h"
#include "store/Recordset.h"

namespace ornivane {

// The view of a map: its source rectangle in pixels of the image, the zoom slider, and centring.
struct RememberedView {
    SourceRect Rect;
    int SlideMap = 0;
    bool CenterMap = false;
};

// The view that each map had when it was last shown, one row a map in position.crm. Owned by ActiveMap.
class ViewMemory {
public:
    // Takes the rows of position.crm when there is one that can be read; otherwise starts empty.
    explicit ViewMemory(const std::filesystem::path& folder);

    std::optional<RememberedView> Find(const std::string& map);
    // Replaces the whole file. RuntimeError Overflow for a name over 30 characters, the size of its field,
    // and the errors of writing; the memory of the other maps stays.
    void Save(const std::string& map, const RememberedView& view);

private:
    bool FindRow(const std::string& map);

    std::filesystem::path file;
    Recordset PositionSet;
};

} // namespace ornivane
