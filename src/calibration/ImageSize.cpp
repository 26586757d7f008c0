#include "calibration/ImageSize.h"

#include <array>
#include <fstream>
#include <iterator>

#include "base/Strings.h"
#include "platform/PictureFormats.h"

namespace ornivane {

namespace {

constexpr std::size_t BmpSizeAt = 18;
constexpr int MarkerFirstFrame = 0xC0, MarkerLastFrame = 0xC3, MarkerScan = 0xDA;

std::int32_t LittleEndian(const unsigned char* bytes) {
    std::uint32_t value = 0;
    for (int i = 3; i >= 0; --i) value = value << 8 | bytes[i];
    return static_cast<std::int32_t>(value);
}

// The bytes of a JPEG. What is damaged reads as 0 from then on: the scan itself never asks for the end of the
// file.
class ByteReader {
public:
    explicit ByteReader(std::istream& from) : file(from) {}

    bool IsDamaged() const { return damaged; }
    int Next() {
        const int byte = damaged ? 0 : file.get();
        damaged = damaged || byte == std::istream::traits_type::eof();
        return damaged ? 0 : byte;
    }
    // Two bytes, the high one first; 32,768 and more is damage.
    int Word() {
        const int high = Next();
        low = Next();
        damaged = damaged || high >= 128;
        return damaged ? 0 : high * 256 + low;
    }
    int LowByte() const { return low; } // of the last word
    void Skip(int count) {
        if (count > 0 && !damaged) file.ignore(count);
        damaged = damaged || count < 0 || (count > 0 && file.gcount() < count);
    }

private:
    std::istream& file;
    bool damaged = false;
    int low = 0;
};

ImageSize FrameSize(ByteReader& bytes) {
    bytes.Skip(3); // length and precision
    const int height = bytes.Word();
    return {bytes.Word(), height};
}

ImageSize ScanJpeg(ByteReader& bytes) {
    int current = 0xD8;
    while (!bytes.IsDamaged()) {
        while (current != 0xFF && !bytes.IsDamaged()) current = bytes.Next();
        const int marker = bytes.Next();
        if (marker >= MarkerFirstFrame && marker <= MarkerLastFrame) return FrameSize(bytes);
        if (marker == MarkerScan) return {};
        bytes.Skip(bytes.Word() - 2);
        current = bytes.LowByte();
    }
    return {};
}

// What the ending of a file's name decides.
struct SizeReader {
    SizeReading (*Read)(std::istream&, ImageSize&);
    SizeReading Unopened; // of a file that cannot be opened
};
// In the order of PictureFormats.
constexpr SizeReader Readers[] = {{ReadBmpSize, SizeReading::Kept}, {ReadJpegSize, SizeReading::Damaged}};
static_assert(std::size(Readers) == PictureFormats.size(), "a format without a reader of its size");
constexpr std::size_t Jpeg = 1;
static_assert(PictureFormats[Jpeg].Ending == std::string_view("jpg"));

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
    ByteReader bytes(file);
    const ImageSize found = ScanJpeg(bytes);
    if (bytes.IsDamaged()) return SizeReading::Damaged;
    size = found;
    return SizeReading::Read;
}

std::size_t FormatOfName(std::string_view name) {
    const std::string ending = LowerAscii(name.size() < 3 ? name : name.substr(name.size() - 3));
    for (std::size_t i = 0; i < PictureFormats.size(); ++i)
        if (ending == PictureFormats[i].Ending) return i;
    return Jpeg;
}

SizeReading ReadImageSize(const std::filesystem::path& file, ImageSize& size) {
    const SizeReader& reader = Readers[FormatOfName(file.filename().string())];
    std::ifstream stream(file, std::ios::binary);
    return stream ? reader.Read(stream, size) : reader.Unopened;
}

} // namespace ornivane
