// 20,000 waypoints in the real panels of planning's lists: a letter of the quick search, a step, a category,
// adding and deleting, each until the panels are painted. The chart is not drawn here.

#include <QApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QTableView>

#include <benchmark/benchmark.h>

#include "planning/ListsFixture.h"
#include "planning/frmRoutePanel.h"
#include "planning/frmWaypointPanel.h"
#include "platform/qt/Theme.h"

namespace {

using namespace ornivane;

constexpr int Many = 20000;

QApplication& Application() {
    static int count = 1;
    static char name[] = "PlanningBench";
    static char* values[] = {name, nullptr};
    static auto* application = new QApplication(count, values);
    return *application;
}

struct Planning : PlanningLists {
    Planning() {
        Theme::Apply(Application(), false);
        Shared.DataConn.Execute(
            "INSERT INTO Waypoints (Name, Lat, Long, Kategorie) WITH RECURSIVE n(i) AS "
            "(SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?) SELECT char(65 + i * 7 % 26) || "
            "char(97 + i * 11 % 26) || char(97 + i * 17 % 23) || ' ' || i, 45 + i % 1000 / "
            "100.0, 5 + i % 777 / 100.0, CASE i % 2 WHEN 0 THEN 'See' ELSE '' END FROM n",
            {Many});
        AddRoute("R", std::vector<double>(100, 7.0));
        Load();
        auto* row = new QHBoxLayout(&Window);
        const auto run = [this](const frmListPanel::Event& event) {
            event();
            ShowState();
        };
        const auto addCurrent = [this] { return Routes.cmdAddwaypoint(Points.Current()); };
        Left = new frmWaypointPanel(&Window, Points, Shared, run, addCurrent);
        Left->ApplyLanguage();
        row->addWidget(Left);
        Right = new frmRoutePanel(&Window, Routes, Shared, run, addCurrent);
        row->addWidget(Right);
        Window.resize(1024, 1000);
        Window.show();
        Paint();
    }
    void ShowState() {
        Left->Show(Points, Points.OtherTarget());
        Left->ShowSelection();
        if (!Right) return; // the panels are being made
        Right->Show(Routes);
        Right->ShowSelection();
    }
    void Paint() {
        Application().processEvents();
        Window.grab();
    }
    // One letter: what the field says to the panel when a key was pressed.
    void Letter(const QString& text) {
        auto* field = Window.findChild<QLineEdit*>("tquickfind");
        emit field->textEdited(text);
    }

    QWidget Window;
    frmWaypointPanel* Left = nullptr;
    frmRoutePanel* Right = nullptr;
};

Planning& Lists() {
    static auto* lists = [] {
        Application();
        return new Planning; // neither of them is deleted: the application would be gone first
    }();
    return *lists;
}

void QuickFindLetter(benchmark::State& state) {
    Planning& lists = Lists();
    const char* const texts[] = {"z", "zu", "a", "ab", "m", "zzzz"};
    std::size_t i = 0;
    for (auto _ : state) {
        lists.Letter(texts[i++ % std::size(texts)]);
        lists.Paint();
    }
}

void Step(benchmark::State& state) {
    Planning& lists = Lists();
    lists.Points.WaypointsSet.SetAbsolutePosition(Many / 2);
    for (auto _ : state) {
        lists.Points.cmdNext();
        lists.Paint();
    }
}

void Category(benchmark::State& state) {
    Planning& lists = Lists();
    const char* const names[] = {"See", WaypointEditing::AllWaypoints};
    std::size_t i = 0;
    for (auto _ : state) {
        lists.Points.ChooseCategory(names[i++ % 2]);
        lists.ShowState();
        lists.Paint();
    }
    lists.Points.FillCategories();
}

void Activation(benchmark::State& state) {
    Planning& lists = Lists();
    for (auto _ : state) {
        lists.Points.FillCategories();
        lists.ShowState();
        lists.Paint();
    }
}

void AddAndDelete(benchmark::State& state) {
    Planning& lists = Lists();
    for (auto _ : state) {
        lists.Points.tWaypoint = {"", "Mzz new", "47.4", "8.3"};
        lists.Points.cmdNew();
        lists.Points.cmdDelete();
        lists.ShowState();
        lists.Paint();
    }
}

void AddRoutePoint(benchmark::State& state) {
    Planning& lists = Lists();
    for (auto _ : state) {
        lists.AddCurrent();
        lists.Routes.cmdDeleteWaypoint();
        lists.Paint();
    }
}

void PaintAlone(benchmark::State& state) {
    Planning& lists = Lists();
    for (auto _ : state) lists.Paint();
}

BENCHMARK(PaintAlone)->Unit(benchmark::kMillisecond);
BENCHMARK(QuickFindLetter)->Unit(benchmark::kMillisecond);
BENCHMARK(Step)->Unit(benchmark::kMillisecond);
BENCHMARK(Category)->Unit(benchmark::kMillisecond);
BENCHMARK(Activation)->Unit(benchmark::kMillisecond);
BENCHMARK(AddAndDelete)->Unit(benchmark::kMillisecond);
BENCHMARK(AddRoutePoint)->Unit(benchmark::kMillisecond);

} // namespace
