#include <fstream>
#include <map>

#include "base/Strings.h"
#include "flightplan/PlanColumns.h"
#include "flightplan/PlanFixture.h"

namespace ornivane {
namespace {

// Plans that hand-plan.py has worked out from the formulas alone.
class HandPlan : public PlanTest, public testing::WithParamInterface<const char*> {
protected:
    HandPlan() {
        std::ifstream file(std::string(SOURCE_DIR) + "/tests/flightplan/" + GetParam() + ".plan");
        for (std::string line; std::getline(file, line);) {
            std::vector<std::string> parts = Split(line, "\t");
            const std::string kind = parts.front();
            parts.erase(parts.begin());
            items[kind].push_back(parts);
        }
        Sql("INSERT INTO Route (Nummer, Name) VALUES (1, 'By hand')");
        int number = 0;
        for (const auto& point : items["point"])
            Shared.DataConn.Execute(
                "INSERT INTO GpsPoints VALUES (?, 1, ?, ?, ?, ?)",
                {++number, NumberIn(point[0]), point[1], NumberIn(point[2]), NumberIn(point[3])});
    }

    void Compare(const std::string& what, const std::string& expected, const std::string& found) {
        const auto a = ParsePlainNumber(expected), b = ParsePlainNumber(found);
        // The fifteenth digit of an unrounded heading depends on the order of its additions.
        if (a && b)
            EXPECT_NEAR(*a, *b, 1e-11 * std::max(1.0, std::abs(*a))) << what;
        else
            EXPECT_EQ(expected, found) << what;
    }

    std::map<std::string, std::vector<std::vector<std::string>>> items;
};

TEST_P(HandPlan, EveryCellAndTotalIsTheSame) {
    Open();
    for (std::size_t i = 0; i < PlanEntryCount; ++i) Plan.Entries.Texts[i] = items["entries"][0][i];
    Plan.cmdCalc_Click();
    for (const auto& edit : items["edit"]) {
        const auto column = std::find_if(PlanColumns.begin(), PlanColumns.end(),
                                         [&](const PlanColumn& c) { return edit[1] == c.Field; });
        ASSERT_TRUE(
            Plan.EditCell(std::stoi(edit[0]), static_cast<int>(column - PlanColumns.begin()), edit[2]));
    }
    ASSERT_EQ(items["cell"].size(), items["point"].size() * Plan.PlanSet.Fields().size());
    for (const auto& cell : items["cell"])
        Compare("row " + cell[0] + " " + cell[1], cell[2], Cell(std::stoi(cell[0]), cell[1].c_str()));
    const std::map<std::string, std::string> labels{{"lblFF", Plan.lblFF},
                                                    {"lblZeit", Plan.lblZeit},
                                                    {"lblAvgWind", Plan.lblAvgWind},
                                                    {"lblDistanz", Plan.lblDistanz}};
    ASSERT_EQ(items["label"].size(), labels.size());
    for (const auto& label : items["label"]) Compare(label[0], label[1], labels.at(label[0]));
}

INSTANTIATE_TEST_SUITE_P(Plans, HandPlan, testing::Values("wind-round-the-compass", "southwest-edited"),
                         [](const auto& test) {
                             std::string name = test.param;
                             std::replace(name.begin(), name.end(), '-', '_');
                             return name;
                         });

} // namespace
} // namespace ornivane
