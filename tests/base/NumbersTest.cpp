#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "base/Format.h"
#include "base/Language.h"
#include "base/Numbers.h"
#include "base/Readout.h"
#include "base/RuntimeError.h"
#include "base/Strings.h"

namespace ornivane {
namespace {

LocaleText German() {
    LocaleText locale;
    locale.DecimalSeparator = ',';
    return locale;
}

TEST(Format, FollowsThePictureDigitByDigit) {
    const struct {
        double Value;
        const char* Picture;
        const char* Text;
    } cases[] = {{8, "###.####", "8."},
                 {0.5, "###.####", ".5"},
                 {0, "#####", ""},
                 {7, "0#", "07"},
                 {5, "00#", "005"},
                 {7.36, "###0.0", "7.4"},
                 {0, "###0.0", "0.0"},
                 {12345.65, "###0.0", "12345.7"},
                 {47.4, "###.##0", "47.400"},
                 {6.5735, "###.##0", "6.574"},
                 {-8.3, "###.##0", "-8.300"},
                 {9.995, "##0.0", "10.0"},
                 {359.6, "000", "360"},
                 {7.4, "000", "007"},
                 {0.5, "##0", "1"},
                 {1.5, "##0", "2"},
                 {2.5, "##0", "3"},
                 {-2.5, "##0", "-3"},
                 {-0.2, "##0", "0"},
                 {1.005, "0.00", "1.01"},
                 {999.95, "###0.0", "1000.0"},
                 {1e15, "##0", "1000000000000000"},
                 {1e-7, "##0.0", "0.0"},
                 {0.05, "##0.0", "0.1"},
                 {29.95, "##0.0", "30.0"}};
    for (const auto& c : cases)
        EXPECT_EQ(Format(c.Value, c.Picture, LocaleText()), c.Text) << c.Value << " in " << c.Picture;
    EXPECT_EQ(Format(1234.56, "###0.0", German()), "1234,6");
    EXPECT_EQ(Format(8, "###.####", German()), "8,");
    EXPECT_THROW(Format(std::nan(""), "##0", LocaleText()), RuntimeError);
}

TEST(Readout, HoldsTheNumberThatIsReadInItsText) {
    std::mt19937 random(13);
    std::uniform_int_distribution<int> twentieths(-100000, 100000); // every tenth and every half
    for (const char* picture : {"##0", "######", "000", "###0.0", "###.##0"}) {
        for (int i = 0; i < 2000; ++i) {
            const double value = twentieths(random) / 20.0 + (i % 3 - 1) * 1e-7;
            const Readout shown(value, {picture, "NM"});
            const std::string text = Format(value, picture, German());
            ASSERT_EQ(shown.Text(German()), text);
            ASSERT_EQ(shown.Number(), text.empty() ? 0 : NumberIn(text)) << value << " in " << picture;
        }
    }
    EXPECT_EQ(Readout(7.36, {"##0.0", "NM"}).TextWithUnit(German()), "7,4 NM");
    EXPECT_EQ(Readout(0.2, {"#####", "NM"}).TextWithUnit(German()), "");
    EXPECT_EQ(Readout().TextWithUnit(German()) + Readout::Blank().TextWithUnit(German()), "---");
    EXPECT_TRUE(Readout(0, {"######", "ft"}).HasNumber() && !Readout().HasNumber());
}

TEST(Numbers, RoundsTiesToEvenAndOverflowsAtSixteenBits) {
    EXPECT_EQ(Round(0.5), 0);
    EXPECT_EQ(Round(1.5), 2);
    EXPECT_EQ(Round(-2.5), -2);
    EXPECT_DOUBLE_EQ(Round(50.125, 2), 50.12);
    EXPECT_DOUBLE_EQ(Round(0.285, 2), 0.28); // a tie as written, though not as stored
    EXPECT_DOUBLE_EQ(Round(-6.574999, 2), -6.57);
    EXPECT_EQ(ToInt16(32767.4), 32767);
    EXPECT_EQ(ToInt16(-32768.5), -32768);
    for (const double wrong : {32767.5, -32769.0, std::nan(""), std::numeric_limits<double>::infinity()})
        EXPECT_THROW(ToInt16(wrong), RuntimeError) << wrong;
    EXPECT_THROW(CheckedDivide(1, 0), RuntimeError);
    EXPECT_THROW(CheckedDivide(0, 0), RuntimeError);
    EXPECT_THROW(CheckedDivide(1e300, 1e-300), RuntimeError);
}

TEST(Numbers, ReadsWhatPeopleAndReceiversWrite) {
    EXPECT_EQ(ParseNumber("47,4"), 47.4);
    EXPECT_EQ(ParseNumber(" 47.4 "), 47.4);
    EXPECT_EQ(ParseNumber("-8,30"), -8.3);
    EXPECT_EQ(ParseNumber("+7"), 7);
    EXPECT_EQ(ParseNumber("8,"), 8); // as a picture with a separator writes it
    EXPECT_EQ(ParseNumber(",5"), 0.5);
    for (const char* wrong : {"", " ", "---", "1.234,5", "1,2,3", "12a", "nan", "inf", "+-3", "0x10", "N 47"})
        EXPECT_FALSE(ParseNumber(wrong)) << wrong;
    EXPECT_EQ(ParsePlainNumber("4807.038"), 4807.038);
    EXPECT_FALSE(ParsePlainNumber("48,5"));
    EXPECT_THROW(NumberIn("---"), RuntimeError);
}

TEST(Numbers, WritesFifteenDigitsWithoutALocale) {
    EXPECT_EQ(NumberText(0.1 + 0.2), "0.3");
    EXPECT_EQ(NumberText(-50.5), "-50.5");
    EXPECT_EQ(NumberText(0), "0");
    EXPECT_EQ(NumberText(1e20), "1e+20");
    EXPECT_EQ(NumberText(50.5, German()), "50,5");
    EXPECT_EQ(CutToFifteenDigits(100 * 3.2808), 328.08);
}

TEST(Strings, DecodesOldFilesAndKeepsUtf8) {
    EXPECT_EQ(DecodeText("M\xFCnchen \x80"), "München €");
    EXPECT_EQ(DecodeText("\xEF\xBB\xBFKöln"), "Köln");
    EXPECT_EQ(DecodeText("Flug ✈ 😀"), "Flug ✈ 😀");
    EXPECT_FALSE(IsValidUtf8("\xC0\x80"));         // overlong
    EXPECT_FALSE(IsValidUtf8("\xED\xA0\x80"));     // a surrogate
    EXPECT_FALSE(IsValidUtf8("\xF4\x90\x80\x80")); // beyond the last code point
    EXPECT_FALSE(IsValidUtf8("\xE2\x82"));         // cut
    EXPECT_TRUE(IsValidUtf8(DecodeText("\xE2\x82")));
    EXPECT_EQ(CharacterCount("Köln 😀"), 6u);
    EXPECT_EQ(Shortened("Köln 😀", 6), "Köln 😀");
    EXPECT_EQ(Shortened("Köln 😀", 5), "Köln…");
    EXPECT_EQ(Shortened("Köln 😀", 3), "Kö…");
}

TEST(RuntimeErrors, SpeakTheLanguageOfTheMoment) {
    const RuntimeError error(ErrorNumber::DivisionByZero, "SW");
    EXPECT_EQ(DescribeError(error, Language::English()), "Division by zero (11): SW");
    EXPECT_EQ(DescribeError(error, Language()), "Division durch Null (11): SW");
    EXPECT_EQ(DescribeError(RuntimeError(ErrorNumber::Overflow), Language()), "Überlauf (6)");
}

} // namespace
} // namespace ornivane
