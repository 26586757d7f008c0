#pragma once

#include <QDialog>
#include <QStringListModel>

#include "settings/CategoryManager.h"

class QComboBox;
class QLabel;
class QListView;
class QPushButton;

namespace ornivane {

class EventGuard;

// Two lists that move as one, waypoints and their categories, and the category to give to those chosen.
class frmManager : public QDialog {
    Q_OBJECT

public:
    frmManager(Variablen& shared, Dialogs& dialogs, EventGuard& guard, QWidget* parent);

private:
    void MakeLists(EventGuard& guard);
    void MoveAsOne(QListView& one, QListView& other);
    void Assign();
    void ShowCategories();
    void ShowState();
    void ApplyLanguage();

    const Variablen& shared;
    CategoryManager logic;
    QStringListModel waypoints, categories;
    QListView *listWegpunkt = nullptr, *listKategorie = nullptr;
    QLabel *Label1 = nullptr, *Label2 = nullptr, *Label3 = nullptr;
    QComboBox* cmbKategorie = nullptr;
    QPushButton *cmdZuweisen = nullptr, *cmdEnd = nullptr;
};

} // namespace ornivane
