#include "tour/Tour.h"

#include <csignal>
#include <cstdlib>
#include <iostream>

#include "common/SettingsFiles.h"

namespace ornivane {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

constexpr const char* DemoChart = "rhineland.jpg";
constexpr const char* DemoRoute = "Rheinlandrunde";
constexpr const char* Pace = "30"; // times as fast as real

fs::path Copy(const fs::path& folder) {
    fs::path copy = MakeTemporaryFolder("ornivane-tour");
    for (const auto& entry : fs::directory_iterator(folder)) {
        const std::string own = entry.path().filename().string();
        if (own != "pictures" && own != "Ports" && !own.starts_with("."))
            fs::copy(entry.path(), copy / own, fs::copy_options::recursive);
    }
    return copy;
}

} // namespace

int PortOf(const fs::path& folder) {
    const std::optional<ComSettings> saved = ReadComSettings(folder);
    return saved ? std::stoi(saved->Port) : 1;
}

void ChooseDemo(RunningProgram& program) {
    program.Ask(std::string("select cmbMaps ") + DemoChart); // without the demo's data there is none
    program.Ask(std::string("select cmbRoute ") + DemoRoute);
    program.Click("cmdActivateGoto");
    program.Click("cmdGPS");
    // The chart can only follow an aircraft whose place is known.
    const bool hasFix = program.Probe().WaitFor("visible picGPSCheck1", "yes", 20s);
    if (hasFix && program.Ask("property cmdKartezentrieren Lit") != "true")
        program.Click("cmdKartezentrieren");
}

Tour::Tour(const Demo& demo)
    : pictures(demo.Folder / "pictures"), copy(Copy(demo.Folder)), flight(demo.Flight) {
    fs::create_directories(pictures);
}

Tour::~Tour() {
    program.reset();
    receiver.reset();
    std::error_code ignored;
    fs::remove_all(copy, ignored);
}

bool Tour::Run() {
    WriteLanguage(copy, 0);
    receiver =
        std::make_unique<RunningReceiver>(copy, PortOf(copy), flight,
                                          std::vector<std::string>{"--pace", Pace, "--loop", "--once-open",
                                                                   "--speed", "110", "--altitude", "2500"});
    Start(1);
    ChooseRoute();
    Connect();
    Fly();
    program->Click("button7");
    program->Do("click chkVorschau 12 20");
    VisitScreens("de", "day");
    VisitDialogs("de");
    Plan("de");
    program->Click("cmdNight");
    VisitScreens("de", "night");
    program->Click("button5");
    program->Click("OptEng");
    VisitScreens("en", "night");
    program->Click("cmdNight");
    VisitScreens("en", "day");
    Plan("en");
    VisitDialogs("en");
    End();
    FlyEnlarged();
    return good;
}

void Tour::Start(int scale) {
    RunningProgram::Options options;
    options.Scale = scale;
    options.Width *= scale;
    options.Height *= scale;
    options.Output = copy / "output.txt";
    program = std::make_unique<RunningProgram>(copy, options);
    if (scale == 1 && program->Probe().WaitFor("visible frmSplash", "yes")) Picture("splash", {"frmSplash"});
    Check(program->Probe().WaitFor("visible Main", "yes", 20s), "the main window comes up");
    if (scale == 1) LeaveHints();
}

void Tour::End() {
    program->Process().Signal(SIGTERM);
    Check(program->Process().WaitForEnd(10s) == 0, "the program ends in the orderly way when asked to");
    Check(fs::exists(copy / "position.crm") && fs::exists(copy / "Set.crm"), "it saves what must survive");
    program.reset();
}

// What the demo has no data for.
void Tour::LeaveHints() {
    for (const std::string hint : {"frmInfo1", "frmInfo3"}) {
        if (!program->Visible(hint)) continue;
        Picture(hint, {hint});
        program->Click("cmdClose");
    }
}

void Tour::ChooseRoute() {
    Picture("flight-not-connected");
    Check(program->Text("lblSpeed") == "---", "no speed before there is a receiver");
    ChooseDemo(*program);
}

void Tour::Connect() {
    Check(WaitUntil([this] { return program->Text("lblSpeed") != "---"; }, 15s), "lblSpeed lives");
    Check(program->Probe().WaitFor("visible picGPSCheck1", "yes"), "the lamp tells of a fix");
    Picture("flight-first-fix");
}

