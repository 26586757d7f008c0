#pragma once

#include <gmock/gmock.h>

#include "base/RuntimeError.h"
#include "planning/RouteExport.h"
#include "planning/RouteImport.h"
#include "support/FlightFolder.h"
#include "support/Rows.h"
#include "support/ScriptedDialogs.h"

namespace ornivane {

// A store with waypoints and the routes through them.
class ExchangeTest : public testing::Test, protected FlightFolder {
protected:
    using Names = std::vector<std::string>;

    void AddWaypoint(const std::string& name, double lat, double lon) {
        FlightFolder::AddWaypoint(name, lat, lon, "Ziele");
    }
    void AddRouteThrough(const std::string& route, const Names& waypoints) {
        AddRoute(route, {});
        int number = 0;
        for (const std::string& name : waypoints)
            Shared.DataConn.Execute(
                "INSERT INTO GpsPoints SELECT ?, (SELECT max(RouteID) FROM Route), PointID, "
                "Name, Lat, Long FROM Waypoints WHERE Name = ?",
                {++number, name});
    }
    Names Rows(const std::string& sql) { return RowsOf(Shared.DataConn, sql, NumbersAs::Shown); }
    Names Points(const std::string& route) {
        return Rows(
            "SELECT p.Nummer, p.Name, p.Lat, p.Long FROM GpsPoints p JOIN Route r USING (RouteID) WHERE "
            "r.Name = '" +
            route + "' ORDER BY RouteID, p.Nummer");
    }
    std::filesystem::path Export(const std::string& route) {
        RouteExport exporting(Shared, Shared, Shared.DataConn, Boxes);
        exporting.Form_Load(route);
        exporting.cmdExport();
        return exporting.lblSave;
    }
    void Import(const std::filesystem::path& file, const ImportSteps& steps = {}) {
        Boxes.Shown.clear();
        Boxes.File = file;
        RouteImport(Shared, Shared, Shared.DataConn, Boxes, steps).GetRoute();
    }
    ScriptedDialogs Boxes;
};

} // namespace ornivane
