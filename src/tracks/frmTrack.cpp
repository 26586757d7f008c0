#include "tracks/frmTrack.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

#include "base/Flagged.h"
#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "platform/qt/EnterKey.h"
#include "platform/qt/Events.h"
#include "platform/qt/Named.h"
#include "platform/qt/QtNotice.h"

namespace ornivane {

namespace {

constexpr int ButtonHeight = 44, ListRowHeight = 40;

QString Number(double value, const LocaleText& locale) {
    return QString::fromStdString(NumberText(value, locale));
}

struct Column {
    const char *German, *English;
    int Width;
    bool IsNumber;
    QString (*TextOf)(const TrackPoint& point, const LocaleText& locale);
};
using Point = const TrackPoint&;
using Locale = const LocaleText&;
constexpr std::array Columns{
    Column{"Track", "Track", 50, true, [](Point point, Locale) { return QString::number(point.Index); }},
    Column{"PositionNr", "PositionNr", 84, true,
           [](Point point, Locale) { return QString::number(point.Number); }},
    Column{" Breitengrad", "  Latitude", 116, true,
           [](Point point, Locale locale) { return Number(point.At.Lat.Degrees(), locale); }},
    Column{" Längengrad", "  Longitude", 116, true,
           [](Point point, Locale locale) { return Number(point.At.Long.Degrees(), locale); }},
    Column{
        "       Höhe", "     Altitude", 112, true,
        [](Point point, Locale locale) { return point.Height ? Number(*point.Height, locale) : QString(); }},
    Column{"        Datum", "         Date", 112, false,
           [](Point point, Locale) { return QString::fromStdString(point.Date); }},
    Column{"          Zeit", "         Time", 70, false,
           [](Point point, Locale) { return QString::fromStdString(point.Time); }}};

const Column& ColumnAt(int place) { return Columns.at(static_cast<std::size_t>(place)); }

} // namespace

int TrackPointsModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows; }

int TrackPointsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(Columns.size());
}

QVariant TrackPointsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const Column& column = ColumnAt(index.column());
    if (role == Qt::TextAlignmentRole && column.IsNumber)
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole) return {};
    QString text;
    // A point that is gone from the store, or of a store that is locked, is an empty cell.
    IgnoreErrors([&] { text = column.TextOf(points.At(index.row()), language.Locale); });
    return text;
}

QVariant TrackPointsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return QString::fromUtf8(language.Text(ColumnAt(section).German, ColumnAt(section).English));
}

void TrackPointsModel::Renew() {
    beginResetModel();
    rows = points.Count();
    endResetModel();
}

frmTrack::frmTrack(const Variablen& variablen, EventGuard& guardOf, Dialogs& dialogs, QWidget* window)
    : QDialog(window), language(variablen), guard(guardOf), noticeBar(new QtNotice(this)),
      lastDeed(*noticeBar, variablen, [this] { ShowState(); }),
      logic(variablen, variablen, dialogs, lastDeed), model(logic.TrackPointsSet, variablen) {
    setObjectName("frmTrack");
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    auto* column = new QVBoxLayout(this);
    auto* row = new QHBoxLayout;
    column->addLayout(row, 1);
    column->addWidget(noticeBar);
    column->setContentsMargins(10, 10, 10, 10);
    row->setSpacing(12);
    auto* left = new QVBoxLayout;
    auto* right = new QVBoxLayout;
    row->addLayout(left, 1);
    row->addLayout(right, 3);
    MakeLists(*left);
    MakePoints(*right);
    MakeExports(*right);
    EnterKey::PressesButtonsOf(*this);
    ApplyLanguage();
    if (window) resize(window->size() - QSize(24, 40));
}

void frmTrack::Start() {
    RestoreOnError([this] { logic.Form_Load(); }, [this] { deleteLater(); });
    ShowState();
    open();
    listTrack->setFocus();
}