void Tour::Fly() {
    Check(WaitUntil([this] { return std::atof(program->Text("lblSpeed").c_str()) > 60; }, 30s),
          "it takes off");
    Picture("flight-climbing");
    for (const auto& [key, name] : {std::pair{"Up", "flight-zoomed-out"}, {"Down", "flight-zoomed-in"}}) {
        for (int presses = 0; presses < 5; ++presses) program->Do(std::string("key picMap ") + key);
        Picture(name);
    }
    program->Click("cmdSet");
    for (const std::string button : {"cmdshowRoute", "cmdWayInfo"})
        if (program->Ask("property " + button + " Lit") != "true") program->Click(button);
    Picture("flight-settings-panel");
    ShowStages();
    program->Click("cmdSet");
    const std::string before = program->Text("lblLat") + program->Text("lblLong");
    Check(WaitUntil([&] { return program->Text("lblLat") + program->Text("lblLong") != before; }),
          "it moves");
    Check(WaitUntil([this] { return Distance() > 0 && Distance() < 8; }, 40s), "the next point comes nearer");
    Picture("flight-underway");
    ShowInstruments("day");
    program->Click("cmdNight");
    ShowInstruments("night");
    program->Click("cmdNight");
    Check(WaitUntil([this] { return std::atoi(program->Text("lblRecord").c_str()) > 0; }, 15s),
          "the track is recorded");
    Check(WaitUntil([this] { return Distance() > 10; }, 40s), "it steps to the next leg");
    Picture("flight-next-leg");
}

// Wind, VOR and HSI at the sizes of a tablet and of a large screen.
void Tour::ShowInstruments(const std::string& palette) {
    const auto dial = [this](const std::string& button) {
        program->Do("click Kurskreisel 100 100" + button);
    };
    EnterWind();
    for (const std::string size : {"1024x700", "1920x1080"}) {
        Resize(size);
        for (const std::string mode : {"vor", "hsi", "heading"}) {
            Picture("flight-" + mode + "-" + palette + "-" + size);
            dial("");
        }
    }
    Resize("1024x700");
    dial(" right");
    program->Do("type tVOR1 k");
    Check(program->Visible("frmVOR") && !program->Text("lblResult").empty(),
          "the VOR is found by its letter");
    Picture("flight-vor-search-" + palette);
    program->Do("key tVOR1 Escape");
}

// The switches of three stages, from off to on with texts. Each button shows only at its stage.
void Tour::ShowStages() {
    const std::string zoom = program->Ask("property SlideMap value");
    program->Do("slider SlideMap 60");
    const auto stages = [this](const std::string& what, std::initializer_list<const char*> buttons) {
        // Around to the one that switches off, then on from there.
        for (int i = 0; i < 2 && !program->Visible(*buttons.begin()); ++i)
            for (const char* button : buttons)
                if (program->Visible(button) && !program->Visible(*buttons.begin())) program->Click(button);
        Check(program->Visible(*buttons.begin()), what + " are off");
        for (const char* button : buttons) {
            Picture("flight-" + what + "-" + button);
            if (button != *(buttons.end() - 1)) program->Click(button);
        }
    };
    stages("airspace", {"cmdLR1", "cmdLR2", "picLR3"});
    stages("airfields", {"cmdAPT1", "cmdAPT2", "picAPT3"});
    if (program->Ask("property cmdPR Lit") != "true") program->Click("cmdPR");
    Picture("flight-patterns");
    program->Do("slider SlideMap " + zoom);
}

void Tour::EnterWind() {
    for (const char key : std::string("250105")) program->Do(std::string("key picMap ") + key);
    Check(program->Text("lblWind") != "--- / ---", "the wind is known");
}

void Tour::Resize(std::string size) {
    size[size.find('x')] = ' ';
    program->Do("resize " + size);
}

void Tour::VisitScreens(const std::string& language, const std::string& palette) {
    constexpr std::pair<const char*, const char*> screens[] = {{"button3", "planning"},
                                                               {"button5", "settings"},
                                                               {"button7", "map-data"},
                                                               {"button9", "flight-plan"},
                                                               {"button1", "flight"}};
    for (const auto& [button, name] : screens) {
        program->Click(button);
        Check(program->Ask(std::string("property ") + button + " checked") == "true",
              std::string("the button of ") + name + " is lit");
        if (std::string(name) == "flight")
            Check(program->Probe().WaitFor("visible picGPSCheck1", "yes", 20s),
                  "the link comes back with the flying screen");
        Picture(std::string(name) + "-" + language + "-" + palette);
        if (std::string(name) == "map-data") Calibrate(language + "-" + palette);
    }
}

