#include "chart-import/JpegFile.h"

#include <cerrno>
#include <cstring>
#include <unistd.h>
#include <vector>

#include "chart-import/PictureCheck.h"
#include "tiles/BmpRows.h"
#include "tiles/JpegErrors.h"

namespace ornivane {

namespace {

// As the tiles: text and thin lines stay clean, at a tenth of the size of the pixels.
constexpr int Quality = 90;
constexpr int RowsBetweenLooks = 64;

class JpegFileWriter {
public:
    JpegFileWriter(const std::filesystem::path& path, const ImageExtent& extent)
        : file(std::fopen(path.c_str(), "wbe")) {
        jpeg.err = errors.Base();
        good = file && errors.Try([&] {
            jpeg_create_compress(&jpeg);
            jpeg_stdio_dest(&jpeg, file);
            jpeg.image_width = static_cast<JDIMENSION>(extent.Width);
            jpeg.image_height = static_cast<JDIMENSION>(extent.Height);
            jpeg.input_components = 4;
            jpeg.in_color_space = JCS_EXT_BGRX;
            jpeg_set_defaults(&jpeg);
            jpeg_set_quality(&jpeg, Quality, TRUE);
            // Full colour for every pixel: thin coloured lines are what a chart is of.
            jpeg.comp_info[0].h_samp_factor = jpeg.comp_info[0].v_samp_factor = 1;
            jpeg_start_compress(&jpeg, TRUE);
        });
    }
    ~JpegFileWriter() {
        if (jpeg.mem) jpeg_destroy_compress(&jpeg);
        if (file) std::fclose(file);
    }
    JpegFileWriter(const JpegFileWriter&) = delete;
    JpegFileWriter& operator=(const JpegFileWriter&) = delete;

    ImportOutcome Row(std::uint32_t* pixels) {
        auto* row = reinterpret_cast<JSAMPROW>(pixels);
        good = good && errors.Try([&] { jpeg_write_scanlines(&jpeg, &row, 1); });
        return Outcome();
    }
    ImportOutcome End() {
        good = good && errors.Try([&] { jpeg_finish_compress(&jpeg); });
        good = good && std::fflush(file) == 0 && ::fsync(::fileno(file)) == 0;
        return Outcome();
    }

private:
    ImportOutcome Outcome() const {
        if (good) return std::nullopt;
        const int reason = errno;
        return ImportFailure{reason == ENOSPC || reason == EDQUOT ? ImportFault::DiskFull
                                                                  : ImportFault::CannotWrite,
                             std::strerror(reason)};
    }

    JpegErrors errors;
    jpeg_compress_struct jpeg{};
    std::FILE* file;
    bool good = false;
};

// What was asked for is there to its last byte: a file that ends early would be black from there on.
ImportOutcome CheckWhole(const ReadOnlyFile& bmp, const ImageExtent& expected) {
    const auto header = BmpHeader::Read(bmp);
    const auto state = bmp.State();
    if (!header || !state || header->Extent != expected) return ImportFailure{ImportFault::Damaged, {}};
    const std::uint64_t bytes =
        header->PixelsAt + header->RowBytes() * static_cast<unsigned>(expected.Height);
    if (state->Bytes < bytes) return ImportFailure{ImportFault::Damaged, {}};
    return std::nullopt;
}

} // namespace

Imported<EncodedPicture> EncodeJpeg(const std::filesystem::path& bmp, const ImageExtent& expected,
                                    const std::filesystem::path& jpeg, const std::stop_token& stop,
                                    const std::function<void(double)>& told) {
    const auto file = ReadOnlyFile::Open(bmp);
    if (!file) return ImportFailure{ImportFault::Damaged, {}};
    if (const auto failure = CheckWhole(*file, expected)) return *failure;
    auto rows = BmpRows::Open(*file);
    if (!rows) return ImportFailure{ImportFault::Damaged, {}};
    JpegFileWriter writer(jpeg, expected);
    PictureCheck check(expected);
    std::vector<std::uint32_t> row(static_cast<std::size_t>(expected.Width));
    for (int y = 0; y < expected.Height; ++y) {
        if (y % RowsBetweenLooks == 0) {
            if (stop.stop_requested()) return ImportFailure{};
            if (told) told(static_cast<double>(y) / expected.Height);
        }
        if ((*rows)->Next(row.data())) return ImportFailure{ImportFault::Damaged, {}};
        check.Row(row.data());
        if (const auto failure = writer.Row(row.data())) return *failure;
    }
    if (const auto failure = writer.End()) return *failure;
    return EncodedPicture{check.IsBlank() ? 1 : check.WhiteShare(), check.HasBlackHoles()};
}

} // namespace ornivane
