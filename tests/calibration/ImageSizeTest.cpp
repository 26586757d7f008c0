#include "calibration/ImageSize.h"

#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "platform/qt/QtPicture.h"
#include "support/TestCharts.h"

namespace ornivane {
namespace {

using namespace std::string_literals;

constexpr ImageSize Before{11, 22};
using enum SizeReading;

struct Case {
    const char* What;
    std::string Bytes;
    SizeReading Reading;
    ImageSize Size;
};

void Check(const std::vector<Case>& cases, SizeReading (*read)(std::istream&, ImageSize&)) {
    for (const Case& each : cases) {
        std::istringstream file(each.Bytes);
        ImageSize size = Before;
        EXPECT_EQ(read(file, size), each.Reading) << each.What;
        EXPECT_EQ(size, each.Size) << each.What << ": " << size.Width << " x " << size.Height;
    }
}

std::string Segment(char marker, std::size_t length) {
    return "\xFF"s + marker + static_cast<char>(length >> 8) + static_cast<char>(length & 0xFF) +
           std::string(length - 2, 'x');
}

std::string Frame(char marker, int width, int height) {
    const auto word = [](int value) {
        return std::string{static_cast<char>(value >> 8), static_cast<char>(value & 0xFF)};
    };
    return "\xFF"s + marker + "\0\x11\x08"s + word(height) + word(width);
}

TEST(ImageSize, FollowsTheMarkersOfAJpeg) {
    const std::string start = "\xFF\xD8";
    const std::string frame = Frame('\xC0', 640, 480);
    Check({{"baseline", start + frame, Read, {640, 480}},
           {"progressive", start + Frame('\xC2', 640, 480), Read, {640, 480}},
           {"lossless", start + Frame('\xC3', 640, 480), Read, {640, 480}},
           {"tables before the frame", start + Segment('\xC4', 30) + frame, Read, {640, 480}},
           {"rubbish between segments", start + Segment('\xE0', 16) + "abc" + frame, Read, {640, 480}},
           {"the largest segment", start + Segment('\xE1', 32767 - 1) + frame, Read, {640, 480}},
           {"a segment of 32768 bytes", start + Segment('\xE1', 32768) + frame, Damaged, Before},
           {"the largest image", start + Frame('\xC0', 32767, 32767), Read, {32767, 32767}},
           {"too wide", start + Frame('\xC0', 32768, 100), Damaged, Before},
           {"too high", start + Frame('\xC0', 100, 32768), Damaged, Before},
           {"scan without a frame", start + "\xFF\xDA", Read, {0, 0}},
           {"a segment length below 2", start + "\xFF\xE0\0\1"s + frame, Damaged, Before},
           {"cut before a marker", start + Segment('\xE0', 16), Damaged, Before},
           {"cut in a segment", start + Segment('\xE0', 16).substr(0, 9), Damaged, Before},
           {"cut in the frame", start + frame.substr(0, 8), Damaged, Before},
           {"a renamed PNG", "\x89PNG\r\n", Kept, Before},
           {"a renamed BMP", "BM" + std::string(60, '\0'), Kept, Before},
           {"one byte", "\xFF", Kept, Before},
           {"empty", "", Kept, Before}},
          ReadJpegSize);
}

// The low byte of a skipped length is looked at again: FF makes the next FF, a marker's first byte, the
// marker, and its second byte begins a length.
TEST(ImageSize, GoesAstrayBehindASegmentWhoseLengthEndsInFF) {
    const std::string start = "\xFF\xD8" + Segment('\xE0', 0x1FF);
    Check({{"C0 as a high byte", start + Frame('\xC0', 640, 480), Damaged, Before},
           // FF (taken as marker) 00 04 (length) 2 bytes skipped, then the scan is on its feet again
           {"a short way round", start + "\xFF\0\4ab"s + Frame('\xC1', 640, 480), Read, {640, 480}}},
          ReadJpegSize);
}

TEST(ImageSize, TakesABmpAsItStandsInTheHeader) {
    const std::string head = "BM" + std::string(16, '\0');
    Check({{"bottom-up", head + "\x80\2\0\0\xE0\1\0\0"s, Read, {640, 480}},
           {"top-down", head + "\x80\2\0\0\x20\xFE\xFF\xFF"s, Read, {640, -480}},
           {"huge", head + "\x30\x75\0\0\x20\x4E\0\0"s, Read, {30000, 20000}},
           {"a renamed JPEG", "\xFF\xD8" + std::string(40, 'x'), Read, {0, 0}},
           {"cut in its size", head + "\x80\2\0\0\xE0"s, Read, {0, 0}},
           {"17 bytes", head.substr(0, 17), Kept, Before},
           {"empty", "", Kept, Before}},
          ReadBmpSize);
}

TEST(ImageSize, TheNameDecidesWhichReaderRuns) {
    for (const char* name : {"a.bmp", "A.BMP", "a.Bmp", "bmp"}) EXPECT_EQ(FormatOfName(name), 0u) << name;
    for (const char* name : {"a.jpg", "a.JPG", "bmp.jpg", "a.x", "mp", ""})
        EXPECT_EQ(FormatOfName(name), 1u) << name;
    ImageSize size = Before;
    EXPECT_EQ(ReadImageSize("/nowhere/a.bmp", size), Kept);
    EXPECT_EQ(ReadImageSize("/nowhere/a.jpg", size), Damaged);
    EXPECT_EQ(size, Before);
}

// A frame belongs to the stored pixels: header and decoder must speak of the same ones, in every kind of
// file that scanners and phones make.
TEST(ImageSize, HeaderAndDecoderAgree) {
    const std::filesystem::path images = SOURCE_DIR "/tests/calibration/images";
    TestCharts charts;
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(images)) {
        SCOPED_TRACE(entry.path().filename().string());
        ImageSize size;
        EXPECT_EQ(ReadImageSize(entry.path(), size), Read);
        const bool topDown = entry.path().filename() == "topdown.bmp";
        EXPECT_EQ(size, (ImageSize{37, topDown ? -21 : 21}));
        QtPicture picture(charts);
        ASSERT_TRUE(picture.Load(entry.path()));
        EXPECT_EQ(picture.ScaleWidth(), size.Width);
        EXPECT_EQ(picture.ScaleHeight(), std::abs(size.Height));
        ++count;
    }
    EXPECT_EQ(count, 11);
}

TEST(ImageSize, WhatIsNoImageIsNotShown) {
    const TemporaryFolder folder;
    const std::filesystem::path file = folder.Path() / "a.jpg";
    TestCharts charts;
    const std::string png = "\x89PNG\r\n\x1A\n";
    for (const std::string& bytes : {""s, png, "\xFF\xD8\xFF\xE0"s, "BM"s + std::string(60, '\xFF')}) {
        std::ofstream(file, std::ios::binary) << bytes;
        QtPicture picture(charts);
        EXPECT_FALSE(picture.Load(file));
    }
}

} // namespace
} // namespace ornivane
