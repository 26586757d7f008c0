#include "Pictures.h"

#include <cstdlib>
#include <fstream>

#include <QCoreApplication>
#include <QImageReader>

#include "tiles/JpegErrors.h"

namespace ornivane {

Pixels MadeUp(const ImageExtent& extent) {
    Pixels made{extent, {}};
    std::minstd_rand noise(7);
    for (int y = 0; y < extent.Height; ++y)
        for (int x = 0; x < extent.Width; ++x) {
            const bool line = x % 50 == 0 || y % 70 == 0;
            const unsigned red = line ? 10 : 120 + static_cast<unsigned>(x) % 90, green = line ? 10 : 200;
            const unsigned blue = line ? 10 : 100 + static_cast<unsigned>(y) % 110 + noise() % 4;
            made.Bits.push_back(0xFF000000U | red << 16 | green << 8 | blue);
        }
    return made;
}

Pixels LevelOf(const Pixels& picture, int level) {
    Pixels result{picture.Extent.At(level), {}};
    const int side = 1 << level;
    for (int y = 0; y < result.Extent.Height; ++y)
        for (int x = 0; x < result.Extent.Width; ++x) {
            std::uint32_t average = 0;
            const int endX = std::min((x + 1) * side, picture.Extent.Width);
            const int endY = std::min((y + 1) * side, picture.Extent.Height);
            const auto count = static_cast<unsigned>((endX - x * side) * (endY - y * side));
            for (int shift = 24; shift >= 0; shift -= 8) {
                std::uint32_t sum = 0;
                for (int v = y * side; v < endY; ++v)
                    for (int u = x * side; u < endX; ++u) sum += picture.At(u, v) >> shift & 255;
                average |= (sum + count / 2) / count << shift;
            }
            result.Bits.push_back(average);
        }
    return result;
}

int LargestDifference(const Pixels& a, const Pixels& b) {
    if (a.Extent != b.Extent) return 256;
    int largest = 0;
    for (std::size_t i = 0; i < a.Bits.size(); ++i)
        for (int shift = 0; shift < 32; shift += 8)
            largest = std::max(largest, std::abs(static_cast<int>(a.Bits[i] >> shift & 255) -
                                                 static_cast<int>(b.Bits[i] >> shift & 255)));
    return largest;
}

Pixels DecodedByQt(const std::filesystem::path& file) {
    static int count = 1;
    static char name[] = "test";
    static char* names[] = {name, nullptr};
    static QCoreApplication application(count, names); // the decoders are plug-ins
    QImageReader reader(QString::fromStdString(file.string()));
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(false);
    QImage image = reader.read();
    if (image.isNull()) return {};
    Pixels pixels{{image.width(), image.height()}, {}};
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            // As the screens take an index beyond the palette: black.
            const bool black = image.colorCount() > 0 && image.pixelIndex(x, y) >= image.colorCount();
            pixels.Bits.push_back(black ? 0xFF000000U : image.pixel(x, y) | 0xFF000000U);
        }
    return pixels;
}

Pixels DecodedByRows(const std::filesystem::path& file, const ImageReading& reading) {
    const auto opened = ReadOnlyFile::Open(file);
    if (!opened) return {};
    const auto rows = OpenImageRows(*opened, reading);
    if (!rows) return {};
    Pixels pixels{(*rows)->Stored().At((*rows)->Level()), {}};
    pixels.Bits.resize(pixels.Extent.Pixels());
    for (int y = 0; y < pixels.Extent.Height; ++y)
        if ((*rows)->Next(pixels.Bits.data() + static_cast<std::ptrdiff_t>(y) * pixels.Extent.Width))
            return {};
    return pixels;
}

std::string JpegOf(const Pixels& picture, JpegKind kind) {
    JpegErrors errors;
    jpeg_compress_struct jpeg{};
    jpeg.err = errors.Base();
    unsigned char* bytes = nullptr;
    unsigned long count = 0;
    errors.Try([&] {
        jpeg_create_compress(&jpeg);
        jpeg_mem_dest(&jpeg, &bytes, &count);
        jpeg.image_width = static_cast<JDIMENSION>(picture.Extent.Width);
        jpeg.image_height = static_cast<JDIMENSION>(picture.Extent.Height);
        jpeg.input_components = 4;
        jpeg.in_color_space = kind == JpegKind::Cmyk || kind == JpegKind::PlainCmyk ? JCS_CMYK : JCS_EXT_BGRX;
        jpeg_set_defaults(&jpeg);
        if (kind == JpegKind::Grey) jpeg_set_colorspace(&jpeg, JCS_GRAYSCALE);
        if (kind == JpegKind::Full) jpeg.comp_info[0].h_samp_factor = jpeg.comp_info[0].v_samp_factor = 1;
        if (kind == JpegKind::PlainCmyk) jpeg.write_Adobe_marker = FALSE;
        if (kind == JpegKind::Progressive) jpeg_simple_progression(&jpeg);
        jpeg_set_quality(&jpeg, 95, TRUE);
        jpeg_start_compress(&jpeg, TRUE);
        for (int y = 0; y < picture.Extent.Height; ++y) {
            auto* row = reinterpret_cast<JSAMPROW>(const_cast<std::uint32_t*>(
                picture.Bits.data() + static_cast<std::ptrdiff_t>(y) * picture.Extent.Width));
            jpeg_write_scanlines(&jpeg, &row, 1);
        }
        jpeg_finish_compress(&jpeg);
    });
    jpeg_destroy_compress(&jpeg);
    std::string result(reinterpret_cast<char*>(bytes), count);
    std::free(bytes);
    return result;
}

void Put(std::string& bytes, std::size_t at, std::uint32_t value, int count) {
    if (bytes.size() < at + count) bytes.resize(at + count);
    for (int i = 0; i < count; ++i) bytes[at + i] = static_cast<char>(value >> (8 * i));
}

std::string BmpOf(const Pixels& picture) {
    std::string bytes(54, '\0');
    bytes[0] = 'B';
    bytes[1] = 'M';
    Put(bytes, 10, 54, 4);
    Put(bytes, 14, 40, 4);
    Put(bytes, 18, static_cast<std::uint32_t>(picture.Extent.Width), 4);
    Put(bytes, 22, static_cast<std::uint32_t>(picture.Extent.Height), 4);
    Put(bytes, 26, 1, 2);
    Put(bytes, 28, 24, 2);
    for (int y = picture.Extent.Height - 1; y >= 0; --y) {
        for (int x = 0; x < picture.Extent.Width; ++x) Put(bytes, bytes.size(), picture.At(x, y), 3);
        while ((bytes.size() - 54) % 4) bytes += '\0';
    }
    return bytes;
}

void WriteFile(const std::filesystem::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
}

std::string ReadFile(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

} // namespace ornivane