// As far as the first point's entry: the demo's chart is calibrated already.
void Tour::Calibrate(const std::string& suffix) {
    program->Click("frmCalibrate/cmdCalibrate");
    Check(program->Probe().WaitFor("visible frmCalRect", "yes", 20s), "a chart opens for calibration");
    program->Do("slider frmCalRect/SlideMap -60");
    program->Do("click frmCalRect/picMap 240 320");
    program->Do("type frmCalRect/picMap a");
    Check(program->Ask("text frmCalRect/tQuickfind1") == "a", "a letter typed over the picture searches");
    Picture("calibration-" + suffix, {"frmCalRect"});
    program->Do("key frmCalRect/tQuickfind1 Escape");
    program->Do("key frmCalRect/picMap Escape");
}

void Tour::VisitDialogs(const std::string& language) {
    struct Dialog {
        const char *Screen, *Opener, *Name;
    };
    constexpr Dialog dialogs[] = {{"button3", "menu mnuExport", "frmExport"},
                                  {"button3", "menu mnuabout", "frmAbout"},
                                  {"button5", "click cmdManager", "frmManager"},
                                  {"button5", "click cmdGetWaypoint", "frmGetWaypoints"},
                                  {"button5", "click cmdTrack", "frmTrack"}};
    for (const Dialog& dialog : dialogs) {
        const std::string name = dialog.Name;
        program->Click(dialog.Screen);
        program->Do(dialog.Opener);
        Check(program->Probe().WaitFor("visible " + name, "yes", 10s), name + " opens");
        if (name == "frmTrack") program->Do("key listTrack Space");
        Picture(name + "-" + language, {name});
        program->Do("key " + name + " Escape");
    }
    program->Click("button1");
}

// The planning screen with the airspace of a height, with the measuring line, and with the point of a new
// waypoint.
void Tour::Plan(const std::string& language) {
    program->Click("button3");
    program->Do("slider SlideMap 30");
    program->Do("key tquickfind Ctrl+A");
    program->Do("type tquickfind Bonn");
    program->Do("menu mnuLuftEin");
    program->Do("key tHoehe Ctrl+A");
    program->Do("type tHoehe 4500");
    Picture("frmLuftraumSettings-" + language, {"frmLuftraumSettings"});
    program->Click("cmdExit");
    Check(program->Text("tLR") == "Luftraum in 4500 ft", "airspace shows at the height that was chosen");
    Picture("planning-airspace-" + language);
    program->Click("cmdMessen");
    program->Do("move picMap 110 170");
    Check(program->Text("lblDistanz").ends_with(" NM"), "the distance is measured");
    Picture("planning-measuring-" + language);
    program->Click("picMessen");
    program->Do("doubleclick picMap 200 260");
    Check(program->Text("tWaypoint1").empty(), "a double click begins a waypoint");
    Picture("planning-new-waypoint-" + language);
    program->Do("key tWaypoint1 Escape");
    program->Click("button1");
}

void Tour::FlyEnlarged() {
    Start(2);
    ChooseDemo(*program);
    Check(program->Visible("picGPSCheck1"), "the lamp tells of a fix at 200 %");
    EnterWind();
    for (const std::string size : {"1024x700", "1920x1080"}) {
        Resize(size);
        program->Click("button3");
        Picture("planning-" + size + "-200-percent");
        program->Click("button1");
        for (const std::string palette : {"day", "night"}) {
            for (const std::string mode : {"vor", "hsi", "heading"}) {
                Picture("flight-" + mode + "-" + palette + "-" + size + "-200-percent");
                program->Do("click Kurskreisel 100 100");
            }
            program->Click("cmdNight");
        }
    }
    End();
}

double Tour::Distance() { return std::atof(program->Text("lblDistanz").c_str()); }

void Tour::Picture(const std::string& name, const Widget& of) {
    const fs::path file = pictures / (name + ".png");
    program->Do("grab " + file.string() + (of.Name.empty() ? "" : " " + of.Name));
    std::cout << file.string() << '\n';
}

void Tour::Check(bool isSo, const std::string& what) {
    if (isSo) return;
    std::cout << "FAILED: " << what << '\n';
    good = false;
}

} // namespace ornivane
