// Damaged files end in an error or in the right chart, and programs that fail are told as such.

#include <cstdio>
#include <fstream>

#include <gmock/gmock.h>

#include "TestCharts.h"
#include "base/AtomicFile.h"

namespace {

using namespace ornivane;

// Answers as GDAL's programs would; the warp writes what a test wants.
class FakePrograms : public ChildPrograms {
public:
    std::optional<std::filesystem::path> Find(const std::string& name) override {
        if (name == Missing) return std::nullopt;
        return name;
    }
    ChildEnd Run(const ChildCall& call, const std::stop_token&, const Listener&) override {
        ChildEnd end{ChildEnd::How::Exited, 0, {}, {}};
        if (call.Program == "gdal_translate")
            WriteFileAtomically(call.Arguments.back(),
                                "<VRTDataset rasterXSize='64' rasterYSize='64'><SRS>x</SRS><GeoTransform/>"
                                "<VRTRasterBand dataType='Byte'/></VRTDataset>");
        if (call.Program == "gdaltransform") end.Output = Places(call.Input);
        if (call.Program == "gdalwarp") {
            if (!Bmp.empty()) std::ofstream(call.Arguments.back(), std::ios::binary) << Bmp;
            end = Warp;
        }
        return end;
    }
    // A degree of the equator for 6400 pixels.
    static std::string Places(const std::string& questions) {
        std::string answers;
        double x = 0, y = 0;
        int length = 0;
        for (const char* at = questions.c_str(); std::sscanf(at, "%lf %lf\n%n", &x, &y, &length) == 2;
             at += length)
            answers += std::to_string(7 + x / 1920) + ' ' + std::to_string(-y / 1920) + '\n';
        return answers;
    }
    std::string Missing, Bmp;
    ChildEnd Warp{ChildEnd::How::Exited, 0, {}, {}};
};

TEST(ChartImport, TellsWhatWentWrong) {
    TestCharts charts;
    WriteFileAtomically(charts.At("a.tif"), "x");
    const auto fault = [&](FakePrograms& programs) {
        const auto chart = ChartImport(programs).Run(charts.OrderOf(charts.At("a.tif")), {});
        EXPECT_TRUE(chart || std::filesystem::is_empty(charts.Charts()));
        return chart ? ImportFault::Cancelled : chart.Why().Kind;
    };
    using How = ChildEnd::How;
    const struct {
        ChildEnd Warp;
        ImportFault Expected;
    } cases[]{
        {{How::Exited, 0, {}, {}}, ImportFault::Damaged}, // and no picture
        {{How::Exited, 0, {}, "Warning 1: x\nERROR 1: short read\n"}, ImportFault::Damaged},
        {{How::Exited, 1, {}, "ERROR 3: No space left on device\n"}, ImportFault::DiskFull},
        {{How::Exited, 1, {}, "ERROR 2: Out of memory\n"}, ImportFault::TooMuchMemory},
        {{How::Signalled, 9, {}, {}}, ImportFault::TooMuchMemory},
        {{How::Signalled, 11, {}, {}}, ImportFault::Damaged},
        {{How::TookTooLong, 0, {}, {}}, ImportFault::TookTooLong},
        {{How::Stopped, 0, {}, {}}, ImportFault::Cancelled},
    };
    for (const auto& each : cases) {
        FakePrograms programs;
        programs.Warp = each.Warp;
        EXPECT_EQ(fault(programs), each.Expected) << each.Warp.Errors << each.Warp.Status;
    }
    for (const char* program : {"gdalwarp", "gdal_translate"}) {
        FakePrograms programs;
        programs.Missing = program;
        EXPECT_EQ(fault(programs), ImportFault::ProgramsMissing);
    }
    FakePrograms programs;
    programs.Bmp = std::string("BM") + std::string(100, '\0'); // a success with half a picture
    EXPECT_EQ(fault(programs), ImportFault::Damaged);
    auto order = charts.OrderOf(charts.At("missing.tif"));
    EXPECT_EQ(ChartImport(programs).Run(order, {}).Why().Kind, ImportFault::NotThere);
    EXPECT_THAT(ImportFailureText(Language::English(), {ImportFault::ProgramsMissing, {}}),
                testing::HasSubstr("gdal-bin"));
}

TEST(ChartImport, WhatAKilledImportLeftGoesWithTheNext) {
    TestCharts charts;
    std::filesystem::create_directories(charts.Charts() / ".chart-import-killed" / "x");
    auto used = ImportFolder::Make(charts.Charts());
    ASSERT_TRUE(used);
    const auto second = ImportFolder::Make(charts.Charts());
    EXPECT_TRUE(std::filesystem::exists(used->Path()));
    EXPECT_FALSE(std::filesystem::exists(charts.Charts() / ".chart-import-killed"));
}

class Damage : public testing::TestWithParam<const char*>, protected TestCharts {
protected:
    static constexpr int Ways = 10;

