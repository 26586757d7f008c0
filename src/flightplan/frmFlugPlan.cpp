#include "flightplan/frmFlugPlan.h"

#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "base/FileNames.h"
#include "flightplan/frmPlanGrid.h"
#include "platform/qt/EnterKey.h"
#include "platform/qt/Events.h"
#include "platform/qt/FillCombo.h"
#include "platform/qt/FittedRuns.h"
#include "platform/qt/Named.h"
#include "platform/qt/Spaced.h"

namespace ornivane {

namespace {

constexpr int ButtonHeight = 44, RowHeight = 34, HeadHeight = 46;
constexpr int EntryWidth = 112, EntrySize = 20;
constexpr int EntryFrame = 22; // border, padding and the cursor's place at both sides
constexpr const char* RightStyle = "background: #ffff80; color: #101418;";
constexpr const char* WrongStyle = "background: #ffc0c0; color: #101418;";
constexpr const char* TotalStyle = "font-size: 20px; font-weight: bold";
constexpr std::array EntryNames = {"tVAR", "tFF", "tSpeed", "tWinddir", "tWindspeed"};

using enum PlanEntry;
struct Head {
    const char *Field, *German, *English;
    int Width;                            // pixels of 1024, less the scroll bar
    std::optional<PlanEntry> Edited = {}; // its cells can be changed
};

constexpr std::array<Head, 13> Heads{
    {{"Nr", " Nr.", " Nr.", 40},
     {"Name", "        Wegpunkt", "        Waypoint", 160},
     {"VAR", "   VAR", "   VAR", 56, tVAR},
     {"FFh", "  FF / h", "  FF / h", 60, tFF},
     {"TAS", "   TAS       [ kts ]", "   TAS       [ kts ]", 66, tSpeed},
     {"Windrichtung", "   Wind    Richtung", "   Wind    Direction", 82, tWinddir},
     {"Windstärke", "   Wind      Stärke", "   Wind      Speed", 70, tWindspeed},
     {"TC", "     TC", "     TC", 54},
     {"MH", "     MH", "     MH", 88},
     {"GS", "     GS        [ kts ]", "     GS        [ kts ]", 74},
     {"Distanz", "  Distanz     [ NM ]", "Distance    [ NM ]", 78},
     {"ZeitDisplay", "    Zeit      [ h:min ]", "   Time      [ h:min ]", 78},
     {"FFm", " FF - leg", " FF - leg", 66}}};

std::optional<PlanEntry> EntryOf(int column) { return Heads.at(static_cast<std::size_t>(column)).Edited; }

// The blanks within a head part its two lines.
QString InLines(const QString& head) {
    QString text = head.trimmed();
    const auto gap = text.indexOf("  ");
    if (gap < 0) return text;
    return text.left(gap) + "\n" + text.mid(gap).trimmed();
}

QString Shown(const std::string& text) { return QString::fromStdString(text); }

} // namespace

frmFlugPlan::frmFlugPlan(const Services& servicesOf)
    : services(servicesOf),
      logic(services.Shared, services.Shared, services.Shared.DataConn, services.Boxes, services.Notices) {
    setObjectName("frmFlugPlan");
    auto* column = Spaced(new QVBoxLayout(this), 8, {10, 8, 10, 8});
    MakeTop(*column);
    MakeGrid(*column);
    MakeTotals(*column);
    column->addStretch(1);
    EnterKey::PressesButtonsOf(*this);
    services.Guard.Run([this] { logic.Form_Load(); });
    ApplyLanguage();
}

frmFlugPlan::~frmFlugPlan() = default;

void frmFlugPlan::MakeTop(QBoxLayout& layout) {
    auto* row = Spaced(new QHBoxLayout, 10);
    auto* route = Spaced(new QVBoxLayout, 2);
    route->addWidget(lblRoute = Named(new QLabel, "lblRoute"));
    cmbRoute = Named(new QComboBox, "cmbRoute");
    cmbRoute->setMinimumHeight(ButtonHeight);
    cmbRoute->setMinimumWidth(180);
    services.Guard.Connect(cmbRoute, &QComboBox::activated,
                           [this](int index) { Click([&] { logic.cmbRoute_Click(index); }); });
    route->addWidget(cmbRoute);
    row->addLayout(route, 1);
    MakeEntries(*row);
    layout.addLayout(row);
    auto* buttons = new QHBoxLayout;
    lblPlan = Named(new QLabel, "tDatei");
    lblPlan->setStyleSheet("font-weight: bold");
    buttons->addWidget(lblPlan, 1);
    MakeButtons(*buttons);
    layout.addLayout(buttons);
}

void frmFlugPlan::MakeEntries(QBoxLayout& layout) {
    for (std::size_t i = 0; i < PlanEntryCount; ++i) {
        auto* column = Spaced(new QVBoxLayout, 2);
        column->addWidget(captions[i] = new QLabel);
        auto* field = fields[i] = Named(new QLineEdit, EntryNames[i]);
        field->setMinimumHeight(ButtonHeight);
        field->setFixedWidth(EntryWidth);
        field->installEventFilter(this);
        services.Guard.Connect(field, &QLineEdit::textEdited,
                               [this, i](const QString& text) { logic.Entries[i] = text.toStdString(); });
        connect(field, &QLineEdit::textChanged, this, [this, i] { StyleEntry(i); });
        column->addWidget(field);
        layout.addLayout(column);
    }
}

void frmFlugPlan::MakeButtons(QBoxLayout& layout) {
    const auto button = [&](const char* name, const std::function<void()>& click) {
        auto* made = Named(new QPushButton, name);
        made->setMinimumHeight(ButtonHeight);
        services.Guard.Connect(made, &QPushButton::clicked, [this, click] { Click(click); });
        layout.addWidget(made);
        return made;
    };
    cmdCalc = button("cmdCalc", [this] { logic.cmdCalc_Click(); });
    cmdRevert = button("cmdRevert", [this] { logic.cmdRevert_Click(); });
    cmdPreview = button("cmdPreview", [this] { cmdPreview_Click(); });
    cmdPDF = button("cmdPDF", [this] { cmdPDF_Click(); });
}

void frmFlugPlan::MakeGrid(QBoxLayout& layout) {
    gridFlug = Named(new frmPlanGrid, "gridFlug");
    std::vector<RecordsetModel::Column> columns;
    columns.reserve(Heads.size());
    for (const Head& head : Heads)
        columns.push_back(
            {head.Field, [this, &head] { return InLines(Text(head.German, head.English)); },
             [this](const Value& value) { return Shown(report::Shown(value, services.Shared.Locale)); }});
    model = std::make_unique<PlanModel>(
        logic.PlanSet, std::move(columns),
        PlanModel::Editing{
            [](const QModelIndex& cell) {
                return FlightPlan::IsEditable(cell.row()) && EntryOf(cell.column()).has_value();
            },
            [this](const QModelIndex& cell, const std::string& text) { return EditCell(cell, text); },
            [this](int column) { return ToolTipOf(column); }});
    // Its current cell is the grid's own affair: a calculation that walks through the rows must not move it.
    gridFlug->setModel(model.get());
    gridFlug->verticalHeader()->hide();
    gridFlug->setSelectionMode(QAbstractItemView::SingleSelection);
    gridFlug->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::AnyKeyPressed |
                              QAbstractItemView::EditKeyPressed | QAbstractItemView::SelectedClicked);
    gridFlug->setTabKeyNavigation(true);
    gridFlug->setWordWrap(false); // a long number would break behind its point
    gridFlug->verticalHeader()->setDefaultSectionSize(RowHeight);
    gridFlug->horizontalHeader()->setFixedHeight(HeadHeight);
    gridFlug->horizontalHeader()->setSectionsClickable(false);
    gridFlug->horizontalHeader()->setSectionResizeMode(8, QHeaderView::Stretch); // MH has the most decimals
    layout.addWidget(gridFlug, 1000); // up to its greatest height, before the empty space
}

