#include "tiles/TileCodec.h"

#include <cstdlib>
#include <vector>
#include <zstd.h>

#include "tiles/JpegErrors.h"

namespace ornivane {

namespace {

constexpr int Quality = 90;
constexpr int PackingEffort = 1; // zstd's level: higher ones take twice the time for a few per cent
constexpr std::size_t JpegBytes = 1 << 19;
constexpr std::size_t PlaneBytes = static_cast<std::size_t>(TileSide) * TileSide;
constexpr int Channels = 3;

// Scans are noisy, and the difference to the neighbour is what of the noise cannot be helped.
void ToPlanes(const PixelPart& pixels, std::uint8_t* to) {
    for (int shift = 0; shift < 8 * Channels; shift += 8)
        for (int y = 0; y < pixels.Extent.Height; ++y) {
            const std::uint32_t* row = pixels.Row(y);
            *to++ = static_cast<std::uint8_t>(row[0] >> shift);
            for (int x = 1; x < pixels.Extent.Width; ++x)
                *to++ = static_cast<std::uint8_t>((row[x] >> shift) - (row[x - 1] >> shift));
        }
}

void FromPlanes(const std::uint8_t* from, const ImageExtent& extent, Tile& tile) {
    const std::uint8_t* blue = from;
    const std::uint8_t* green = blue + extent.Pixels();
    const std::uint8_t* red = green + extent.Pixels();
    for (int y = 0; y < extent.Height; ++y) {
        std::uint8_t b = 0, g = 0, r = 0;
        std::uint32_t* row = tile.Row(y);
        for (int x = 0; x < extent.Width; ++x) {
            b = static_cast<std::uint8_t>(b + *blue++);
            g = static_cast<std::uint8_t>(g + *green++);
            r = static_cast<std::uint8_t>(r + *red++);
            row[x] = 0xFF000000U | static_cast<std::uint32_t>(r << 16 | g << 8 | b);
        }
    }
}

} // namespace

struct TilePacker::Parts {
    TileCodec Codec;
    JpegErrors Errors;
    jpeg_compress_struct Jpeg{};
    ZSTD_CCtx* Zstd = nullptr;
    std::vector<unsigned char> Packed, Planes;
    unsigned char* Grown = nullptr; // by the encoder, when Packed was too small
    unsigned long Bytes = 0;

    void StartJpeg();
    PackedTile PackJpeg(const PixelPart& pixels);
    PackedTile PackLossless(const PixelPart& pixels);
};

void TilePacker::Parts::StartJpeg() {
    Packed.resize(JpegBytes);
    Jpeg.err = Errors.Base();
    Errors.Try([this] {
        jpeg_create_compress(&Jpeg);
        Jpeg.in_color_space = JCS_EXT_BGRX;
        Jpeg.input_components = 4;
        Jpeg.image_width = Jpeg.image_height = TileSide;
        jpeg_set_defaults(&Jpeg);
        jpeg_set_colorspace(&Jpeg, Codec == TileCodec::GreyJpeg ? JCS_GRAYSCALE : JCS_YCbCr);
        jpeg_set_quality(&Jpeg, Quality, TRUE);
        Jpeg.comp_info[0].h_samp_factor = Jpeg.comp_info[0].v_samp_factor = 1;
    });
}

PackedTile TilePacker::Parts::PackJpeg(const PixelPart& pixels) {
    if (Grown != Packed.data()) std::free(Grown);
    Grown = Packed.data();
    Bytes = static_cast<unsigned long>(Packed.size());
    const bool done = Errors.Try([this, &pixels] {
        jpeg_mem_dest(&Jpeg, &Grown, &Bytes);
        Jpeg.image_width = static_cast<JDIMENSION>(pixels.Extent.Width);
        Jpeg.image_height = static_cast<JDIMENSION>(pixels.Extent.Height);
        jpeg_start_compress(&Jpeg, TRUE);
        for (int y = 0; y < pixels.Extent.Height; ++y) {
            auto* row = reinterpret_cast<JSAMPROW>(const_cast<std::uint32_t*>(pixels.Row(y)));
            jpeg_write_scanlines(&Jpeg, &row, 1);
        }
        jpeg_finish_compress(&Jpeg);
    });
    if (!done) {
        jpeg_abort_compress(&Jpeg);
        return {};
    }
    return {Grown, Bytes};
}

PackedTile TilePacker::Parts::PackLossless(const PixelPart& pixels) {
    const auto bytes = static_cast<std::size_t>(pixels.Extent.Pixels()) * Channels;
    ToPlanes(pixels, Planes.data());
    const std::size_t packed =
        ZSTD_compressCCtx(Zstd, Packed.data(), Packed.size(), Planes.data(), bytes, PackingEffort);
    if (ZSTD_isError(packed)) return {};
    return {Packed.data(), packed};
}

TilePacker::TilePacker(TileCodec codec) : parts(std::make_unique<Parts>()) {
    parts->Codec = codec;
    if (codec != TileCodec::Lossless) {
        parts->StartJpeg();
        return;
    }
    parts->Zstd = ZSTD_createCCtx();
    parts->Planes.resize(Channels * PlaneBytes);
    parts->Packed.resize(ZSTD_compressBound(Channels * PlaneBytes));
}

TilePacker::~TilePacker() {
    if (parts->Grown != parts->Packed.data()) std::free(parts->Grown);
    if (parts->Jpeg.mem) jpeg_destroy_compress(&parts->Jpeg);
    ZSTD_freeCCtx(parts->Zstd);
}

PackedTile TilePacker::Pack(const PixelPart& pixels) {
    return parts->Codec == TileCodec::Lossless ? parts->PackLossless(pixels) : parts->PackJpeg(pixels);
}

struct TileUnpacker::Parts {
    JpegErrors Errors;
    jpeg_decompress_struct Jpeg{};
    ZSTD_DCtx* Zstd = ZSTD_createDCtx();
    std::vector<unsigned char> Planes = std::vector<unsigned char>(Channels * PlaneBytes);

