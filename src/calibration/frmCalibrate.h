#pragma once

#include <QGroupBox>
#include <QLabel>
#include <array>
#include <memory>

#include "calibration/MapData.h"
#include "platform/qt/Screen.h"

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTableView;

namespace ornivane {

class ChartWatch;
class EventGuard;
class GridBinding;
class QtPicture;
class RecordsetModel;
class SharedCharts;
class SurfaceWidget;

// The catalogue of charts. Every event calls one routine of MapData, then the state is shown.
class frmCalibrate : public Screen {
    Q_OBJECT

public:
    // All of it outlives the form.
    frmCalibrate(Variablen& variablen, EventGuard& eventGuard, Dialogs& messages, SharedCharts& allCharts);
    ~frmCalibrate() override;

    void Form_Activate() override { ApplyLanguage(); }
    void Form_Deactivate() override { logic->Form_Deactivate(); }
    void Form_Unload() override { logic->Form_Unload(); }
    void ApplyLanguage() override;

    MapData& Logic() { return *logic; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeList(QBoxLayout& layout);
    void MakePreview(QBoxLayout& layout);
    void MakeEdges(QBoxLayout& layout);
    void MakeActiveMaps(QBoxLayout& layout);
    void Click(const std::function<void()>& event);
    void cmdCalibrate_Click();
    void ShowState();
    void ShowList();
    void ShowEdges();
    void ApplyToolTips();
    QString Text(const char* german, const char* english) const { return shared.Text(german, english); }

    Variablen& shared;
    EventGuard& guard;
    Dialogs& dialogs;
    SharedCharts& charts;
    std::unique_ptr<QtPicture> picStorage;
    std::unique_ptr<MapData> logic;
    std::unique_ptr<ChartWatch> chartWatch;
    std::unique_ptr<RecordsetModel> mapsModel;
    std::unique_ptr<GridBinding> mapsBinding;
    QLabel *Label7 = nullptr, *Label8 = nullptr, *Label9 = nullptr;
    QLabel *lblBreite = nullptr, *lblHoehe = nullptr, *lblScale = nullptr, *lblNoPreview = nullptr;
    QLineEdit* tPath = nullptr;
    QListWidget* listKarten = nullptr;
    QPushButton *cmdFillList = nullptr, *cmdSpeichern = nullptr, *cmdCalibrate = nullptr;
    QCheckBox* chkVorschau = nullptr;
    SurfaceWidget* picMap = nullptr;
    QGroupBox *Frame1 = nullptr, *Frame3 = nullptr;
    std::array<QLabel*, 4> edgeCaptions{}, edgeHints{};
    std::array<QLineEdit*, 4> tKarten{};
    std::array<QComboBox*, 4> cmbLatLong{};
    QTableView* gridMaps = nullptr;
    bool pressedSelected = false; // the mouse was pressed on the entry that was the selected one already
    bool showing = false; // ShowState is writing to the controls: their signals are no choices of the user
};

} // namespace ornivane
