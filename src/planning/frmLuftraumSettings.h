#pragma once

#include <QDialog>
#include <functional>
#include <utility>
#include <vector>

#include "common/Variablen.h"
#include "map/AirspaceDrawing.h"
#include "planning/LuftraumSettings.h"

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace ornivane {

class EventGuard;

// Which airspace the planning map shows, and what its lines mean. Closing it takes what is chosen, Escape
// leaves all as it was. Deletes itself.
class frmLuftraumSettings : public QDialog {
    Q_OBJECT

public:
    // `taken`: the choice is made, draw it.
    frmLuftraumSettings(QWidget* parent, const Variablen& shared, AirspaceChoice& airspace, EventGuard& guard,
                        std::function<void()> taken);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QRadioButton* Option(const char* name, AirspaceChoice::Which which);
    void MakeHeight(QBoxLayout& layout);
    // A line of the legend: its colours in turn, and what they mean.
    using LegendLine = std::pair<std::vector<Colour>, const char*>;
    QGroupBox* Legend(const char* name, const std::vector<LegendLine>& lines);
    void ShowState();
    void ApplyLanguage();
    QString Text(const char* german, const char* english) const { return language.Text(german, english); }
    void Take();

    const Language& language;
    EventGuard& guard;
    std::function<void()> taken;
    LuftraumSettings settings;
    QRadioButton *Option1 = nullptr, *Option2 = nullptr, *Option3 = nullptr;
    QComboBox* cmbHoehe = nullptr;
    QLabel *lblFeet = nullptr, *lblLR = nullptr;
    QCheckBox* chkPL = nullptr;
    QPushButton* cmdExit = nullptr;
};

} // namespace ornivane
