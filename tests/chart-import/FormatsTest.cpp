// Every format from one picture: the crossings of its grid are measured where they came to lie.

#include <cstdio>
#include <functional>

#include <gmock/gmock.h>

#include "TestCharts.h"
#include "base/Numbers.h"
#include "base/Strings.h"

namespace {

using namespace ornivane;
using Arguments = std::vector<std::string>;

constexpr const char* Lambert = "+proj=lcc +lat_1=49 +lat_2=53 +lat_0=51 +lon_0=10.5 +ellps=WGS84 +units=m";

// Where the picture is put: a projection and its left, upper, right and lower edge in it.
struct Place {
    std::string Projection;
    std::array<double, 4> Edges;
};

const Place Degrees{"EPSG:4326", {7.0123, 51.2345, 7.6123, 50.8745}};
const Place Utm{"EPSG:32632", {290000, 5680000, 350000, 5635000}}; // two degrees off its meridian
const Place Conic{Lambert, {-420000, 60000, -360000, 15000}};      // turned by five degrees
const Place Web{"EPSG:3857", {780000, 6660000, 846000, 6610500}};

class Formats : public testing::Test, protected TestCharts {
protected:
    void SetUp() override {
        if (!GdalIsInstalled()) GTEST_SKIP() << "gdal-bin is not installed";
        Picture.WritePnm(At("dots.ppm"));
    }
    std::string Made(const Place& place, const std::string& name, const Arguments& how) {
        Arguments arguments{"-q", "-a_srs", place.Projection, "-a_ullr"};
        for (const double edge : place.Edges) arguments.push_back(NumberText(edge));
        arguments.insert(arguments.end(), how.begin(), how.end());
        arguments.insert(arguments.end(), {At("dots.ppm").string(), At(name).string()});
        Gdal("gdal_translate", arguments);
        return name;
    }
    // Longitudes and latitudes of the crossings, by the projection alone.
    std::vector<PicturePoint> Truth(const Place& place) {
        const auto [left, top, right, bottom] = place.Edges;
        std::string questions;
        for (const PicturePoint& at : Picture.Crossings())
            questions += NumberText(left + at.X / Picture.Width * (right - left)) + ' ' +
                         NumberText(top + at.Y / Picture.Height * (bottom - top)) + '\n';
        std::vector<PicturePoint> truth;
        for (const std::string& line :
             Split(Gdal("gdaltransform", {"-output_xy", "-s_srs", place.Projection, "-t_srs", "EPSG:4326"},
                        questions),
                   "\n"))
            if (PicturePoint at; std::sscanf(line.c_str(), "%lf %lf", &at.X, &at.Y) == 2) truth.push_back(at);
        EXPECT_EQ(truth.size(), Picture.Crossings().size());
        return truth;
    }
    void Measure(const std::string& format, const Place& place, const ImportOrder& order,
                 double pixelsOfSource = 1) {
        const auto chart = Import(order);
        ASSERT_TRUE(chart) << format << ": " << ImportFailureText(Language::English(), chart.Why());
        ASSERT_EQ(chart->Sheets.size(), 1u);
        const auto [mean, worst] = ErrorsOf(chart->Sheets.front(), Truth(place));
        std::printf("| %-28s | %5d x %-5d | %6.3f | %6.3f |\n", format.c_str(),
                    chart->Sheets.front().Extent.Width, chart->Sheets.front().Extent.Height,
                    mean / pixelsOfSource, worst / pixelsOfSource);
        EXPECT_LT(worst / pixelsOfSource, 1) << format;
    }
    void Measure(const std::string& format, const Place& place, const std::string& name) {
        Measure(format, place, OrderOf(At(name)));
    }
    static DegreeBox BoxOf(const Place& place) {
        return {place.Edges[3], place.Edges[1], place.Edges[0], place.Edges[2]};
    }

