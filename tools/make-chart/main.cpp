// Makes a chart of any size for measurements and tests: a JPEG (baseline or progressive) or a BMP of 24 bits,
// written row by row, so that two gigapixels need no more memory than a row.

#include <charconv>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include <jpeglib.h>

#include "make-chart/SyntheticChart.h"

namespace {

using namespace ornivane;

constexpr int Quality = 90;

struct Wanted {
    std::string File;
    int Width = 0, Height = 0;
    bool Progressive = false;
};

void WriteJpeg(const Wanted& wanted, std::FILE* file) {
    jpeg_compress_struct jpeg{};
    jpeg_error_mgr errors{};
    jpeg.err = jpeg_std_error(&errors); // a write error ends the tool with its message
    jpeg_create_compress(&jpeg);
    jpeg_stdio_dest(&jpeg, file);
    jpeg.image_width = static_cast<JDIMENSION>(wanted.Width);
    jpeg.image_height = static_cast<JDIMENSION>(wanted.Height);
    jpeg.input_components = 4;
    jpeg.in_color_space = JCS_EXT_BGRX;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, Quality, TRUE);
    if (wanted.Progressive) jpeg_simple_progression(&jpeg);
    jpeg_start_compress(&jpeg, TRUE);
    const SyntheticChart chart(wanted.Width, wanted.Height);
    std::vector<std::uint32_t> row(wanted.Width);
    for (int y = 0; y < wanted.Height; ++y) {
        chart.Row(y, row);
        auto* bytes = reinterpret_cast<JSAMPROW>(row.data());
        jpeg_write_scanlines(&jpeg, &bytes, 1);
    }
    jpeg_finish_compress(&jpeg);
    jpeg_destroy_compress(&jpeg);
}

// Top-down rows would be easier to write, but the usual order is what is to be read.
void WriteBmp(const Wanted& wanted, std::FILE* file) {
    const std::size_t rowBytes = (static_cast<std::size_t>(wanted.Width) * 3 + 3) / 4 * 4;
    std::vector<unsigned char> header(54, 0);
    const auto put = [&header](std::size_t at, std::uint32_t value) { std::memcpy(&header[at], &value, 4); };
    header[0] = 'B';
    header[1] = 'M';
    put(2, static_cast<std::uint32_t>(54 + rowBytes * wanted.Height));
    put(10, 54);
    put(14, 40);
    put(18, static_cast<std::uint32_t>(wanted.Width));
    put(22, static_cast<std::uint32_t>(wanted.Height));
    header[26] = 1;
    header[28] = 24;
    std::fwrite(header.data(), 1, header.size(), file);
    const SyntheticChart chart(wanted.Width, wanted.Height);
    std::vector<std::uint32_t> row(wanted.Width);
    std::vector<unsigned char> bytes(rowBytes, 0);
    for (int y = wanted.Height - 1; y >= 0; --y) {
        chart.Row(y, row);
        for (int x = 0; x < wanted.Width; ++x)
            std::memcpy(&bytes[static_cast<std::size_t>(x) * 3], &row[x], 3);
        std::fwrite(bytes.data(), 1, bytes.size(), file);
    }
}

bool TakeSize(const char* text, int& size) {
    const char* end = text + std::strlen(text);
    const auto [rest, error] = std::from_chars(text, end, size);
    return error == std::errc() && rest == end && size > 0 && size <= 65500;
}

} // namespace

int main(int count, char** values) {
    Wanted wanted;
    if (count == 5 && std::string(values[4]) == "--progressive") wanted.Progressive = true;
    if ((count != 4 && !wanted.Progressive) || !TakeSize(values[2], wanted.Width) ||
        !TakeSize(values[3], wanted.Height)) {
        std::cerr << "make-chart FILE.jpg|FILE.bmp WIDTH HEIGHT [--progressive]\n";
        return 2;
    }
    wanted.File = values[1];
    std::FILE* file = std::fopen(wanted.File.c_str(), "wb");
    if (!file) {
        std::perror(values[1]);
        return 1;
    }
    if (wanted.File.ends_with(".bmp"))
        WriteBmp(wanted, file);
    else
        WriteJpeg(wanted, file);
    const bool failed = std::ferror(file) != 0;
    return std::fclose(file) != 0 || failed ? 1 : 0;
}
