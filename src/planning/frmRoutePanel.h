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
    // `focusWaypoints`: Enter in a list leads to the waypoints, from which points are picked. `changed` runs
    // after each event.
    frmRoutePanel(QWidget* parent, RouteEditing& routes, const Variablen& shared, EventGuard& guard,
                  std::function<void()> focusWaypoints, std::function<void()> changed);
    ~frmRoutePanel() override;

    void ShowState() override;
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
        void ShowSelection();
    };
    List MakeList(const char* name, Recordset& rows, std::function<QString()> caption,
                  void (RouteEditing::*headClick)(int));
    LampButton* Switch(const char* name, const std::function<void()>& click);
    void MakeDrawing(QBoxLayout& layout);

    RouteEditing& routes;
    std::function<void()> focusWaypoints;
    List route, points;
    QPushButton *cmdNewRoute = nullptr, *cmdRouteDelete = nullptr, *cmdAddwaypoint = nullptr,
                *cmdDeleteWaypoint = nullptr;
    LampButton *cmdshowRoute = nullptr, *picShowRoute = nullptr;
    QLabel* lblRouteDistanz = nullptr;
};

} // namespace ornivane
