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
    // `addsToRoute`: Enter on a waypoint.
    frmWaypointPanel(QWidget* parent, WaypointEditing& toShow, const Language& texts,
                     std::function<void(const Event&)> toRun, Event addsToRoute);
    ~frmWaypointPanel() override;

    // `otherTarget`: the waypoint that a change would write, when it is not the one whose fields show.
    void Show(const WaypointControls& controls, const std::optional<std::string>& otherTarget);
    void ShowSelection();                   // of the list: its current row, whatever was clicked
    void ApplyLanguage() override;          // all but the caption of cmdChange
    void TakeKeysOf(QWidget& picMap);       // which do there what they do in the list
    void FocusList();                       // gridWaypoints
    void FocusEntry(std::size_t field = 1); // of tWaypoint; its text marked: typing replaces it

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool TakesKey(QObject* watched, int key) const override;
    void KeyDone(QObject* watched, int key) override;

private:
    void MakeSearch(QBoxLayout& layout);
    void MakeGrid(QBoxLayout& layout);
    void MakeSteps(QBoxLayout& layout);
    LampButton* Step(const char* name, const Event& step, const char* icon);
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
    bool EmptyField(const QObject* watched);
    void FilterCategory(QEvent& event);
    void ShowCategories(const WaypointControls& controls);
    void ApplyToolTips();
    QString ChangeCaption(const std::optional<std::string>& otherTarget) const;

    WaypointEditing& waypoints;
    Event addToRoute;
    std::unique_ptr<RecordsetModel> model;
    std::unique_ptr<GridBinding> binding;
    QTableView* gridWaypoints = nullptr;
    QWidget* map = nullptr;
    std::array<QLineEdit*, 4> tWaypoint{}; // as in WaypointEditing
    QLineEdit *tNS = nullptr, *tEW = nullptr, *tquickfind = nullptr;
    QComboBox* cmbKat = nullptr;
    QLabel *tKat = nullptr, *lblCount = nullptr;
    QLabel *searchCaption = nullptr, *nameCaption = nullptr, *latCaption = nullptr, *longCaption = nullptr;
    LampButton *cmdNext = nullptr, *cmdPrev = nullptr;
    QPushButton *cmdNew = nullptr, *cmdChange = nullptr, *cmdDelete = nullptr;
};

} // namespace ornivane
