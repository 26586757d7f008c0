#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <fstream>

#include "Fakes.h"
#include "app/StartSettings.h"
#include "app/UpdateCheck.h"

namespace ornivane::test {

TEST(UpdateCheck, OffersAnyDifferentShortVersionAndNothingElse) {
    const struct {
        std::optional<std::string> Served;
        bool Offered;
    } cases[] = {
        {std::nullopt, false},                              // server not reached
        {"", false},                                        //
        {"1.0.0", false},                                   // this version
        {"1.0.1", true},                                    //
        {"0.9.9", true},                                    // older counts too
        {"9.9.99", true},                                   // the longest that is a version
        {"1.10.10", false},                                 // seven characters are an error page
        {"<html>404</html>", false},                        //
        {"\xC3\xA4\xC3\xB6\xC3\xBC\xC3\xA4\xC3\xB6", true}, // characters are counted, not bytes
    };
    for (const auto& one : cases) {
        ScriptedWeb web;
        web.Answer = one.Served;
        EXPECT_EQ(UpdateOffered(web, "1.0.0"), one.Offered) << one.Served.value_or("nothing");
        EXPECT_THAT(web.Asked,
                    testing::ElementsAre(testing::EndsWith("/update-gps/download/version-prog.txt")));
    }
}

class StartSettings : public testing::Test {
protected:
    StartSettings() { variablen.ProgramFolder = folder.Path(); }
    void File(const char* name, const std::string& text) { std::ofstream(folder.Path() / name) << text; }

    TemporaryFolder folder;
    Variablen variablen;
};

TEST_F(StartSettings, AreGermanWithoutLoggerAndQnhWhenThereAreNoFiles) {
    ReadStartSettings(variablen);
    ReadQnh(variablen);
    EXPECT_EQ(variablen.EnglishUI, 0);
    EXPECT_EQ(variablen.SymbolType, 0);
    EXPECT_FALSE(variablen.TrackEnabled);
    EXPECT_EQ(variablen.TrackInterval, 0);
    EXPECT_FALSE(variablen.TrackAuto);
    EXPECT_EQ(variablen.QNH, 0);
    EXPECT_EQ(variablen.QNHDate, std::nullopt);
}

TEST_F(StartSettings, ComeFromTheirFiles) {
    File("lang.crm", "1\r\n");
    File("symbol.crm", "2\r\n");
    File("track.crm", "1\r\n15\r\n1\r\n");
    File("LR.crm", "1017\r\n#2024-05-09#\r\n");
    ReadStartSettings(variablen);
    ReadQnh(variablen);
    EXPECT_EQ(variablen.EnglishUI, 1);
    EXPECT_EQ(variablen.SymbolType, 2);
    EXPECT_TRUE(variablen.TrackEnabled);
    EXPECT_EQ(variablen.TrackInterval, 15000);
    EXPECT_TRUE(variablen.TrackAuto);
    EXPECT_EQ(variablen.QNH, 1017);
    EXPECT_EQ(variablen.QNHDate, (Date{2024, 5, 9}));
}

TEST_F(StartSettings, SurviveNumbersThatNoFieldCanHold) {
    File("symbol.crm", "70000\r\n");
    File("track.crm", "1\r\n2147483647\r\n0\r\n");
    File("LR.crm", "-99999\r\n");
    ReadStartSettings(variablen);
    ReadQnh(variablen);
    EXPECT_EQ(variablen.SymbolType, 0);
    EXPECT_GT(variablen.TrackInterval, INT_MAX - 1000);
    EXPECT_EQ(variablen.QNH, 0);
}

} // namespace ornivane::test
