#pragma once

#include <vector>

#include "common/Variablen.h"
#include "store/Schema.h"
#include "support/TemporaryFolder.h"

namespace ornivane {

// A program folder with a store and two maps of 2000 x 1000 pixels over 6 to 8° E and 50 to 51° N (alpha.jpg)
// and 60 to 61° N (Zulu.JPG). The images are no images.
class FlightFolder {
public:
    FlightFolder() {
        Shared.ProgramFolder = Folder.Path();
        Open(Shared.DataConn, StoreKind::Data);
        std::filesystem::create_directory(Folder.Path() / "Karten");
        for (const char* chart : {"alpha.jpg", "zulu.jpg"})
            WriteFileAtomically(Folder.Path() / "Karten" / chart, "an image");
        Sql("INSERT INTO Maps (Name, Oben, Unten, Links, Rechts, Breite, \"Höhe\", Active) VALUES "
            "('Zulu.JPG', 61, 60, 6, 8, 2000, 1000, 1), ('alpha.jpg', 51, 50, 6, 8, 2000, 1000, 1), "
            "('unused.jpg', 1, 0, 0, 1, 10, 10, 0)");
    }

    void Sql(const std::string& statement) { Shared.DataConn.Execute(statement); }
    // Further stores, empty.
    void OpenTracks() { Open(Shared.TrackConn, StoreKind::Track); }
    void OpenAirspace() { Open(Shared.LuftraumConn, StoreKind::Luftraum); }
    void OpenAirfields() {
        Open(Shared.AirfieldConn, StoreKind::Airfields);
        Shared.AirfieldStoreOpen = true;
    }
    // Latitude and longitude as they are stored (DegMinValue).
    void AddWaypoint(const std::string& name, double lat, double longitude,
                     const std::string& category = "") {
        Shared.DataConn.Execute("INSERT INTO Waypoints (Name, Lat, Long, Kategorie) VALUES (?, ?, ?, ?)",
                                {name, lat, longitude, category});
    }
    // An active chart of 2000 x 1000 pixels.
    void AddChart(const std::string& name, double bottom, double top, double left, double right) {
        Shared.DataConn.Execute("INSERT INTO Maps VALUES (?, ?, ?, ?, ?, 2000, 1000, 1)",
                                {name, top, bottom, left, right});
    }
    // An image of which there is no more than its size.
    void WriteJpegHeader(const std::string& chart, int width, int height) const {
        std::string bytes("\xFF\xD8\xFF\xC0\0\x11\x08", 7);
        for (const int value : {height >> 8, height, width >> 8, width}) bytes += static_cast<char>(value);
        Folder.Write("Karten/" + chart, bytes);
    }
    // A route through points P1, P2 ... of one latitude, at the given longitudes (DegMinValue).
    void AddRoute(const std::string& name, const std::vector<double>& longitudes) {
        Shared.DataConn.Execute("INSERT INTO Route (Nummer, Name) SELECT count(*) + 1, ? FROM Route", {name});
        for (std::size_t i = 0; i < longitudes.size(); ++i)
            Shared.DataConn.Execute("INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long) "
                                    "SELECT ?, max(RouteID), ?, ?, 50.3, ? FROM Route",
                                    {static_cast<double>(i + 1), static_cast<int>(i + 1),
                                     "P" + std::to_string(i + 1), longitudes[i]});
    }

    TemporaryFolder Folder;
    Variablen Shared;

private:
    void Open(Connection& connection, StoreKind kind) {
        CreateStore(Folder.Path() / StoreFileName(kind), kind);
        connection.Open(Folder.Path() / StoreFileName(kind), Connection::Mode::ReadWrite);
    }
};

} // namespace ornivane
