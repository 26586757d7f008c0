#include "planning/RouteExport.h"

#include "base/FileNames.h"
#include "base/Paths.h"
#include "base/RuntimeError.h"

namespace ornivane {

namespace fs = std::filesystem;

RouteExport::RouteExport(Variablen& variablen, Dialogs& dialogs) : shared(variablen), boxes(dialogs) {}

void RouteExport::Form_Load(const std::string& gridRouteCell) {
    routes.Open(shared.DataConn, "SELECT * From Route Order by NUMMER ASC");
    if (routes.RecordCount() == 0) return;
    for (; !routes.Eof(); routes.MoveNext()) {
        cmbRoute.push_back(routes.TextOrEmpty("Name"));
        if (cmbRouteIndex < 0 && cmbRoute.back() == gridRouteCell)
            cmbRouteIndex = static_cast<int>(cmbRoute.size()) - 1;
    }
    lblSave = (shared.ProgramFolder / "Route" / "").string();
}

void RouteExport::cmdExport() {
    if (cmbRouteIndex < 0) throw RuntimeError(ErrorNumber::NoCurrentRecord);
    const std::string& name = cmbRoute.at(static_cast<std::size_t>(cmbRouteIndex));
    routes.MoveFirst();
    routes.Find("Name", Comparison::Equal, name);
    Recordset points;
    points.Open(shared.DataConn, "SELECT * From GpsPoints WHERE RouteID = ? ORDER BY Nummer ASC",
                {routes.Get("RouteID")});
    if (points.RecordCount() == 0) {
        boxes.Message(shared.Text("Fehler in Strecke", "Route error"),
                      shared.Text("Flugstrecke - ", "Route - ") + name +
                          shared.Text(" - enthält keine Wegpunkte...", " - contains no waypoints..."));
        return;
    }
    CheckFileName(name);
    const fs::path file = MakeFolder() / (name + ".ovr");
    points.Save(file);
    lblSave = file.string();
    boxes.Message(shared.Text("Strecke gespeichert", "Route saved"),
                  shared.Text("Strecke: ", "Route: ") + name +
                      shared.Text(" wurde gespeichert.", " was saved."));
}

fs::path RouteExport::MakeFolder() const {
    const fs::path folder = shared.ProgramFolder / "Route";
    std::error_code error;
    fs::create_directory(folder, error);
    if (!DirExists(folder)) throw RuntimeError(ErrorNumber::PermissionDenied, folder.string());
    return folder;
}

} // namespace ornivane
