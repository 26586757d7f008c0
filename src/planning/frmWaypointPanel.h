#pragma once

#include <array>
#include <memory>

#include "planning/WaypointEditing.h"
#include "planning/frmListPanel.h"

class QBoxLayout;
class QComboBox;
class QLabel;
class QLineEdit;

namespace ornivane {

class GridBinding;
class LampButton;
class RecordsetModel;

// The left side of planning: quick search, category, the list of waypoints, the entry of one.
class frmWaypointPanel : public frmListPanel {
    Q_OBJECT

public:
    // `addToRoute`: Enter on a waypoint. `changed` runs after each event.
    frmWaypointPanel(QWidget* parent, WaypointEditing& waypoints, const Variablen& shared, EventGuard& guard,
                     std::function<void()> addToRoute, std::function<void()> changed);
    ~frmWaypointPanel() override;

    void ShowState() override;
    void ApplyLanguage() override;
    void FocusList();  // gridWaypoints
    void FocusEntry(); // tWaypoint(1), its text marked: typing replaces it

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool TakesKey(QObject* watched, int key) const override;
    void KeyDone(QObject* watched, int key) override;

private:
    void MakeSearch(QBoxLayout& layout);
    void MakeGrid(QBoxLayout& layout);
    void MakeSteps(QBoxLayout& layout);
    LampButton* Step(const char* name, const char* icon, const std::function<void()>& click);
    void MakeEntry(QBoxLayout& layout);
    void MakeButtons(QBoxLayout& layout);
    QLineEdit* Field(const char* name);
    QLineEdit* Hemisphere(const char* name);
    QWidget* Captioned(QLabel*& caption, std::initializer_list<QWidget*> fields);

    bool IsEntry(const QObject* watched) const;
    bool TakesHemisphereKey(const QObject* watched, int key) const;
    void HemisphereKey(const QObject* watched, int key);
    void SearchKey(int key);
    void ListKey(int key);
    void AddWaypoint();
    void FocusFaulty();
    bool EmptyField(const QObject* watched);
    bool FilterCategory(QEvent& event);
    void ShowCategories();
    void ApplyToolTips();
    QString ChangeCaption() const;

    WaypointEditing& waypoints;
    std::function<void()> addToRoute;
    std::unique_ptr<RecordsetModel> model;
    std::unique_ptr<GridBinding> binding;
    QTableView* gridWaypoints = nullptr;
    std::array<QLineEdit*, 4> tWaypoint{}; // as in WaypointEditing
    QLineEdit *tNS = nullptr, *tEW = nullptr, *tquickfind = nullptr;
    QComboBox* cmbKat = nullptr;
    QLabel *tKat = nullptr, *lblCount = nullptr;
    QLabel *searchCaption = nullptr, *nameCaption = nullptr, *latCaption = nullptr, *longCaption = nullptr;
    LampButton *cmdNext = nullptr, *cmdPrev = nullptr;
    QPushButton *cmdNew = nullptr, *cmdChange = nullptr, *cmdDelete = nullptr;
};

} // namespace ornivane