void frmFlugPlan::MakeTotals(QBoxLayout& layout) {
    Frame1 = Named(new QFrame, "Frame1");
    auto* row = new QHBoxLayout(Frame1);
    row->setContentsMargins(0, 0, 0, 0);
    for (auto [caption, captionName, value, valueName] :
         {std::tuple{&lblStrecke, "lblStrecke", &lblDistanz, "lblDistanz"},
          std::tuple{&Label3, "Label3", &lblZeit, "lblZeit"}, std::tuple{&Label4, "Label4", &lblFF, "lblFF"},
          std::tuple{&lblWindinfo, "lblWindinfo", &lblAvgWind, "lblAvgWind"}}) {
        row->addWidget(*caption = Named(new QLabel, captionName));
        *value = Named(new QLabel, valueName);
        (*value)->setStyleSheet(TotalStyle);
        (*value)->setMinimumWidth(110);
        row->addWidget(*value);
        row->addStretch();
    }
    layout.addWidget(Frame1);
}

void frmFlugPlan::Click(const std::function<void()>& event) {
    services.Guard.Run(event);
    ShowState();
}

bool frmFlugPlan::EditCell(const QModelIndex& cell, const std::string& text) {
    const std::optional<PlanEntry> column = EntryOf(cell.column());
    bool right = false;
    // An error of the calculation is told in the notice; the old value is back in its cell then.
    Click([&] {
        right = column && logic.gridFlug_BeforeColUpdate(*column, cell.row(), text);
        if (right) logic.gridFlug_AfterColUpdate(*column, cell.row(), text);
    });
    return right;
}

