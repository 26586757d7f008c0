#include <algorithm>
#include <cmath>
#include <map>
#include <sstream>

#include "RecordedFlight.h"

namespace ornivane {

class Flight : public RecordedFlight {
protected:
    Flight() { AddSheet(50.36, 51.24, 6.00, 7.24); }
    // The fields of the last sentence of each kind.
    std::map<std::string, std::vector<std::string>> LastSentences() const {
        std::map<std::string, std::vector<std::string>> last;
        for (const std::string& sentence : Sentences) {
            std::vector<std::string> fields;
            std::istringstream words(sentence);
            for (std::string field; std::getline(words, field, ',');) fields.push_back(field);
            last[fields[0]] = fields;
        }
        return last;
    }
};

TEST_F(Flight, EndsWithTheLastSentencesInTheLabelsAfterARedrawAtEvery21stPosition) {
    Record("A 50.90 6.90\nB 50.95 6.95\n", {"--speed", "95", "--for", "240"});
    // The first comes before the first fix.
    const auto positions = std::count_if(Sentences.begin(), Sentences.end(), IsPosition) - 1;
    const auto last = LastSentences();
    ASSERT_GT(positions, 400);
    const ChildProcess player(RECEIVER, {{"--play", File("flight.nmea"), "--pace", "40", "--once-open",
                                          "--stay", "--link", File("Ports/COM1")},
                                         {},
                                         File("player.txt")});
    Start();
    const int before = Redraws();
    program->Click("cmdGPS");

    const auto& rmc = last.at("$GPRMC");
    const std::string lat = "N " + rmc[3].substr(0, 2) + "° " + rmc[3].substr(2) + "'";
    ASSERT_TRUE(Becomes("text lblLat", lat, 30)) << program->Text("lblLat");
    EXPECT_EQ(program->Text("lblLong"), "E " + rmc[5].substr(0, 3) + "° " + rmc[5].substr(3) + "'");
    EXPECT_EQ(std::stoi(program->Text("lblSpeed")), std::lround(std::stod(rmc[7])));
    EXPECT_EQ(std::stoi(program->Text("lblBearing")), std::lround(std::stod(rmc[8])));
    EXPECT_EQ(std::stoi(program->Text("lblAlt")), std::lround(std::stod(last.at("$GPGGA")[9]) * 3.2808));
    EXPECT_EQ(Redraws() - before, 1 + (positions - 1) / 21);
    EXPECT_FALSE(program->Visible("noticeBar"));
}

} // namespace ornivane
