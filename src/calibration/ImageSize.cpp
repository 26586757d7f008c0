#include "calibration/ImageSize.h"

#include <array>
#include <fstream>

#include "base/RuntimeError.h"
#include "base/Strings.h"

namespace ornivane {

namespace {

constexpr std::size_t BmpSizeAt = 18;
constexpr int MarkerFirstFrame = 0xC0, MarkerLastFrame = 0xC3, MarkerScan = 0xDA;

std::int32_t LittleEndian(const unsigned char* bytes) {
    std::uint32_t value = 0;
    for (int i = 3; i >= 0; --i) value = value << 8 | bytes[i];
    return static_cast<std::int32_t>(value);
}

// The bytes of a scan; the end of the file is an error, because the scan itself never asks for it.
class ByteReader {
public:
    explicit ByteReader(std::istream& from) : file(from) {}

    int Next() {
        const int byte = file.get();
        if (byte == std::istream::traits_type::eof()) throw RuntimeError(ErrorNumber::InvalidCall);
        return byte;
    }
    // Two bytes, high one first, as a whole number of 16 bits.
    int Word(int high, int low) const {
        if (high >= 128) throw RuntimeError(ErrorNumber::Overflow);
        return high * 256 + low;
    }
    void Skip(int count) {
        if (count < 0) throw RuntimeError(ErrorNumber::InvalidCall);
        file.ignore(count);
        if (file.gcount() < count) throw RuntimeError(ErrorNumber::InvalidCall);
    }

private:
    std::istream& file;
};

ImageSize FrameSize(ByteReader& bytes) {
    bytes.Skip(3); // length and precision
    const int heightHigh = bytes.Next(), heightLow = bytes.Next();
    const int widthHigh = bytes.Next(), widthLow = bytes.Next();
    const int height = bytes.Word(heightHigh, heightLow);
    return {bytes.Word(widthHigh, widthLow), height};
}

ImageSize ScanJpeg(ByteReader& bytes, int current) {
    for (;;) {
        while (current != 0xFF) current = bytes.Next();
        const int marker = bytes.Next();
        if (marker >= MarkerFirstFrame && marker <= MarkerLastFrame) return FrameSize(bytes);
        if (marker == MarkerScan) return {};
        const int high = bytes.Next();
        current = bytes.Next();
        bytes.Skip(bytes.Word(high, current) - 2);
    }
}

} // namespace

SizeReading ReadBmpSize(std::istream& file, ImageSize& size) {
    std::array<char, BmpSizeAt + 8> header{};
    file.read(header.data(), header.size());
    const auto got = static_cast<std::size_t>(file.gcount());
    if (got < BmpSizeAt) return SizeReading::Kept;
    size = {};
    if (header[0] != 'B' || header[1] != 'M' || got < header.size()) return SizeReading::Read;
    const auto* sizes = reinterpret_cast<const unsigned char*>(header.data()) + BmpSizeAt;
    size = {LittleEndian(sizes), LittleEndian(sizes + 4)};
    return SizeReading::Read;
}

SizeReading ReadJpegSize(std::istream& file, ImageSize& size) {
    if (file.get() != 0xFF || file.get() != 0xD8) return SizeReading::Kept;
    try {
        ByteReader bytes(file);
        size = ScanJpeg(bytes, 0xD8);
        return SizeReading::Read;
    } catch (const RuntimeError&) {
        return SizeReading::Damaged;
    }
}

bool IsBmpName(std::string_view name) {
    return name.size() >= 3 && LowerAscii(name.substr(name.size() - 3)) == "bmp";
}

SizeReading ReadImageSize(const std::filesystem::path& path, ImageSize& size) {
    const bool bmp = IsBmpName(path.filename().string());
    std::ifstream file(path, std::ios::binary);
    if (!file) return bmp ? SizeReading::Kept : SizeReading::Damaged;
    return bmp ? ReadBmpSize(file, size) : ReadJpegSize(file, size);
}

} // namespace ornivane
