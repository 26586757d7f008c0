#include "chart-import/ChartImport.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include "base/FileNames.h"
#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "base/Strings.h"
#include "chart-import/GdalProgress.h"
#include "chart-import/JpegFile.h"
#include "chart-import/PreparedSource.h"

namespace ornivane {

namespace {

namespace fs = std::filesystem;

constexpr double MetresPerDegree = 60 * 1852;
constexpr double WarpShare = 0.8;         // of the time of a sheet; the rest is its encoding
constexpr std::uint64_t BytesOfPixel = 3; // of the BMP
constexpr std::uint64_t HeaderBytes = 1 << 20;
constexpr std::uint64_t FreeBytes = 256 << 20; // stay for stores and tracks

ImportFailure About(const fs::path& file, const ImportFailure& failure) {
    const std::string name = Shortened(DecodeText(file.filename().string()), 100);
    return {failure.Kind, failure.Detail.empty() ? name : name + ": " + failure.Detail};
}

std::map<std::string, std::string> SettingsOf(const ImportOrder& order) {
    if (order.Dpi == 0) return {};
    return {{"GDAL_PDF_DPI", std::to_string(order.Dpi)}};
}

// One run of an import.
class Work {
public:
    Work(ChildPrograms& programs, const ImportOrder& of, const fs::path& scratch, const std::stop_token& stop,
         const ChartImport::Progress& told)
        : gdal(programs, scratch, stop, SettingsOf(of)), order(of), folder(scratch), stopping(stop),
          progress(told) {}

    Imported<SheetPlan> Plan() {
        for (const fs::path& file : order.Files) {
            const auto source = PrepareSource(gdal, order, file, folder, sources.size());
            if (!source) return About(file, source.Why());
            sources.push_back(*source);
        }
        return PlanSheets();
    }
    ImportOutcome CheckSpace(const SheetPlan& plan) const {
        std::error_code failed;
        const auto space = fs::space(folder, failed);
        // A JPEG takes a byte for a pixel at worst, and the BMP of one sheet is there at a time.
        const std::uint64_t needed = static_cast<std::uint64_t>(plan.LargestPixels()) * BytesOfPixel +
                                     static_cast<std::uint64_t>(plan.Pixels()) + FreeBytes;
        if (failed || space.available >= needed) return std::nullopt;
        return ImportFailure{ImportFault::DiskFull, std::to_string(needed >> 20) + " MB"};
    }
    Imported<ImportedSheet> Make(const Sheet& sheet, const std::string& name, double begin, double share) {
        const std::string place = std::to_string(sheet.Row) + '-' + std::to_string(sheet.Column);
        const fs::path bmp = folder / "sheet.bmp", jpeg = folder / (place + ".jpg");
        if (const auto failure = Warp(sheet, bmp, begin, share * WarpShare)) return *failure;
        const auto encoded = EncodeJpeg(bmp, sheet.Extent, jpeg, stopping, [&](double done) {
            Tell(begin + share * (WarpShare + done * (1 - WarpShare)));
        });
        std::error_code ignored;
        fs::remove(bmp, ignored);
        if (!encoded) return encoded.Why();
        if (encoded->HasBlackAreas && !order.BlackIsMeant) return ImportFailure{ImportFault::BlackAreas, {}};
        whitePixels += encoded->WhiteShare * static_cast<double>(sheet.Extent.Pixels());
        return ImportedSheet{name + ".jpg", jpeg, sheet.Box, sheet.Extent};
    }
    double WhitePixels() const { return whitePixels; }

private:
    Imported<SheetPlan> PlanSheets() const {
        TenthBox box = RoundedOutwards(sources.front().Place.Box);
        PixelDegrees pixel = sources.front().Place.Pixel;
        for (const PreparedSource& source : sources) {
            const TenthBox more = RoundedOutwards(source.Place.Box);
            box = {std::min(box.South, more.South), std::max(box.North, more.North),
                   std::min(box.West, more.West), std::max(box.East, more.East)};
            pixel = {std::min(pixel.Across, source.Place.Pixel.Across),
                     std::min(pixel.Down, source.Place.Pixel.Down)};
        }
        if (order.CutDegrees) box = box.Within(RoundedInwards(*order.CutDegrees));
        if (box.IsEmpty()) return ImportFailure{ImportFault::OutsideCut, {}};
        const DegreeBox degrees = box.Degrees();
        const double middle = (degrees.South + degrees.North) / 2 * std::acos(-1) / 180;
        pixel.Down = std::max(pixel.Down, order.LeastMetresPerPixel / MetresPerDegree);
        pixel.Across =
            std::max(pixel.Across, order.LeastMetresPerPixel / (MetresPerDegree * std::cos(middle)));
        return ornivane::PlanSheets(box, pixel, order.MostPixels);
    }
    ImportOutcome Warp(const Sheet& sheet, const fs::path& bmp, double begin, double share) const {
        GdalPrograms::Call call{"gdalwarp", Arguments(sheet, bmp), {}, order.Limits};
        call.Limits.FileBytes = HeaderBytes + (BytesOfPixel * static_cast<unsigned>(sheet.Extent.Width) + 3) *
                                                  static_cast<unsigned>(sheet.Extent.Height);
        GdalProgress heard;
        const auto listen = [&](std::string_view bytes) {
            heard.Hear(bytes);
            Tell(begin + share * heard.Share());
        };
        const auto done = gdal.Run(call, ImportFault::Damaged, listen);
        return done ? std::nullopt : ImportOutcome(done.Why());
    }
    std::vector<std::string> Arguments(const Sheet& sheet, const fs::path& bmp) const {
        const DegreeBox box = sheet.Box.Degrees();
        std::vector<std::string> arguments{"-t_srs",
                                           "EPSG:4326",
                                           "-of",
                                           "BMP",
                                           "-r",
                                           "cubic",
                                           "-et",
                                           "0.02",
                                           "-wm",
                                           "128",
                                           "-wo",
                                           "INIT_DEST=255",
                                           "-wo",
                                           "NUM_THREADS=2",
                                           "-nomd",
                                           "-te",
                                           NumberText(box.West),
                                           NumberText(box.South),
                                           NumberText(box.East),
                                           NumberText(box.North),
                                           "-ts",
                                           std::to_string(sheet.Extent.Width),
                                           std::to_string(sheet.Extent.Height)};
        // What is no data shall be white in the picture; a channel alone can have the value by chance.
        const bool noData = std::any_of(sources.begin(), sources.end(),
                                        [](const PreparedSource& source) { return source.HasNoData; });
        if (noData) arguments.insert(arguments.end(), {"-wo", "UNIFIED_SRC_NODATA=YES", "-dstnodata", "255"});
        for (const PreparedSource& source : sources) arguments.push_back(source.Vrt.string());
        arguments.push_back(bmp.string());
        return arguments;
    }
    void Tell(double share) const {
        if (progress) progress(std::clamp(share, 0.0, 1.0));
    }

