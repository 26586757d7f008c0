#include "planning/frmWaypointPanel.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

#include "base/Numbers.h"
#include "platform/qt/GridBinding.h"
#include "platform/qt/LampButton.h"
#include "platform/qt/RecordsetModel.h"
#include "platform/qt/SingleClick.h"

namespace ornivane {

namespace {

constexpr int PanelWidth = 320, FieldHeight = 40, HemisphereWidth = 42, CoordinateWidth = 90; // pixels

QString Q(const std::string& text) { return QString::fromStdString(text); }

// A stored coordinate as it is, with the system's separator.
QString CoordinateText(const Value& value, const LocaleText& locale) {
    const auto* number = std::get_if<double>(&value.Raw());
    return value.IsNull() ? QString() : Q(number ? NumberText(*number, locale) : value.Text());
}

void Show(QLineEdit& field, const std::string& text) {
    if (field.text() != Q(text)) field.setText(Q(text)); // the same text again would move the cursor
}

} // namespace

frmWaypointPanel::frmWaypointPanel(QWidget* parent, WaypointEditing& toShow, const Variablen& variablen,
                                   EventGuard& eventGuard, std::function<void()> addsToRoute,
                                   std::function<void()> stateChanged)
    : frmListPanel(parent, variablen, eventGuard, std::move(stateChanged)), waypoints(toShow),
      addToRoute(std::move(addsToRoute)) {
    setObjectName("frmWaypointPanel");
    setFixedWidth(PanelWidth);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(8, 6, 8, 6);
    column->setSpacing(5);
    MakeSearch(*column);
    MakeGrid(*column);
    MakeSteps(*column);
    MakeEntry(*column);
    MakeButtons(*column);
    frmWaypointPanel::ApplyLanguage();
    frmWaypointPanel::ShowState();
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
    auto* field = new QLineEdit(this);
    field->setObjectName(name);
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
        Do([this] { waypoints.QuickFind(0); });
    });
    layout.addWidget(Captioned(searchCaption, {tquickfind}));
    cmbKat = new QComboBox(this);
    cmbKat->setObjectName("cmbKat");
    cmbKat->setMinimumHeight(FieldHeight);
    cmbKat->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cmbKat->installEventFilter(this);
    connect(cmbKat, &QComboBox::activated, this, [this](int index) {
        Do([&] { waypoints.ChooseCategory(cmbKat->itemText(index).toStdString()); });
    });
    tKat = new QLabel(cmbKat);
    tKat->setObjectName("tKat");
    tKat->setTextFormat(Qt::PlainText);
    tKat->setStyleSheet("padding: 0 5px;"); // a frame inside such a list gets no style unless it has one
    tKat->setAttribute(Qt::WA_TransparentForMouseEvents); // a click opens the list under it
    layout.addWidget(cmbKat);
}

void frmWaypointPanel::MakeGrid(QBoxLayout& layout) {
    gridWaypoints = Grid("gridWaypoints");
    const auto coordinate = [this](const Value& value) { return CoordinateText(value, shared.Locale); };
    model = std::make_unique<RecordsetModel>(
        waypoints.WaypointsSet,
        std::vector<RecordsetModel::Column>{
            {"Name", [] { return QString("             Name"); }, {}},
            {"Lat", [this] { return Text("  Breitengrad", "  Latitude"); }, coordinate},
            {"Long", [this] { return Text("  Längengrad", "  Longitude"); }, coordinate}});
    binding = std::make_unique<GridBinding>(*model, *gridWaypoints);
    connect(binding.get(), &GridBinding::RowChosen, this, [this] { Do([] {}); });
    connect(model.get(), &RecordsetModel::CurrentMoved, this, &frmWaypointPanel::ShowState);
    QHeaderView* head = gridWaypoints->horizontalHeader();
    head->setSectionResizeMode(0, QHeaderView::Stretch);
    for (const int column : {1, 2}) gridWaypoints->setColumnWidth(column, CoordinateWidth);
    connect(head, &QHeaderView::sectionClicked, this, &frmWaypointPanel::ShowState);
    layout.addWidget(gridWaypoints, 1);
}

