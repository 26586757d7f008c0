#include <gmock/gmock.h>

#include <climits>

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
    // Language, symbol, the three of the track logger, the QNH and its day.
    using Shown = std::tuple<int, int, bool, int, bool, int, std::optional<Date>>;
    Shown Read() {
        ReadStartSettings(variablen);
        ReadQnh(variablen);
        const Variablen& v = variablen;
        return {v.EnglishUI, v.SymbolType, v.TrackEnabled, v.TrackInterval, v.TrackAuto, v.QNH, v.QNHDate};
    }
    TemporaryFolder folder;
    Variablen variablen;
};

TEST_F(StartSettings, AreGermanWithoutLoggerAndQnhWhenThereAreNoFiles) {
    EXPECT_EQ(Read(), (Shown{0, 0, false, 0, false, 0, std::nullopt}));
}

TEST_F(StartSettings, ComeFromTheirFiles) {
    folder.Write("lang.crm", "1\r\n");
    folder.Write("symbol.crm", "2\r\n");
    folder.Write("track.crm", "1\r\n15\r\n1\r\n");
    folder.Write("LR.crm", "1017\r\n#2024-05-09#\r\n");
    EXPECT_EQ(Read(), (Shown{1, 2, true, 15000, true, 1017, Date{2024, 5, 9}}));
}

TEST_F(StartSettings, SurviveNumbersThatNoFieldCanHold) {
    folder.Write("symbol.crm", "70000\r\n");
    folder.Write("track.crm", "1\r\n2147483647\r\n0\r\n");
    folder.Write("LR.crm", "-99999\r\n");
    Read();
    EXPECT_EQ(variablen.SymbolType, 0);
    EXPECT_GT(variablen.TrackInterval, INT_MAX - 1000);
    EXPECT_EQ(variablen.QNH, 0);
}

} // namespace ornivane::test
