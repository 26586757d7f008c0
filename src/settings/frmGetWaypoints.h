#pragma once

#include <QDialog>
#include <QStringListModel>

#include "settings/AirfieldTransfer.h"

class QComboBox;
class QLabel;
class QListView;
class QPushButton;

namespace ornivane {

class EventGuard;

// Countries to choose from, and the category for their airfields. Its texts are German, its tooltips in both
// languages.
class frmGetWaypoints : public QDialog {
    Q_OBJECT

public:
    frmGetWaypoints(const Language& shownIn, OpenStores& stores, Dialogs& dialogs, EventGuard& guard,
                    QWidget* parent);

private:
    void LayOut();
    void ShowState();
    void ApplyTexts();

    const Language& language;
    AirfieldTransfer logic;
    QStringListModel countries;
    QListView* listAP = nullptr;
    QLabel* lblCount = nullptr;
    QComboBox* cmbKategorie = nullptr;
    QPushButton *cmdTransfer = nullptr, *cmdEnd = nullptr;
};

} // namespace ornivane
