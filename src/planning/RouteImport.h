#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/Language.h"
#include "base/RuntimeError.h"
#include "common/Settings.h"
#include "platform/Dialogs.h"
#include "store/Recordset.h"

namespace ornivane {

// Run after each step, so that the lists of the planning screen show it; those that are missing are left out.
struct ImportSteps {
    std::function<void()> WaypointsAdded;
    std::function<void(const Value& routeID)> RouteAdded;
    std::function<void()> PointsAdded;
};

// Takes a route and its waypoints from a route file. Nothing of it is seen but the file dialog and messages.
// Three steps, each of them wholly done or not at all: the waypoints, the route, its points. Afterwards the
// list of routes stands on the new one.
class RouteImport {
public:
    RouteImport(const Language& texts, const Settings& ofProgram, Connection& dataConn, Dialogs& dialogs,
                ImportSteps toShow);

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
    void ImportRoutePoints();
    void CopyPoints();
    void Show(const std::function<void()>& step);
    std::string LongName(const std::string& name) const;

    const Language& language;
    const Settings& settings;
    Connection& data;
    Dialogs& boxes;
    ImportSteps steps;
    Recordset rows;                       // of the file
    Value routeID;                        // of the new route
    std::optional<RuntimeError> notShown; // why a list could not be read again
};

} // namespace ornivane
