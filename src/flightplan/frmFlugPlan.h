#pragma once

#include <array>
#include <functional>
#include <memory>

#include "common/Variablen.h"
#include "flightplan/FlightPlan.h"
#include "flightplan/frmReport.h"
#include "platform/qt/Screen.h"

class QBoxLayout;
class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;

namespace ornivane {

class EventGuard;
class PlanModel;
class frmPlanGrid;

// The flight plan. Every event calls one routine of FlightPlan, then the state is shown.
class frmFlugPlan : public Screen {
    Q_OBJECT

public:
    struct Services {
        Variablen& Shared;
        EventGuard& Guard;
        Dialogs& Boxes;
        Notice& Notices;
        // The report cannot be shown: a hint tells what is missing.
        std::function<void()> ReportMissing;
    };

    explicit frmFlugPlan(const Services& services);
    ~frmFlugPlan() override;

    void Form_Activate() override;
    void Form_Deactivate() override;
    void Form_Unload() override;
    void ApplyLanguage() override;

    FlightPlan& Logic() { return logic; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void MakeTop(QBoxLayout& layout);
    void MakeEntries(QBoxLayout& layout);
    void MakeButtons(QBoxLayout& layout);
    void MakeGrid(QBoxLayout& layout);
    void MakeTotals(QBoxLayout& layout);
    void Click(const std::function<void()>& event);
    bool EditCell(const QModelIndex& cell, const std::string& text);
    frmReport Report() const; // of the plan that is shown
    void cmdPreview_Click();
    void cmdPDF_Click();
    void ShowState();
    void ShowEntries();
    void StyleEntry(std::size_t place);
    void FitGrid();
    QString ToolTipOf(int column) const;
    void ApplyToolTips();
    QString Text(const char* german, const char* english) const {
        return services.Shared.Text(german, english);
    }

    Services services;
    FlightPlan logic;
    QLabel *lblRoute = nullptr, *lblPlan = nullptr;
    QComboBox* cmbRoute = nullptr;
    std::array<QLabel*, PlanEntryCount> captions{};
    std::array<QLineEdit*, PlanEntryCount> fields{};
    QPushButton *cmdCalc = nullptr, *cmdRevert = nullptr, *cmdPreview = nullptr, *cmdPDF = nullptr;
    frmPlanGrid* gridFlug = nullptr;
    std::unique_ptr<PlanModel> model;
    QFrame* Frame1 = nullptr;
    QLabel *lblStrecke = nullptr, *Label3 = nullptr, *Label4 = nullptr, *lblWindinfo = nullptr;
    QLabel *lblDistanz = nullptr, *lblZeit = nullptr, *lblFF = nullptr, *lblAvgWind = nullptr;
};

} // namespace ornivane
