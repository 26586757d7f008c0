#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/Language.h"
#include "common/Settings.h"
#include "map/MapTransform.h"
#include "map/Viewport.h"
#include "platform/Dialogs.h"
#include "platform/PictureSurface.h"
#include "store/Recordset.h"

namespace ornivane {

// What the chart of a screen works with. All of it outlives the chart.
struct ChartParts {
    const Language& Texts;
    const Settings& Program; // its folder
    Connection& DataConn;
    Recordset& List; // the active maps; opened by the screen
    Picture& picStorage;
    PictureSurface& picMap;
    Progress& progBar;
    Dialogs& Messages;
};

// One chart of a list, its image in picStorage, and the view of it: what every screen with a moving chart
// has. The current row of the list is the chart that shows. Members carry the names of the controls.
class ChartView {
public:
    explicit ChartView(const ChartParts& parts);
    virtual ~ChartView() = default;
    ChartView(const ChartView&) = delete;
    ChartView& operator=(const ChartView&) = delete;

    bool HasRows() const { return maps.IsOpen() && maps.RecordCount() > 0; } // of the list
    // A chart shows. One that could not be shown counts as none: what was drawn or chosen on the geometry of
    // the chart before it would be at another place.
    bool HasMap() const { return HasRows() && viewIsOf.has_value(); }
    std::string MapError() const; // for the blank sheet of a chart that could not be shown
    // Could not be shown when it was last tried, since the list was last made.
    bool IsRefused(const std::string& name) const { return refused.contains(name); }

    // Shows the current row from now on: image, scale, view. Nothing without rows. A missing image is not
    // reported, the picture that was there stays; a frame without extent gives a message and a blank sheet.
    void InitializeData();
    // The current row is another one, or has another frame, than what InitializeData took in.
    bool RowHasChanged() const;
    // Another screen has changed the catalogue: the list anew, on the same map if it is still there. What
    // shows stays until InitializeData.
    void ChartsChanged();
    // Fills the list of cmbMaps anew.
    virtual void updateMapInfo();
    // The map of that name, else the first.
    void FindMap(const std::string& name);

    // These three say whether the view is another one that is to be drawn.
    // SlideMap has a new value, -100 to 100: a new source rectangle.
    [[nodiscard]] bool ApplyZoom();
    [[nodiscard]] bool SetSlide(int value);
    // picMap has a new size, or another picture: fits the view, does not redraw.
    void AdjustViewToPicture();
    // A drag on the view; refused while the whole width is in view.
    [[nodiscard]] bool Pan(double dxPixels, double dyPixels);
    virtual bool CanPan() const { return HasMap() && SlideMap != SlideMax; }

    // From the placement that InitializeData took in, whatever row the list stands on now. RuntimeError
    // NoCurrentRecord before that.
    MapTransform Transform() const;
    std::string Name() const; // of the current row
    // The map that view and slider belong to; none before there is one, and while its frame has no extent.
    const std::optional<std::string>& ViewIsOf() const { return viewIsOf; }

    // cmbMaps
    std::string cmbMaps;
    std::vector<std::string> MapNames;

    double Breite = 1, Höhe = 1;
    ViewSizes Sizes;
    SourceRect View;
    int SlideMap = 0;

protected:
    // The view that the screen remembers of this map, if it does.
    virtual void RestoreMapPosition() {}

    const Language& language;
    const Settings& settings;
    Connection& dataConn;
    Recordset& maps;
    PictureSurface& surface;

private:
    struct TakenIn {
        std::string Name;
        ChartPlacement Placement;
        bool operator==(const TakenIn&) const = default;
    };
    void LoadPicture();
    void ReadSizes();
    void TakeInRow();
    void Refuse();

    Picture& storage;
    Progress& progress;
    Dialogs& dialogs;
    MapScale scale;     // of the row that was taken in
    std::string loaded; // path, size and time of the image in picStorage
    std::optional<TakenIn> taken;
    std::optional<std::string> viewIsOf;
    std::set<std::string> refused;
};

} // namespace ornivane
