#include "common/SettingsFiles.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "common/DisplayFlags.h"
#include "common/SettingsText.h"
#include "support/TemporaryFolder.h"

namespace ornivane {
namespace {

TEST(SettingsText, ReadsValuesOfEveryTypeInOrder) {
    SettingsReader reader(
        "\"a, b\"\r\n1013\r\n#TRUE#,#false#\n#2026-11-22#\r\nbare text \r\n\"\"\r\n\"say \"\"hi\"\"\"");
    EXPECT_EQ(reader.Text(), "a, b");
    EXPECT_EQ(reader.WholeNumber(), 1013);
    EXPECT_EQ(reader.Boolean(), true);
    EXPECT_EQ(reader.Boolean(), false);
    EXPECT_EQ(reader.DateValue(), (Date{2026, 11, 22}));
    EXPECT_EQ(reader.Text(), "bare text");
    EXPECT_EQ(reader.Text(), "");
    EXPECT_EQ(reader.Text(), "say \"hi\"");
    EXPECT_FALSE(reader.Text());
}

TEST(SettingsText, GivesNothingBehindTheFirstDamage) {
    const struct {
        const char* Bytes;
        bool FirstIsRead;
    } cases[] = {{"7\r\nx\r\n8\r\n", true},  {"7", true}, {"\"7", false}, {"7.5\r\n", false},
                 {"99999999999\r\n", false}, {"", false}};
    for (const auto& c : cases) {
        SettingsReader reader(c.Bytes);
        EXPECT_EQ(reader.WholeNumber().has_value(), c.FirstIsRead) << c.Bytes;
        EXPECT_FALSE(reader.WholeNumber()) << c.Bytes;
        EXPECT_FALSE(reader.Text()) << c.Bytes;
    }
    for (const char* date : {"#2026-02-30#", "#22.11.2026#", "2026-11-22", "#2026-11-2#", "##"})
        EXPECT_FALSE(SettingsReader(date).DateValue()) << date;
}

TEST(SettingsText, ReadsWhatItWroteWhateverTheText) {
    for (const std::string& text :
         {std::string("O'Hara"), std::string("Zürich \"Nord\", 2"), std::string("a\r\nb"),
          std::string(300, 'x'), std::string("✈😀"), std::string(" blanks ")}) {
        SettingsReader reader(SettingsWriter().Text(text).WholeNumber(-5).Bytes());
        EXPECT_EQ(reader.Text(), text);
        EXPECT_EQ(reader.WholeNumber(), -5);
    }
}

class SettingsFiles : public testing::Test {
protected:
    TemporaryFolder Folder;
};

TEST_F(SettingsFiles, AreWrittenToTheLetter) {
    const auto& folder = Folder.Path();
    WriteComSettings(folder, {"7", "9600"});
    EXPECT_EQ(Folder.Bytes("data.crm"), "\"7\"\r\n\"9600\"\r\n");
    WriteTrackSettings(folder, {true, 15, false});
    EXPECT_EQ(Folder.Bytes("track.crm"), "1\r\n15\r\n0\r\n");
    WriteLanguage(folder, 1);
    EXPECT_EQ(Folder.Bytes("lang.crm"), "1\r\n");
    WriteQnhSettings(folder, {1020, Date{2026, 1, 2}});
    EXPECT_EQ(Folder.Bytes("LR.crm"), "1020\r\n#2026-01-02#\r\n");
    WriteLastChoice(folder, {"Köln.jpg", "A-B"});
    EXPECT_EQ(Folder.Bytes("kartendaten.crm"), "\"Köln.jpg\"\r\n\"A-B\"\r\n");
    WriteLastChoice(folder, {"demo.bmp", std::nullopt});
    EXPECT_EQ(Folder.Bytes("kartendaten.crm"), "\"demo.bmp\"\r\n");
    DisplayFlags flags;
    flags.ShowPatterns = flags.ShowNames = true;
    WriteDisplayFlags(folder, flags);
    EXPECT_EQ(Folder.Bytes("Set.crm"),
              "#FALSE#\r\n#FALSE#\r\n#TRUE#\r\n#FALSE#\r\n#TRUE#\r\n#FALSE#\r\n#FALSE#\r\n");
    WriteVersion(folder, "1.0.0");
    EXPECT_EQ(Folder.Bytes("version.crm"), "\"1.0.0\"\r\n");
}

TEST_F(SettingsFiles, ComeBackAsTheyWereWritten) {
    const auto& folder = Folder.Path();
    for (const auto& [mode, text] :
         {std::pair{DialMode::Heading, "Kurs"}, {DialMode::Vor, "VOR"}, {DialMode::Hsi, "HSI"}}) {
        const InstrumentSettings instrument{"Köln", mode, "270"};
        WriteInstrumentSettings(folder, instrument);
        EXPECT_EQ(Folder.Bytes("VOR.crm"), "\"Köln\"\r\n\"" + std::string(text) + "\"\r\n\"270\"\r\n");
        InstrumentSettings read;
        EXPECT_TRUE(ReadInstrumentSettings(folder, read));
        EXPECT_EQ(read, instrument);
    }
    InstrumentSettings read{"Köln", DialMode::Vor, ""};
    Folder.Write("VOR.crm", "\"\"\r\n\"nonsense\"\r\n");
    EXPECT_FALSE(ReadInstrumentSettings(folder, read));
    EXPECT_EQ(read, InstrumentSettings());
    WriteFlightPlanEntries(folder, {"2", "25", "110", "270", "15"});
    EXPECT_EQ(ReadFlightPlanEntries(folder)[4], "15");
    WritePlanningHeight(folder, "4500");
    EXPECT_EQ(ReadPlanningHeight(folder), "4500");
    WriteComSettings(folder, {"12", "57600"});
    EXPECT_EQ(ReadComSettings(folder), (ComSettings{"12", "57600"}));
}

TEST_F(SettingsFiles, KeepTheirDefaultsWhenMissingAndTheReadPartWhenDamaged) {
    const auto& folder = Folder.Path();
    EXPECT_FALSE(ReadComSettings(folder));
    EXPECT_FALSE(ReadLanguage(folder));
    EXPECT_EQ(ReadLastChoice(folder), LastChoice{});
    Folder.Write("Set.crm", "#TRUE#\r\n#TRUE#\r\n#WAHR#\r\n#TRUE#\r\n");
    DisplayFlags flags;
    EXPECT_FALSE(ReadDisplayFlags(folder, flags));
    EXPECT_TRUE(flags.ShowAirspace && flags.ShowAirspaceText);
    EXPECT_FALSE(flags.ShowPatterns || flags.ShowRoute);
    Folder.Write("track.crm", "1\r\n20\r\n");
    TrackSettings track;
    EXPECT_FALSE(ReadTrackSettings(folder, track));
    EXPECT_EQ(track, (TrackSettings{true, 20, false}));
    Folder.Write("track.crm", "2\r\n20\r\n-1\r\n");
    EXPECT_TRUE(ReadTrackSettings(folder, track));
    EXPECT_EQ(track, (TrackSettings{false, 20, false}));
    for (const char* port :
         {"\"COM7\"\r\n\"4800\"\r\n", "\"7\"\r\n", "\"0\"\r\n\"4800\"\r\n", "\"7\"\r\n\"fast\"\r\n"}) {
        Folder.Write("data.crm", port);
        EXPECT_FALSE(ReadComSettings(folder)) << port;
    }
    Folder.Write("kartendaten.crm", "\"M\xFCnchen.jpg\"\r\n\"Alpen\"\r\n");
    EXPECT_EQ(ReadLastChoice(folder), (LastChoice{"München.jpg", "Alpen"}));
    std::filesystem::create_directory(folder / "symbol.crm");
    EXPECT_FALSE(ReadSymbol(folder));
    EXPECT_THROW(WriteSymbol(folder, 1), RuntimeError);
    EXPECT_THROW(WriteSymbol(folder / "nowhere", 1), RuntimeError);
}

TEST(Dates, AreRealDays) {
    EXPECT_TRUE(ParseDate("2024-02-29"));
    for (const char* wrong :
         {"2023-02-29", "2024-13-01", "2024-00-10", "0000-01-01", "2024-1-01", "+024-01-01", "2024/01/01"})
        EXPECT_FALSE(ParseDate(wrong)) << wrong;
    EXPECT_EQ(DateText({2024, 2, 9}), "2024-02-09");
    EXPECT_EQ(ShortTime(7, 5), "07:05");
}

} // namespace
} // namespace ornivane
