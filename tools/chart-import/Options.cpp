#include "chart-import/Options.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

#include "base/Numbers.h"
#include "base/Strings.h"

namespace ornivane {

namespace {

using Taking = std::function<bool(const std::string&)>;

// Four numbers between commas.
std::optional<std::array<double, 4>> FourNumbers(const std::string& text) {
    const auto pieces = Split(text, ",");
    std::array<double, 4> numbers{};
    if (pieces.size() != numbers.size()) return std::nullopt;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const auto number = ParsePlainNumber(pieces[i]);
        if (!number) return std::nullopt;
        numbers[i] = *number;
    }
    return numbers;
}

std::optional<int> WholeNumber(const std::string& text, int most) {
    const auto number = ParsePlainNumber(text);
    if (!number || *number < 1 || *number > most || *number != Int(*number)) return std::nullopt;
    return static_cast<int>(*number);
}

bool TakeCut(const std::string& text, ImportOrder& order) {
    const auto box = FourNumbers(text);
    if (!box) return false;
    const auto [west, south, east, north] = *box;
    order.CutDegrees = DegreeBox{south, north, west, east};
    return south < north && west < east && std::abs(south) <= 90 && std::abs(north) <= 90 &&
           std::abs(west) <= 180 && std::abs(east) <= 180;
}

bool TakePixelCut(const std::string& text, ImportOrder& order) {
    const auto box = FourNumbers(text);
    if (!box ||
        std::any_of(box->begin(), box->end(), [](double n) { return n < 0 || n > 1e9 || n != Int(n); }))
        return false;
    const auto whole = [&box](std::size_t i) { return static_cast<int>((*box)[i]); };
    order.CutPixels = PixelBox{whole(0), whole(1), whole(2), whole(3)};
    return order.CutPixels->Width > 0 && order.CutPixels->Height > 0;
}

// Takes the value of an option; empty for one that is not known.
Taking TakerOf(std::string_view option, ImportOrder& order) {
    const auto number = [](int& to, int most) {
        return [&to, most](const std::string& text) {
            const auto value = WholeNumber(text, most);
            if (value) to = *value;
            return value.has_value();
        };
    };
    if (option == "--name")
        return [&order](const std::string& text) { return order.Name = text, !text.empty(); };
    if (option == "--projection")
        return [&order](const std::string& text) { return order.Projection = text, !text.empty(); };
    if (option == "--cut") return [&order](const std::string& text) { return TakeCut(text, order); };
    if (option == "--cut-pixels")
        return [&order](const std::string& text) { return TakePixelCut(text, order); };
    if (option == "--dpi") return number(order.Dpi, 2400);
    if (option == "--part") return number(order.Part, 100000);
    if (option == "--metres-per-pixel")
        return [&order](const std::string& text) {
            order.LeastMetresPerPixel = ParsePlainNumber(text).value_or(0);
            return order.LeastMetresPerPixel > 0;
        };
    if (option == "--minutes")
        return [&order](const std::string& text) {
            const auto minutes = WholeNumber(text, 10000);
            if (minutes) order.Limits.Total = std::chrono::minutes(*minutes);
            return minutes.has_value();
        };
    if (option == "--memory")
        return [&order](const std::string& text) {
            const auto megabytes = WholeNumber(text, 1 << 20);
            if (megabytes) order.Limits.MemoryBytes = static_cast<std::uint64_t>(*megabytes) << 20;
            return megabytes.has_value();
        };
    return {};
}

} // namespace

const char* ChartImportOptions::Usage() {
    return "chart-import [OPTION...] [--] FOLDER FILE...\n"
           "Makes a chart of one or more files for the program in FOLDER: a north-up JPEG in FOLDER/Karten, "
           "the\n"
           "text file beside it, and its row in FOLDER/data.ovd, not ticked. Takes GeoTIFF, COG, GeoPDF, "
           "MBTiles,\n"
           "BSB/KAP, GeoPackage, JPEG 2000, Ozi .map, and PNG or JPG with a world file. Needs the package\n"
           "gdal-bin. A chart of more than 32767 pixels a side becomes several, which overlap.\n"
           "  --name NAME             of the chart; otherwise that of the first file\n"
           "  --projection EPSG:N     of files that do not tell theirs\n"
           "  --cut W,S,E,N           only this box, in decimal degrees, rounded to tenths of minutes\n"
           "  --cut-pixels X,Y,W,H    only this box of each file, in its pixels from the upper left corner\n"
           "  --metres-per-pixel M    no finer than this\n"
           "  --dpi N                 at which a PDF becomes an image\n"
           "  --part N                which chart of a file with several, from 1\n"
           "  --black-is-meant        the black areas are no damage, but the chart's border\n"
           "  --replace               a chart of the same name may be there\n"
           "  --minutes N, --memory N limits for GDAL's programs: minutes (360), megabytes (4096)\n"
           "Exit status: 0 the chart is there, 2 wrong call, 3 nothing was written.\n";
}

std::optional<ChartImportOptions> ChartImportOptions::Parse(const std::vector<std::string_view>& arguments) {
    ChartImportOptions options;
    std::vector<std::filesystem::path> places;
    bool onlyPlaces = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view argument = arguments[i];
        if (onlyPlaces || !argument.starts_with("-")) {
            places.emplace_back(argument);
        } else if (argument == "--") {
            onlyPlaces = true;
        } else if (argument == "--black-is-meant") {
            options.Order.BlackIsMeant = true;
        } else if (argument == "--replace") {
            options.Replace = true;
        } else {
            const Taking take = TakerOf(argument, options.Order);
            if (!take || i + 1 == arguments.size() || !take(std::string(arguments[++i]))) return std::nullopt;
        }
    }
    if (places.size() < 2) return std::nullopt;
    options.Program = places.front();
    options.Order.Files.assign(places.begin() + 1, places.end());
    return options;
}

} // namespace ornivane
