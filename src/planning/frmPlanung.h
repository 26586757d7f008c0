#pragma once

#include <QString>
#include <memory>
#include <optional>

#include "planning/PlanningScreen.h"
#include "platform/qt/Screen.h"

class QBoxLayout;
class QComboBox;
class QFrame;
class QLabel;
class QProgressBar;

namespace ornivane {

class EventGuard;
class LampButton;
class ChartWatch;
class QtPicture;
class QtProgress;
class ReadoutLabel;
class SharedCharts;
class SurfaceWidget;
class ZoomSlider;
class frmRoutePanel;
class frmWaypointPanel;

// The planning screen: waypoints at the left, the map in the middle, routes at the right. Every event calls
// one routine of PlanningScreen, then the state is shown.
class frmPlanung : public Screen {
    Q_OBJECT

public:
    // All of it outlives the form.
    frmPlanung(Variablen& variablen, Dialogs& messages, EventGuard& eventGuard, SharedCharts& charts);
    ~frmPlanung() override;

    void Form_Activate() override;
    void Form_Deactivate() override;
    void ApplyLanguage() override;
    // Opens the dialog that chooses the airspace of the map; one that is open comes to the front.
    void ShowAirspaceSettings();
    // Takes a route from a file into the lists: nothing of it is seen but the file dialog and messages.
    // Afterwards the imported route is selected, and what was being typed is still there.
    void ImportRoute();

    PlanningScreen& Logic() { return *screen; }
    // Runs an event, then shows the state. What an event did before an error shows as well.
    void Do(const std::function<void()>& event);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void MakeMap();
    void MakeScreen();
    QFrame* MakeBottom();
    void MakeReadouts(QBoxLayout& layout);
    void MakeMeasuring(QBoxLayout& layout);
    LampButton* MeasureButton(const char* name, PlanEffects (PlanMap::*click)());
    void ChainFocus();

    void Focus(PlanEffect effect);
    void ShowState();
    void ShowChanges();
    void ShowMap(const PlanMapControls& map);
    void ShowCursor();
    void PlaceOverMap();
    QString Text(const char* german, const char* english) const { return shared.Text(german, english); }
    void ApplyToolTips();

    Variablen& shared;
    Dialogs& dialogs;
    EventGuard& guard;
    std::unique_ptr<QtPicture> picStorage;
    std::unique_ptr<QtProgress> progress;
    std::unique_ptr<PlanningScreen> screen;
    std::unique_ptr<ChartWatch> chartWatch;

    SurfaceWidget* picMap = nullptr;
    QLabel *tLR = nullptr, *lblNoMap = nullptr;
    QProgressBar* progBar = nullptr;
    frmWaypointPanel* waypoints = nullptr;
    frmRoutePanel* routes = nullptr;
    ZoomSlider* SlideMap = nullptr;
    QComboBox* cmbMaps = nullptr;
    ReadoutLabel *latitude = nullptr, *longitude = nullptr, *distance = nullptr, *course = nullptr;
    LampButton *cmdMessen = nullptr, *picMessen = nullptr;
    bool loaded = false;
    std::optional<PlanningSnapshot> shown; // what the controls show; none before the first time
    bool showing = false; // ShowState is writing to the controls: their signals are no choices of the user
};

} // namespace ornivane
