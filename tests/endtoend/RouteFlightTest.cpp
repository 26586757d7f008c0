#include <map>

#include "ProgramUnderTest.h"

#include "store/Connection.h"

namespace ornivane {

// What the leg displays show after a redraw, and the active point in the grid.
struct LegSample {
    std::string Point, Distance, Course, Time, Remaining;
    bool operator==(const LegSample&) const = default;
};

std::ostream& operator<<(std::ostream& out, const LegSample& sample) {
    return out << sample.Point << " | " << sample.Distance << " | " << sample.Course << " | " << sample.Time
               << " | " << sample.Remaining;
}

// Five points, with a leg to the east, one straight north, one to the west and one back to the north.
class RouteFlight : public ProgramUnderTest {
protected:
    RouteFlight() {
        Connection data;
        data.Open(Folder() / "data.ovd", Connection::Mode::ReadWrite);
        // The chart's image is missing on purpose: positions show on a blank sheet of the same frame.
        data.Execute("INSERT INTO Maps (Name, Oben, Unten, Links, Rechts, Breite, \"Höhe\", Active) "
                     "VALUES ('sheet.jpg', 51.12, 50.18, 6.00, 7.12, 2800, 2540, 1)");
        data.Execute("INSERT INTO Route (RouteID, Nummer, Name) VALUES (1, 1, 'Tour')");
        data.Execute("INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long) VALUES "
                     "(1, 1, 1, 'Alpha', 50.36, 6.30), (2, 1, 2, 'Bravo', 50.408, 6.39), "
                     "(3, 1, 3, 'Charlie', 50.48, 6.39), (4, 1, 4, 'Delta', 50.456, 6.282), "
                     "(5, 1, 5, 'Echo', 50.528, 6.27)");
        WriteFile("data.crm", "\"1\"\r\n\"57600\"\r\n");
        WriteFile("points.txt", "Alpha 50.60 6.50\nBravo 50.68 6.65\nCharlie 50.80 6.65\n"
                                "Delta 50.76 6.47\nEcho 50.88 6.45\n");
    }
    std::string Recording() const { return (Folder() / "flight.nmea").string(); }
    void Record() {
        ChildProcess maker(
            RECEIVER, {{"--fly", (Folder() / "points.txt").string(), "--speed", "200", "--altitude", "1000",
                        "--descent", "700", "--start", "2024-05-01T09:30:00", "--write", Recording()},
                       {},
                       Folder() / "maker.txt"});
        ASSERT_EQ(maker.WaitForEnd(std::chrono::seconds(20)), 0);
    }
    int Redraws() { return std::stoi(program->Ask("property picMap Redraws")); }
    // Kept only when no redraw came between the first text and the last.
    void TakeSample(int before) {
        const int redraw = Redraws() - before;
        if (redraw == 0 || samples.contains(redraw)) return;
        const LegSample sample{program->Text("gridWaypoints"), program->Text("lblDistanz"),
                               program->Text("lblTrueBearing"), program->Text("lblTime"),
                               program->Text("lblRemDist")};
        if (Redraws() - before == redraw) samples.emplace(redraw, sample);
    }

    std::map<int, LegSample> samples; // by the number of the redraw
};

TEST_F(RouteFlight, PassesEachPointAndComesToTheEndOfTheRoute) {
    Record();
    const ChildProcess player(RECEIVER, {{"--play", Recording(), "--pace", "20", "--once-open", "--stay",
                                          "--link", (Folder() / "Ports/COM1").string()},
                                         {},
                                         Folder() / "player.txt"});
    Start();
    program->Do("select cmbRoute Tour");
    program->Click("cmdActivateGoto");
    ASSERT_TRUE(program->Visible("Frame1"));
    EXPECT_EQ(program->Text("lblRemDist"), "29.1 NM") << "the whole route, before there is a fix";
    const int before = Redraws();
    program->Click("cmdGPS");
    ASSERT_TRUE(WaitUntil(
        [&] {
            TakeSample(before);
            return !program->Visible("Frame1");
        },
        std::chrono::seconds(60)));
    TakeSample(before);

    // From route-flight.py, which computes them from the recording alone.
    const std::map<int, LegSample> computed{
        {2, {"1 Alpha", "0.0 NM", "230 °", "00:04", "29.2 NM"}}, // chosen by hand, so not passed yet
        {3, {"2 Bravo", "0.1 NM", "230 °", "00:07", "21.7 NM"}}, // rolls away from Alpha: passed
        {12, {"2 Bravo", "5.4 NM", "50 °", "00:01", "27.1 NM"}},
        {25, {"2 Bravo", "0.3 NM", "50 °", "00:06", "22.0 NM"}},    // the last before Bravo
        {27, {"3 Charlie", "0.4 NM", "216 °", "00:08", "14.9 NM"}}, // passed; its own leg shows once more
        {28, {"3 Charlie", "6.5 NM", "357 °", "00:01", "21.0 NM"}},
        {44, {"3 Charlie", "0.3 NM", "357 °", "00:05", "14.7 NM"}},
        {48, {"4 Delta", "6.9 NM", "241 °", "00:02", "14.1 NM"}}, // in the turn to the west
        {60, {"4 Delta", "2.3 NM", "238 °", "00:41", "9.5 NM"}},
        {79, {"5 Echo", "3.4 NM", "7 °", "00:01", "3.4 NM"}},
        {88, {"5 Echo", "0.1 NM", "187 °", "00:01", "0.1 NM"}}, // behind the last point
    };
    for (const auto& [redraw, sample] : computed) {
        ASSERT_TRUE(samples.contains(redraw)) << redraw << " came and went unseen";
        EXPECT_EQ(samples.at(redraw), sample) << redraw;
    }
    EXPECT_EQ(samples.rbegin()->first, 89) << "the route ends in the redraw that passes its last point";

    // A redraw that passes a point is left out: there the distance to that point still stands for the one to
    // the next.
    std::string point = "1 Alpha";
    double least = 29.2;
    samples.erase(89);
    samples.erase(1); // rolling away from Alpha makes the rest longer, until Alpha is passed
    for (const auto& [redraw, sample] : samples) {
        const double remaining = std::stod(sample.Remaining);
        if (sample.Point == point) {
            EXPECT_LE(remaining, least) << redraw;
            least = remaining;
        } else {
            EXPECT_EQ(sample.Point.front(), point.front() + 1) << redraw;
        }
        point = sample.Point;
    }
    EXPECT_EQ(point, "5 Echo");
    EXPECT_LT(least, 0.5);
    EXPECT_FALSE(program->Visible("noticeBar"));
}

} // namespace ornivane
