#include "flightplan/Report.h"

#include <algorithm>
#include <array>

#include "base/Numbers.h"

namespace ornivane::report {

namespace {

struct Box {
    const char* Name;
    const char* Text; // a caption, or the field that a value shows
    int Left, Top, Width, Height;
};

// Captions are German in every language: the form has only ever replaced the values.
constexpr std::array<Box, 5> TotalCaptions{{{"Label10", "Distanz", 8640, 0, 960, 240},
                                            {"Label12", "Flugzeit", 8640, 300, 945, 240},
                                            {"Label16", "FF / h", 8640, 600, 1065, 240},
                                            {"Label13", "Gesamt FF", 8640, 900, 1065, 240},
                                            {"Label15", "Windinfo", 8640, 1200, 1110, 300}}};

constexpr int HeadTop = 1800, HeadHeight = 510;
constexpr std::array<Box, 9> Heads{{{"Label8", " Zeit            [ h:min ]", 150, HeadTop, 1005, HeadHeight},
                                    {"Label1", "Wegpunkt", 1365, HeadTop, 1635, HeadHeight},
                                    {"Label4", "TC", 3570, HeadTop, 525, HeadHeight},
                                    {"Label7", "Distanz        [ NM ]", 4500, HeadTop, 990, HeadHeight},
                                    {"Label3", "Wind     Deg / v", 5805, HeadTop, 960, HeadHeight},
                                    {"Label6", "MH", 7170, HeadTop, 570, HeadHeight},
                                    {"Label2", "TAS     [ kts ]", 8100, HeadTop, 660, HeadHeight},
                                    {"Label5", "GS       [ kts ]", 9120, HeadTop, 645, HeadHeight},
                                    {"Label9", "FF", 10125, HeadTop, 645, HeadHeight}}};

constexpr int LegTop = 80, SumTop = 435, TextHeight = 345;
constexpr std::array<Box, 12> RowTexts{{{"Text8", "ZeitDisplay", 135, LegTop, 1020, TextHeight},
                                        {"Text1", "Name", 1140, LegTop, 2265, TextHeight},
                                        {"Text4", "TC", 3450, LegTop, 780, TextHeight},
                                        {"Text7", "Distanz", 4530, LegTop, 945, TextHeight},
                                        {"Text3", "Wind", 5805, LegTop, 930, TextHeight},
                                        {"Text5", "MH", 7095, LegTop, 720, TextHeight},
                                        {"Text2", "TAS", 8115, LegTop, 690, TextHeight},
                                        {"Text6", "GS", 9060, LegTop, 750, TextHeight},
                                        {"Text9", "FFm", 10095, LegTop, 645, TextHeight},
                                        {"Text10", "ZeitAcc", 135, SumTop, 1020, TextHeight},
                                        {"Text11", "DistanzAcc", 4530, SumTop, 945, TextHeight},
                                        {"Text12", "FFmAcc", 10095, SumTop, 675, TextHeight}}};

constexpr std::array<Box, 3> HeaderLines{
    {{"Line3", "", 0, 1600, 8500, 0}, {"Line4", "", 8500, 0, 0, 1600}, {"Line1", "", 0, 2400, Width, 0}}};
constexpr std::array<Box, 3> RowLines{
    {{"Line2", "", 0, 810, Width, 0}, {"Line5", "", 7950, 50, 0, 680}, {"Line6", "", 9945, 50, 0, 680}}};

Item Placed(const Box& box, Item::Kind kind, std::string text, int down) {
    return {kind, box.Name, box.Left, box.Top + down, box.Width, box.Height, std::move(text)};
}

// A caption of two lines has blanks between them, as many as once made it break there.
std::string InLines(std::string caption) {
    const std::size_t gap = caption.find("  ");
    if (gap != std::string::npos) caption.replace(gap, caption.find_first_not_of(' ', gap) - gap, "\n");
    return caption;
}

void AddHeader(Page& page, const Totals& totals) {
    constexpr std::array values = {"lblDistanz", "lblZeit", "lblFFh", "lblFF", "lblWind"};
    const std::array texts = {totals.Distanz, totals.Zeit, totals.FFh, totals.FF, totals.Wind};
    constexpr std::array lefts = {9810, 9825, 9840, 9840, 9840};
    for (std::size_t i = 0; i < values.size(); ++i) {
        page.push_back(Placed(TotalCaptions[i], Item::Kind::Label, TotalCaptions[i].Text, 0));
        page.push_back({Item::Kind::Value, values[i], lefts[i], TotalCaptions[i].Top, 930, 240, texts[i]});
    }
    for (const Box& head : Heads) page.push_back(Placed(head, Item::Kind::Label, InLines(head.Text), 0));
    for (const Box& line : HeaderLines) page.push_back(Placed(line, Item::Kind::Line, {}, 0));
}

} // namespace

std::string Shown(const Value& value, const LocaleText& locale) {
    if (value.IsNull()) return {};
    if (std::holds_alternative<std::string>(value.Raw())) return value.Text();
    return NumberText(value.Number(), locale);
}

int RowsOnPage(int height) { return std::max(1, (height - HeaderHeight) / RowHeight); }

std::vector<Page> LayOut(const Recordset& plan, const Totals& totals, int pageHeight,
                         const LocaleText& locale) {
    const int perPage = RowsOnPage(pageHeight);
    std::vector<Page> pages(1);
    AddHeader(pages.back(), totals);
    for (int row = 0; row < plan.RecordCount(); ++row) {
        if (row > 0 && row % perPage == 0) AddHeader(pages.emplace_back(), totals);
        const int top = HeaderHeight + row % perPage * RowHeight;
        for (const Box& text : RowTexts)
            pages.back().push_back(
                Placed(text, Item::Kind::Value, Shown(plan.ValueAt(row, text.Text), locale), top));
        for (const Box& line : RowLines) pages.back().push_back(Placed(line, Item::Kind::Line, {}, top));
    }
    return pages;
}

} // namespace ornivane::report
