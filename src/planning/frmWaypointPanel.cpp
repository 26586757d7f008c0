#include "planning/frmWaypointPanel.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <algorithm>

#include "base/Numbers.h"
#include "base/Strings.h"
#include "platform/qt/Clicked.h"
#include "platform/qt/FillCombo.h"
#include "platform/qt/GridBinding.h"
#include "platform/qt/LampButton.h"
#include "platform/qt/Named.h"
#include "platform/qt/RecordsetModel.h"
#include "platform/qt/SingleClick.h"
#include "platform/qt/Spaced.h"

namespace ornivane {

namespace {

constexpr int PanelWidth = 320, FieldHeight = 40, HemisphereWidth = 42, CoordinateWidth = 90; // pixels
constexpr int ListArrow = 30; // pixels of the category list's own arrow, which stays in sight
constexpr int FocusFrame = 3; // pixels of its border

QString Q(const std::string& text) { return QString::fromStdString(text); }

// A stored coordinate as it is, with the system's separator.
QString CoordinateText(const Value& value, const LocaleText& locale) {
    const auto* number = std::get_if<double>(&value.Raw());
    return value.IsNull() ? QString() : Q(number ? NumberText(*number, locale) : value.Text());
}

void ShowText(QLineEdit& field, const std::string& text) {
    if (field.text() != Q(text)) field.setText(Q(text)); // the same text again would move the cursor
}

} // namespace

frmWaypointPanel::frmWaypointPanel(QWidget* parent, WaypointEditing& toShow, const Language& texts,
                                   std::function<void(const Event&)> toRun, Event addsToRoute)
    : frmListPanel(parent, texts, std::move(toRun)), waypoints(toShow), addToRoute(std::move(addsToRoute)) {
    setObjectName("frmWaypointPanel");
    setFixedWidth(PanelWidth);
    auto* column = Spaced(new QVBoxLayout(this), 5, {8, 6, 8, 6});
    MakeSearch(*column);
    MakeGrid(*column);
    MakeSteps(*column);
    MakeEntry(*column);
    MakeButtons(*column);
}

frmWaypointPanel::~frmWaypointPanel() = default;

QWidget* frmWaypointPanel::Captioned(QLabel*& caption, std::initializer_list<QWidget*> fields) {
    auto* frame = new QWidget(this);
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(4);
    grid->setVerticalSpacing(0);
    caption = new QLabel(frame);
    caption->setProperty("role", "caption");
    grid->addWidget(caption, 0, 0, 1, static_cast<int>(fields.size()));
    int place = 0;
    for (QWidget* field : fields) grid->addWidget(field, 1, place++);
    return frame;
}

QLineEdit* frmWaypointPanel::Field(const char* name) {
    auto* field = Named(new QLineEdit(this), name);
    field->setMinimumHeight(FieldHeight);
    field->installEventFilter(this);
    return field;
}

QLineEdit* frmWaypointPanel::Hemisphere(const char* name) {
    QLineEdit* field = Field(name);
    field->setReadOnly(true); // only its two letters, by key or click
    field->setFixedWidth(HemisphereWidth);
    field->setAlignment(Qt::AlignCenter);
    return field;
}

void frmWaypointPanel::MakeSearch(QBoxLayout& layout) {
    tquickfind = Field("tquickfind");
    // The text and not the key: what is pasted or comes from a keyboard on the screen is searched as well.
    connect(tquickfind, &QLineEdit::textEdited, this, [this](const QString& text) {
        waypoints.tquickfind = text.toStdString();
        Do([this] { waypoints.QuickFind(); });
    });
    layout.addWidget(Captioned(searchCaption, {tquickfind}));
    cmbKat = Named(new QComboBox(this), "cmbKat");
    cmbKat->setMinimumHeight(FieldHeight);
    cmbKat->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cmbKat->installEventFilter(this);
    connect(cmbKat, &QComboBox::activated, this, [this](int index) {
        Do([&] { return waypoints.ChooseCategory(cmbKat->itemText(index).toStdString()); });
        ShowCategories(waypoints); // the choice shows already, also one that could not be taken
    });
    tKat = Named(new QLabel(cmbKat), "tKat");
    tKat->setTextFormat(Qt::PlainText);
    tKat->setStyleSheet("padding: 0 5px;"); // a frame inside such a list gets no style unless it has one
    tKat->setAttribute(Qt::WA_TransparentForMouseEvents); // a click opens the list under it
    layout.addWidget(cmbKat);
}

void frmWaypointPanel::MakeGrid(QBoxLayout& layout) {
    gridWaypoints = Grid("gridWaypoints");
    const auto coordinate = [this](const Value& value) { return CoordinateText(value, language.Locale); };
    model = std::make_unique<RecordsetModel>(
        waypoints.WaypointsSet,
        std::vector<RecordsetModel::Column>{
            {"Name", [] { return QString("             Name"); }, {}},
            {"Lat", [this] { return Text("  Breitengrad", "  Latitude"); }, coordinate},
            {"Long", [this] { return Text("  Längengrad", "  Longitude"); }, coordinate}});
    binding = std::make_unique<GridBinding>(*model, *gridWaypoints);
    connect(binding.get(), &GridBinding::RowChosen, this, [this] { Do([] {}); });
    connect(model.get(), &RecordsetModel::CurrentMoved, this, [this] { Do([] {}); });
    QHeaderView* head = gridWaypoints->horizontalHeader();
    head->setSectionResizeMode(0, QHeaderView::Stretch);
    for (const int column : {1, 2}) gridWaypoints->setColumnWidth(column, CoordinateWidth);
    connect(head, &QHeaderView::sectionClicked, this, &frmWaypointPanel::ShowSelection);
    layout.addWidget(gridWaypoints, 1);
}

LampButton* frmWaypointPanel::Step(const char* name, const Event& step, const char* icon) {
    auto* button = new LampButton(this);
    button->SetIcon(QString(":/icons/%1.svg").arg(icon));
    Wire(*button, name, step);
    return button;
}

void frmWaypointPanel::MakeSteps(QBoxLayout& layout) {
    auto* row = Spaced(new QHBoxLayout, 5);
    cmdPrev = Step(
        "cmdPrev", [this] { return waypoints.cmdPrev(), PlanEffects(); }, "previous");
    lblCount = Named(new QLabel(this), "lblCount");
    lblCount->setAlignment(Qt::AlignCenter);
    cmdNext = Step(
        "cmdNext", [this] { return waypoints.cmdNext(), PlanEffects(); }, "next");
    row->addWidget(cmdPrev, 1);
    row->addWidget(lblCount, 2);
    row->addWidget(cmdNext, 1);
    layout.addLayout(row);
}

void frmWaypointPanel::MakeEntry(QBoxLayout& layout) {
    const char* const names[] = {nullptr, "tWaypoint1", "tWaypoint2", "tWaypoint3"};
    const auto entry = [&](std::size_t i) {
        tWaypoint[i] = Field(names[i]);
        connect(tWaypoint[i], &QLineEdit::textEdited, this,
                [this, i](const QString& text) { waypoints.tWaypoint[i] = text.toStdString(); });
    };
    entry(1);
    layout.addWidget(Captioned(nameCaption, {tWaypoint[1]}));
    entry(2);
    tNS = Hemisphere("tNS");
    entry(3);
    tEW = Hemisphere("tEW");
    auto* row = Spaced(new QHBoxLayout, 8);
    row->addWidget(Captioned(latCaption, {tWaypoint[2], tNS}));
    row->addWidget(Captioned(longCaption, {tWaypoint[3], tEW}));
    layout.addLayout(row);
}

void frmWaypointPanel::MakeButtons(QBoxLayout& layout) {
    cmdNew = Button("cmdNew", [this] { return waypoints.cmdNew(); });
    layout.addWidget(cmdNew);
    auto* row = Spaced(new QHBoxLayout, 5);
    cmdChange = Button("cmdChange", [this] { return waypoints.cmdChange(); });
    cmdDelete = Button("cmdDelete", [this] { return waypoints.cmdDelete(); });
    for (QPushButton* button : {cmdChange, cmdDelete}) new SingleClick(*button);
    row->addWidget(cmdChange, 1);
    row->addWidget(cmdDelete, 1);
    layout.addLayout(row);
}

void frmWaypointPanel::TakeKeysOf(QWidget& picMap) {
    map = &picMap;
    picMap.installEventFilter(this);
}

void frmWaypointPanel::FocusList() { gridWaypoints->setFocus(); }

void frmWaypointPanel::FocusEntry(std::size_t field) {
    tWaypoint[field]->setFocus();
    tWaypoint[field]->selectAll();
}

void frmWaypointPanel::Show(const WaypointControls& controls, const std::optional<std::string>& otherTarget) {
    for (std::size_t i = 1; i < tWaypoint.size(); ++i) ShowText(*tWaypoint[i], controls.tWaypoint[i]);
    ShowText(*tNS, Letter(controls.tNS));
    ShowText(*tEW, Letter(controls.tEW));
    ShowText(*tquickfind, controls.tquickfind);
    lblCount->setText(Q(controls.lblCount));
    cmdChange->setText(ChangeCaption(otherTarget));
    Enable(*cmdNext, controls.cmdNextEnabled, *gridWaypoints);
    Enable(*cmdPrev, controls.cmdPrevEnabled, *gridWaypoints);
    ShowCategories(controls);
}

void frmWaypointPanel::ShowSelection() { binding->SelectRow(); }

void frmWaypointPanel::ShowCategories(const WaypointControls& controls) {
    FillCombo(*cmbKat, controls.Categories, controls.cmbKat);
    tKat->setText(Q(controls.tKat));
    tKat->setVisible(controls.tKatVisible);
}

bool frmWaypointPanel::IsEntry(const QObject* watched) const {
    return watched && std::ranges::find(tWaypoint, watched) != tWaypoint.end();
}

bool frmWaypointPanel::TakesHemisphereKey(const QObject* watched, int key) const {
    if (watched == tNS) return key == Qt::Key_N || key == Qt::Key_S || key == Qt::Key_Space;
    return watched == tEW && (key == Qt::Key_E || key == Qt::Key_W || key == Qt::Key_Space);
}

bool frmWaypointPanel::TakesKey(QObject* watched, int key) const {
    const bool isStep = key == Qt::Key_Up || key == Qt::Key_Down;
    const bool isEnd = IsEnter(key) || key == Qt::Key_Escape;
    if (IsEntry(watched) || watched == tquickfind) return isStep || isEnd;
    if (watched == tNS || watched == tEW) return isEnd || TakesHemisphereKey(watched, key);
    if (watched == gridWaypoints || watched == map) return isStep || IsEnter(key);
    // The arrows open the list of categories: stepping through it closed would filter at each step.
    return watched == cmbKat && (isStep || isEnd || key == Qt::Key_Space);
}

void frmWaypointPanel::KeyDone(QObject* watched, int key) {
    if (watched == tquickfind) return SearchKey(key);
    if (watched == gridWaypoints || watched == map) return ListKey(key);
    if (watched == cmbKat) return key == Qt::Key_Escape ? FocusList() : cmbKat->showPopup();
    if (TakesHemisphereKey(watched, key)) return HemisphereKey(watched, key);
    if (IsEnter(key)) return Do([this] { return waypoints.cmdNew(); });
    if (key == Qt::Key_Escape) return Do([this] { waypoints.CancelEntry(); });
    FocusList();
    ListKey(key);
}

void frmWaypointPanel::ListKey(int key) {
    if (IsEnter(key)) return Do(addToRoute);
    Do([&] { key == Qt::Key_Down ? waypoints.cmdNext() : waypoints.cmdPrev(); });
}

void frmWaypointPanel::SearchKey(int key) {
    if (key == Qt::Key_Down) return Do([this] { waypoints.cmdNext(); });
    if (key == Qt::Key_Up) return Do([this] { waypoints.cmdPrev(); });
    if (IsEnter(key)) return FocusList(); // what was found; the next Enter puts it into the route
    Do([this] { waypoints.tquickfind.clear(); });
}

void frmWaypointPanel::HemisphereKey(const QObject* watched, int key) {
    Do([&] {
        if (key == Qt::Key_Space)
            watched == tNS ? waypoints.tNS_Click() : waypoints.tEW_Click();
        else if (watched == tNS)
            waypoints.tNS = key == Qt::Key_S ? NorthSouth::South : NorthSouth::North;
        else
            waypoints.tEW = key == Qt::Key_W ? EastWest::West : EastWest::East;
    });
}

bool frmWaypointPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonDblClick && EmptyField(watched)) return true;
    if (watched == tNS && IsClick(*tNS, *event)) Do([this] { waypoints.tNS_Click(); });
    if (watched == tEW && IsClick(*tEW, *event)) Do([this] { waypoints.tEW_Click(); });
    if (watched == cmbKat) FilterCategory(*event);
    return frmListPanel::eventFilter(watched, event);
}

