#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "base/Language.h"
#include "common/OpenStores.h"
#include "platform/Dialogs.h"
#include "settings/AirfieldCountries.h"
#include "store/TextOrder.h"

namespace ornivane {

// Makes waypoints of the airfields of whole countries. A waypoint gets the airfield's code as its name, by
// which the charts know it as an airfield; a name that any waypoint has already is left as it is. An airfield
// without coordinates is left out, and told of. The texts exist in German only.
class AirfieldTransfer {
public:
    AirfieldTransfer(const Language& shownIn, OpenStores& openStores, Dialogs& messages);

    void Form_Load();
    void cmbKategorie_Click(const std::string& category);
    // Places in listAP, from 0. A country is looked up by its name: of two of one name it is the first,
    // twice.
    void listAP_Click(const std::vector<std::size_t>& selected);
    // All or nothing, in one transaction. RuntimeError NoCurrentRecord while there is no waypoint at all.
    void cmdTransfer_Click(const std::vector<std::size_t>& selected);

    std::vector<std::string> Categories; // to choose from in cmbKategorie
    std::string cmbKategorie;            // the choice
    std::vector<AirfieldCountry> listAP; // by name
    std::string cmdTransfer;             // the button's caption
    std::string lblCount;

private:
    using Names = std::set<std::string, TextBefore>;

    const AirfieldCountry& Named(const std::string& name) const;
    Names WaypointNames() const;
    // The airfields whose codes begin with the prefix.
    void ImportCountry(const std::string& prefix);
    void Report();

    const Language& language;
    OpenStores& stores;
    Dialogs& dialogs;
    // Of the import that runs.
    Names taken; // names of waypoints
    int added = 0;
    std::vector<std::string> withoutPlace; // codes of airfields that have no coordinates
};

} // namespace ornivane
