#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "airspace-import/Airspace.h"

namespace ornivane {

// Gathers the airspaces of several files for one store and reports on each.
class Import {
public:
    // Refusals go to problems, a line each as "file:line: reason", the sum of a file to report.
    Import(std::ostream& out, std::ostream& errors);

    void Add(const std::string& file, std::string_view bytes);

    const std::vector<Airspace>& Airspaces() const { return airspaces; }
    bool AllTaken() const { return refused == 0; }

private:
    std::ostream& report;
    std::ostream& problems;
    std::vector<Airspace> airspaces;
    std::size_t refused = 0;
};

} // namespace ornivane
