#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/AtomicFile.h"
#include "base/RuntimeError.h"
#include "planning/RouteExport.h"
#include "planning/RouteImport.h"
#include "store/Statement.h"
#include "support/FlightFolder.h"
#include "support/ScriptedDialogs.h"

namespace ornivane {

// A store with waypoints and the routes through them.
class ExchangeTest : public testing::Test, protected FlightFolder {
protected:
    using Names = std::vector<std::string>;

    void AddWaypoint(const std::string& name, double lat, double lon, const std::string& category = "Ziele") {
        Shared.DataConn.Execute("INSERT INTO Waypoints (Name, Lat, Long, Kategorie) VALUES (?, ?, ?, ?)",
                                {name, lat, lon, category});
    }
    void AddRouteThrough(const std::string& route, const Names& waypoints) {
        Shared.DataConn.Execute("INSERT INTO Route (Nummer, Name) SELECT count(*) + 1, ? FROM Route",
                                {route});
        int number = 0;
        for (const std::string& name : waypoints)
            Shared.DataConn.Execute(
                "INSERT INTO GpsPoints SELECT ?, (SELECT max(RouteID) FROM Route), PointID, "
                "Name, Lat, Long FROM Waypoints WHERE Name = ?",
                {++number, name});
    }
    // The rows of a query, their columns with blanks between them.
    Names Rows(const std::string& sql) {
        Statement statement(Shared.DataConn, sql);
        Names rows;
        while (statement.Step()) {
            std::string row;
            for (int i = 0; i < statement.ColumnCount(); ++i)
                row += (i > 0 ? " " : "") + (statement.IsNull(i) ? "-" : statement.ColumnValue(i).Text());
            rows.push_back(row);
        }
        return rows;
    }
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
    std::filesystem::path Write(const std::string& name, const std::string& bytes) {
        WriteFileAtomically(Folder.Path() / name, bytes);
        return Folder.Path() / name;
    }
    ScriptedDialogs Boxes;
};

} // namespace ornivane
