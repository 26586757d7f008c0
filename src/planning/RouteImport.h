#pragma once

#include <exception>
#include <functional>
#include <string>
#include <vector>

#include "common/Variablen.h"
#include "platform/Dialogs.h"
#include "store/Recordset.h"

namespace ornivane {

// The lists of the planning screen that show what an import changes. One that is missing or closed is left
// alone.
struct PlanningSets {
    std::function<void()> WaypointsChanged;
    Recordset* RoutesSet = nullptr;
    Recordset* RoutePointsSet = nullptr;
};

// Takes a route and its waypoints from a route file. Nothing of it is seen but the file dialog and messages.
// Three steps, each of them wholly done or not at all: the waypoints, the route, its points. Afterwards the
// list of routes stands on the new one.
class RouteImport {
public:
    RouteImport(Variablen& variablen, Dialogs& dialogs, PlanningSets planning);

    // Asks for the file and imports it. A file that is no route file ends it without a word and changes
    // nothing. RuntimeError at the very end when a list of the screen could not be read again.
    void GetRoute();

    // What the route of a file is called: the text before the first point of the whole path, behind the last
    // separator in it. So "/a/Rhein.Tour.ovr" is Rhein, a point in a folder's name gives a wrong name, and
    // there is none without a separator.
    static std::string RouteNameOf(const std::string& path);

private:
    FileQuestion Question() const;
    void ImportWaypoints();
    // Adds to `differing` the names of the points whose stored position is another one.
    void MergeWaypoints(std::vector<std::string>& differing);
    void TellDifferences(const std::vector<std::string>& differing);
    void ImportRouteRow(const std::string& name);
    void ImportRoutePoints();
    void CopyPoints();
    void Show(const std::function<void()>& list);
    void ShowRoute();
    std::string LongName(const std::string& name) const;

    Variablen& shared;
    Dialogs& boxes;
    PlanningSets sets;
    Recordset rows;              // of the file
    Value routeID;               // of the new route
    std::exception_ptr notShown; // why a list could not be read again
};

} // namespace ornivane
