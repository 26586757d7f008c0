#include "map/ViewMemory.h"

#include <algorithm>
#include <cmath>

#include "base/Numbers.h"
#include "base/Paths.h"
#include "base/RuntimeError.h"

namespace ornivane {

ViewMemory::ViewMemory(const std::filesystem::path& folder) : file(folder / "position.crm") {
    const auto read = [this] {
        PositionSet.OpenFile(file);
        for (const char* field : {"Karte", "SX", "SY", "SW", "SH", "SlideMap", "CenterMap"})
            if (PositionSet.RecordCount() > 0) PositionSet.Get(field);
    };
    // A damaged memory of views is worth nothing; it is made anew at the next save.
    if (FileExists(file) && !ErrorOf(read)) return;
    PositionSet = Recordset();
    PositionSet.AppendField({"Karte", FieldType::Text, 30, false});
    for (const char* field : {"SX", "SY", "SW", "SH", "SlideMap"})
        PositionSet.AppendField({field, FieldType::Double, 0, true});
    PositionSet.AppendField({"CenterMap", FieldType::Boolean, 0, false});
    PositionSet.OpenDetached();
}

bool ViewMemory::FindRow(const std::string& map) {
    if (PositionSet.RecordCount() == 0) return false;
    PositionSet.MoveFirst();
    return PositionSet.Find("Karte", Comparison::Equal, map);
}

std::optional<RememberedView> ViewMemory::Find(const std::string& map) {
    if (!FindRow(map)) return std::nullopt;
    const auto single = [&](const char* field) { return static_cast<float>(PositionSet.Number(field)); };
    RememberedView view;
    view.Rect = {single("SX"), single("SY"), single("SW"), single("SH")};
    view.SlideMap = std::clamp<int>(ToInt16(PositionSet.Number("SlideMap")), SlideMin, SlideMax);
    view.CenterMap = PositionSet.Get("CenterMap").Boolean();
    // A file made elsewhere may hold anything; a rectangle without extent could never be zoomed back.
    const bool usable =
        std::isfinite(view.Rect.SX) && std::isfinite(view.Rect.SY) && view.Rect.SW > 0 && view.Rect.SH > 0;
    return usable ? std::optional(view) : std::nullopt;
}

void ViewMemory::Save(const std::string& map, const RememberedView& view) {
    const bool isNew = !FindRow(map);
    if (isNew) PositionSet.AddNew();
    const auto write = [&] {
        PositionSet.Set("Karte", map);
        PositionSet.Set("SX", static_cast<double>(view.Rect.SX));
        PositionSet.Set("SY", static_cast<double>(view.Rect.SY));
        PositionSet.Set("SW", static_cast<double>(view.Rect.SW));
        PositionSet.Set("SH", static_cast<double>(view.Rect.SH));
        PositionSet.Set("SlideMap", static_cast<double>(view.SlideMap));
        PositionSet.Set("CenterMap", view.CenterMap);
        PositionSet.Update();
    };
    RestoreOnError(write, [this] { PositionSet.CancelUpdate(); });
    PositionSet.Save(file);
}

} // namespace ornivane