QPushButton* frmTrack::MakeButton(const char* name, QBoxLayout& layout, const std::function<void()>& click) {
    auto* button = Named(new QPushButton, name);
    button->setMinimumHeight(ButtonHeight);
    button->setAutoDefault(false);
    guard.Connect(button, &QPushButton::clicked, [this, click] { Click(click); });
    layout.addWidget(button);
    return button;
}

// Both lists scroll as one; a click toggles what the form remembers, not what the control shows.
void frmTrack::MakeLists(QBoxLayout& layout) {
    auto* row = new QHBoxLayout;
    row->setSpacing(2);
    listIndex = Named(new QListWidget, "listIndex");
    listIndex->setFixedWidth(64);
    listIndex->setFocusPolicy(Qt::NoFocus);
    listIndex->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    listTrack = Named(new QListWidget, "listTrack");
    row->addWidget(listIndex);
    row->addWidget(listTrack, 1);
    for (QListWidget* list : {listIndex, listTrack}) {
        list->viewport()->installEventFilter(this);
        list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    }
    listTrack->setSelectionMode(QAbstractItemView::MultiSelection);
    listTrack->installEventFilter(this);
    connect(listTrack, &QListWidget::currentRowChanged, this, [this](int reached) {
        if (showing) return;
        logic.listIndex_Click(reached);
        ShowState();
    });
    const auto together = [](QListWidget* from, QListWidget* to) {
        connect(from->verticalScrollBar(), &QScrollBar::valueChanged, to->verticalScrollBar(),
                &QScrollBar::setValue);
    };
    together(listTrack, listIndex);
    together(listIndex, listTrack);
    layout.addLayout(row, 1);
    cmdDelete = MakeButton("cmdDelete", layout, [this] { logic.cmdDelete_Click(); });
}

void frmTrack::MakePoints(QBoxLayout& layout) {
    Frame1 = Named(new QGroupBox, "Frame1");
    auto* column = new QVBoxLayout(Frame1);
    lblRecords = Named(new QLabel, "lblRecords");
    lblRecords->setStyleSheet("font-size: 18px; font-weight: bold");
    column->addWidget(lblRecords);
    gridTracks = Named(new QTableView, "gridTracks");
    gridTracks->setModel(&model);
    gridTracks->setEditTriggers(QAbstractItemView::NoEditTriggers);
    gridTracks->setSelectionBehavior(QAbstractItemView::SelectRows);
    gridTracks->setTabKeyNavigation(false); // Tab leaves the list
    gridTracks->setWordWrap(false);         // a long number would break behind its point
    gridTracks->verticalHeader()->hide();
    gridTracks->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    gridTracks->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    gridTracks->horizontalHeader()->setStretchLastSection(true);
    for (int i = 0; i < model.columnCount(); ++i) gridTracks->setColumnWidth(i, ColumnAt(i).Width);
    column->addWidget(gridTracks);
    layout.addWidget(Frame1, 1);
}

void frmTrack::MakeExports(QBoxLayout& layout) {
    Frame2 = Named(new QGroupBox, "Frame2");
    auto* row = new QHBoxLayout(Frame2);
    cmdTrack = MakeButton("cmdTrack", *row, [this] { logic.cmdTrack_Click(); });
    cmdWpt = MakeButton("cmdWpt", *row, [this] { logic.cmdWpt_Click(); });
    cmdWptTrack = MakeButton("cmdWptTrack", *row, [this] { logic.cmdWptTrack_Click(); });
    layout.addWidget(Frame2);
    auto* end = new QHBoxLayout;
    end->addStretch();
    cmdExit = MakeButton("cmdExit", *end, [this] { close(); });
    layout.addLayout(end);
}

