#include "calibration/frmCalibrate.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QProgressBar>
#include <QProxyStyle>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include "base/Flagged.h"
#include "calibration/frmCalRect.h"
#include "platform/PictureFormats.h"
#include "platform/qt/ChartWatch.h"
#include "platform/qt/EnterKey.h"
#include "platform/qt/Events.h"
#include "platform/qt/GridBinding.h"
#include "platform/qt/Named.h"
#include "platform/qt/QtPicture.h"
#include "platform/qt/Spaced.h"
#include "platform/qt/SurfaceWidget.h"

namespace ornivane {

namespace {

constexpr int ButtonHeight = 44, BarWidth = 220;
// The colours tell whether the catalogue has the value; dark letters on both, by day and by night.
constexpr const char* NotStoredStyle = "background: #ffff80; color: #101418";
constexpr const char* StoredStyle = "background: #c0c0ff; color: #101418";
constexpr int RowHeight = 40;

// Ticks large enough for a finger. A style sheet cannot do it: it draws them over the text of a list.
class LargeTicks : public QProxyStyle {
public:
    explicit LargeTicks(QObject* owner) : QProxyStyle("Fusion") { setParent(owner); }
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        if (metric == PM_IndicatorWidth || metric == PM_IndicatorHeight) return 26;
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
};

struct EdgeTexts {
    const char *German, *English, *GermanHint, *EnglishHint, *First, *Second;
};

constexpr std::array<EdgeTexts, 4> Edges{
    {{"Breitengrad unten", "Latitude - Lower", "Bsp.: N 47°40': 47,4", "Exp.: N 47°40': 47.4", "N", "S"},
     {"Breitengrad oben", "Latitude - Upper", "Bsp.: N 48°10': 48,1", "Exp.: N 48°10': 48.1", "N", "S"},
     {"Längengrad links", "Longitude - Left", "Bsp: E 8° 50': 8,5", "Exp.: E 8°50': 8.5", "E", "W"},
     {"Längengrad rechts", "Longitude - Right", "Bsp.: E 9°30': 9,3", "Exp.: E 9°30': 9.3", "E", "W"}}};

QString Shown(const std::string& text) { return QString::fromStdString(text); }

} // namespace

frmCalibrate::frmCalibrate(Variablen& variablen, EventGuard& eventGuard, Dialogs& messages,
                           SharedCharts& allCharts)
    : shared(variablen), guard(eventGuard), dialogs(messages), charts(allCharts),
      picStorage(std::make_unique<QtPicture>(allCharts)) {
    setObjectName("frmCalibrate");
    auto* row = Spaced(new QHBoxLayout(this), 12, {10, 10, 10, 10});
    auto* left = new QVBoxLayout;
    auto* middle = new QVBoxLayout;
    auto* right = new QVBoxLayout;
    row->addLayout(left, 3);
    row->addLayout(middle, 5);
    row->addLayout(right, 3);
    MakeList(*left);
    MakePreview(*middle);
    logic = std::make_unique<MapData>(shared, *picStorage, picMap->Surface(), dialogs);
    auto* progBar = Named(new QProgressBar(picMap), "progBar");
    progBar->setGeometry(12, 12, BarWidth, progBar->sizeHint().height());
    progBar->hide();
    chartWatch = std::make_unique<ChartWatch>(
        ChartWatch::World{*picStorage, *picMap, *progBar, guard, shared}, [this] {
            if (logic->chkVorschau) logic->RepaintPreview();
        });
    MakeEdges(*right);
    MakeActiveMaps(*right);
    EnterKey::PressesButtonsOf(*this);
    guard.Run([this] { logic->Form_Load(); });
    ApplyLanguage();
}

frmCalibrate::~frmCalibrate() = default;

void frmCalibrate::MakeList(QBoxLayout& layout) {
    layout.addWidget(Label7 = Named(new QLabel, "Label7"));
    tPath = Named(new QLineEdit, "tPath");
    tPath->setReadOnly(true);
    tPath->setFocusPolicy(Qt::ClickFocus);
    tPath->setStyleSheet("font-size: 13px; font-weight: normal");
    layout.addWidget(tPath);
    listKarten = Named(new QListWidget, "listKarten");
    listKarten->setStyle(new LargeTicks(listKarten));
    listKarten->setTextElideMode(Qt::ElideMiddle);
    listKarten->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    layout.addWidget(listKarten, 1);
    guard.Connect(listKarten, &QListWidget::currentRowChanged, [this](int index) {
        if (!showing) Click([&] { logic->listKarten_Click(index); });
    });
    guard.Connect(listKarten, &QListWidget::itemChanged, [this](QListWidgetItem* item) {
        pressedSelected = false; // a tick shows its map, too
        if (!showing) Click([&] { logic->listKarten_ItemCheck(listKarten->row(item)); });
    });
    // The list signals a change of the current row, but not a click on the row that is current already.
    listKarten->viewport()->installEventFilter(this);
    guard.Connect(listKarten, &QListWidget::itemClicked, [this](QListWidgetItem* item) {
        if (pressedSelected) Click([&] { logic->listKarten_Click(listKarten->row(item)); });
    });
    cmdFillList = Named(new QPushButton, "cmdFillList");
    cmdFillList->setMinimumHeight(ButtonHeight);
    guard.Connect(cmdFillList, &QPushButton::clicked, [this] { Click([&] { logic->FillMapList(); }); });
    layout.addWidget(cmdFillList);
}

void frmCalibrate::MakePreview(QBoxLayout& layout) {
    picMap = Named(new SurfaceWidget(this), "picMap");
    picMap->setMinimumSize(300, 220);
    layout.addWidget(picMap, 1);
    lblNoPreview = Named(new QLabel(picMap), "lblNoPreview");
    lblNoPreview->setAlignment(Qt::AlignCenter);
    lblNoPreview->setWordWrap(true);
    lblNoPreview->setStyleSheet("color: #101418; font-size: 17px");
    guard.Connect(picMap, &SurfaceWidget::Resized, [this] {
        lblNoPreview->setGeometry(picMap->rect().adjusted(20, 20, -20, -20));
        if (logic && logic->chkVorschau) logic->RepaintPreview();
    });
    auto* row = new QHBoxLayout;
    chkVorschau = Named(new QCheckBox, "chkVorschau");
    chkVorschau->setMinimumHeight(ButtonHeight);
    chkVorschau->setStyle(new LargeTicks(chkVorschau));
    guard.Connect(chkVorschau, &QCheckBox::toggled, [this](bool on) {
        if (!showing) Click([&] { logic->chkVorschau_Click(on); });
    });
    row->addWidget(chkVorschau);
    row->addStretch();
    for (auto [caption, value, captionName, valueName] :
         {std::tuple{&Label8, &lblBreite, "Label8", "lblBreite"},
          std::tuple{&Label9, &lblHoehe, "Label9", "lblHoehe"}}) {
        row->addWidget(*caption = Named(new QLabel, captionName));
        *value = Named(new QLabel, valueName);
        (*value)->setMinimumWidth(72);
        (*value)->setStyleSheet("font-size: 18px; font-weight: bold");
        row->addWidget(*value);
    }
    layout.addLayout(row);
    lblScale = Named(new QLabel, "lblScale");
    lblScale->setWordWrap(true);
    lblScale->setMinimumHeight(ButtonHeight);
    layout.addWidget(lblScale);
}

void frmCalibrate::MakeEdges(QBoxLayout& layout) {
    Frame1 = Named(new QGroupBox, "Frame1");
    auto* column = new QVBoxLayout(Frame1);
    column->setSpacing(3);
    for (std::size_t i = 0; i < Edges.size(); ++i) {
        auto* captions = new QHBoxLayout;
        captions->addWidget(edgeCaptions[i] = new QLabel);
        captions->addStretch();
        captions->addWidget(edgeHints[i] = new QLabel);
        edgeHints[i]->setProperty("role", "caption");
        column->addLayout(captions);
        auto* row = new QHBoxLayout;
        const QString number = QString::number(i);
        cmbLatLong[i] = new QComboBox;
        cmbLatLong[i]->setObjectName("cmbLatLong" + number);
        cmbLatLong[i]->addItems({Edges[i].First, Edges[i].Second});
        guard.Connect(cmbLatLong[i], &QComboBox::activated, [this, i](int index) {
            Click([&] {
                logic->cmbLatLong[i] = static_cast<Hemisphere>(index);
                logic->tKarten_Click(i);
            });
        });
        tKarten[i] = new QLineEdit;
        tKarten[i]->setObjectName("tKarten" + number);
        tKarten[i]->setMinimumHeight(38);
        tKarten[i]->installEventFilter(this);
        guard.Connect(tKarten[i], &QLineEdit::textEdited, [this, i](const QString& text) {
            Click([&] {
                logic->tKarten[i] = text.toStdString();
                logic->tKarten_Click(i);
            });
        });
        row->addWidget(cmbLatLong[i]);
        row->addWidget(tKarten[i], 1);
        column->addLayout(row);
    }
    cmdSpeichern = Named(new QPushButton, "cmdSpeichern");
    cmdCalibrate = Named(new QPushButton, "cmdCalibrate");
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {cmdSpeichern, cmdCalibrate}) {
        button->setMinimumHeight(ButtonHeight);
        buttons->addWidget(button);
    }
    column->addSpacing(4);
    column->addLayout(buttons);
    guard.Connect(cmdSpeichern, &QPushButton::clicked,
                  [this] { Click([&] { logic->cmdSpeichern_Click(); }); });
    guard.Connect(cmdCalibrate, &QPushButton::clicked, [this] { cmdCalibrate_Click(); });
    layout.addWidget(Frame1);
}

