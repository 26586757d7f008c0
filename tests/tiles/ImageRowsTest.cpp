#include "tiles/ImageRows.h"

#include <gtest/gtest.h>

#include "Pictures.h"
#include "support/TemporaryFolder.h"

namespace ornivane {
namespace {

class ImageRowsTest : public testing::Test {
protected:
    // Both decoders agree to the last bit, also on refusing it.
    void ExpectSame(const std::string& bytes, const std::string& what) {
        WriteFile(file, bytes);
        const Pixels qt = DecodedByQt(file), own = DecodedByRows(file);
        EXPECT_EQ(qt.Extent, own.Extent) << what;
        EXPECT_TRUE(qt == own) << what << ", largest difference " << LargestDifference(qt, own);
    }
    Fault WhyNot(const std::string& bytes, const ImageReading& reading = {}) {
        WriteFile(file, bytes);
        const auto opened = ReadOnlyFile::Open(file);
        const auto rows = OpenImageRows(*opened, reading);
        return rows ? Fault::Cancelled : rows.Why().Kind;
    }

    TemporaryFolder Folder;
    const std::filesystem::path file = Folder.Path() / "image";
};

TEST_F(ImageRowsTest, AJpegHasThePixelsThatTheScreensHaveAlwaysShown) {
    const Pixels picture = MadeUp({203, 157});
    for (const auto kind : {JpegKind::Colour, JpegKind::Full, JpegKind::Grey, JpegKind::Progressive,
                            JpegKind::Cmyk, JpegKind::PlainCmyk})
        ExpectSame(JpegOf(picture, kind), "kind " + std::to_string(static_cast<int>(kind)));
    // Turned by a quarter, as a camera notes it: the stored pixels count.
    std::string turned = JpegOf(picture, JpegKind::Colour);
    turned.insert(2, std::string("\xFF\xE1\x00\x22"
                                 "Exif\0\0II*\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0\x06\0\0\0\0\0\0\0",
                                 36));
    ExpectSame(turned, "turned");
}

TEST_F(ImageRowsTest, ACutJpegHasTheRowsThatWereThere) {
    const std::string whole = JpegOf(MadeUp({120, 90}), JpegKind::Colour);
    for (std::size_t bytes = 0; bytes < whole.size(); bytes += 1 + bytes / 20)
        ExpectSame(whole.substr(0, bytes), std::to_string(bytes));
}

TEST_F(ImageRowsTest, AProgressiveJpegBeyondItsMemoryIsRefusedAndAReducedOneIsAverage) {
    const Pixels picture = MadeUp({400, 301});
    const std::string progressive = JpegOf(picture, JpegKind::Progressive);
    EXPECT_EQ(WhyNot(progressive, {0, {}, 100'000}), Fault::Coefficients);
    EXPECT_EQ(WhyNot(JpegOf(picture, JpegKind::Colour), {0, {}, 100'000}), Fault::Cancelled); // taken
    WriteFile(file, JpegOf(picture, JpegKind::Full));
    for (const int level : {1, 2, 3})
        EXPECT_LT(LargestDifference(DecodedByRows(file, {level, {}}), LevelOf(picture, level)), 40) << level;
}

struct BmpKind {
    const char* Name;
    int Bits;
    std::uint32_t Compression = 0;
    std::uint32_t Red = 0, Green = 0, Blue = 0;
    int HeaderBytes = 40;
    int Colours = 0; // 0: all of them
};

// A BMP whose pixels are noise.
std::string NoiseBmp(const BmpKind& kind, int width, int height, const std::string& pixels = {}) {
    std::string bytes = "BM";
    std::minstd_rand noise(3);
    const bool old = kind.HeaderBytes == 12;
    Put(bytes, 14, static_cast<std::uint32_t>(kind.HeaderBytes), 4);
    Put(bytes, 18, static_cast<std::uint32_t>(width), old ? 2 : 4);
    Put(bytes, old ? 20 : 22, static_cast<std::uint32_t>(height), old ? 2 : 4);
    Put(bytes, old ? 22 : 26, 1, 2);
    Put(bytes, old ? 24 : 28, static_cast<std::uint32_t>(kind.Bits), 2);
    if (!old) {
        Put(bytes, 30, kind.Compression, 4);
        Put(bytes, 46, static_cast<std::uint32_t>(kind.Colours), 4);
    }
    if (kind.Compression == 3 || kind.HeaderBytes >= 108) {
        Put(bytes, 54, kind.Red, 4);
        Put(bytes, 58, kind.Green, 4);
        Put(bytes, 62, kind.Blue, 4);
    }
    bytes.resize(std::max<std::size_t>(bytes.size(), 14 + kind.HeaderBytes));
    const int colours = kind.Bits > 8 ? 0 : kind.Colours ? kind.Colours : 1 << kind.Bits;
    for (int i = 0; i < colours; ++i)
        Put(bytes, bytes.size(), static_cast<std::uint32_t>(noise()), old ? 3 : 4);
    bytes += "gap"; // the header says where the pixels are
    Put(bytes, 10, static_cast<std::uint32_t>(bytes.size()), 4);
    if (!pixels.empty()) return bytes + pixels;
    const int rowBytes = (width * kind.Bits + 31) / 32 * 4;
    for (int i = 0; i < rowBytes * std::abs(height); ++i) bytes += static_cast<char>(noise());
    return bytes;
}

const BmpKind BmpKinds[] = {
    {"1 bit", 1},
    {"4 bits", 4},
    {"8 bits", 8},
    {"8 bits, 100 colours", 8, 0, 0, 0, 0, 40, 100},
    {"16 bits", 16},
    {"24 bits", 24},
    {"32 bits", 32},
    {"565", 16, 3, 0xF800, 0x07E0, 0x001F},
    {"444", 16, 3, 0x0F00, 0x00F0, 0x000F},
    {"32 bits, other order", 32, 3, 0x000000FF, 0x0000FF00, 0x00FF0000},
    {"1, 2 and 3 bits", 32, 3, 0x00000001, 0x00000006, 0x00070000},
    {"header 108", 32, 3, 0xFF000000, 0x00FF0000, 0x0000FF00, 108},
    {"header 124", 24, 0, 0, 0, 0, 124},
    {"header 64", 8, 0, 0, 0, 0, 64},
    {"header 12, 8 bits", 8, 0, 0, 0, 0, 12},
    {"header 12, 24 bits", 24, 0, 0, 0, 0, 12},
};

TEST_F(ImageRowsTest, ABmpOfAnyKindHasThePixelsThatTheScreensHaveAlwaysShown) {
    for (const BmpKind& kind : BmpKinds)
        for (const int height : {29, -29})
            for (const int width : {1, 31, 64})
                if (height > 0 || kind.HeaderBytes != 12)
                    ExpectSame(NoiseBmp(kind, width, height),
                               kind.Name + std::string(" x ") + std::to_string(width));
    // Wider than what is read of a file at once.
    ExpectSame(BmpOf(MadeUp({3000, 300})), "several blocks");
}

// Rows of runs, literals and jumps, at random.
std::string Runs(bool nibbles, int width, int height) {
    std::minstd_rand random(5);
    std::string bytes;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width;) {
            const int left = width - x, count = 1 + static_cast<int>(random() % std::min(left, 20));
            switch (random() % 4) {
            case 0:
                if (count < 3) break;
                bytes += {'\0', static_cast<char>(count)};
                for (int i = 0; i < ((nibbles ? (count + 1) / 2 : count) + 1) / 2 * 2; ++i)
                    bytes += static_cast<char>(random() % 256);
                x += count;
                break;
            case 1:
                if (count >= left) break;
                bytes += {'\0', '\2', static_cast<char>(count), '\0'};
                x += count;
                break;
            default:
                bytes += {static_cast<char>(count), static_cast<char>(random() % 256)};
                x += count;
            }
        }
        bytes += std::string("\0\0", 2);
        if (y == 5) { // the rest of this row and two rows are left out
            bytes += std::string("\0\2\3\2", 4);
            y += 2;
            bytes += std::string("\4\7\0\0", 4);
            ++y;
        }
    }
    return bytes + std::string("\0\1", 2);
}

TEST_F(ImageRowsTest, RunsAreDecodedInAnyOrderOfRows) {
    for (const bool nibbles : {false, true})
        for (const int height : {23, -23}) {
            const BmpKind kind{"runs", nibbles ? 4 : 8, nibbles ? 2U : 1U};
            const std::string bytes = NoiseBmp(kind, 45, height, Runs(nibbles, 45, 23));
            WriteFile(file, bytes);
            // What the file leaves out is unset memory in the other decoder.
            const Pixels qt = DecodedByQt(file), own = DecodedByRows(file);
            ASSERT_EQ(qt.Extent, own.Extent);
            const std::uint32_t blank = DecodedByRows(file).At(44, height > 0 ? 23 - 1 - 7 : 7);
            int different = 0;
            for (std::size_t i = 0; i < own.Bits.size(); ++i)
                different += own.Bits[i] != qt.Bits[i] && own.Bits[i] != blank;
            EXPECT_EQ(different, 0);
        }
}

TEST_F(ImageRowsTest, ACutBmpHasItsWholeRowsAndNothingElse) {
    const Pixels picture = MadeUp({37, 20});
    const std::string whole = BmpOf(picture);
    const int rowBytes = 112;
    for (std::size_t bytes = 0; bytes < whole.size(); bytes += bytes < 60 ? 1 : 13) {
        WriteFile(file, whole.substr(0, bytes));
        const Pixels own = DecodedByRows(file);
        if (bytes < 54) {
            EXPECT_TRUE(own.Bits.empty()) << bytes;
            continue;
        }
        ASSERT_EQ(own.Extent, picture.Extent);
        const int rows = static_cast<int>(bytes - 54) / rowBytes;
        for (int y = 0; y < 20; ++y)
            ASSERT_EQ(own.At(5, y), y >= 20 - rows ? picture.At(5, y) : 0xFF000000U) << bytes << ' ' << y;
    }
    for (const bool nibbles : {false, true}) {
        const BmpKind kind{"runs", nibbles ? 4 : 8, nibbles ? 2U : 1U};
        const std::string runs = NoiseBmp(kind, 45, 23, Runs(nibbles, 45, 23));
        const Pixels complete = (WriteFile(file, runs), DecodedByRows(file));
        for (std::size_t bytes = 54; bytes < runs.size(); bytes += 17) {
            WriteFile(file, runs.substr(0, bytes));
            const Pixels own = DecodedByRows(file);
            EXPECT_TRUE(own.Bits.empty() || own.Extent == complete.Extent);
        }
    }
}

TEST_F(ImageRowsTest, WhatIsNoImageSaysWhy) {
    EXPECT_EQ(WhyNot(""), Fault::NotAPicture);
    EXPECT_EQ(WhyNot("\x89PNG\r\n"), Fault::NotAPicture);
    EXPECT_EQ(WhyNot("BM"), Fault::Damaged);
    EXPECT_EQ(WhyNot("\xFF\xD8\xFF"), Fault::Damaged);
    std::string huge = BmpOf(MadeUp({2, 2}));
    Put(huge, 18, 0x7FFFFFFF, 4);
    EXPECT_EQ(WhyNot(huge), Fault::TooLarge);
    EXPECT_EQ(ReadOnlyFile::Open(Folder.Path()).Why().Kind, Fault::NotThere);
    EXPECT_EQ(ReadOnlyFile::Open(Folder.Path() / "none").Why().Kind, Fault::NotThere);
}

} // namespace
} // namespace ornivane
