#include <map>

#include "RecordedFlight.h"
#include "support/PtyLine.h"

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
class RouteFlight : public RecordedFlight {
protected:
    RouteFlight() {
        AddSheet(50.18, 51.12, 6.00, 7.12);
        data.Execute("INSERT INTO Route (RouteID, Nummer, Name) VALUES (1, 1, 'Tour')");
        data.Execute("INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long) VALUES "
                     "(1, 1, 1, 'Alpha', 50.36, 6.30), (2, 1, 2, 'Bravo', 50.408, 6.39), "
                     "(3, 1, 3, 'Charlie', 50.48, 6.39), (4, 1, 4, 'Delta', 50.456, 6.282), "
                     "(5, 1, 5, 'Echo', 50.528, 6.27)");
    }
    // The recording in parts, each up to the position that brings the next redraw: the first with a fix,
    // which is the second of all, and every 21st behind it.
    std::vector<std::string> UpToEachRedraw() const {
        std::vector<std::string> parts(1);
        int position = -1;
        for (const std::string& sentence : Sentences) {
            parts.back() += sentence;
            if (IsPosition(sentence) && ++position % 21 == 1) parts.emplace_back();
        }
        parts.pop_back();
        return parts;
    }
};

// The receiver waits for each redraw, so that all of them are seen, however slow the machine is.
TEST_F(RouteFlight, PassesEachPointAndComesToTheEndOfTheRoute) {
    Record("Alpha 50.60 6.50\nBravo 50.68 6.65\nCharlie 50.80 6.65\nDelta 50.76 6.47\nEcho 50.88 6.45\n",
           {"--speed", "200", "--altitude", "1000", "--descent", "700"});
    const PtyLine line(File("Ports/COM1"));
    Start();
    program->Do("select cmbRoute Tour");
    program->Click("cmdActivateGoto");
    ASSERT_TRUE(program->Visible("Frame1"));
    EXPECT_EQ(program->Text("lblRemDist"), "29.1 NM") << "the whole route, before there is a fix";
    const int before = Redraws();
    program->Click("cmdGPS");
    std::map<int, LegSample> samples; // by the number of the redraw
    for (const std::string& part : UpToEachRedraw()) {
        const int redraw = static_cast<int>(samples.size()) + 1;
        line.Send(part);
        ASSERT_TRUE(Becomes("property picMap Redraws", std::to_string(before + redraw), 30)) << redraw;
        samples[redraw] = {program->Text("gridWaypoints"), program->Text("lblDistanz"),
                           program->Text("lblTrueBearing"), program->Text("lblTime"),
                           program->Text("lblRemDist")};
        if (!program->Visible("Frame1")) break;
    }

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
    ASSERT_EQ(samples.rbegin()->first, 89) << "the route ends in the redraw that passes its last point";
    for (const auto& [redraw, sample] : computed) EXPECT_EQ(samples.at(redraw), sample) << redraw;

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