void frmCalibrate::MakeActiveMaps(QBoxLayout& layout) {
    Frame3 = Named(new QGroupBox, "Frame3");
    auto* column = new QVBoxLayout(Frame3);
    gridMaps = Named(new QTableView, "gridMaps");
    column->addWidget(gridMaps);
    mapsModel = std::make_unique<RecordsetModel>(
        logic->ActiveMapsSet, std::vector<RecordsetModel::Column>{
                                  {"Name", [this] { return Text("Kartendatei", "Maps"); }, nullptr}});
    mapsBinding = std::make_unique<GridBinding>(*mapsModel, *gridMaps);
    gridMaps->horizontalHeader()->setStretchLastSection(true);
    layout.addWidget(Frame3, 1);
}

void frmCalibrate::Click(const std::function<void()>& event) {
    guard.Run(event);
    ShowState();
}

void frmCalibrate::cmdCalibrate_Click() {
    if (logic->SelectedName().empty()) return;
    auto* form = new frmCalRect({shared, shared.DataConn, guard, dialogs, charts}, *logic, window());
    connect(form, &QDialog::finished, this, [this] { ShowState(); });
    form->Start();
}

// Enter goes from edge to edge and then to the button; Escape takes back what was typed.
bool frmCalibrate::eventFilter(QObject* watched, QEvent* event) {
    if (watched == listKarten->viewport() && event->type() == QEvent::MouseButtonPress) {
        const auto* item = listKarten->itemAt(static_cast<QMouseEvent*>(event)->position().toPoint());
        pressedSelected = item && item == listKarten->currentItem();
    }
    for (std::size_t i = 0; i < tKarten.size(); ++i) {
        if (watched != tKarten[i]) continue;
        if (event->type() == QEvent::MouseButtonPress) Click([&] { logic->tKarten_Click(i); });
        if (event->type() != QEvent::KeyPress) break;
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            if (i + 1 < tKarten.size())
                tKarten[i + 1]->setFocus();
            else
                cmdSpeichern->setFocus();
            return true;
        }
        if (key == Qt::Key_Escape) {
            Click([&] { logic->ShowMapData(); });
            return true;
        }
    }
    return Screen::eventFilter(watched, event);
}