    bool UnpackJpeg(PackedTile packed, const ImageExtent& extent, Tile& tile);
    bool UnpackLossless(PackedTile packed, const ImageExtent& extent, Tile& tile);
};

bool TileUnpacker::Parts::UnpackJpeg(PackedTile packed, const ImageExtent& extent, Tile& tile) {
    bool fits = false;
    const bool done = Errors.Try([&] {
        jpeg_mem_src(&Jpeg, packed.data(), static_cast<unsigned long>(packed.size()));
        jpeg_read_header(&Jpeg, TRUE);
        fits = static_cast<int>(Jpeg.image_width) == extent.Width &&
               static_cast<int>(Jpeg.image_height) == extent.Height;
        const bool coloured = Jpeg.jpeg_color_space == JCS_YCbCr || Jpeg.jpeg_color_space == JCS_GRAYSCALE;
        fits = fits && coloured && !Jpeg.progressive_mode;
        if (!fits) return;
        Jpeg.out_color_space = JCS_EXT_BGRA;
        jpeg_start_decompress(&Jpeg);
        while (Jpeg.output_scanline < Jpeg.output_height) {
            auto* row = reinterpret_cast<JSAMPROW>(tile.Row(static_cast<int>(Jpeg.output_scanline)));
            jpeg_read_scanlines(&Jpeg, &row, 1);
        }
    });
    jpeg_abort_decompress(&Jpeg);
    return done && fits;
}

bool TileUnpacker::Parts::UnpackLossless(PackedTile packed, const ImageExtent& extent, Tile& tile) {
    const auto bytes = static_cast<std::size_t>(extent.Pixels()) * Channels;
    if (ZSTD_decompressDCtx(Zstd, Planes.data(), bytes, packed.data(), packed.size()) != bytes) return false;
    FromPlanes(Planes.data(), extent, tile);
    return true;
}

TileUnpacker::TileUnpacker() : parts(std::make_unique<Parts>()) {
    parts->Jpeg.err = parts->Errors.Base();
    parts->Errors.Try([this] { jpeg_create_decompress(&parts->Jpeg); });
}

TileUnpacker::~TileUnpacker() {
    if (parts->Jpeg.mem) jpeg_destroy_decompress(&parts->Jpeg);
    ZSTD_freeDCtx(parts->Zstd);
}

bool TileUnpacker::Unpack(TileCodec codec, PackedTile packed, const ImageExtent& extent, Tile& tile) {
    if (packed.empty() || extent.Width < 1 || extent.Height < 1 || extent.Width > TileSide ||
        extent.Height > TileSide)
        return false;
    return codec == TileCodec::Lossless ? parts->UnpackLossless(packed, extent, tile)
                                        : parts->UnpackJpeg(packed, extent, tile);
}

} // namespace ornivane
