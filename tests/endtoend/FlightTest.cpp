#include <cmath>
#include <map>
#include <sstream>

#include "ProgramUnderTest.h"

#include "store/Connection.h"

namespace ornivane {

class Flight : public ProgramUnderTest {
protected:
    Flight() {
        Connection data;
        data.Open(Folder() / "data.ovd", Connection::Mode::ReadWrite);
        // The chart's image is missing on purpose: positions show on a blank sheet of the same frame.
        data.Execute("INSERT INTO Maps (Name, Oben, Unten, Links, Rechts, Breite, \"Höhe\", Active) "
                     "VALUES ('sheet.jpg', 51.24, 50.36, 6.00, 7.24, 2800, 2540, 1)");
        WriteFile("data.crm", "\"1\"\r\n\"57600\"\r\n");
        WriteFile("points.txt", "A 50.90 6.90\nB 50.95 6.95\n");
    }
    // Four minutes of flight as a file.
    void Record() {
        ChildProcess maker(RECEIVER, {{"--fly", (Folder() / "points.txt").string(), "--speed", "95", "--for",
                                       "240", "--start", "2024-05-01T09:30:00", "--write", Recording()},
                                      {},
                                      Folder() / "maker.txt"});
        ASSERT_EQ(maker.WaitForEnd(std::chrono::seconds(20)), 0);
    }
    std::string Recording() const { return (Folder() / "flight.nmea").string(); }
    // The fields of the last sentence of each kind, and how many positions the program takes: all but the
    // first, which comes before the first fix.
    std::map<std::string, std::vector<std::string>> LastSentences(int& positions) const {
        std::map<std::string, std::vector<std::string>> last;
        std::istringstream lines(FileBytes("flight.nmea"));
        positions = -1;
        for (std::string line; std::getline(lines, line);) {
            std::vector<std::string> fields;
            std::istringstream words(line);
            for (std::string field; std::getline(words, field, ',');) fields.push_back(field);
            if (fields[0] == "$GPGGA" || fields[0] == "$GPRMC" || fields[0] == "$GPGLL") ++positions;
            last[fields[0]] = fields;
        }
        return last;
    }
};

TEST_F(Flight, EndsWithTheLastSentencesInTheLabelsAfterARedrawAtEvery21stPosition) {
    Record();
    int positions = 0;
    const auto last = LastSentences(positions);
    ASSERT_GT(positions, 400);
    receiver.reset();
    const ChildProcess player(RECEIVER, {{"--play", Recording(), "--pace", "40", "--once-open", "--stay",
                                          "--link", (Folder() / "Ports/COM1").string()},
                                         {},
                                         Folder() / "player.txt"});
    Start();
    const int before = std::stoi(program->Ask("property picMap Redraws"));
    program->Click("cmdGPS");

    const auto& rmc = last.at("$GPRMC");
    const std::string lat = "N " + rmc[3].substr(0, 2) + "° " + rmc[3].substr(2) + "'";
    ASSERT_TRUE(Becomes("text lblLat", lat, 30)) << program->Text("lblLat");
    EXPECT_EQ(program->Text("lblLong"), "E " + rmc[5].substr(0, 3) + "° " + rmc[5].substr(3) + "'");
    EXPECT_EQ(std::stoi(program->Text("lblSpeed")), std::lround(std::stod(rmc[7])));
    EXPECT_EQ(std::stoi(program->Text("lblBearing")), std::lround(std::stod(rmc[8])));
    EXPECT_EQ(std::stoi(program->Text("lblAlt")), std::lround(std::stod(last.at("$GPGGA")[9]) * 3.2808));
    EXPECT_EQ(std::stoi(program->Ask("property picMap Redraws")) - before, 1 + (positions - 1) / 21);
    EXPECT_FALSE(program->Visible("noticeBar"));
}

} // namespace ornivane
