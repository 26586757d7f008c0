#include "calibration/frmCalRect.h"

#include <QApplication>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScopeGuard>
#include <QSlider>
#include <QTableView>
#include <QVBoxLayout>

#include "base/Flagged.h"
#include "base/RuntimeError.h"
#include "platform/qt/ChartWatch.h"
#include "platform/qt/EnterKey.h"
#include "platform/qt/Events.h"
#include "platform/qt/GridBinding.h"
#include "platform/qt/Named.h"
#include "platform/qt/QtPicture.h"
#include "platform/qt/QtTimer.h"
#include "platform/qt/SurfaceWidget.h"

namespace ornivane {

namespace {

constexpr int ButtonHeight = 44, PanelWidth = 300, BarWidth = 220;
constexpr double DragBegins = 4; // pixels: a hand that only clicks moves less
constexpr const char* ToEnterStyle = "background: #ffff00; color: #101418";
constexpr const char* AcceptedStyle = "background: #00ff00; color: #101418";

QString Shown(const std::string& text) { return QString::fromStdString(text); }

QString Numbered(const char* name, std::size_t index) { return name + QString::number(index + 1); }

QPushButton* Button(const QString& name) {
    auto* button = new QPushButton;
    button->setObjectName(name);
    button->setMinimumHeight(ButtonHeight);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAutoDefault(false);
    return button;
}

} // namespace

frmCalRect::frmCalRect(const Services& services, MapData& frmCalibrate, QWidget* window)
    : QDialog(window), language(services.Texts), guard(services.Guard), catalogue(frmCalibrate),
      picStorage(std::make_unique<QtPicture>(services.Charts)), timArr(std::make_unique<QtTimer>(guard)) {
    setObjectName("frmCalRect");
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 8, 8, 8);
    auto* left = new QVBoxLayout;
    auto* panel = new QWidget;
    panel->setFixedWidth(PanelWidth);
    auto* right = new QVBoxLayout(panel);
    right->setContentsMargins(0, 0, 0, 0);
    row->addLayout(left, 1);
    row->addWidget(panel);
    MakeMap(*left);
    logic = std::make_unique<TwoPoints>(TwoPoints::World{language, services.DataConn, catalogue, *picStorage,
                                                         picMap->Surface(), *timArr, services.Messages});
    auto* progBar = Named(new QProgressBar(picMap), "progBar");
    progBar->setGeometry(12, 12, BarWidth, progBar->sizeHint().height());
    progBar->hide();
    chartWatch = std::make_unique<ChartWatch>(
        ChartWatch::World{*picStorage, *picMap, *progBar, guard, language}, [this] {
            if (loaded) logic->Draw_Picture();
        });
    timArr->OnTimer([this] {
        logic->timArr_Timer();
        ShowState();
    });
    MakePanel(*right);
    EnterKey::PressesButtonsOf(*this);
    ApplyLanguage();
    ShowState();
    if (window) resize(window->size() - QSize(24, 40));
}

frmCalRect::~frmCalRect() = default;

void frmCalRect::Start() {
    RestoreOnError(
        [this] {
            open();
            QApplication::setOverrideCursor(Qt::WaitCursor);
            const auto after = qScopeGuard(QApplication::restoreOverrideCursor);
            logic->Form_Load();
        },
        [this] { close(); });
    loaded = true;
    picMap->setFocus();
    Click([this] { logic->Draw_Picture(); });
}

void frmCalRect::Unload() {
    closing = true;
    close();
}

