#include "planning/frmImport.h"

#include "planning/RouteImport.h"
#include "planning/frmPlanung.h"

namespace ornivane {

frmImport::frmImport(Variablen& variablen, Dialogs& dialogs, frmPlanung& screen)
    : shared(variablen), boxes(dialogs), planning(screen) {}

void frmImport::GetRoute() {
    PlanningScreen& screen = planning.Logic();
    RouteImport import(shared, shared, shared.DataConn, boxes,
                       {[&] { screen.Waypoints.ReadAgain(); },
                        [&](const Value& route) { screen.Routes.RouteAdded(route); },
                        [&] { screen.Routes.PointsAdded(); }});
    planning.Do([&] { import.GetRoute(); });
    planning.Do([&] { screen.RedrawPlan(); }); // also after an error: the lists have followed by themselves
}

} // namespace ornivane