    GdalPrograms gdal;
    const ImportOrder& order;
    fs::path folder;
    std::stop_token stopping;
    const ChartImport::Progress& progress;
    std::vector<PreparedSource> sources;
    double whitePixels = 0;
};

} // namespace

std::string ChartNameOf(const fs::path& file) {
    std::string name = DecodeText(file.stem().string());
    for (char& c : name)
        if (static_cast<unsigned char>(c) < ' ' || c == 0x7F || c == '\\') c = '_';
    while (name.starts_with('.') || name.starts_with(' ')) name.erase(0, 1);
    return IsFileName(name) ? name : std::string();
}

Imported<ImportedChart> ChartImport::Run(const ImportOrder& order, const std::stop_token& stop) const {
    if (order.Files.empty()) return ImportFailure{ImportFault::NotThere, {}};
    auto folder = ImportFolder::Make(order.ChartsFolder);
    if (!folder) return folder.Why();
    Work work(programs, order, folder->Path(), stop, progress);
    const auto plan = work.Plan();
    if (!plan) return plan.Why();
    if (const auto failure = work.CheckSpace(*plan)) return *failure;
    ImportedChart chart{std::move(*folder), {}, 0};
    double done = 0;
    for (const Sheet& sheet : plan->Sheets) {
        const double share = static_cast<double>(sheet.Extent.Pixels()) / static_cast<double>(plan->Pixels());
        const auto made = work.Make(sheet, plan->NameOf(sheet, order.Name), done, share);
        if (!made) return made.Why();
        chart.Sheets.push_back(*made);
        done += share;
    }
    chart.WhiteShare = work.WhitePixels() / static_cast<double>(plan->Pixels());
    if (chart.WhiteShare >= 1) return ImportFailure{ImportFault::Damaged, "blank"};
    return chart;
}

} // namespace ornivane