void frmCalRect::MakeMap(QBoxLayout& layout) {
    picMap = Named(new SurfaceWidget(this), "picMap");
    picMap->setMinimumSize(400, 300);
    picMap->setFocusPolicy(Qt::StrongFocus);
    picMap->setMouseTracking(true);
    picMap->setCursor(Qt::BlankCursor); // the cross-hair is the pointer
    picMap->installEventFilter(this);
    layout.addWidget(picMap, 1);
    guard.Connect(picMap, &SurfaceWidget::Pressed, [this](QPointF at, Qt::MouseButton button) {
        if (!loaded || button != Qt::LeftButton) return;
        picMap->setFocus();
        pressedAt = at;
        dragged = false;
        Click([&] {
            logic->MouseDown({at.x(), at.y()});
            logic->MouseMove({at.x(), at.y()}, false);
        });
    });
    guard.Connect(picMap, &SurfaceWidget::Moved, [this](QPointF at, Qt::MouseButtons held) {
        if (!loaded) return;
        const bool left = held & Qt::LeftButton;
        if (left && (at - pressedAt).manhattanLength() > DragBegins) dragged = true;
        Click([&] { logic->MouseMove({at.x(), at.y()}, left && dragged); });
    });
    guard.Connect(picMap, &SurfaceWidget::Released,
                  [this](QPointF at, Qt::MouseButton button) { Released(at, button); });
    guard.Connect(picMap, &SurfaceWidget::Resized, [this] {
        if (loaded) Click([&] { logic->Form_Resize(); });
    });
    SlideMap = Named(new QSlider(Qt::Horizontal), "SlideMap");
    SlideMap->setRange(SlideMin, SlideMax);
    SlideMap->setSingleStep(1);
    SlideMap->setPageStep(5);
    SlideMap->setMinimumHeight(ButtonHeight);
    SlideMap->setFocusPolicy(Qt::TabFocus);
    SlideMap->installEventFilter(this);
    guard.Connect(SlideMap, &QSlider::valueChanged, [this](int value) {
        if (loaded && !showing) Click([&] { logic->SlideMap_Click(value); });
    });
    layout.addWidget(SlideMap);
}

// The end of a drag moves no point: only what was pressed and let go in one place is a click.
void frmCalRect::Released(QPointF at, Qt::MouseButton button) {
    if (!loaded || button != Qt::LeftButton || dragged || !picMap->rect().contains(at.toPoint())) return;
    Click([&] { logic->picMap_Click(); });
}

void frmCalRect::MakePanel(QBoxLayout& layout) {
    lblHint = Named(new QLabel, "lblHint");
    lblKeys = Named(new QLabel, "lblKeys");
    for (QLabel* label : {lblHint, lblKeys}) {
        label->setWordWrap(true);
        layout.addWidget(label);
    }
    lblKeys->setProperty("role", "caption");
    MakeEntry(0, layout);
    MakeEntry(1, layout);
    layout.addStretch(1);
    MakePixels(layout);
    cmdExit = Button("cmdExit");
    guard.Connect(cmdExit, &QPushButton::clicked, [this] { Unload(); });
    layout.addWidget(cmdExit);
}

void frmCalRect::MakePixels(QBoxLayout& layout) {
    auto* row = new QHBoxLayout;
    for (auto [field, name, caption] : {std::tuple{&tx, "tx", "X"}, std::tuple{&ty, "ty", "Y"}}) {
        row->addWidget(new QLabel(caption));
        *field = Named(new QLineEdit, name);
        (*field)->setReadOnly(true);
        (*field)->setFocusPolicy(Qt::NoFocus);
        row->addWidget(*field);
    }
    layout.addLayout(row);
}

void frmCalRect::MakeEntry(std::size_t index, QBoxLayout& layout) {
    Entry& entry = entries[index];
    entry.frmP = new QGroupBox;
    entry.frmP->setObjectName(Numbered("frmP", index));
    auto* column = new QVBoxLayout(entry.frmP);
    column->setSpacing(4);
    MakeEntryFields(index, *column);
    MakeEntryGrid(index, *column);
    new EnterKey(*entry.tLat, [&entry] { entry.tLong->setFocus(); });
    for (QWidget* last : std::initializer_list<QWidget*>{entry.tLong, entry.tQuickfind, entry.gridWay})
        new EnterKey(*last, [this, index] { Save(index); });
    entry.cmdSave = Button(Numbered("cmdSave", index));
    guard.Connect(entry.cmdSave, &QPushButton::clicked, [this, index] { Save(index); });
    column->addWidget(entry.cmdSave);
    layout.addWidget(entry.frmP, 4);
}

