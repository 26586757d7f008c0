#include "TestCharts.h"

#include <algorithm>
#include <cmath>
#include <fstream>

#include <gtest/gtest.h>

#include "base/Numbers.h"
#include "tiles/ImageRows.h"

namespace ornivane {

namespace {

constexpr int Light = 235, Dark = 20;

std::string Degrees(double value, char positive, char negative) {
    const double size = std::abs(value);
    const int whole = static_cast<int>(size);
    return std::to_string(whole) + ',' + NumberText((size - whole) * 60) + ',' +
           (value < 0 ? negative : positive);
}

// Seven bits a byte, the highest first, all but the last marked. The first has room for fewer beside a
// colour.
std::string KapNumber(unsigned value, unsigned colour = 0, int bitsOfFirst = 7) {
    std::string bytes(1, static_cast<char>(value & 0x7F));
    unsigned rest = value >> 7;
    while (rest > 0) {
        bytes.insert(bytes.begin(), static_cast<char>(0x80 | (rest & 0x7F)));
        rest >>= 7;
    }
    if (static_cast<unsigned>(bytes.front() & 0x7F) >= 1U << bitsOfFirst)
        bytes.insert(bytes.begin(), static_cast<char>(0x80));
    bytes.front() = static_cast<char>(static_cast<unsigned char>(bytes.front()) | colour << bitsOfFirst);
    return bytes;
}

} // namespace

std::vector<PicturePoint> DottedPicture::Crossings() const {
    std::vector<PicturePoint> points;
    for (int y = Spacing; y < Height; y += Spacing)
        for (int x = Spacing; x < Width; x += Spacing) points.push_back({x + 0.5, y + 0.5});
    return points;
}

int DottedPicture::Shade(int x, int y) const {
    const int column = (x + Spacing / 2) / Spacing * Spacing, row = (y + Spacing / 2) / Spacing * Spacing;
    const bool crossing = column > 0 && row > 0 && column < Width && row < Height;
    return crossing && std::hypot(x - column, y - row) <= Radius ? Dark : Light;
}

void DottedPicture::WritePnm(const std::filesystem::path& file) const {
    std::ofstream stream(file, std::ios::binary);
    stream << "P6\n" << Width << ' ' << Height << "\n255\n";
    for (int y = 0; y < Height; ++y)
        for (int x = 0; x < Width; ++x) stream << std::string(3, static_cast<char>(Shade(x, y)));
}

void DottedPicture::WriteKap(const std::filesystem::path& file, const DegreeBox& box) const {
    std::string bytes = "VER/2.0\r\nBSB/NA=Dots,NU=1,RA=" + std::to_string(Width) + ',' +
                        std::to_string(Height) +
                        ",DU=254\r\nKNP/SC=100000,GD=WGS84,PR=MERCATOR,PP=" + NumberText(box.South) +
                        ",PI=UNKNOWN,SP=UNKNOWN,SK=0.0,TA=90.0\r\n    UN=METERS,SD=UNKNOWN,DX=1,DY=1\r\n";
    int number = 0;
    for (const int y : {0, Height})
        for (const int x : {0, Width})
            bytes += "REF/" + std::to_string(++number) + ',' + std::to_string(x) + ',' + std::to_string(y) +
                     ',' + NumberText(y == 0 ? box.North : box.South) + ',' +
                     NumberText(x == 0 ? box.West : box.East) + "\r\n";
    bytes += "RGB/1,235,235,235\r\nRGB/2,20,20,20\r\nDTM/0,0\r\nIFM/2\r\n";
    bytes += std::string("\x1A\0\x02", 3);
    std::string index;
    const auto placeOf = [](std::size_t at) {
        std::string place;
        for (const int shift : {24, 16, 8, 0}) place += static_cast<char>(at >> shift);
        return place;
    };
    for (int y = 0; y < Height; ++y) {
        index += placeOf(bytes.size());
        bytes += KapNumber(static_cast<unsigned>(y) + 1);
        for (int x = 0, end = 0; x < Width; x = end) {
            while (end < Width && Shade(end, y) == Shade(x, y)) ++end;
            bytes += KapNumber(static_cast<unsigned>(end - x - 1), Shade(x, y) == Light ? 1 : 2, 5);
        }
        bytes += '\0';
    }
    index += placeOf(bytes.size());
    std::ofstream(file, std::ios::binary) << bytes << index;
}

void DottedPicture::WriteOziMap(const std::filesystem::path& file, const std::string& image,
                                const DegreeBox& box) const {
    std::ofstream stream(file, std::ios::binary);
    stream << "OziExplorer Map Data File Version 2.2\r\nDots\r\n"
           << image
           << "\r\n1 ,Map Code,\r\nWGS 84,WGS 84,   0.0000,   0.0000,WGS 84\r\nReserved 1\r\nReserved 2\r\n"
              "Magnetic Variation,,,E\r\n"
              "Map Projection,Latitude/Longitude,PolyCal,No,AutoCalOnly,No,BSBUseWPX,No\r\n";
    int number = 0;
    for (const int y : {0, Height})
        for (const int x : {0, Width})
            stream << "Point0" << ++number << ",xy," << x << ',' << y << ",in, deg,"
                   << Degrees(y == 0 ? box.North : box.South, 'N', 'S') << ','
                   << Degrees(x == 0 ? box.West : box.East, 'E', 'W') << ", grid, , , ,N\r\n";
    for (++number; number <= 30; ++number)
        stream << "Point" << (number < 10 ? "0" : "") << number << ",xy,,,in, deg,,,N,,,E, grid,,,,N\r\n";
    stream << "Projection Setup,,,,,,,,,,\r\nMap Feature = MF ; Map Comment = MC\r\nMM0,Yes\r\nMMPNUM,4\r\n";
    stream << "IWH,Map Image Width/Height," << Width << ',' << Height << "\r\n";
}

bool TestCharts::GdalIsInstalled() { return PosixChildPrograms().Find("gdalwarp").has_value(); }

std::string TestCharts::Gdal(const std::string& program, std::vector<std::string> arguments,
                             const std::string& input) {
    const ChildEnd end = Programs.Run({Programs.Find(program).value_or("/"),
                                       std::move(arguments),
                                       {"GDAL_PAM_ENABLED=NO", "PATH=/usr/bin"},
                                       input,
                                       {}},
                                      {}, {});
    EXPECT_TRUE(end.Succeeded()) << program << ": " << end.Errors;
    return end.Output;
}

bool TestCharts::HasDriver(const std::string& name) {
    return Gdal("gdalinfo", {"--format", name}).find("Supports: CreateCopy()") != std::string::npos;
}

ImportOrder TestCharts::OrderOf(const std::filesystem::path& file) const {
    ImportOrder order;
    order.Files = {file};
    order.ChartsFolder = Charts();
    order.Name = "dots";
    order.Limits.Total = std::chrono::seconds(120);
    return order;
}

Imported<ImportedChart> TestCharts::Import(const ImportOrder& order) {
    return ChartImport(Programs).Run(order, {});
}

int Shades::At(int x, int y) const {
    if (x < 0 || y < 0 || x >= Extent.Width || y >= Extent.Height) return 255;
    return Values[static_cast<std::size_t>(y) * Extent.Width + static_cast<std::size_t>(x)];
}

Shades Shades::Of(const std::filesystem::path& image) {
    Shades shades;
    const auto file = ReadOnlyFile::Open(image);
    if (!file) return shades;
    auto rows = OpenImageRows(*file);
    if (!rows) return shades;
    shades.Extent = (*rows)->Stored();
    std::vector<std::uint32_t> row(static_cast<std::size_t>(shades.Extent.Width));
    for (int y = 0; y < shades.Extent.Height; ++y) {
        EXPECT_FALSE((*rows)->Next(row.data()));
        for (const std::uint32_t pixel : row) shades.Values.push_back(pixel >> 8 & 0xFF);
    }
    return shades;
}

PicturePoint MiddleOfDot(const Shades& shades, const PicturePoint& near, int reach) {
    double weights = 0, sumX = 0, sumY = 0;
    const int middleX = static_cast<int>(near.X), middleY = static_cast<int>(near.Y);
    for (int y = middleY - reach; y <= middleY + reach; ++y)
        for (int x = middleX - reach; x <= middleX + reach; ++x) {
            const double weight = std::max(0, Light - 30 - shades.At(x, y)); // 30: what JPEG leaves around
            weights += weight;
            sumX += weight * (x + 0.5);
            sumY += weight * (y + 0.5);
        }
    if (weights < 1000) return {-1e6, -1e6};
    return {sumX / weights, sumY / weights};
}

CrossingErrors ErrorsOf(const ImportedSheet& sheet, const std::vector<PicturePoint>& degrees) {
    const Shades shades = Shades::Of(sheet.File);
    EXPECT_EQ(shades.Extent, sheet.Extent);
    const DegreeBox box = sheet.Box.Degrees();
    CrossingErrors errors;
    for (const PicturePoint& at : degrees) {
        const PicturePoint expected{(at.X - box.West) / (box.East - box.West) * sheet.Extent.Width,
                                    (box.North - at.Y) / (box.North - box.South) * sheet.Extent.Height};
        const PicturePoint found = MiddleOfDot(shades, expected, 25);
        const double error = std::hypot(found.X - expected.X, found.Y - expected.Y);
        errors.Mean += error / static_cast<double>(degrees.size());
        errors.Worst = std::max(errors.Worst, error);
    }
    return errors;
}

} // namespace ornivane
