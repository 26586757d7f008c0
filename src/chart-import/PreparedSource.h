#pragma once

#include <filesystem>

#include "chart-import/ChartImport.h"
#include "chart-import/GdalPrograms.h"
#include "chart-import/PixelPlaces.h"

namespace ornivane {

// A file made ready to be warped: a virtual copy of it in red, green and blue whose place is known.
struct PreparedSource {
    std::filesystem::path Vrt;
    PixelPlaces::Answer Place;
    bool HasNoData = false;
};

// `number` tells the files of an import apart.
Imported<PreparedSource> PrepareSource(const GdalPrograms& gdal, const ImportOrder& order,
                                       const std::filesystem::path& source,
                                       const std::filesystem::path& scratch, std::size_t number);

} // namespace ornivane
