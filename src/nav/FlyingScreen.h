#pragma once

#include <array>
#include <functional>
#include <string>

#include "common/Variablen.h"
#include "gps/GpsLink.h"
#include "map/ActiveMap.h"
#include "map/MapRing.h"
#include "nav/DrawingPass.h"
#include "nav/FixReadouts.h"
#include "nav/FlightState.h"
#include "nav/Instrument.h"
#include "nav/Leg.h"
#include "nav/QnhReadout.h"
#include "nav/RouteFollowing.h"
#include "nav/TrackLogger.h"
#include "nav/WindCalculator.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/PictureSurface.h"
#include "platform/SerialPort.h"
#include "platform/Timer.h"
#include "store/Recordset.h"

namespace ornivane {

// The world that the flying screen works in: the seams, real or faked.
struct FlyingScreenWorld {
    Variablen& Shared;
    SerialPort& MSComm1;
    Timer& timerCheck;
    Timer& timeTrack;
    const Clock& SystemClock;
    Picture& picStorage;
    PictureSurface& picMap;
    const Picture& Picture1; // the compass card
    PictureSurface& Kurskreisel;
    PictureSurface& picWind;
    Progress& progBar;
    Dialogs& Messages;
    Notice& Notices;
};

// The flying screen without its window: puts the rooms together and passes on what one asks of another. The
// form calls one routine for each event and then shows the state.
class FlyingScreen : private LinkOwner,
                     private FixReadoutsOwner,
                     private ActiveMapOwner,
                     private RouteFollowingOwner,
                     private TrackLoggerOwner {
public:
    // `changed`: the state may be another one, show it; `focusMap`: give the map the focus.
    FlyingScreen(const FlyingScreenWorld& world, std::function<void()> changed,
                 std::function<void()> focusMap);

    void Form_Load();
    void Form_Activate();
    void Form_Deactivate();
    void Form_Unload();

    void UpdateMap() override;
    void CentreMap() override;
    // picMap has a new size.
    void Form_Resize();
    // A right click on the map, in view pixels.
    void SetDirectTarget(const Point& view);
    void lblSpeed_Click();
    void lblAlt_Click();
    void lblTime_Click();
    void SetShowRoute(bool on);
    void SetShowNames(bool on);
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
    GpsLink Link;
    FixReadouts Readouts;
    NmeaInterpreter gps;
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
    DrawingPass Pass;

private:
    void DataLost() override;
    void NoSignal() override;
    void ShowFix(bool has) override { Link.ShowFix(has); }
    void ShowSatellites(const std::string& used, std::optional<int> inView) override {
        Link.ShowSatellites(used, inView);
    }
    void RefreshRouteList() override;
    void FocusMap() override;
    void StateChanged() override;
    void DrawOverlays() override;
    void UpdateInstrument(double angle) override;
    void SpeedChanged(double knots) override;
    void AltitudeChanged(double feet) override;
    void LoggingFailed(const RuntimeError& error) override;
    void LoggerChanged() override { changed(); }
    std::string RouteName() const override;
    bool HasFix() const override;
    double DistanceToTarget() const override;
    void TargetChosen() override { ActiveLeg.TargetChosen(); }
    void RouteGone(const std::string& name) override;
    void TargetADayAway();
    std::string MapName() const override;

    // What the receiver and the link can change on the screen.
    struct LiveState {
        FlightState Flight;
        std::array<GpsLink::Indicator, 3> Lamps;
        GpsLink::StatusLine Status;
        bool Hourglass = false;
        std::string RouteLength, Remaining;
        std::string StationDistance, Recorded, Airspeeds;
        bool Recording = false, Armed = false;
        bool operator==(const LiveState&) const = default;
    };

    void Redraw(void (DrawingPass::*redraw)(), bool centringAsked = false);
    void TellWhyNotCentred(bool centringAsked);
    void LoadFlightSet();
    void ShowLastMap();
    void ActivateLink();

    FlyingScreenWorld world;
    std::function<void()> changed;
    std::function<void()> focusMap;
    LiveState told;
    Event::Listener chartsChanged;
};

} // namespace ornivane
