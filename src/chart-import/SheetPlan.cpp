#include "chart-import/SheetPlan.h"

#include <algorithm>
#include <cmath>

namespace ornivane {

namespace {

constexpr double Slack = 1e-3; // of a tenth: edges that are whole but for what computing left of them
constexpr int SharedPart = 20;
constexpr int MostSheets = 400;

const TenthBox Earth{-90 * TenthsPerDegree, 90 * TenthsPerDegree, -180 * TenthsPerDegree,
                     180 * TenthsPerDegree};

int Clamped(double tenths) { return static_cast<int>(std::clamp(tenths, -1e6, 1e6)); }
int Below(double degrees) { return Clamped(std::floor(degrees * TenthsPerDegree + Slack)); }
int Above(double degrees) { return Clamped(std::ceil(degrees * TenthsPerDegree - Slack)); }

int FloorDivide(int a, int b) { return a >= 0 ? a / b : -((-a + b - 1) / b); }

// Whole degrees below, and the rest as minutes / 100, for both hemispheres.
double StoredTenths(int tenths) {
    const int degrees = FloorDivide(tenths, TenthsPerDegree);
    return (degrees * 1000 + (tenths - degrees * TenthsPerDegree)) / 1000.0;
}

// A side cut into pieces of equal length.
struct Pieces {
    std::vector<int> Starts; // tenths from the beginning of the side
    int Tenths = 0;          // of each piece
    int Pixels = 0;
};

int PixelsOf(int tenths, double pixelsPerTenth) {
    return std::max(1, static_cast<int>(std::ceil(tenths * pixelsPerTenth - 0.01)));
}

std::optional<Pieces> Cut(int tenths, double degreesPerPixel, int mostPixels) {
    const double pixelsPerTenth = 1 / (degreesPerPixel * TenthsPerDegree);
    const double most = mostPixels / pixelsPerTenth;
    if (!(most >= 2)) return std::nullopt; // also when it is no number
    if (tenths <= most) return Pieces{{0}, tenths, PixelsOf(tenths, pixelsPerTenth)};
    const int longest = static_cast<int>(most), shared = std::max(1, longest / SharedPart);
    const int count = (tenths - shared + longest - shared - 1) / (longest - shared);
    if (count > MostSheets) return std::nullopt;
    Pieces pieces;
    pieces.Tenths = (tenths + (count - 1) * shared + count - 1) / count;
    pieces.Pixels = PixelsOf(pieces.Tenths, pixelsPerTenth);
    for (int i = 0; i < count; ++i) pieces.Starts.push_back(i * (tenths - pieces.Tenths) / (count - 1));
    return pieces;
}

} // namespace

TenthBox TenthBox::Within(const TenthBox& other) const {
    return {std::max(South, other.South), std::min(North, other.North), std::max(West, other.West),
            std::min(East, other.East)};
}

DegreeBox TenthBox::Degrees() const {
    const auto degrees = [](int tenths) { return static_cast<double>(tenths) / TenthsPerDegree; };
    return {degrees(South), degrees(North), degrees(West), degrees(East)};
}

std::array<double, 4> TenthBox::Stored() const {
    return {StoredTenths(South), StoredTenths(North), StoredTenths(West), StoredTenths(East)};
}

TenthBox RoundedOutwards(const DegreeBox& box) {
    return TenthBox{Below(box.South), Above(box.North), Below(box.West), Above(box.East)}.Within(Earth);
}

TenthBox RoundedInwards(const DegreeBox& box) {
    return TenthBox{Above(box.South), Below(box.North), Above(box.West), Below(box.East)}.Within(Earth);
}

std::int64_t SheetPlan::Pixels() const {
    std::int64_t sum = 0;
    for (const Sheet& sheet : Sheets) sum += sheet.Extent.Pixels();
    return sum;
}

std::int64_t SheetPlan::LargestPixels() const {
    std::int64_t most = 0;
    for (const Sheet& sheet : Sheets) most = std::max(most, sheet.Extent.Pixels());
    return most;
}

std::string SheetPlan::NameOf(const Sheet& sheet, const std::string& chart) const {
    if (Sheets.size() == 1) return chart;
    return chart + ' ' + std::to_string(sheet.Row) + '-' + std::to_string(sheet.Column);
}

Imported<SheetPlan> PlanSheets(const TenthBox& box, const PixelDegrees& pixel, int mostPixels) {
    const auto across = Cut(box.East - box.West, pixel.Across, mostPixels);
    const auto down = Cut(box.North - box.South, pixel.Down, mostPixels);
    if (!across || !down || across->Starts.size() * down->Starts.size() > MostSheets)
        return ImportFailure{ImportFault::TooFine, {}};
    SheetPlan plan;
    plan.Rows = static_cast<int>(down->Starts.size());
    plan.Columns = static_cast<int>(across->Starts.size());
    for (int row = 0; row < plan.Rows; ++row)
        for (int column = 0; column < plan.Columns; ++column) {
            const int north = box.North - down->Starts[static_cast<std::size_t>(row)];
            const int west = box.West + across->Starts[static_cast<std::size_t>(column)];
            plan.Sheets.push_back({{north - down->Tenths, north, west, west + across->Tenths},
                                   {across->Pixels, down->Pixels},
                                   row + 1,
                                   column + 1});
        }
    return plan;
}

} // namespace ornivane