frmReport frmFlugPlan::Report() const {
    return {logic.PlanSet,
            {logic.lblDistanz, logic.lblZeit, logic.Entry(tFF), logic.lblFF, logic.lblAvgWind},
            services.Shared.Locale};
}

void frmFlugPlan::cmdPreview_Click() {
    if (!logic.PlanSet.IsOpen()) return;
    // Whatever fails in Qt's preview, the hint comes: the plan is still there.
    try {
        Report().ShowFlightPlanReport(window(), Text("Flugplan", "Flightplan"));
    } catch (const std::exception&) {
        services.ReportMissing();
    }
}

void frmFlugPlan::cmdPDF_Click() {
    if (!logic.PlanSet.IsOpen()) return;
    FileQuestion question;
    question.Title = services.Shared.Text("Flugplan als PDF speichern", "Save the flight plan as PDF");
    question.Start =
        services.Shared.ProgramFolder / (IsFileName(logic.tDatei) ? logic.tDatei + ".pdf" : "Flugplan.pdf");
    question.Filters = {{"PDF", "*.pdf"}};
    question.DefaultExtension = "pdf";
    const auto file = services.Boxes.SaveFile(question);
    if (!file) return;
    Report().SavePdf(*file);
}

void frmFlugPlan::Form_Activate() {
    ApplyLanguage();
    cmbRoute->setFocus(); // an entry that is wrong takes it from there
    Click([this] { logic.Form_Activate(); });
}

// A cell that is still open counts as entered.
void frmFlugPlan::Form_Deactivate() {
    gridFlug->EndEdit();
    logic.Form_Deactivate();
}

void frmFlugPlan::Form_Unload() {
    gridFlug->EndEdit();
    logic.Form_QueryUnload();
}

// A double click empties an entry field; Enter goes on to the next one.
bool frmFlugPlan::eventFilter(QObject* watched, QEvent* event) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (watched != fields[i]) continue;
        if (event->type() == QEvent::MouseButtonDblClick) {
            logic.Entries[i].clear();
            ShowState();
            return true;
        }
        if (event->type() != QEvent::KeyPress) break;
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            QLineEdit* next = fields[(i + 1) % fields.size()];
            next->setFocus();
            next->selectAll();
            return true;
        }
    }
    return Screen::eventFilter(watched, event);
}

void frmFlugPlan::ShowState() {
    FillCombo(*cmbRoute, logic.RouteNames, {});
    cmbRoute->setCurrentIndex(logic.ListIndex); // several routes may have one name
    lblPlan->setText(logic.tDatei.empty()
                         ? QString()
                         : Text("Plan der Strecke: ", "Plan of the route: ") + Shown(logic.tDatei));
    lblDistanz->setText(Shown(logic.lblDistanz));
    lblZeit->setText(Shown(logic.lblZeit));
    lblFF->setText(Shown(logic.lblFF));
    lblAvgWind->setText(Shown(logic.lblAvgWind));
    const bool plan = logic.PlanSet.IsOpen();
    cmdPreview->setEnabled(plan);
    cmdPDF->setEnabled(plan);
    cmdCalc->setEnabled(logic.ListIndex >= 0);
    cmdRevert->setEnabled(logic.ListIndex >= 0);
    ShowEntries();
    FitGrid();
}

void frmFlugPlan::ShowEntries() {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i]->text() != Shown(logic.Entries[i])) fields[i]->setText(Shown(logic.Entries[i]));
        StyleEntry(i);
    }
    if (!logic.FocusEntry) return;
    fields[static_cast<std::size_t>(*logic.FocusEntry)]->setFocus();
    logic.FocusEntry.reset();
}

