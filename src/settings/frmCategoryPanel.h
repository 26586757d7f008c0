#pragma once

#include <QGroupBox>
#include <functional>
#include <memory>

#include "settings/Categories.h"

class QLineEdit;
class QPushButton;
class QTableView;

namespace ornivane {

class EventGuard;
class GridBinding;
class RecordsetModel;

// The list of categories with its entry field and buttons.
class frmCategoryPanel : public QGroupBox {
    Q_OBJECT

public:
    struct OpenedDialogs { // what two of the buttons open
        std::function<void()> ShowManager;
        std::function<void()> ShowGetWaypoints;
    };

    frmCategoryPanel(Categories& categories, const Language& shownIn, EventGuard& eventGuard,
                     const OpenedDialogs& opened);
    ~frmCategoryPanel() override;

    void ShowState();
    void ApplyLanguage();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QString Text(const char* german, const char* english) const { return language.Text(german, english); }
    void MakeGrid();
    QPushButton* CommandButton(const char* name, const std::function<void()>& command);
    void Run(const std::function<void()>& command);

    Categories& list;
    const Language& language;
    EventGuard& guard;
    bool running = false; // a command moves the rows by itself
    QTableView* gridKategorie = nullptr;
    std::unique_ptr<RecordsetModel> model;
    std::unique_ptr<GridBinding> binding;
    QLineEdit* tKategorie = nullptr;
    QPushButton *cmdAdd = nullptr, *cmdChange = nullptr, *cmdDelete = nullptr;
    QPushButton *cmdManager = nullptr, *cmdGetWaypoint = nullptr;
};

} // namespace ornivane
