#pragma once

#include <QMainWindow>
#include <QMenu>
#include <QStackedWidget>
#include <QToolBar>
#include <QToolButton>
#include <functional>
#include <map>

#include "app/ScreenSwitch.h"
#include "common/Variablen.h"
#include "platform/Dialogs.h"
#include "platform/System.h"
#include "platform/qt/Events.h"

namespace ornivane {

class QtNotice;

// The main window, "Main": toolbar, small menu, the screens, and the notice at the bottom. The program owns
// it.
class MainForm : public QMainWindow {
    Q_OBJECT
public:
    // What the window needs of the system, and how its screens are made.
    struct Services {
        Dialogs* Boxes = nullptr;
        EventGuard* Guard = nullptr;
        QtNotice* NoticeBar = nullptr; // put at the bottom of the window; may be missing
        Processes* Programs = nullptr;
        Shell* Links = nullptr;
        std::function<Screen*(Mode)> MakeScreen;
        std::function<void(QWidget* window)> ShowExport; // frmExport, before the window
        std::function<void()> ImportRoute;
        std::function<void()> ShowAirspaceSettings; // of the planning screen
        std::function<void(bool night)> SetNight;
        std::function<void(const Language&)> SetLanguage; // of texts that are not the program's own
        std::function<void()> Ended;                      // everything is saved, the program may exit
    };

    MainForm(Variablen& shared, Services programServices);
    ~MainForm() override;

    // Opens the stores and shows the flying screen. False when the program must end.
    bool Form_Load();
    // Every caption in the language of this moment.
    void ApplyLanguage();
    // Saves and ends the program; the second call does nothing.
    void QueryUnload();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void MakeToolbar();
    void MakeMenu();
    QAction* AddEntry(const char* name, const std::function<void()>& handler);
    void toolMain_ButtonClick(Mode mode);
    void ShowState();

    void mnuabout_Click();
    void mnuUpdate_Click();

    Variablen& variablen;
    Services services;
    ScreenSwitch screens;
    QToolBar* toolMain = nullptr;
    QStackedWidget* stack = nullptr;
    std::map<Mode, QToolButton*> buttons;
    QToolButton* cmdMenu = nullptr;
    QToolButton* cmdNight = nullptr;
    QMenu* menu = nullptr;
    QAction* mnuExport = nullptr;
    QAction* mnuImport = nullptr;
    QAction* mnuLuftEin = nullptr;
    QAction* mnuabout = nullptr;
    QAction* mnuUpdate = nullptr;
    bool unloaded = false;
};

} // namespace ornivane
