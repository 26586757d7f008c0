#include "calibration/ImportedCharts.h"

#include "base/AtomicFile.h"
#include "base/RuntimeError.h"
#include "base/Strings.h"
#include "calibration/ChartFolder.h"
#include "map/ChartFiles.h"
#include "map/MapCatalogue.h"
#include "platform/PictureFormats.h"

namespace ornivane {

namespace {

namespace fs = std::filesystem;

// The side files have the names of the images but for the last three characters.
std::string WithoutEnding(const std::string& name) { return name.substr(0, name.size() - 3); }

// A row of the old image must never stand beside the new one: its frame would be another's.
void DropRows(const ImportedChart& chart, Connection& dataConn, Recordset& all) {
    Transaction together(dataConn);
    for (const ImportedSheet& sheet : chart.Sheets)
        while (MapCatalogue::StandOn(all, sheet.Name)) all.Delete();
    together.Commit();
}

struct Placed {
    fs::path Image;
    bool IsNew = false;
};

} // namespace

std::optional<std::string> TakenBy(const fs::path& charts, Connection& dataConn, const std::string& image) {
    if (FindFileIgnoringCase(charts, image)) return image;
    for (const PictureFormat& format : PictureFormats) {
        const std::string other = WithoutEnding(image) + format.Ending;
        if (FindFileIgnoringCase(charts, other)) return other;
    }
    // The settings of the catalogue would be its side file.
    if (LowerAscii(WithoutEnding(image)) == "latdata.") return "LatData.crm";
    Recordset all;
    MapCatalogue(dataConn).OpenAll(all);
    if (MapCatalogue::StandOn(all, image)) return image;
    return std::nullopt;
}

bool IsInTheWay(const std::string& taken, const std::string& image, Replacing replacing) {
    return replacing == Replacing::No || LowerAscii(taken) != LowerAscii(image);
}

void EnterChart(const ImportedChart& chart, const fs::path& charts, Connection& dataConn) {
    Recordset all;
    MapCatalogue(dataConn).OpenAll(all);
    DropRows(chart, dataConn, all);
    std::vector<Placed> placed;
    const auto place = [&] {
        for (const ImportedSheet& sheet : chart.Sheets) {
            const auto there = FindFileIgnoringCase(charts, sheet.Name);
            placed.push_back({there.value_or(charts / sheet.Name), !there});
            WriteSideFile(charts, sheet.Name, sheet.Box.Stored());
            ReplaceFile(sheet.File, placed.back().Image);
        }
        Transaction together(dataConn);
        for (const ImportedSheet& sheet : chart.Sheets)
            MapCatalogue::Write(all,
                                {sheet.Name, sheet.Box.Stored(),
                                 MapCatalogue::Entry::Pixels{static_cast<double>(sheet.Extent.Width),
                                                             static_cast<double>(sheet.Extent.Height)}},
                                MapCatalogue::Tick::Keep);
        together.Commit();
    };
    RestoreOnError(place, [&] {
        std::error_code ignored;
        for (const Placed& each : placed) {
            if (!each.IsNew) continue;
            fs::remove(each.Image, ignored);
            fs::remove(WithoutEnding(each.Image.string()) + "crm", ignored);
        }
    });
}

} // namespace ornivane