void frmCalRect::MakeEntryFields(std::size_t index, QBoxLayout& layout) {
    Entry& entry = entries[index];
    CalibrationPoint& point = logic->Points[index];
    struct Field {
        QLabel** Caption;
        QLabel** Hint;
        QLineEdit** Edit;
        const char* Name;
        std::string* Target;
    };
    const std::array<Field, 3> fields{
        {{&entry.lblLat, &entry.hintLat, &entry.tLat, "tLat", &point.tLat},
         {&entry.lblLong, &entry.hintLong, &entry.tLong, "tLong", &point.tLong},
         {&entry.lblQuickfind, nullptr, &entry.tQuickfind, "tQuickfind", &point.tQuickfind}}};
    for (const Field& field : fields) {
        auto* captions = new QHBoxLayout;
        captions->addWidget(*field.Caption = new QLabel);
        captions->addStretch();
        if (field.Hint) {
            captions->addWidget(*field.Hint = new QLabel);
            (*field.Hint)->setProperty("role", "caption");
        }
        layout.addLayout(captions);
        auto* edit = *field.Edit = new QLineEdit;
        edit->setObjectName(Numbered(field.Name, index));
        edit->setMinimumHeight(38);
        edit->installEventFilter(this);
        const bool search = !field.Hint;
        guard.Connect(edit, &QLineEdit::textEdited,
                      [this, index, search, target = field.Target](const QString& text) {
                          *target = text.toStdString();
                          if (!search) return;
                          Click([&] { logic->FindWaypoint(index); });
                      });
        layout.addWidget(edit);
    }
}

void frmCalRect::MakeEntryGrid(std::size_t index, QBoxLayout& layout) {
    Entry& entry = entries[index];
    entry.gridWay = new QTableView;
    entry.gridWay->setObjectName(Numbered("gridWay", index));
    entry.gridWay->installEventFilter(this);
    entry.gridWay->setMinimumHeight(104); // head and two rows
    entry.Model = std::make_unique<RecordsetModel>(
        logic->Points[index].WaypointFindSet,
        std::vector<RecordsetModel::Column>{
            {"Name", [this] { return Text("   Wegpunkt", "   Waypoint"); }, nullptr}});
    entry.Binding = std::make_unique<GridBinding>(*entry.Model, *entry.gridWay);
    entry.gridWay->horizontalHeader()->setStretchLastSection(true);
    layout.addWidget(entry.gridWay, 1);
    guard.Connect(entry.gridWay->selectionModel(), &QItemSelectionModel::currentRowChanged, [this, index] {
        if (showing) return;
        Click([&] {
            if (logic->Points[index].FieldsEnabled) logic->gridWay_RowChanged(index);
        });
    });
}

void frmCalRect::Click(const std::function<void()>& event) {
    guard.Run(event);
    if (!closing) ShowState();
}

// Afterwards the focus is where it began: on the picture, for the next point.
void frmCalRect::Save(std::size_t index) {
    Click([&] {
        if (logic->cmdSave_Click(index)) Unload();
    });
    if (!closing && logic->Points[index].Colour == PointColour::Accepted) picMap->setFocus();
}

void frmCalRect::ShowState() {
    const Flagged now(showing);
    SlideMap->setValue(logic->SlideMap);
    tx->setText(Shown(logic->tx));
    ty->setText(Shown(logic->ty));
    ShowEntry(0);
    ShowEntry(1);
}

