#pragma once

#include <QDialog>
#include <QStringListModel>

#include "base/Language.h"
#include "settings/CategoryManager.h"

class QComboBox;
class QLabel;
class QListView;
class QPushButton;

namespace ornivane {

class EventGuard;

// The dialog of CategoryManager: two lists that move as one, waypoints and their categories, and the category
// to give to those chosen.
class frmManager : public QDialog {
    Q_OBJECT

public:
    frmManager(const Language& shownIn, Connection& dataConn, Dialogs& dialogs, EventGuard& eventGuard,
               QWidget* parent);

private:
    void MakeLists();
    void MoveAsOne(QListView& one, QListView& other);
    void Assign();
    void ShowCategories();
    void ShowState();
    void ApplyLanguage();
    QString Text(const char* german, const char* english) const { return language.Text(german, english); }

    const Language& language;
    EventGuard& guard;
    CategoryManager logic;
    QStringListModel waypoints, categories;
    QListView *listWegpunkt = nullptr, *listKategorie = nullptr;
    QLabel *Label1 = nullptr, *Label2 = nullptr, *Label3 = nullptr;
    QComboBox* cmbKategorie = nullptr;
    QPushButton *cmdZuweisen = nullptr, *cmdEnd = nullptr;
};

} // namespace ornivane
