#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "chart-import/ChartImport.h"

namespace ornivane {

// The call of chart-import. The order lacks its folder of charts, and its name when none was given.
struct ChartImportOptions {
    std::filesystem::path Program; // the folder of stores and charts
    ImportOrder Order;
    bool Replace = false;

    static const char* Usage();
    // Empty when the call is wrong.
    static std::optional<ChartImportOptions> Parse(const std::vector<std::string_view>& arguments);
};

} // namespace ornivane
