#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "chart-import/ChartImport.h"
#include "store/Connection.h"

namespace ornivane {

// Enters an imported chart into the catalogue: images and side files into the folder of charts, rows into the
// table Maps.

// What is there already under the name of an image, as an image, as its row, or as another image that would
// share its side file. Empty: the name is free.
std::optional<std::string> TakenBy(const std::filesystem::path& charts, Connection& dataConn,
                                   const std::string& image);

// May a chart be entered where there is one of its name.
enum class Replacing { No, Yes };

// Whether TakenBy is in the way: what shares the side file always is.
bool IsInTheWay(const std::string& taken, const std::string& image, Replacing replacing);

// The rows are not ticked, also those of charts that are replaced: whoever ticks them has seen them.
// RuntimeError when something cannot be written; what is new is gone again then, and a chart that was to be
// replaced may be without its row.
void EnterChart(const ImportedChart& chart, const std::filesystem::path& charts, Connection& dataConn);

} // namespace ornivane