bool frmWaypointPanel::EmptyField(const QObject* watched) {
    if (!IsEntry(watched) && watched != tquickfind) return false;
    Do([&] {
        for (std::size_t i = 1; i < tWaypoint.size(); ++i)
            if (watched == tWaypoint[i]) waypoints.tWaypoint[i].clear();
        if (watched == tquickfind) waypoints.tquickfind.clear();
    });
    return true;
}

// tKat masks the list but for its arrow; the mouse goes through it.
void frmWaypointPanel::FilterCategory(QEvent& event) {
    if (event.type() == QEvent::Resize)
        tKat->setGeometry(FocusFrame, FocusFrame, cmbKat->width() - ListArrow - FocusFrame,
                          cmbKat->height() - 2 * FocusFrame);
    if (event.type() == QEvent::MouseButtonPress) Do([this] { waypoints.tKat_Click(); });
    const bool loses = event.type() == QEvent::FocusOut;
    if (loses && static_cast<QFocusEvent&>(event).reason() != Qt::PopupFocusReason)
        Do([this] { waypoints.cmbKat_LostFocus(); });
}

void frmWaypointPanel::ApplyLanguage() {
    searchCaption->setText(Text("Schnellsuche", "Quickfind"));
    nameCaption->setText(Text("Wegpunkt", "Waypoint"));
    latCaption->setText(Text("Breitengrad", "Latitude"));
    longCaption->setText(Text("Längengrad", "Longitude"));
    cmdNew->setText(Text(" Wegpunkt hinzufügen ", " Add Waypoint "));
    cmdDelete->setText(Text(" Wegpunkt löschen ", " Delete Waypoint "));
    model->HeadersChanged();
    ApplyToolTips();
}

