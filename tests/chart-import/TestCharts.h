#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "chart-import/ChartImport.h"
#include "chart-import/PosixChildPrograms.h"
#include "support/TemporaryFolder.h"

namespace ornivane {

struct PicturePoint {
    double X = 0, Y = 0;
};

// A picture with dark dots where the lines of a grid would cross, so that their middles can be measured.
struct DottedPicture {
    int Width = 1200, Height = 900;
    static constexpr int Spacing = 100, Radius = 5;

    std::vector<PicturePoint> Crossings() const; // pixels, their corners being whole
    int Shade(int x, int y) const;               // 0 to 255
    void WritePnm(const std::filesystem::path& file) const;
    // BSB/KAP: runs of palette numbers. The corners' longitudes and latitudes, in Mercator's projection.
    void WriteKap(const std::filesystem::path& file, const DegreeBox& box) const;
    void WriteOziMap(const std::filesystem::path& file, const std::string& image, const DegreeBox& box) const;
};

// A folder of charts, and GDAL's programs to make what is imported.
class TestCharts {
public:
    TestCharts() { std::filesystem::create_directories(Charts()); }

    static bool GdalIsInstalled();
    std::filesystem::path Charts() const { return Folder.Path() / "Karten"; }
    std::filesystem::path At(const std::string& name) const { return Folder.Path() / name; }
    // A test failure when it does not work.
    std::string Gdal(const std::string& program, std::vector<std::string> arguments,
                     const std::string& input = {});
    bool HasDriver(const std::string& name); // that writes
    ImportOrder OrderOf(const std::filesystem::path& file) const;
    Imported<ImportedChart> Import(const ImportOrder& order);

    TemporaryFolder Folder;
    PosixChildPrograms Programs;
};

// The shades of an image, row by row.
struct Shades {
    ImageExtent Extent;
    std::vector<std::uint8_t> Values;

    int At(int x, int y) const;
    static Shades Of(const std::filesystem::path& image);
};

// The middle of the dark dot near a point, by the weights of its pixels; far away when there is none.
PicturePoint MiddleOfDot(const Shades& shades, const PicturePoint& near, int reach);

// How far a dot lies from its place, in pixels.
struct CrossingErrors {
    double Mean = 0, Worst = 0;
};
CrossingErrors ErrorsOf(const ImportedSheet& sheet, const std::vector<PicturePoint>& degrees);

} // namespace ornivane
