#pragma once

#include <functional>
#include <string>
#include <vector>

#include "common/Variablen.h"
#include "map/MapTransform.h"
#include "map/ViewMemory.h"
#include "map/Viewport.h"
#include "platform/Dialogs.h"
#include "platform/PictureSurface.h"

namespace ornivane {

// What the active map needs of its screen.
class ActiveMapOwner {
public:
    virtual ~ActiveMapOwner() = default;
    virtual void UpdateMap() = 0;
    virtual std::string RouteName() const = 0; // text of cmbRoute
};

// One map at most is active: the current row of MapsSet, its image in picStorage, and the view of it. Members
// carry the names of the controls that show them.
class ActiveMap {
public:
    ActiveMap(Variablen& variablen, Picture& picStorage, PictureSurface& picMap, Progress& progBar,
              Dialogs& dialogs, ActiveMapOwner& owner);

    bool HasMap() const; // MapsSet has rows

    // Makes the current row of MapsSet the active map: image, scale, view. Nothing without rows. A missing
    // image is not reported, the picture that was there stays; a frame without extent gives a message.
    void InitializeData();
    // Fills the list of cmbMaps anew.
    void updateMapInfo();
    // Positions MapsSet on the map of the last run and returns the route of the last run; a damaged or
    // missing memory is made anew with the name of no map.
    std::string LoadLastMap();
    // The map of that name, else the first.
    void FindMap(const std::string& name);
    // The user's choice in cmbMaps.
    void cmbMaps_Click(const std::string& name);
    // The program's choice: does not redraw by itself, because it happens inside a drawing pass.
    void cmbMaps_Change(const std::string& name);

    void RestoreMapPosition();
    void SaveMapPosition();

    // SlideMap has a new value, -100 to 100: a new source rectangle, then a redraw.
    void ApplyZoom();
    void SetSlide(int value);
    // picMap has a new size, or another picture: fits the view, does not redraw.
    void AdjustViewToPicture();
    // A drag by view pixels; refused while centring is on or the whole width is in view.
    bool CanPan() const { return !CenterMap && SlideMap != SlideMax; }
    void Pan(double dx, double dy);
    void CenterOnAircraft(const Point& aircraft);
    void cmdKartezentrieren_Click();
    void picKartezentrieren_Click();
    void SetCentring(bool on);

    // From the edges of the current row, read anew at each call.
    MapTransform Transform() const;
    std::string Name() const; // of the active map

    // cmbMaps
    std::string cmbMaps;
    std::vector<std::string> MapNames;
    std::string CurrentMapName; // text of cmbMaps when the list was last rebuilt
    std::string LastMapName;

    double Breite = 1, Höhe = 1;
    ViewSizes Sizes;
    SourceRect View;
    int SlideMap = 0;
    bool CenterMap = true;
    bool picKartezentrieren = true; // the lamp over cmdKartezentrieren
    bool AutoMapSwitch = false;

private:
    void LoadPicture();
    void ReadSizes();
    void RememberChoice();
    void SwitchTo(const std::string& name, bool firstIfGone);
    void CallOffErrors(const std::function<void()>& action) const;

    Variablen& shared;
    Picture& storage;
    PictureSurface& surface;
    Progress& progress;
    Dialogs& dialogs;
    ActiveMapOwner& owner;
    ViewMemory memory;
    MapScale scale;     // of the map that was made active
    std::string loaded; // path, size and time of the image in picStorage
};

} // namespace ornivane