void frmCalibrate::ShowState() {
    const Flagged now(showing);
    tPath->setText(Shown(logic->tPath));
    ShowList();
    ShowEdges();
    lblBreite->setText(logic->Size ? QString::number(logic->Size->Width) : QString());
    lblHoehe->setText(logic->Size ? QString::number(logic->Size->Height) : QString());
    const std::string scale = logic->ScaleText();
    lblScale->setText(Shown(scale.empty() ? logic->BackupText() : scale));
    chkVorschau->setChecked(logic->chkVorschau);
    lblNoPreview->setText(logic->PreviewFailed
                              ? Text("Dieses Bild kann nicht gezeigt werden.", "This image cannot be shown.")
                          : logic->chkVorschau ? QString()
                                               : Text("Vorschau ist aus", "Preview is off"));
    const bool selected = !logic->SelectedName().empty();
    cmdSpeichern->setEnabled(selected);
    cmdCalibrate->setEnabled(selected);
}

void frmCalibrate::ShowList() {
    const auto& entries = logic->listKarten;
    bool same = listKarten->count() == static_cast<int>(entries.size());
    for (int i = 0; same && i < listKarten->count(); ++i)
        same = listKarten->item(i)->text() == Shown(entries[static_cast<std::size_t>(i)].Name);
    if (!same) {
        listKarten->clear();
        for (const auto& entry : entries) {
            auto* item = new QListWidgetItem(Shown(entry.Name), listKarten);
            item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
            item->setToolTip(item->text());
            item->setSizeHint({0, RowHeight});
        }
    }
    for (int i = 0; i < listKarten->count(); ++i)
        listKarten->item(i)->setCheckState(entries[static_cast<std::size_t>(i)].Selected ? Qt::Checked
                                                                                         : Qt::Unchecked);
    if (listKarten->currentRow() != logic->ListIndex) listKarten->setCurrentRow(logic->ListIndex);
}

