#pragma once

#include <string>
#include <vector>

#include "base/Language.h"
#include "common/Settings.h"
#include "platform/Dialogs.h"
#include "store/Recordset.h"

namespace ornivane {

// Saves a route with its points as a file of its own, Route/<name>.ovr, to pass it on.
class RouteExport {
public:
    RouteExport(const Language& texts, const Settings& ofProgram, Connection& dataConn, Dialogs& dialogs);

    std::vector<std::string> cmbRoute; // all routes in their order
    int cmbRouteIndex = -1;            // the chosen one, from 0; -1 for none
    std::string lblSave;               // the folder, after saving the file

    // Lists the routes and chooses the first one named as the current cell of the planning screen's route
    // grid.
    void Form_Load(const std::string& gridRouteCell);
    // Writes the chosen route; a file of that name is replaced without a question. Of two routes of one name
    // it is always the first. RuntimeError NoCurrentRecord when none is chosen, BadFileName when the route's
    // name is no file name, and those of WriteFileAtomically; nothing is written then.
    void cmdExport();

private:
    std::filesystem::path MakeFolder() const;

    const Language& language;
    const Settings& settings;
    Connection& data;
    Dialogs& boxes;
    Recordset routes;
};

} // namespace ornivane
