#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include "chart-import/ChildPrograms.h"
#include "chart-import/ImportFailure.h"
#include "chart-import/ImportFolder.h"
#include "chart-import/SheetPlan.h"

namespace ornivane {

// Of the source's pixels, from its upper left corner.
struct PixelBox {
    int X = 0, Y = 0, Width = 0, Height = 0;
};

// Which chart, and how.
struct ImportOrder {
    std::vector<std::filesystem::path> Files; // become one chart
    std::filesystem::path ChartsFolder;       // where its images will be
    std::string Name;                         // of the chart; its images have it, and ".jpg"
    std::string Projection;                   // of files that tell none; empty: not known
    std::optional<PixelBox> CutPixels;        // each file is cut to it; all of them as one:
    std::optional<DegreeBox> CutDegrees;
    double LeastMetresPerPixel = 0; // a finer chart is brought down to it
    int Dpi = 0;                    // at which a PDF becomes an image; 0: as GDAL finds fit
    int Part = 0;                   // which of the charts of a file, from 1; 0: the only one
    bool BlackIsMeant = false;      // a chart with a black border; else it is taken for damaged
    int MostPixels = MostPixelsOfSide;
    ChildLimits Limits;
};

struct ImportedSheet {
    std::string Name;           // of the image, with ".jpg"
    std::filesystem::path File; // where it is now
    TenthBox Box;
    ImageExtent Extent;
};

// A chart that is whole, and not in the folder of charts yet.
struct ImportedChart {
    ImportFolder Folder; // has the files of the sheets, and goes with this
    std::vector<ImportedSheet> Sheets;
    double WhiteShare = 0; // of the whole, 0 to 1: what the files have nothing for, beside their own white
};

// The name that a chart gets from its file. Empty when nothing of it can be one.
std::string ChartNameOf(const std::filesystem::path& file);

// Makes north-up images with straight grids of charts in other formats and projections, with GDAL's programs.
class ChartImport {
public:
    using Progress = std::function<void(double share)>; // 0 to 1

    // `told` is called on the thread of Run.
    explicit ChartImport(ChildPrograms& children, Progress told = {})
        : programs(children), progress(std::move(told)) {}

    // Blocks until it is done or stopped.
    Imported<ImportedChart> Run(const ImportOrder& order, const std::stop_token& stop) const;

private:
    ChildPrograms& programs;
    Progress progress;
};

} // namespace ornivane
