#pragma once

#include <QAbstractTableModel>
#include <QDialog>
#include <functional>

#include "common/Variablen.h"
#include "tracks/TrackManager.h"

class QBoxLayout;
class QGroupBox;
class QLabel;
class QListWidget;
class QPushButton;
class QTableView;

namespace ornivane {

class EventGuard;
class QtNotice;

// The chosen points as a table that reads what it shows.
class TrackPointsModel : public QAbstractTableModel {
    Q_OBJECT

public:
    TrackPointsModel(TrackPoints& of, const Language& texts) : points(of), language(texts) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    // The points are others now.
    void Renew();

private:
    TrackPoints& points;
    const Language& language;
    int rows = 0;
};

// The track manager. Shown by Start; deletes itself when it closes.
class frmTrack : public QDialog {
    Q_OBJECT

public:
    frmTrack(const Variablen& variablen, EventGuard& guard, Dialogs& dialogs, QWidget* window);

    // RuntimeError when there is no track store; the form closes then.
    void Start();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeLists(QBoxLayout& layout);
    void MakePoints(QBoxLayout& layout);
    void MakeExports(QBoxLayout& layout);
    QPushButton* MakeButton(const char* name, QBoxLayout& layout, const std::function<void()>& click);
    void Click(const std::function<void()>& event);
    void ShowState();
    void ApplyLanguage();
    QString Text(const char* german, const char* english) const { return language.Text(german, english); }

    const Language& language;
    EventGuard& guard;
    QtNotice* noticeBar; // the window's lies under this dialog
    Undo lastDeed;
    TrackManager logic;
    TrackPointsModel model;
    int shownFilling = 0; // which reading of the list the controls show
    bool showing = false; // ShowState moves the current row, not the user
    QListWidget *listTrack = nullptr, *listIndex = nullptr;
    QGroupBox *Frame1 = nullptr, *Frame2 = nullptr;
    QLabel* lblRecords = nullptr;
    QTableView* gridTracks = nullptr;
    QPushButton *cmdDelete = nullptr, *cmdTrack = nullptr, *cmdWpt = nullptr, *cmdWptTrack = nullptr,
                *cmdExit = nullptr;
};

} // namespace ornivane