void frmCalibrate::ShowEdges() {
    for (std::size_t i = 0; i < tKarten.size(); ++i) {
        if (tKarten[i]->text() != Shown(logic->tKarten[i])) tKarten[i]->setText(Shown(logic->tKarten[i]));
        cmbLatLong[i]->setCurrentIndex(static_cast<int>(logic->cmbLatLong[i]));
        const char* style = logic->EdgeStates[i] == EdgeState::Stored ? StoredStyle : NotStoredStyle;
        if (tKarten[i]->styleSheet() == style) continue;
        tKarten[i]->setStyleSheet(style);
        cmbLatLong[i]->setStyleSheet(QString("QComboBox { %1 }").arg(style));
    }
}

void frmCalibrate::ApplyLanguage() {
    setWindowTitle(Text("Kartendaten", "Map Data"));
    Label7->setText(Text("Kartenverzeichnis", "Map directory"));
    Label8->setText(Text("Breite", "Width"));
    Label9->setText(Text("Höhe", "Height"));
    chkVorschau->setText(Text("Kartenvorschau An", "Preview on"));
    cmdFillList->setText(Text("Karten aktualisieren", "Refresh Map List"));
    Frame1->setTitle(Text("Kartendaten", "Map Data"));
    Frame3->setTitle(Text("GPS Karten", "GPS Maps"));
    cmdCalibrate->setText(Text("Karte kalibrieren", "Calibrate map"));
    cmdSpeichern->setText(Text("Speichern", "Save"));
    for (std::size_t i = 0; i < Edges.size(); ++i) {
        edgeCaptions[i]->setText(Text(Edges[i].German, Edges[i].English));
        edgeHints[i]->setText(Text(Edges[i].GermanHint, Edges[i].EnglishHint));
    }
    mapsModel->HeadersChanged();
    ApplyToolTips();
    ShowState();
}

void frmCalibrate::ApplyToolTips() {
    QStringList formats;
    for (const PictureFormat& format : PictureFormats) formats << QString(format.Ending).toUpper();
    tPath->setToolTip(
        Text("In diesen Ordner gehören die Bilder (%1)", "The images (%1) belong into this folder")
            .arg(formats.join(", ")));
    listKarten->setToolTip(
        Text("Alle Bilder des Ordners; ein Haken macht die Karte für Flug und Planung aktiv",
             "All images of the folder; a tick makes the map active for flight and planning"));
    cmdFillList->setToolTip(Text("Den Ordner neu lesen; Karten ohne Bild werden aus der Liste genommen",
                                 "Read the folder again; maps without an image leave the catalogue"));
    chkVorschau->setToolTip(Text("Das gewählte Bild verkleinert zeigen", "Show the selected image reduced"));
    lblScale->setToolTip(Text(
        "Wie viel Boden ein Bildpunkt in der Mitte der Karte bedeckt. Ein großer Unterschied zeigt einen "
        "Fehler in den Rändern.",
        "How much ground a pixel covers in the middle of the map. A large difference shows a mistake in "
        "the edges."));
    for (std::size_t i = 0; i < Edges.size(); ++i) {
        tKarten[i]->setToolTip(
            Text("Grad und Minuten: 47,4 ist 47°40'. Gelb: nicht gespeichert, blau: gespeichert",
                 "Degrees and minutes: 47.4 is 47°40'. Yellow: not stored, blue: stored"));
        cmbLatLong[i]->setToolTip(i < 2 ? Text("Nord oder Süd", "North or south")
                                        : Text("Ost oder West", "East or west"));
    }
    cmdSpeichern->setToolTip(
        Text("Größe und Ränder der gewählten Karte speichern", "Store size and edges of the selected map"));
    cmdCalibrate->setToolTip(
        Text("Die Ränder aus zwei bekannten Punkten berechnen", "Compute the edges from two known points"));
    gridMaps->setToolTip(Text("Die aktiven Karten", "The active maps"));
    lblBreite->setToolTip(Text("Bildpunkte, wie die Datei sie hat", "Pixels, as the file has them"));
    lblHoehe->setToolTip(lblBreite->toolTip());
    picMap->setToolTip(Text("Vorschau, auf die Fläche gestreckt", "Preview, stretched over the area"));
}

} // namespace ornivane