void frmCalRect::ShowEntry(std::size_t index) {
    Entry& entry = entries[index];
    const CalibrationPoint& point = logic->Points[index];
    entry.frmP->setVisible(point.frmVisible);
    const auto show = [](QLineEdit& field, const std::string& text) {
        if (field.text() != Shown(text)) field.setText(Shown(text));
    };
    show(*entry.tLat, point.tLat);
    show(*entry.tLong, point.tLong);
    show(*entry.tQuickfind, point.tQuickfind);
    const char* style = point.Colour == PointColour::Accepted  ? AcceptedStyle
                        : point.Colour == PointColour::ToEnter ? ToEnterStyle
                                                               : "";
    for (QLineEdit* field : {entry.tLat, entry.tLong}) {
        field->setEnabled(point.FieldsEnabled);
        if (field->styleSheet() != style) field->setStyleSheet(style);
    }
    entry.tQuickfind->setEnabled(point.FieldsEnabled);
    entry.gridWay->setEnabled(point.FieldsEnabled);
    entry.cmdSave->setEnabled(point.cmdSaveEnabled);
    entry.Binding->SelectRow();
}

void frmCalRect::ApplyLanguage() {
    setWindowTitle(Text("Kalibrierung: ", "Calibrate: ") + Shown(catalogue.SelectedName()));
    lblHint->setText(
        Text("Zum Kalibrieren einfach zwei Punkte anklicken und die Koordinaten eingeben oder einen "
             "bekannten Punkt aus der Datenbank auswählen.",
             "To calibrate the map click on two points and enter the coordinates or select a point "
             "from the database."));
    lblKeys->setText(
        Text("Tasten: Pfeile schieben das Bild, mit Umschalt das Fadenkreuz um einen Punkt, mit Strg "
             "um zwanzig; Bild auf/ab vergrößert und verkleinert; Enter setzt den Punkt; Ziffern und "
             "Buchstaben füllen die Felder; Esc zurück.",
             "Keys: arrows move the picture, with Shift the cross-hair by one dot, with Ctrl by "
             "twenty; Page up/down zooms in and out; Enter sets the point; digits and letters fill "
             "the fields; Esc goes back."));
    for (std::size_t i = 0; i < entries.size(); ++i) {
        Entry& entry = entries[i];
        entry.frmP->setTitle(i == 0 ? Text("Eingabe Punkt 1", "Enter point 1")
                                    : Text("Eingabe Punkt 2", "Enter point 2"));
        entry.lblLat->setText(Text("Breitengrad", "Latitude"));
        entry.lblLong->setText(Text("Längengrad", "Longitude"));
        for (QLabel* hint : {entry.hintLat, entry.hintLong})
            hint->setText(Text("Bsp: N48° 10': 48,1", "Exp: N48° 10': 48,1"));
        entry.lblQuickfind->setText(Text("Schnellsuche", "Quickfind"));
        entry.cmdSave->setText(Text("Speichern", "Save"));
        for (QLineEdit* field : {entry.tLat, entry.tLong})
            field->setToolTip(Text("Grad und Minuten: 47,4 ist 47°40'. Gelb: einzugeben, grün: übernommen",
                                   "Degrees and minutes: 47.4 is 47°40'. Yellow: to enter, green: accepted"));
        entry.tQuickfind->setToolTip(
            Text("Anfang des Namens eines Wegpunkts", "The beginning of a waypoint's name"));
        entry.gridWay->setToolTip(Text("Gefundene Wegpunkte; der gewählte füllt die Felder",
                                       "Waypoints found; the chosen one fills the fields"));
        entry.cmdSave->setToolTip(Text("Den Punkt übernehmen (Enter)", "Accept the point (Enter)"));
    }
    SlideMap->setToolTip(Text("Vergrößerung; rechts das ganze Bild", "Zoom; the whole image at the right"));
    for (QLineEdit* field : {tx, ty})
        field->setToolTip(Text("Bildpunkt unter dem Fadenkreuz", "Pixel of the image under the cross-hair"));
    cmdExit->setText(Text("Schließen", "Close"));
    cmdExit->setToolTip(Text("Schließen, ohne zu speichern (Esc)", "Close without saving (Esc)"));
}

} // namespace ornivane
