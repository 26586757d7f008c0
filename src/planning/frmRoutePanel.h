#pragma once

#include <memory>

#include "planning/RouteEditing.h"
#include "planning/frmListPanel.h"

class QBoxLayout;
class QLabel;

namespace ornivane {

class GridBinding;
class LampButton;
class RecordsetModel;

// The right side of planning: the routes, the points of the selected one, its length, whether it is drawn.
class frmRoutePanel : public frmListPanel {
    Q_OBJECT

public:
    // `addWaypoint`: puts the current waypoint into the route.
    frmRoutePanel(QWidget* parent, RouteEditing& toShow, const Language& texts,
                  std::function<void(const Event&)> toRun, const Event& addWaypoint);
    ~frmRoutePanel() override;

    void Show(const RouteControls& controls);
    void ShowSelection(); // of the lists: their current rows, whatever was clicked
    void ApplyLanguage() override;
    void FocusList(); // gridRoute

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool TakesKey(QObject* watched, int key) const override;
    void KeyDone(QObject* watched, int key) override;

private:
    // A list of numbered names over its two buttons.
    struct List {
        QTableView* Grid = nullptr;
        std::unique_ptr<RecordsetModel> Model;
        std::unique_ptr<GridBinding> Binding;
    };
    List MakeList(const char* name, Recordset& rows, std::function<QString()> caption,
                  void (RouteEditing::*headClick)(int));
    LampButton* Switch(const char* name, const Event& click);
    void MakeDrawing(QBoxLayout& layout);

    RouteEditing& routes;
    List route, points;
    QPushButton *cmdNewRoute = nullptr, *cmdRouteDelete = nullptr, *cmdAddwaypoint = nullptr,
                *cmdDeleteWaypoint = nullptr;
    LampButton *cmdshowRoute = nullptr, *picShowRoute = nullptr;
    QLabel* lblRouteDistanz = nullptr;
};

} // namespace ornivane
