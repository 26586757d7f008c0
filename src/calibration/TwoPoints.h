#pragma once

#include <array>
#include <string>

#include "calibration/MapData.h"
#include "geo/Position.h"
#include "map/Viewport.h"
#include "platform/PictureSurface.h"
#include "platform/Timer.h"
#include "store/Recordset.h"

namespace ornivane {

enum class PointColour { None, ToEnter, Accepted }; // as the form was drawn; yellow; green

// One of the two points whose place on the earth is known. Members carry the names of the controls, without
// their number. Pixels and coordinates are kept as texts, because the calculation reads and writes texts.
struct CalibrationPoint {
    bool frmVisible = false;
    std::string tLat, tLong; // as typed: whole degrees and minutes / 100
    PointColour Colour = PointColour::None;
    bool FieldsEnabled = true; // tLat, tLong, tQuickfind and gridWay
    std::string Lat, Long;     // accepted
    std::string tx, ty;        // pixels of the image
    std::string tQuickfind;
    bool cmdSaveEnabled = false;
    Recordset WaypointFindSet;
};

// Where a key typed over the picture goes.
enum class TypedInto { Nothing, Lat1, Lat2, Quickfind1, Quickfind2 };

enum class ArrowKey { Left, Up, Right, Down };

// Finds the frame of a chart from two points of it: two linear scales, north up, no rotation. Works on the
// entry selected in the catalogue and saves through it. The form frmCalRect owns it.
class TwoPoints {
public:
    // What of the program and of the form it works with. `dataConn` has the waypoints.
    struct World {
        const Language& Texts;
        Connection& DataConn;
        MapData& Catalogue;
        Picture& picStorage;
        PictureSurface& picMap;
        Timer& timArr; // runs while an arrow is held
        Dialogs& Messages;
    };
    explicit TwoPoints(const World& world);

    // Loads the image and sets up the view. RuntimeError DivisionByZero for an image without size or one that
    // cannot be loaded.
    void Form_Load();
    // picMap has a new size.
    void Form_Resize();
    void Draw_Picture();

    void MouseDown(const Point& at) { drag = at; }
    // Pans while the left button is held; always moves the cross-hair.
    void MouseMove(const Point& at, bool leftHeld);
    // Takes the pixel under the cross-hair for the open point.
    void picMap_Click();
    // A character typed while the picture has the focus.
    TypedInto KeyTyped(const std::string& character);
    // The slider was moved; clicked also: at its end the whole image is shown, stretched over the view.
    void SlideMap_Scroll(int value);
    void SlideMap_Click(int value);
    void ArrowDown(ArrowKey key);
    void ArrowUp(ArrowKey key);
    // Another control has the keys now: no release of an arrow will be told.
    void ArrowsGone();
    void timArr_Timer(); // moves the picture by the arrows that are held
    // Moves the cross-hair by view pixels, for those without a pointer.
    void MoveCross(double dx, double dy);

    // index 0 or 1: the first or the second point.
    void FindWaypoint(std::size_t index); // its quick search
    void gridWay_RowChanged(std::size_t index);
    // True when that finished the calibration: the form closes.
    bool cmdSave_Click(std::size_t index);

    std::int32_t MapWidth = 0, MapHeight = 0; // pixels, from the image's header
    ViewSizes Sizes;
    SourceRect View;
    int SlideMap = 0;
    std::string tx, ty; // image pixels under the cross-hair
    double CrossX = 0, CrossY = 0;
    double ClickX = 0, ClickY = 0; // 0, 0 is none
    std::array<CalibrationPoint, 2> Points;
    std::size_t tLat2Caret = 0;
    // The result.
    StoredLongitude Links{1}, Rechts{2};
    StoredLatitude Oben{2}, Unten{1};

private:
    void SayTopDown();
    void ReadSizes();
    void ShowPixel();
    void OpenPoint(std::size_t index);
    void Pan(double dx, double dy);
    bool ConvertLongitudes();
    bool ConvertLatitudes();
    bool ApplyCalibration();
    void SayTooClose();
    void SayCalibrated();
    void StoreResult();
    std::string NumberAsText(double value) const;

    const Language& language;
    Connection& dataConn;
    MapData& catalogue;
    Picture& storage;
    PictureSurface& surface;
    Timer& timer;
    Dialogs& dialogs;
    Point drag;                 // where the last step of a drag ended
    std::array<bool, 4> held{}; // by ArrowKey
};

} // namespace ornivane
