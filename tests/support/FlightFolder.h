#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "base/AtomicFile.h"
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
        CreateStore(Folder.Path() / "data.ovd", StoreKind::Data);
        Shared.DataConn.Open(Folder.Path() / "data.ovd", Connection::Mode::ReadWrite);
        std::filesystem::create_directory(Folder.Path() / "Karten");
        for (const char* chart : {"alpha.jpg", "zulu.jpg"})
            WriteFileAtomically(Folder.Path() / "Karten" / chart, "an image");
        Sql("INSERT INTO Maps (Name, Oben, Unten, Links, Rechts, Breite, \"Höhe\", Active) VALUES "
            "('Zulu.JPG', 61, 60, 6, 8, 2000, 1000, 1), ('alpha.jpg', 51, 50, 6, 8, 2000, 1000, 1), "
            "('unused.jpg', 1, 0, 0, 1, 10, 10, 0)");
    }

    void Sql(const std::string& statement) { Shared.DataConn.Execute(statement); }
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
};

} // namespace ornivane