QString frmWaypointPanel::ChangeCaption(const std::optional<std::string>& otherTarget) const {
    constexpr std::size_t characters = 60;
    if (!otherTarget) return Text(" Wegpunkt ändern ", " Change Waypoint ");
    const QString name = QString::fromStdString(Shortened(*otherTarget, characters)).replace("&", "&&");
    return Text(" Wegpunkt ändern: ", " Change Waypoint: ") + name + " ";
}

void frmWaypointPanel::ApplyToolTips() {
    tquickfind->setToolTip(
        Text("Findet den ersten Namen ab dem Text; Pfeile gehen weiter, Doppelklick leert",
             "Finds the first name from the text on; arrows step, a double click empties"));
    cmbKat->setToolTip(Text("Zeigt nur die Wegpunkte einer Kategorie; neue bekommen sie auch",
                            "Shows the waypoints of one category; new ones get it, too"));
    gridWaypoints->setToolTip(Text("Eingabe hängt den Wegpunkt an die Strecke, Pfeile gehen weiter",
                                   "Enter adds the waypoint to the route, arrows step"));
    cmdPrev->setToolTip(Text("Voriger Wegpunkt", "Previous waypoint"));
    cmdNext->setToolTip(Text("Nächster Wegpunkt", "Next waypoint"));
    lblCount->setToolTip(
        Text("Platz in der Liste / Zahl der Wegpunkte", "Place in the list / number of waypoints"));
    tWaypoint[1]->setToolTip(Text("Name; Eingabe fügt hinzu, Esc verwirft, Doppelklick leert",
                                  "Name; Enter adds, Esc discards, a double click empties"));
    tWaypoint[2]->setToolTip(Text("Grad, Minuten hinter dem Komma. Bsp.: N 47°40': 47,4",
                                  "Degrees, minutes behind the point. E.g. N 47°40': 47.4"));
    tWaypoint[3]->setToolTip(Text("Grad, Minuten hinter dem Komma. Bsp.: E 8°31': 8,31",
                                  "Degrees, minutes behind the point. E.g. E 8°31': 8.31"));
    tNS->setToolTip(
        Text("Nord oder Süd: Klick, Leertaste, N oder S", "North or south: click, space, N or S"));
    tEW->setToolTip(Text("Ost oder West: Klick, Leertaste, E oder W", "East or west: click, space, E or W"));
    cmdNew->setToolTip(
        Text("Speichert die Eingabe als neuen Wegpunkt", "Stores the entry as a new waypoint"));
    cmdChange->setToolTip(Text("Schreibt die Eingabe, Süd und West mit Minus, in den gewählten Wegpunkt",
                               "Writes the entry, south and west with a minus, into the chosen waypoint"));
    cmdDelete->setToolTip(Text("Löscht den gewählten Wegpunkt ohne Rückfrage; Strecken behalten ihn",
                               "Deletes the chosen waypoint without asking; routes keep it"));
}

} // namespace ornivane
