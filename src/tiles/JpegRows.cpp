#include "tiles/JpegRows.h"

#include <jerror.h>

namespace ornivane {

namespace {

constexpr std::size_t BufferBytes = 64 << 10;
// A file of a few bytes can ask for thousands of passes over its coefficients.
constexpr int MostScans = 500;

std::int64_t CoefficientBytes(const jpeg_decompress_struct& info) {
    std::int64_t blocks = 0;
    for (int i = 0; i < info.num_components; ++i)
        blocks +=
            static_cast<std::int64_t>(info.comp_info[i].width_in_blocks) * info.comp_info[i].height_in_blocks;
    return blocks * DCTSIZE2 * static_cast<std::int64_t>(sizeof(JCOEF));
}

std::uint32_t Opaque(unsigned red, unsigned green, unsigned blue) {
    return 0xFF000000U | red << 16 | green << 8 | blue;
}

} // namespace

Result<std::unique_ptr<ImageRows>> JpegRows::Open(const ReadOnlyFile& file, const ImageReading& reading) {
    std::unique_ptr<JpegRows> rows(new JpegRows(file, reading));
    if (const Outcome failure = rows->ReadHeader()) return *failure;
    return std::unique_ptr<ImageRows>(std::move(rows));
}

JpegRows::JpegRows(const ReadOnlyFile& from, const ImageReading& how)
    : file(from), mostCoefficientBytes(how.MostCoefficientBytes), stop(how.Stop), level(how.Level),
      buffer(BufferBytes) {
    info.err = errors.Base();
}

JpegRows::~JpegRows() {
    if (info.mem) jpeg_destroy_decompress(&info);
}

ImageExtent JpegRows::Stored() const {
    return {static_cast<int>(info.image_width), static_cast<int>(info.image_height)};
}

Failure JpegRows::WhyLeft(const char* fallback) {
    if (readFailed) return {Fault::CannotRead, {}};
    if (stop.stop_requested()) return {Fault::Cancelled, {}};
    if (tooManyScans) return {Fault::Damaged, "more than 500 scans"};
    return {Fault::Damaged, fallback ? fallback : errors.Text(reinterpret_cast<j_common_ptr>(&info))};
}

Outcome JpegRows::ReadHeader() {
    source.Owner = this;
    source.init_source = [](j_decompress_ptr) {};
    source.term_source = [](j_decompress_ptr) {};
    source.resync_to_restart = jpeg_resync_to_restart;
    source.fill_input_buffer = [](j_decompress_ptr of) -> boolean {
        static_cast<Source*>(of->src)->Owner->Fill();
        return TRUE;
    };
    source.skip_input_data = [](j_decompress_ptr of, long count) {
        static_cast<Source*>(of->src)->Owner->Skip(count);
    };
    progress.Owner = this;
    progress.progress_monitor = [](j_common_ptr of) { static_cast<Progress*>(of->progress)->Owner->Watch(); };
    const bool read = errors.Try([this] {
        jpeg_create_decompress(&info);
        info.src = &source;
        info.progress = &progress;
        jpeg_read_header(&info, TRUE);
    });
    if (!read) return WhyLeft(nullptr);
    if (!Stored().IsPossible()) return Failure{Fault::TooLarge, {}};
    if (const Outcome failure = CheckMemory()) return failure;
    return ChooseOutput();
}

Outcome JpegRows::CheckMemory() const {
    if (!info.progressive_mode && !jpeg_has_multiple_scans(const_cast<j_decompress_ptr>(&info)))
        return std::nullopt;
    const std::int64_t bytes = CoefficientBytes(info);
    if (bytes <= mostCoefficientBytes) return std::nullopt;
    return Failure{Fault::Coefficients, std::to_string(bytes >> 20) + " MB"};
}

Outcome JpegRows::ChooseOutput() {
    level = std::min(level, 3);
    info.scale_num = 8U >> level;
    info.scale_denom = 8;
    switch (info.jpeg_color_space) {
    case JCS_YCbCr:
    case JCS_RGB:
    case JCS_GRAYSCALE:
        info.out_color_space = JCS_EXT_BGRA;
        return std::nullopt;
    case JCS_CMYK:
    case JCS_YCCK:
        info.out_color_space = JCS_CMYK;
        pixels = Pixels::Cmyk;
        return std::nullopt;
    default:
        if (info.num_components != 3) return Failure{Fault::NotAPicture, {}};
        pixels = Pixels::Rgb;
        return std::nullopt;
    }
}

void JpegRows::Fill() {
    const auto got = atEnd ? std::size_t{0} : file.Read(offset, buffer.data(), buffer.size());
    if (!got) {
        readFailed = true;
        errors.Leave();
    }
    offset += *got;
    source.next_input_byte = buffer.data();
    source.bytes_in_buffer = *got;
    if (*got > 0) {
        hash.Add(buffer.data(), *got);
        return;
    }
    atEnd = true;
    buffer[0] = 0xFF;
    buffer[1] = JPEG_EOI;
    source.bytes_in_buffer = 2;
}

void JpegRows::Skip(long count) {
    auto left = static_cast<std::size_t>(std::max(count, 0L));
    while (left > source.bytes_in_buffer && !atEnd) {
        left -= source.bytes_in_buffer;
        Fill();
    }
    if (atEnd) return;
    source.next_input_byte += left;
    source.bytes_in_buffer -= left;
}

void JpegRows::Watch() {
    tooManyScans = info.input_scan_number > MostScans;
    if (tooManyScans || stop.stop_requested()) errors.Leave();
}

Outcome JpegRows::Next(std::uint32_t* row) {
    const bool done = errors.Try([this, row] {
        if (!started) {
            started = true;
            jpeg_start_decompress(&info);
        }
        auto* to = reinterpret_cast<JSAMPROW>(row);
        if (pixels != Pixels::Bgra) {
            line.resize(static_cast<std::size_t>(info.output_width) * info.output_components);
            to = line.data();
        }
        jpeg_read_scanlines(&info, &to, 1);
    });
    if (!done) return WhyLeft(nullptr);
    if (pixels != Pixels::Bgra) Convert(row);
    return std::nullopt;
}

void JpegRows::Convert(std::uint32_t* row) const {
    const JSAMPLE* from = line.data();
    if (pixels == Pixels::Rgb) {
        for (JDIMENSION x = 0; x < info.output_width; ++x, from += 3)
            row[x] = Opaque(from[0], from[1], from[2]);
        return;
    }
    // CMYK files hold the inks inverted, as every program writes them that writes them at all.
    for (JDIMENSION x = 0; x < info.output_width; ++x, from += 4) {
        const unsigned black = from[3];
        row[x] = Opaque(black * from[0] / 255, black * from[1] / 255, black * from[2] / 255);
    }
}

std::optional<std::uint64_t> JpegRows::WholeHash(const std::stop_token& stopped) {
    while (!atEnd) {
        if (stopped.stop_requested() || !errors.Try([this] { Fill(); })) return std::nullopt;
    }
    return hash.Value();
}

} // namespace ornivane
