#include "tiles/BmpHeader.h"

#include <bit>
#include <cstdlib>
#include <span>

namespace ornivane {

namespace {

constexpr std::size_t FileHeader = 14;
constexpr std::uint32_t OldHeader = 12, PlainHeader = 40, Os2Header = 64, MasksHeader = 108,
                        LargestHeader = 124;
enum Compression : std::uint32_t { None = 0, Rle8 = 1, Rle4 = 2, BitFields = 3, AlphaBitFields = 4 };

class Fields {
public:
    explicit Fields(std::span<const unsigned char> of) : bytes(of) {}
    std::uint32_t Four(std::size_t at) const { return Two(at) | Two(at + 2) << 16; }
    std::uint32_t Two(std::size_t at) const {
        return static_cast<std::uint32_t>(bytes[at] | bytes[at + 1] << 8);
    }

private:
    std::span<const unsigned char> bytes;
};

Failure Damage(const char* what) { return {Fault::Damaged, what}; }

bool IsKnownHeader(std::uint32_t size) {
    return size == OldHeader || size == PlainHeader || size == Os2Header || size == MasksHeader ||
           size == LargestHeader;
}

bool FitsDepth(std::uint32_t compression, int bits) {
    switch (compression) {
    case None:
        return bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
    case Rle8:
        return bits == 8;
    case Rle4:
        return bits == 4;
    case BitFields:
    case AlphaBitFields:
        return bits == 16 || bits == 32;
    default:
        return false;
    }
}

void SetChannels(BmpHeader& header, std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
    header.Red = BmpHeader::Channel::OfMask(red);
    header.Green = BmpHeader::Channel::OfMask(green);
    header.Blue = BmpHeader::Channel::OfMask(blue);
}

// Reads the palette and returns where it ends.
std::optional<std::uint64_t> ReadPalette(const ReadOnlyFile& file, std::uint64_t at, std::uint32_t colours,
                                         std::size_t bytesEach, BmpHeader& header) {
    std::array<unsigned char, 4 * 256> bytes{};
    const auto got = file.Read(at, bytes.data(), colours * bytesEach);
    if (!got || *got < bytesEach) return std::nullopt;
    for (std::size_t i = 0; i < *got / bytesEach; ++i) {
        const unsigned char* entry = bytes.data() + i * bytesEach;
        header.Palette[i] = 0xFF000000U | static_cast<std::uint32_t>(entry[2]) << 16 |
                            static_cast<std::uint32_t>(entry[1]) << 8 | entry[0];
    }
    return at + *got;
}

// Width, height, depth and compression; what they may not be is a failure.
Outcome TakeSizes(const Fields& fields, std::uint32_t infoSize, BmpHeader& header,
                  std::uint32_t& compression) {
    const bool old = infoSize == OldHeader;
    const auto width =
        old ? static_cast<std::int16_t>(fields.Two(18)) : static_cast<std::int32_t>(fields.Four(18));
    const auto height =
        old ? static_cast<std::int16_t>(fields.Two(20)) : static_cast<std::int32_t>(fields.Four(22));
    const std::uint32_t planes = fields.Two(old ? 22 : 26);
    header.BitsPerPixel = static_cast<int>(fields.Two(old ? 24 : 28));
    compression = old ? std::uint32_t{None} : fields.Four(30);
    if (planes != 1 || !FitsDepth(compression, header.BitsPerPixel)) return Damage("unknown kind of BMP");
    if (width <= 0 || height == 0 || height == INT32_MIN) return Damage("size");
    header.TopDown = height < 0;
    header.Extent = {width, std::abs(height)};
    if (!header.Extent.IsPossible()) return Failure{Fault::TooLarge, {}};
    header.Pixels = compression == Rle8   ? BmpHeader::Coding::Runs8
                    : compression == Rle4 ? BmpHeader::Coding::Runs4
                                          : BmpHeader::Coding::Plain;
    return std::nullopt;
}

} // namespace

BmpHeader::Channel BmpHeader::Channel::OfMask(std::uint32_t mask) {
    if (mask == 0) return {0, 0, 0};
    Channel channel{mask, std::countr_zero(mask), 0};
    channel.Bits = std::bit_width(mask >> channel.Shift);
    if (channel.Bits > 8) {
        channel.Shift += channel.Bits - 8;
        channel.Bits = 8;
    }
    return channel;
}

std::uint32_t BmpHeader::Channel::Of(std::uint32_t pixel) const {
    return (pixel & Mask) >> Shift << (8 - Bits);
}

Result<BmpHeader> BmpHeader::Read(const ReadOnlyFile& file) {
    std::array<unsigned char, FileHeader + LargestHeader> bytes{};
    const auto got = file.Read(0, bytes.data(), bytes.size());
    if (!got) return Failure{Fault::CannotRead, {}};
    const Fields fields(bytes);
    const std::uint32_t infoSize = fields.Four(FileHeader);
    if (!IsKnownHeader(infoSize) || *got < FileHeader + infoSize) return Damage("header");
    BmpHeader header;
    header.Palette.fill(0xFF000000U);
    std::uint32_t compression = None;
    if (const Outcome failure = TakeSizes(fields, infoSize, header, compression)) return *failure;

    std::uint64_t end = FileHeader + infoSize;
    if (header.BitsPerPixel <= 8) {
        const bool named = infoSize != OldHeader && fields.Four(46) != 0;
        const std::uint32_t colours = named ? fields.Four(46) : 1U << header.BitsPerPixel;
        if (colours > 256) return Damage("palette");
        const auto behind = ReadPalette(file, end, colours, infoSize == OldHeader ? 3 : 4, header);
        if (!behind) return Damage("palette");
        end = *behind;
    } else if (compression == None) {
        if (header.BitsPerPixel == 16)
            SetChannels(header, 0x7C00, 0x03E0, 0x001F);
        else
            SetChannels(header, 0xFF0000, 0x00FF00, 0x0000FF);
    } else {
        if (infoSize < MasksHeader) {
            if (*got < FileHeader + PlainHeader + 12 || infoSize != PlainHeader) return Damage("masks");
            end += compression == AlphaBitFields ? 16 : 12;
        }
        SetChannels(header, fields.Four(54), fields.Four(58), fields.Four(62));
    }
    header.PixelsAt = std::max<std::uint64_t>(fields.Four(10), end);
    return header;
}

} // namespace ornivane