    // Cuts off the end, or turns bytes over in the middle, more with every way.
    static std::string Damaged(std::string bytes, int way) {
        const std::size_t length = bytes.size();
        if (way < 5) return bytes.substr(0, length * static_cast<unsigned>(way * 2 + 1) / 10);
        std::uint32_t seed = static_cast<std::uint32_t>(way) * 7919;
        for (int i = 0; i < 1 << (way - 4); ++i) {
            seed = seed * 1664525 + 1013904223;
            // Not in the first part, which has the place: a chart that says that it lies elsewhere is no
            // damage that anybody could see.
            const std::size_t at = length / 4 + seed % (length / 2);
            bytes[at] = static_cast<char>(bytes[at] ^ static_cast<char>(1 << (seed >> 28 & 7)));
        }
        return bytes;
    }
    static double ShareThatDiffers(const Shades& a, const Shades& b) {
        if (a.Extent != b.Extent) return 1;
        double differ = 0;
        for (std::size_t i = 0; i < a.Values.size(); ++i) differ += std::abs(a.Values[i] - b.Values[i]) > 60;
        return differ / static_cast<double>(a.Values.size());
    }
};

TEST_P(Damage, EndsInAnErrorOrTheRightChart) {
    if (!GdalIsInstalled()) GTEST_SKIP() << "gdal-bin is not installed";
    const std::string name = GetParam(), format = name.substr(0, name.find('.'));
    const DottedPicture picture{420, 330};
    picture.WritePnm(At("dots.ppm"));
    if (format == "KAP")
        picture.WriteKap(At(name), {50, 50.25, 7, 7.5});
    else
        Gdal("gdal_translate", {"-q", "-of", format, "-a_srs", "EPSG:3857", "-a_ullr", "780000", "6660000",
                                "801000", "6643500", At("dots.ppm").string(), At(name).string()});
    const auto whole = Import(OrderOf(At(name)));
    ASSERT_TRUE(whole) << ImportFailureText(Language::English(), whole.Why());
    const Shades right = Shades::Of(whole->Sheets.front().File);
    const std::string bytes = ReadWholeFile(At(name)).value_or("");
    // Neither keeps a sum of its pixels: turned bits decode to specks, at the right place.
    const double tolerated = format == "JP2OpenJPEG" || format == "PDF" ? 0.1 : 0.01;
    int refused = 0;
    for (int way = 0; way < Ways; ++way) {
        WriteFileAtomically(At(name), Damaged(bytes, way));
        const auto chart = Import(OrderOf(At(name)));
        if (!chart) {
            ++refused;
            EXPECT_NE(chart.Why().Kind, ImportFault::TookTooLong) << way;
            continue;
        }
        EXPECT_LT(ShareThatDiffers(Shades::Of(chart->Sheets.front().File), right), tolerated)
            << name << " way " << way;
    }
    std::printf("| %-28s | %2d of %d refused, the others are right |\n", name.c_str(), refused, Ways);
}

INSTANTIATE_TEST_SUITE_P(Formats, Damage,
                         testing::Values("GTiff.tif", "COG.tif", "MBTiles.mbtiles", "GPKG.gpkg",
                                         "JP2OpenJPEG.jp2", "PDF.pdf", "KAP.kap"),
                         [](const auto& each) {
                             return std::string(each.param).substr(0, std::string(each.param).find('.'));
                         });

} // namespace
