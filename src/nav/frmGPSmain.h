#pragma once

#include <QPointF>
#include <QString>
#include <array>
#include <functional>
#include <memory>
#include <set>
#include <utility>
#include <vector>

#include "nav/FlyingScreen.h"
#include "platform/PortList.h"
#include "platform/qt/Screen.h"

class QBoxLayout;
class QComboBox;
class QFrame;
class QGridLayout;
class QLabel;
class QProgressBar;
class QTableView;

namespace ornivane {

class EventGuard;
class GridBinding;
class LampButton;
class ChartWatch;
class QtPicture;
class QtProgress;
class ReadoutLabel;
class RecordsetModel;
class SharedCharts;
class SurfaceWidget;
class ZoomSlider;
class frmInstrumentPanel;
class frmRecordPanel;
class frmStageButton;
class frmWindPanel;

// What the flying screen's form needs of the program. All of it outlives the form.
struct FlyingFormServices {
    Variablen& Shared;
    FlightDevices Devices;
    const PortList& Ports;
    Dialogs& Messages;
    Notice& Notices;
    EventGuard& Guard;
    SharedCharts& Charts;
};

// The flying screen. Every event calls one routine of FlyingScreen, then the state is shown.
class frmGPSmain : public Screen {
    Q_OBJECT

public:
    explicit frmGPSmain(const FlyingFormServices& services);
    ~frmGPSmain() override;

    void Form_Activate() override;
    void Form_Deactivate() override;
    void Form_Unload() override;
    void ApplyLanguage() override;

    FlyingScreen& Logic() { return *screen; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool event(QEvent* event) override;

private:
    void MakeMap(QGridLayout& layout);
    void MakeBottom(QGridLayout& layout);
    void MakeSide(QGridLayout& layout);
    void MakeLinkButtons(QBoxLayout& layout);
    void MakeReadouts(QBoxLayout& layout);
    void MakeTarget(QBoxLayout& layout);
    void MakeRoute(QBoxLayout& layout);
    void MakeRouteList(QBoxLayout& layout);
    void MakeRouteButtons(QBoxLayout& layout);
    void MakeOverMap();
    void MakePanel();
    void MakeFlagLamps(QBoxLayout& layout, bool ofAirspace);
    void MakeStageButtons(QBoxLayout& layout);
    void MakeScreen();
    LampButton* Lamp(const char* name, const char* icon, const std::function<void()>& click);
    using Routine = void (FlyingScreen::*)();
    // A lamp that switches: `off` while it is on, else `on`.
    LampButton* Switch(const char* name, const char* icon, const bool& isOn, Routine on, Routine off);

    void MapPressed(QPointF at, Qt::MouseButton button);
    bool HandleKey(const QKeyEvent& event);
    bool HandleKeyUp(const QKeyEvent& event);
    bool CloseEntry();
    bool IsTyping() const;
    void OpenByEnter(QComboBox& list);
    void ShowPanel(bool visible);
    void ShowRouteMask(bool visible);

    void ShowState();
    void ShowLink();
    void ShowLinkToolTips();
    void Click(const std::function<void()>& event);
    void ShowReadouts();
    void ShowMapControls();
    void ShowMapRing();
    void ShowRoute();
    void PlaceOverMap();
    QString Text(const char* german, const char* english) const {
        return services.Shared.Text(german, english);
    }
    void ApplyCaptions();
    QString WhyNoMap() const;
    void ApplyToolTips();
    void ApplyPanelTexts();

    FlyingFormServices services;
    std::unique_ptr<QtPicture> picStorage;
    std::unique_ptr<QtProgress> progress;
    std::unique_ptr<FlyingScreen> screen;
    std::unique_ptr<ChartWatch> chartWatch;
    std::unique_ptr<RecordsetModel> pointsModel;
    std::unique_ptr<GridBinding> pointsBinding;

    SurfaceWidget* picMap = nullptr;
    ZoomSlider* SlideMap = nullptr;
    QProgressBar* progBar = nullptr;
    QLabel *lblStatus = nullptr, *lblNoMap = nullptr, *tNextMap = nullptr, *LblMapNumber = nullptr;
    QLabel* tRoute = nullptr; // lies over cmbRoute while that has the focus
    frmInstrumentPanel* instruments = nullptr;
    frmWindPanel* wind = nullptr;
    frmRecordPanel* record = nullptr;
    frmStageButton *airspaceButton = nullptr, *airfieldButton = nullptr;
    std::vector<std::pair<DisplayFlag, LampButton*>> flagLamps;
    QLabel* lblLegend = nullptr;
    QComboBox *cmbMaps = nullptr, *cmbRoute = nullptr;
    QFrame *frmSet = nullptr, *Frame1 = nullptr;
    QTableView* gridWaypoints = nullptr;
    ReadoutLabel *speed = nullptr, *bearing = nullptr, *altitude = nullptr;
    QLabel *lblLat = nullptr, *lblLong = nullptr;
    ReadoutLabel *distance = nullptr, *course = nullptr, *time = nullptr, *remaining = nullptr;
    QLabel *lblRoute = nullptr, *lblLatx = nullptr, *lblLongx = nullptr;
    LampButton *cmdGPS = nullptr, *cmdKartezentrieren = nullptr, *cmdShowPoints = nullptr,
               *cmdActivateGoto = nullptr, *cmdDirectFly = nullptr, *cmdSet = nullptr,
               *cmdMapScroll = nullptr;
    LampButton *cmdNext = nullptr, *cmdPrev = nullptr;
    std::array<LampButton*, 3> picGPSCheck{};
    std::array<QString, 3> lampTips;
    QString connectTip;
    std::set<int> pressedKeys; // let go later; a press that ended an entry elsewhere is none of them
    QPointF drag;
    bool dragging = false;
    bool loaded = false;
    bool showing = false; // ShowState is writing to the controls: their signals are no choices of the user
};

} // namespace ornivane
