#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include "common/Variablen.h"
#include "planning/RouteExport.h"
#include "platform/qt/Events.h"

namespace ornivane {

// Saves a route to a file: choose it, press Save. Stands before the main window until it is closed; deletes
// itself then.
class frmExport : public QDialog {
    Q_OBJECT
public:
    // The route named as the given cell of the planning screen's route grid is chosen. Show with open().
    frmExport(Variablen& variablen, Dialogs& dialogs, EventGuard& guard, const std::string& gridRouteCell,
              QWidget* parent);

private:
    void LayOut();
    void ApplyLanguage();
    QString Text(const char* german, const char* english) const { return language.Text(german, english); }
    void ShowState();

    const Language& language;
    RouteExport logic;
    QLabel Label1, Label2, lblSave;
    QComboBox cmbRoute;
    QPushButton cmdExport, cmdExit;
};

} // namespace ornivane