bool frmTrack::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    if (watched == listTrack && type == QEvent::KeyPress) {
        const auto& keys = *static_cast<QKeyEvent*>(event);
        if (keys.matches(QKeySequence::SelectAll)) {
            Click([this] { logic.SelectAll(); });
            return true;
        }
        if (keys.key() == Qt::Key_Space || keys.key() == Qt::Key_Return || keys.key() == Qt::Key_Enter) {
            if (!keys.isAutoRepeat()) Click([this] { logic.listTrack_MouseUp(listTrack->currentRow()); });
            return true;
        }
    }
    for (QListWidget* list : {listTrack, listIndex}) {
        if (watched != list->viewport()) continue;
        if (type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick ||
            type == QEvent::MouseMove)
            return true; // the control's own choosing
        if (type != QEvent::MouseButtonRelease) break;
        const int row = list->indexAt(static_cast<QMouseEvent*>(event)->position().toPoint()).row();
        if (list == listTrack)
            Click([&] { logic.listTrack_MouseUp(row); });
        else
            Click([&] { logic.listIndex_Click(row); });
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmTrack::Click(const std::function<void()>& event) {
    guard.Run(event);
    ShowState();
}

void frmTrack::ShowState() {
    const Flagged now(showing);
    const int rows = static_cast<int>(logic.Rows.size());
    if (shownFilling != logic.Fillings) {
        shownFilling = logic.Fillings;
        listTrack->clear();
        listIndex->clear();
        for (const auto& row : logic.Rows) {
            (new QListWidgetItem(QString::fromStdString(row.Name), listTrack))
                ->setSizeHint({0, ListRowHeight});
            (new QListWidgetItem(QString::number(row.Index), listIndex))->setSizeHint({0, ListRowHeight});
        }
    }
    for (int i = 0; i < rows; ++i)
        listTrack->item(i)->setSelected(logic.Rows[static_cast<std::size_t>(i)].Selected);
    if (logic.ListIndex >= 0) {
        listTrack->setCurrentRow(logic.ListIndex, QItemSelectionModel::NoUpdate);
        listIndex->setCurrentRow(logic.ListIndex, QItemSelectionModel::ClearAndSelect);
    }
    lblRecords->setText(QString::fromStdString(logic.lblRecords));
    model.Renew();
    const bool points = logic.TrackPointsSet.Count() > 0;
    for (QPushButton* button : {cmdTrack, cmdWpt, cmdWptTrack}) button->setEnabled(points);
}

void frmTrack::ApplyLanguage() {
    setWindowTitle("Tracks");
    Frame1->setTitle(Text("Ausgewählte Tracks", "Selected tracks"));
    Frame2->setTitle(Text("Tracks speichern", "Save tracks"));
    cmdDelete->setText(Text("Ausgewählte Tracks löschen", "Delete selected tracks"));
    cmdTrack->setText("Track");
    cmdWpt->setText(Text("Wegpunkte", "Waypoints"));
    cmdWptTrack->setText(Text("Track und Wegpunkte", "Track and waypoints"));
    cmdExit->setText(Text("Schließen", "Close"));
    listTrack->setToolTip(
        Text("Ein Klick oder die Leertaste wählt einen Track, ein zweiter nimmt ihn heraus; "
             "Strg+A wählt alle",
             "A click or the space bar chooses a track, a second one takes it out; "
             "Ctrl+A chooses all"));
    listIndex->setToolTip(Text("Nummern der Tracks", "Numbers of the tracks"));
    lblRecords->setToolTip(Text("Punkte aller ausgewählten Tracks", "Points of all selected tracks"));
    cmdDelete->setToolTip(
        Text("Vorher wird der Speicher als track.bak gesichert", "The store is copied to track.bak before"));
    cmdTrack->setToolTip(Text("Als GPX-Datei mit einem Track", "As a GPX file with one track"));
    cmdWpt->setToolTip(Text("Als GPX-Datei mit einem Wegpunkt je Position",
                            "As a GPX file with a waypoint for each position"));
    cmdWptTrack->setToolTip(Text("Als GPX-Datei mit beidem", "As a GPX file with both"));
    cmdExit->setToolTip(Text("Zurück zu den Einstellungen", "Back to the settings"));
    gridTracks->setToolTip(Text("Die Punkte der ausgewählten Tracks", "The points of the selected tracks"));
}

} // namespace ornivane
