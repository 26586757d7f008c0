#pragma once

#include <functional>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "common/DisplayFlags.h"
#include "common/Variablen.h"
#include "gps/GpsLink.h"
#include "gps/NmeaSink.h"
#include "gps/PortSource.h"
#include "map/ActiveMap.h"
#include "map/MapRing.h"
#include "nav/FixReadouts.h"
#include "nav/FlightDevices.h"
#include "nav/FlightState.h"
#include "nav/Instrument.h"
#include "nav/Leg.h"
#include "nav/Navigation.h"
#include "nav/QnhReadout.h"
#include "nav/RouteFollowing.h"
#include "nav/SceneDrawing.h"
#include "nav/TrackLogger.h"
#include "nav/WindCalculator.h"
#include "platform/Dialogs.h"
#include "platform/PictureSurface.h"
#include "store/Recordset.h"

namespace ornivane {

// The world that the flying screen works in: the seams, real or faked.
struct FlyingScreenWorld {
    Variablen& Shared;
    FlightDevices Devices;
    Picture& picStorage;
    PictureSurface& picMap;
    const Picture& Picture1; // the compass card
    PictureSurface& Kurskreisel;
    PictureSurface& picWind;
    Progress& progBar;
    Dialogs& Messages;
    Notice& Notices;
};

// Who gives the keys back to the map: the pilot by a button, or the receiver while he may be typing.
enum class FocusBy { Hand, Receiver };

// The flying screen without its window: puts the components together and does what they leave to it. The form
// calls one routine for each event and then shows the state.
class FlyingScreen {
public:
    // `stateChanged`: the state may be another one, show it; `focusOnMap`: give the map the focus.
    FlyingScreen(const FlyingScreenWorld& w, std::function<void()> stateChanged,
                 std::function<void(FocusBy)> focusOnMap);

    void Form_Load();
    void Form_Activate();
    void Form_Deactivate();
    void Form_Unload();

    // The redraw: one navigation step, then its scene is drawn.
    void UpdateMap() { Redraw({}); }
    // The overlays only, over the picture that stands.
    void DrawOverlays() { Redraw({.PaintsChart = false}); }
    // More of the chart has come: what was drawn last is drawn once more. No navigation step.
    void PaintAgain();
    // picMap has a new size.
    void Form_Resize();
    // A right click on the map, in view pixels.
    void SetDirectTarget(const Point& view);
    void cmbRoute_Click(const std::string& name);
    // What a routine of the route leaves to the screen.
    void Do(const RouteEffects& effects);
    void cmdActivateGoto_Click() { Do(Route.cmdActivateGoto_Click()); }
    void picActivateGoto_Click() { Do(Route.picActivateGoto_Click()); }
    void cmdDirectFly_Click() { Do(Route.cmdDirectFly_Click()); }
    void picDF_Click() { Do(Route.picDF_Click()); }
    void cmdNext_Click() { Do(Route.cmdNext_Click()); }
    void cmdPrev_Click() { Do(Route.cmdPrev_Click()); }
    void RefreshRouteList();
    void cmbMaps_Click(const std::string& name);
    void cmdKartezentrieren_Click();
    void picKartezentrieren_Click();
    void cmdMapScroll_Click();
    void PicMapScroll_Click();
    void cmdShowPoints_Click(); // stays off without points or routes
    void picShowPoints_Click();
    void StepRing() { DrawIf(Ring.Step(Route.cmbRoute)); } // the next map by hand
    void ApplyZoom() { DrawIf(Map.ApplyZoom()); }
    void SetSlide(int value) { DrawIf(Map.SetSlide(value)); }
    void Pan(double dxPixels, double dyPixels) { DrawIf(Map.Pan(dxPixels, dyPixels)); }
    void lblSpeed_Click();
    void lblAlt_Click();
    void lblTime_Click();
    void cmdRecord_Click();
    void picRecord_Click();
    void SetFlag(bool DisplayFlags::*flag, bool on);
    void SaveFlightSet();
    // The arrow keys: the slider by 10, not beyond its ends.
    void StepZoom(int by);
    // A key of the main row or one that means nothing else: the entry of heading and airspeed. Nothing while
    // something is entered at the dial.
    void EntryKey(int keyCode);
    // A station, a course or the QNH is being entered: the keys of the screen rest.
    bool IsEntering() const { return Instruments.IsEntering() || Qnh.frmEnterQNH; }

    FlightState State;
    DisplayFlags Flags;
    FixReadouts Readouts;
    NmeaInterpreter gps;
    NmeaSink Sentences;
    PortSource Com;
    GpsLink Link;
    Recordset MapsSet; // the active maps; the current row is the map of flight mode
    ActiveMap Map;
    MapRing Ring;
    RouteFollowing Route;
    Leg ActiveLeg;
    WindCalculator Wind;
    Instrument Instruments;
    TrackLogger Logger;
    AirspaceView Airspace;
    QnhReadout Qnh;
    DrawingFaults Faults;
    bool picShowPoints = false; // only route points are shown

private:
    // What the link asks of its screen.
    void Do(LinkAction action);
    void Act(const FixEffects& effects);
    void ShowLiveState();
    void timeTrack_Timer();
    void TellLogging(const std::optional<RuntimeError>& failure);
    void FocusMap() { focusMap(FocusBy::Hand); }
    bool HasFix() const { return Link.HasFix(); }

    // What the receiver and the link can change on the screen: the states of the components.
    using LiveState =
        std::tuple<FlightState, GpsLink::Signs, RouteShown, InstrumentShown, TrackLoggerShown, WindShown>;

    void DrawIf(bool isAnotherView);
    void CentreMap();
    void Redraw(RedrawOrder order, bool centringAsked = false);
    void Show(NavigationStep step);
    void Keep(Scene scene);
    void TellWhyNotCentred(bool centringAsked);
    void ShowLastMap();
    void ActivateRoute();

    FlyingScreenWorld world;
    std::function<void()> changed;
    std::function<void(FocusBy)> focusMap;
    Navigation navigation;
    SceneDrawing drawing;
    // What stands on the map: a scene with the chart, and the overlays that were last drawn over it. And the
    // chart that it is of.
    std::vector<Scene> drawn;
    std::optional<std::string> drawnOf;
    LiveState told;
    Event::Listener chartsChanged;
};

} // namespace ornivane
