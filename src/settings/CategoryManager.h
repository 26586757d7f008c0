#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "data/Waypoints.h"
#include "platform/Dialogs.h"
#include "store/Recordset.h"

namespace ornivane {

class Connection;

// Gives many waypoints a category at once.
class CategoryManager {
public:
    CategoryManager(Connection& mainStore, Dialogs& messages);

    void Form_Load();
    // The chosen category for the waypoints at these places of listWegpunkt (from 0, ascending). A name that
    // stands there twice is a waypoint only once: the first of that name gets the category. One transaction.
    void cmdZuweisen_Click(const std::vector<std::size_t>& selected);

    std::vector<std::string> listWegpunkt;  // all waypoints by name
    std::vector<std::string> listKategorie; // their categories, row by row
    std::vector<std::string> Categories;    // to choose from in cmbKategorie
    std::string cmbKategorie;               // the choice; empty for none

private:
    void FillLists();
    bool Assign(Waypoints& waypoints, const std::string& waypoint);

    Connection& dataConn;
    Dialogs& dialogs;
    Recordset waypointsSet;
};

} // namespace ornivane
