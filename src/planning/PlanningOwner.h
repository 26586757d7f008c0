#pragma once

namespace ornivane {

// What the lists ask of the screen they stand on.
class PlanningOwner {
public:
    virtual ~PlanningOwner() = default;
    virtual void CenterOnWaypoint() = 0; // scrolls the chart to the entry fields' position and redraws
    virtual void RedrawPlan() = 0;
    virtual void FocusMap() = 0;       // picMap
    virtual void FocusWaypoints() = 0; // gridWaypoints
    virtual void FocusRoutes() = 0;    // gridRoute
};

} // namespace ornivane
