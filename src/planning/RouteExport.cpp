#include "planning/RouteExport.h"

#include "base/FileNames.h"
#include "base/Paths.h"
#include "base/RuntimeError.h"
#include "data/RoutePoints.h"
#include "data/Routes.h"

namespace ornivane {

namespace fs = std::filesystem;

RouteExport::RouteExport(const Language& texts, const Settings& ofProgram, Connection& dataConn,
                         Dialogs& dialogs)
    : language(texts), settings(ofProgram), data(dataConn), boxes(dialogs) {}

void RouteExport::Form_Load(const std::string& gridRouteCell) {
    Routes(data).Open(routes);
    if (routes.RecordCount() == 0) return;
    for (; !routes.Eof(); routes.MoveNext()) {
        cmbRoute.push_back(routes.TextOrEmpty("Name"));
        if (cmbRouteIndex < 0 && cmbRoute.back() == gridRouteCell)
            cmbRouteIndex = static_cast<int>(cmbRoute.size()) - 1;
    }
    lblSave = (settings.ProgramFolder / "Route" / "").string();
}

void RouteExport::cmdExport() {
    if (cmbRouteIndex < 0) throw RuntimeError(ErrorNumber::NoCurrentRecord);
    const std::string& name = cmbRoute.at(static_cast<std::size_t>(cmbRouteIndex));
    routes.MoveFirst();
    routes.Find("Name", Comparison::Equal, name);
    Recordset points;
    RoutePoints(data).Open(points, routes.Get("RouteID"));
    if (points.RecordCount() == 0) {
        boxes.Message(language.Text("Fehler in Strecke", "Route error"),
                      language.Text("Flugstrecke - %1 - enthält keine Wegpunkte...",
                                    "Route - %1 - contains no waypoints...", {name}));
        return;
    }
    CheckFileName(name);
    const fs::path file = MakeFolder() / (name + ".ovr");
    points.Save(file);
    lblSave = file.string();
    boxes.Message(language.Text("Strecke gespeichert", "Route saved"),
                  language.Text("Strecke: %1 wurde gespeichert.", "Route: %1 was saved.", {name}));
}

fs::path RouteExport::MakeFolder() const {
    fs::path folder = settings.ProgramFolder / "Route";
    std::error_code error;
    fs::create_directory(folder, error);
    if (!DirExists(folder)) throw RuntimeError(ErrorNumber::PermissionDenied, folder.string());
    return folder;
}

} // namespace ornivane
