#include "flightplan/Report.h"

#include <gtest/gtest.h>

#include "flightplan/PlanRow.h"

namespace ornivane {
namespace {

using report::Item;

Recordset PlanOf(int rows) {
    std::vector<PlanRow> plan(static_cast<std::size_t>(rows));
    for (int i = 0; i < rows; ++i) {
        plan[static_cast<std::size_t>(i)].Nr = i + 1;
        plan[static_cast<std::size_t>(i)].Name = "P" + std::to_string(i + 1);
        plan[static_cast<std::size_t>(i)].MH = 104.73333333333333;
        if (i > 0) plan[static_cast<std::size_t>(i)].DistanzAcc = 12.5 * i;
    }
    Recordset set;
    FillPlan(set, plan);
    return set;
}

const Item& Find(const report::Page& page, const std::string& name, int which = 0) {
    for (const Item& item : page)
        if (item.Name == name && which-- == 0) return item;
    throw std::runtime_error("no item " + name);
}

TEST(Report, RepeatsItsHeaderAndBreaksBetweenRows) {
    const Recordset plan = PlanOf(40);
    constexpr int height = report::HeaderHeight + 16 * report::RowHeight + 800;
    const auto pages = report::LayOut(plan, {"97,2 NM", "00:52", "20", "17,3", "HWC 3 kts"}, height, {','});
    ASSERT_EQ(pages.size(), 3u);
    for (const report::Page& page : pages) {
        EXPECT_EQ(Find(page, "lblDistanz"),
                  (Item{Item::Kind::Value, "lblDistanz", 9810, 0, 930, 240, "97,2 NM"}));
        EXPECT_EQ(Find(page, "lblWind").Text, "HWC 3 kts");
        for (const Item& item : page) EXPECT_LE(item.Top + item.Height, height);
    }
    EXPECT_EQ(Find(pages[0], "Text1", 15).Text, "P16");
    EXPECT_EQ(Find(pages[1], "Text1").Text, "P17");
    EXPECT_EQ(Find(pages[1], "Text1").Top, report::HeaderHeight + 80);
    EXPECT_EQ(Find(pages[2], "Text1", 7).Text, "P40");
    EXPECT_EQ(Find(pages[0], "Text11", 2),
              (Item{Item::Kind::Value, "Text11", 4530, report::HeaderHeight + 2 * report::RowHeight + 435,
                    945, 345, "25"}));
    EXPECT_EQ(Find(pages[0], "Text11", 3).Text, "37,5");
    EXPECT_EQ(Find(pages[0], "Text5").Text, "104,733333333333"); // no format of its own
    EXPECT_EQ(Find(pages[0], "Text11").Text, "");
    EXPECT_EQ(Find(pages[0], "Label8").Text, " Zeit\n[ h:min ]");
    EXPECT_EQ(report::LayOut(PlanOf(0), {}, 100, {}).size(), 1u);
    EXPECT_EQ(report::LayOut(PlanOf(2), {}, 100, {}).size(), 2u); // paper too low for a row: one each
}

} // namespace
} // namespace ornivane