LampButton* frmWaypointPanel::Step(const char* name, const char* icon, const std::function<void()>& click) {
    auto* button = new LampButton(this);
    button->SetIcon(QString(":/icons/%1.svg").arg(icon));
    Wire(*button, name, click);
    return button;
}

void frmWaypointPanel::MakeSteps(QBoxLayout& layout) {
    auto* row = new QHBoxLayout;
    row->setSpacing(5);
    cmdPrev = Step("cmdPrev", "previous", [this] { waypoints.cmdPrev(); });
    lblCount = new QLabel(this);
    lblCount->setObjectName("lblCount");
    lblCount->setAlignment(Qt::AlignCenter);
    cmdNext = Step("cmdNext", "next", [this] { waypoints.cmdNext(); });
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
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(Captioned(latCaption, {tWaypoint[2], tNS}));
    row->addWidget(Captioned(longCaption, {tWaypoint[3], tEW}));
    layout.addLayout(row);
}

void frmWaypointPanel::MakeButtons(QBoxLayout& layout) {
    cmdNew = Button("cmdNew", [this] { AddWaypoint(); });
    layout.addWidget(cmdNew);
    auto* row = new QHBoxLayout;
    row->setSpacing(5);
    cmdChange = Button("cmdChange", [this] {
        if (!waypoints.cmdChange()) FocusFaulty();
    });
    cmdDelete = Button("cmdDelete", [this] { waypoints.cmdDelete(); });
    for (QPushButton* button : {cmdChange, cmdDelete}) new SingleClick(*button);
    row->addWidget(cmdChange, 1);
    row->addWidget(cmdDelete, 1);
    layout.addLayout(row);
}

// A refused entry is corrected where it is wrong; one that was taken leads on to the list.
void frmWaypointPanel::AddWaypoint() {
    if (waypoints.cmdNew())
        FocusList();
    else
        FocusFaulty();
}

void frmWaypointPanel::FocusFaulty() {
    QLineEdit* field = tWaypoint[static_cast<std::size_t>(waypoints.FaultyField)];
    field->setFocus();
    field->selectAll();
}

void frmWaypointPanel::FocusList() { gridWaypoints->setFocus(); }

void frmWaypointPanel::FocusEntry() {
    tWaypoint[1]->setFocus();
    tWaypoint[1]->selectAll();
}

void frmWaypointPanel::ShowState() {
    for (std::size_t i = 1; i < tWaypoint.size(); ++i) Show(*tWaypoint[i], waypoints.tWaypoint[i]);
    Show(*tNS, waypoints.tNS);
    Show(*tEW, waypoints.tEW);
    Show(*tquickfind, waypoints.tquickfind);
    lblCount->setText(Q(waypoints.lblCount));
    cmdChange->setText(ChangeCaption());
    Enable(*cmdNext, waypoints.cmdNextEnabled, *gridWaypoints);
    Enable(*cmdPrev, waypoints.cmdPrevEnabled, *gridWaypoints);
    ShowCategories();
    if (gridWaypoints->currentIndex().isValid())
        binding->SelectRow();
    else
        binding->ClearRowSelection();
}

void frmWaypointPanel::ShowCategories() {
    QStringList names, shown;
    for (const std::string& name : waypoints.Categories) names << Q(name);
    for (int i = 0; i < cmbKat->count(); ++i) shown << cmbKat->itemText(i);
    if (names != shown) {
        cmbKat->clear();
        cmbKat->addItems(names);
    }
    cmbKat->setCurrentIndex(static_cast<int>(names.indexOf(Q(waypoints.cmbKat))));
    tKat->setText(Q(waypoints.tKat));
    tKat->setVisible(waypoints.tKatVisible);
}

} // namespace ornivane