    DottedPicture Picture;
};

TEST_F(Formats, GeoTiffsOfSeveralProjectionsKeepTheirCrossings) {
    Measure("GeoTIFF, degrees", Degrees, Made(Degrees, "degrees.tif", {}));
    Measure("GeoTIFF, UTM", Utm, Made(Utm, "utm.tif", {"-co", "COMPRESS=DEFLATE"}));
    Measure("GeoTIFF, Lambert", Conic,
            Made(Conic, "lambert.tif", {"-co", "COMPRESS=JPEG", "-co", "TILED=YES"}));
    Measure("GeoTIFF, UTM, grey", Utm, Made(Utm, "grey.tif", {"-b", "1"}));
    Measure("COG, Lambert", Conic, Made(Conic, "cog.tif", {"-of", "COG"}));
}

TEST_F(Formats, TilesOfDatabasesKeepTheirCrossings) {
    Measure("MBTiles", Web, Made(Web, "dots.mbtiles", {"-of", "MBTiles"}));
    Measure("GeoPackage", Utm, Made(Utm, "dots.gpkg", {"-of", "GPKG"}));
}

TEST_F(Formats, Jpeg2000AndPdfKeepTheirCrossings) {
    if (HasDriver("JP2OpenJPEG")) Measure("JPEG 2000", Utm, Made(Utm, "dots.jp2", {"-of", "JP2OpenJPEG"}));
    if (!HasDriver("PDF")) return;
    // The renderer stretches an image on a page by up to a pixel of its own to whole ones: half a pixel of
    // the source at twice the source's resolution.
    ImportOrder order = OrderOf(At(Made(Utm, "dots.pdf", {"-of", "PDF"})));
    order.Dpi = 144;
    Measure("GeoPDF, in the source's pixels", Utm, order, 2);
}

TEST_F(Formats, KapAndOziKeepTheirCrossings) {
    // A KAP is a straight picture in Mercator's projection: its place is that of the web's in degrees.
    const std::string corners =
        Gdal("gdaltransform", {"-output_xy", "-s_srs", "EPSG:3395", "-t_srs", "EPSG:4326"},
             "780000 6630000\n846000 6580500\n");
    DegreeBox box;
    ASSERT_EQ(std::sscanf(corners.c_str(), "%lf %lf %lf %lf", &box.West, &box.North, &box.East, &box.South),
              4);
    Picture.WriteKap(At("dots.kap"), box);
    Measure("BSB/KAP, Mercator", {"EPSG:3395", {780000, 6630000, 846000, 6580500}}, "dots.kap");
    Made(Degrees, "image.png", {"-of", "PNG"});
    Picture.WriteOziMap(At("dots.map"), "image.png", BoxOf(Degrees));
    Measure("Ozi .map", Degrees, "dots.map");
}

TEST_F(Formats, AWorldFileNeedsItsProjection) {
    for (const auto& [format, name] : {std::pair{"PNG", "world.png"}, std::pair{"JPEG", "world.jpg"}}) {
        Made(Utm, name, {"-of", format, "-co", "WORLDFILE=YES"});
        std::filesystem::rename(At("world.wld"),
                                At(format == std::string("PNG") ? "world.pgw" : "world.jgw"));
        ImportOrder order = OrderOf(At(name));
        EXPECT_EQ(Import(order).Why().Kind, ImportFault::ProjectionNeeded);
        for (const char* wrong : {"EPSG:999999", "/etc/passwd", "http://127.0.0.1/x", "EPSG:32632;"}) {
            order.Projection = wrong;
            EXPECT_EQ(Import(order).Why().Kind, ImportFault::WrongProjection) << wrong;
        }
        order.Projection = Utm.Projection;
        Measure(std::string(format) + " with a world file", Utm, order);
    }
    EXPECT_EQ(Import(OrderOf(At("dots.ppm"))).Why().Kind,
              ImportFault::NotAChart); // a format that is not taken
    Gdal("gdal_translate", {"-q", "-of", "PNG", At("dots.ppm").string(), At("plain.png").string()});
    EXPECT_EQ(Import(OrderOf(At("plain.png"))).Why().Kind, ImportFault::NoPlace);
}

TEST_F(Formats, PalettesGreyAndNoDataBecomeColoursOnWhite) {
    Made(Utm, "rgb.tif", {});
    Gdal("gdal_translate", {"-q", "-b", "1", "-b", "2", "-b", "3", "-a_nodata", "20", At("rgb.tif").string(),
                            At("nodata.tif").string()});
    const auto chart = Import(OrderOf(At("nodata.tif"))); // the dots are no data
    ASSERT_TRUE(chart) << ImportFailureText(Language::English(), chart.Why());
    const Shades shades = Shades::Of(chart->Sheets.front().File);
    EXPECT_GT(*std::min_element(shades.Values.begin(), shades.Values.end()), 200);
    EXPECT_EQ(shades.At(0, 0), 255); // beside the chart

    Picture.WriteKap(At("palette.kap"), BoxOf(Degrees));
    Gdal("gdal_translate", {"-q", "-a_nodata", "1", At("palette.kap").string(), At("palette.tif").string()});
    const auto palette = Import(OrderOf(At("palette.tif")));
    ASSERT_TRUE(palette) << ImportFailureText(Language::English(), palette.Why());
    const Shades colours = Shades::Of(palette->Sheets.front().File);
    const DegreeBox box = palette->Sheets.front().Box.Degrees();
    const auto shadeAt = [&](double x, double y) { // pixels of the source
        const double longitude = 7.0123 + x / Picture.Width * 0.6,
                     latitude = 51.2345 - y / Picture.Height * 0.36;
        return colours.At(
            static_cast<int>((longitude - box.West) / (box.East - box.West) * colours.Extent.Width),
            static_cast<int>((box.North - latitude) / (box.North - box.South) * colours.Extent.Height));
    };
    // One of the two colours was no data.
    EXPECT_NE(shadeAt(650, 450) >= 250, shadeAt(600.5, 400.5) >= 250);
}

TEST_F(Formats, NeighboursOfTwoProjectionsBecomeOneChart) {
    const Place east{"EPSG:32633", {-45000, 5690000, 15000, 5645000}};
    Made(Utm, "west.tif", {});
    Made(east, "east.tif", {});
    ImportOrder order = OrderOf(At("west.tif"));
    order.Files.push_back(At("east.tif"));
    const auto chart = Import(order);
    ASSERT_TRUE(chart) << ImportFailureText(Language::English(), chart.Why());
    EXPECT_LT(ErrorsOf(chart->Sheets.front(), Truth(Utm)).Worst, 1);
    EXPECT_LT(ErrorsOf(chart->Sheets.front(), Truth(east)).Worst, 1);
}

TEST_F(Formats, CutsAndSheetsHaveFramesOfTheirOwn) {
    Made(Degrees, "degrees.tif", {});
    ImportOrder order = OrderOf(At("degrees.tif"));
    order.CutDegrees = DegreeBox{50.95, 51.1501, 7.1, 7.4};
    const auto cut = Import(order);
    ASSERT_TRUE(cut);
    EXPECT_EQ(cut->Sheets.front().Box, (TenthBox{30570, 30690, 4260, 4440}));
    order = OrderOf(At("degrees.tif"));
    order.CutPixels = PixelBox{100, 100, 600, 450};
    const auto pixels = Import(order);
    ASSERT_TRUE(pixels);
    EXPECT_EQ(pixels->Sheets.front().Box, RoundedOutwards({51.1945 - 0.18, 51.1945, 7.0623, 7.3623}));
    order = OrderOf(At("degrees.tif"));
    order.MostPixels = 500;
    const auto sheets = Import(order);
    ASSERT_TRUE(sheets) << ImportFailureText(Language::English(), sheets.Why());
    ASSERT_EQ(sheets->Sheets.size(), 6u);
    EXPECT_EQ(sheets->Sheets[5].Name, "dots 2-3.jpg");
    for (const ImportedSheet& sheet : sheets->Sheets) {
        const DegreeBox box = sheet.Box.Degrees();
        std::vector<PicturePoint> within;
        for (const PicturePoint& at : Truth(Degrees))
            if (at.X > box.West + .006 && at.X < box.East - .006 && at.Y > box.South + .005 &&
                at.Y < box.North - .005)
                within.push_back(at);
        EXPECT_GT(within.size(), 10u);
        EXPECT_LT(ErrorsOf(sheet, within).Worst, 1) << sheet.Name;
    }
    order.CutDegrees = DegreeBox{10, 11, 10, 11};
    EXPECT_EQ(Import(order).Why().Kind, ImportFault::OutsideCut);
}

TEST_F(Formats, AnyFileNameWorksAndNothingStaysBehind) {
    Made(Degrees, "degrees.tif", {});
    for (const char* name : {"-q", "--help", "it's \"here\".tif", "two\nlines.tif", "50 %s%n.tif",
                             " $(touch x);`y`&.tif", "PDF:1:x.tif", "K\xC3\xB6ln.tif", "\xFF\xFE.tif"}) {
        std::filesystem::rename(At("degrees.tif"), At(name));
        const auto chart = Import(OrderOf(At(name)));
        EXPECT_TRUE(chart) << name << ": " << ImportFailureText(Language::English(), chart.Why());
        std::filesystem::rename(At(name), At("degrees.tif"));
    }
    std::filesystem::rename(At("degrees.tif"),
                            At("<VRTDataset>.tif")); // GDAL would take the name for a chart
    EXPECT_EQ(Import(OrderOf(At("<VRTDataset>.tif"))).Why().Kind, ImportFault::NameNotTaken);
    EXPECT_TRUE(std::filesystem::is_empty(Charts()));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Folder.Path()), {}), 3); // no .aux.xml
}

} // namespace
