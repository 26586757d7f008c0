#pragma once

#include <filesystem>
#include <string>

#include "launch/RunningProgram.h"

namespace ornivane {

// Flies the demo off screen, at many times its pace, and takes a picture of every screen that there is.
class Tour {
public:
    struct Demo {
        std::filesystem::path Folder; // the portable one
        std::filesystem::path Flight; // the points to fly
    };
    // Works on a copy of the portable folder: a tour presses many buttons, and the user's settings are the
    // user's.
    explicit Tour(const Demo& demo);
    ~Tour();

    // False when something was not as it should be; all is printed.
    bool Run();

private:
    void Start(int scale);
    void End();
    void LeaveHints();
    void ChooseRoute();
    void Connect();
    void Fly();
    void ShowInstruments(const std::string& palette);
    void EnterWind();
    void ShowStages();
    void Resize(std::string size);
    void VisitScreens(const std::string& language, const std::string& palette);
    void Calibrate(const std::string& suffix);
    void VisitDialogs(const std::string& language);
    void Plan(const std::string& language);
    void FlyEnlarged();
    double Distance(); // to the next point, in NM
    struct Widget {
        std::string Name; // empty: the main window
    };
    void Picture(const std::string& name, const Widget& of = {});
    void Check(bool isSo, const std::string& what);

    std::filesystem::path pictures;
    std::filesystem::path copy;
    std::filesystem::path flight;
    std::unique_ptr<RunningReceiver> receiver;
    std::unique_ptr<RunningProgram> program;
    bool good = true;
};

// The number of the port in data.crm; 1 when there is none yet, as the program itself takes it.
int PortOf(const std::filesystem::path& folder);

// As a pilot would before take-off: the demo's chart and route, and the receiver.
void ChooseDemo(RunningProgram& program);

} // namespace ornivane