// Its state, and letters in which the whole number shows.
void frmFlugPlan::StyleEntry(std::size_t place) {
    QLineEdit& field = *fields[place];
    const EntryState state = logic.EntryStates[place];
    QString style = state == EntryState::Right ? RightStyle : state == EntryState::Wrong ? WrongStyle : "";
    QFont font = field.font();
    font.setPixelSize(EntrySize);
    const int size = FittedPixelSize(field.text(), font, field.width() - EntryFrame);
    if (size < EntrySize) style += QString(" font-size: %1px;").arg(size);
    if (field.styleSheet() != style) field.setStyleSheet(style);
}

// As high as its rows, as far as the form reaches; the totals stand below.
void frmFlugPlan::FitGrid() {
    const int rows = std::max(1, model->rowCount());
    gridFlug->setMaximumHeight(HeadHeight + rows * RowHeight + 6);
    int total = 0;
    for (const Head& head : Heads) total += head.Width;
    const double stretch = std::max(1.0, (gridFlug->width() - 24.0) / total);
    for (std::size_t i = 0; i < Heads.size(); ++i)
        gridFlug->setColumnWidth(static_cast<int>(i), static_cast<int>(Heads[i].Width * stretch));
}

void frmFlugPlan::resizeEvent(QResizeEvent* event) {
    Screen::resizeEvent(event);
    FitGrid();
}

void frmFlugPlan::ApplyLanguage() {
    setWindowTitle(Text("Flugplan", "Flightplan"));
    lblRoute->setText(Text("Strecke auswählen", "Select Route"));
    cmdCalc->setText(Text("Flugplan berechnen", "Calculate flightplan"));
    cmdRevert->setText(Text("Berechnung rückgängig", "Cancel calculation"));
    cmdPreview->setText(Text("Drucken", "Print"));
    cmdPDF->setText("PDF");
    lblWindinfo->setText(Text("Windinfo", "Avg Wind"));
    Label3->setText(Text("Flugzeit", "Flighttime"));
    Label4->setText(Text("Gesamt FF", "Total FF"));
    lblStrecke->setText(Text("Distanz", "Distance"));
    const QString entryTexts[] = {"VAR", "FF / h", "TAS [kts]", Text("Wind Richtung", "Wind direction"),
                                  Text("Wind Stärke", "Wind speed")};
    for (std::size_t i = 0; i < captions.size(); ++i) captions[i]->setText(entryTexts[i]);
    model->HeadersChanged();
    ApplyToolTips();
    ShowState();
}

// A plan is computed again with the entry field's fuel flow, whatever stands in the column.
QString frmFlugPlan::ToolTipOf(int column) const {
    if (EntryOf(column) != tFF) return {};
    return Text(
        "Kraftstoff der Teilstrecke in einer Stunde. Was hier geändert wird, zählt für FF - leg und die "
        "Summe, bis der Plan neu berechnet wird (auch beim Zurückkommen): dann gilt das Feld FF / h oben",
        "Fuel of the leg in an hour. A change counts for FF - leg and the total until the plan is "
        "computed again (also on coming back): then the field FF / h above holds");
}

void frmFlugPlan::ApplyToolTips() {
    const QString tips[] = {
        Text("Missweisung in Grad, Ost positiv", "Variation in degrees, east positive"),
        Text("Kraftstoff in einer Stunde", "Fuel in an hour"),
        Text("Wahre Eigengeschwindigkeit in Knoten", "True airspeed in knots"),
        Text(
            "Woher der Wind kommt, Grad rechtweisend. Richtung und Stärke zusammen höchstens sieben Zeichen",
            "Where the wind comes from, degrees true. Direction and speed together seven characters at most"),
        Text("Windstärke in Knoten. Richtung und Stärke zusammen höchstens sieben Zeichen",
             "Wind speed in knots. Direction and speed together seven characters at most")};
    for (std::size_t i = 0; i < fields.size(); ++i) fields[i]->setToolTip(tips[i]);
    cmbRoute->setToolTip(Text("Die Strecke, deren Plan gezeigt wird", "The route whose plan is shown"));
    cmdCalc->setToolTip(Text("Alle Teilstrecken mit den Werten oben neu berechnen",
                             "Compute every leg anew with the values above"));
    cmdRevert->setToolTip(
        Text("Zurück zum zuletzt gespeicherten Plan", "Back to the plan that was saved last"));
    cmdPreview->setToolTip(Text("Druckvorschau", "Print preview"));
    cmdPDF->setToolTip(Text("Den Plan als PDF-Datei speichern", "Save the plan as a PDF file"));
    gridFlug->setToolTip(Text("VAR, FF / h, TAS und Wind können in jeder Zeile geändert werden",
                              "VAR, FF / h, TAS and wind can be changed in every row"));
}

} // namespace ornivane
