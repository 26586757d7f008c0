#include "nav/frmInstrumentPanel.h"

#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

#include "base/RuntimeError.h"
#include "common/Qnh.h"
#include "platform/qt/Events.h"
#include "platform/qt/Named.h"
#include "platform/qt/Spaced.h"

namespace ornivane {

namespace {

constexpr int DialSize = 200, SideWidth = 58; // pixels
constexpr int CornerWidth = 88, DistanceWidth = 72, NameHeight = 36, LineHeight = 18;
constexpr int PressHeight = 44;                                    // of what is pressed in flight
constexpr int EntryWidth = 230, EntryTop = 140, QnhEntryTop = 270; // below the panel of switches

QString Q(const std::string& text) { return QString::fromStdString(text); }

} // namespace

frmInstrumentPanel::frmInstrumentPanel(QWidget* parent, const Language& languageOfTexts,
                                       const DayQnh& qnhOfDay, EventGuard& eventGuard)
    : QWidget(parent), language(languageOfTexts), dayQnh(qnhOfDay), guard(eventGuard) {
    Picture1.Load(":/icons/compass.svg");
    auto* row = Spaced(new QHBoxLayout(this), 6);
    auto* labels = new QWidget(this);
    labels->setFixedWidth(SideWidth); // also while none shows: the dial keeps its place
    auto* side = new QVBoxLayout(labels);
    side->setContentsMargins(0, 0, 0, 0);
    lblVOR1 = Label("lblVOR1");
    lbldistVOR = Label("lbldistVOR");
    lblKurs = Label("lblKurs");
    lblQNH = Label("lblQNH");
    side->addSpacing(NameHeight + LineHeight);
    side->addWidget(lblKurs);
    side->addStretch(1);
    row->addWidget(labels);
    Kurskreisel = Named(new SurfaceWidget(this), "Kurskreisel");
    Kurskreisel->setFixedSize(DialSize, DialSize);
    Kurskreisel->SetScale(200, 200);
    row->addWidget(Kurskreisel);
    // The corners of the dial are empty: longer texts reach into them.
    lblVOR1->setGeometry(0, 0, CornerWidth, NameHeight);
    lblVOR1->setAlignment(Qt::AlignTop);
    lblVOR1->setWordWrap(true);
    lblQNH->setGeometry(0, DialSize - PressHeight, SideWidth, PressHeight);
    lblQNH->setWordWrap(true);
    lblQNH->setFocusPolicy(Qt::TabFocus);
    lblQNH->installEventFilter(this);
    lbldistVOR->setGeometry(0, NameHeight, DistanceWidth, LineHeight);
    for (QLabel* label : {lblVOR1, lbldistVOR, lblQNH}) label->raise();

    frmVOR = Entry("frmVOR", vorCaption, tVOR1, "tVOR1");
    lblResult = Named(new QLabel(frmVOR), "lblResult");
    lblResult->setMinimumHeight(26);
    frmVOR->layout()->addWidget(lblResult);
    frmKurs = Entry("frmKurs", courseCaption, tKurs, "tKurs");
    tKurs->setMaxLength(3);
    frmEnterQNH = Entry("frmEnterQNH", qnhCaption, tEnterQNH, "tEnterQNH");
    tEnterQNH->setInputMethodHints(Qt::ImhFormattedNumbersOnly);
}

QLabel* frmInstrumentPanel::Label(const char* name) {
    auto* label = Named(new QLabel(this), name);
    label->setProperty("role", "instrument");
    label->setMinimumWidth(SideWidth);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QFrame* frmInstrumentPanel::Entry(const char* name, QLabel*& caption, QLineEdit*& field,
                                  const char* fieldName) {
    auto* frame = Named(new QFrame(parentWidget()), name);
    frame->setProperty("role", "popup");
    frame->setFixedWidth(EntryWidth);
    auto* column = new QVBoxLayout(frame);
    column->setContentsMargins(10, 8, 10, 8);
    caption = new QLabel(frame);
    field = Named(new QLineEdit(frame), fieldName);
    field->setMinimumHeight(44);
    field->installEventFilter(this);
    column->addWidget(caption);
    column->addWidget(field);
    frame->hide();
    return frame;
}

void frmInstrumentPanel::Attach(Instrument& toShow, QnhReadout& qnhToShow, std::function<void()> done,
                                std::function<void()> changed) {
    instrument = &toShow;
    qnh = &qnhToShow;
    entryDone = std::move(done);
    stateChanged = std::move(changed);
    guard.Connect(Kurskreisel, &SurfaceWidget::Pressed,
                  [this](QPointF, Qt::MouseButton button) { Pressed(button); });
    guard.Connect(Kurskreisel, &SurfaceWidget::Resized, [this] { instrument->Redraw(); });
    guard.Connect(tVOR1, &QLineEdit::textEdited,
                  [this](const QString& text) { Do([&] { instrument->tVOR1_Change(text.toStdString()); }); });
    guard.Connect(tKurs, &QLineEdit::textEdited,
                  [this](const QString& text) { Do([&] { instrument->tKurs_Change(text.toStdString()); }); });
    Kurskreisel->SetBackColor(palette().color(QPalette::Window).rgb() & 0xFFFFFF);
}

void frmInstrumentPanel::Do(const std::function<void()>& event) {
    const bool wasEntering = IsEntering();
    const auto show = [&] {
        stateChanged();
        if (wasEntering && !IsEntering()) entryDone();
    };
    RestoreOnError(event, show); // what it did before an error shows as well
    show();
}

void frmInstrumentPanel::Pressed(Qt::MouseButton button) {
    if (button == Qt::LeftButton) Do([this] { instrument->LeftButton(); });
    if (button != Qt::RightButton) return;
    Do([this] { instrument->RightButton(); });
    // Also when it is open already and the focus has gone elsewhere.
    const auto enter = [](QLineEdit& field, const std::string& text) {
        field.setText(Q(text));
        field.setFocus();
    };
    if (instrument->frmVOR) enter(*tVOR1, instrument->tVOR1);
    if (instrument->frmKurs) enter(*tKurs, instrument->tKurs);
}

// With the value that holds, to be typed over.
void frmInstrumentPanel::AskQnh() {
    Do([this] { qnh->lblQNH_Click(); });
    tEnterQNH->setText(Q(QnhText(dayQnh)));
    tEnterQNH->selectAll();
    tEnterQNH->setFocus();
}

void frmInstrumentPanel::EndEntry(const QObject* field, bool isEnter) {
    if (field == tEnterQNH) {
        isEnter ? qnh->tEnterQNH_Enter(tEnterQNH->text().toStdString()) : qnh->tEnterQNH_Escape();
        return;
    }
    const auto end = field == tVOR1 ? (isEnter ? &Instrument::tVOR1_Enter : &Instrument::tVOR1_Escape)
                                    : (isEnter ? &Instrument::tKurs_Enter : &Instrument::tKurs_Escape);
    (instrument->*end)();
}

void frmInstrumentPanel::CancelEntry() {
    guard.Run([this] {
        Do([this] {
            if (instrument->frmVOR) instrument->tVOR1_Escape();
            if (instrument->frmKurs) instrument->tKurs_Escape();
            if (qnh->frmEnterQNH) qnh->tEnterQNH_Escape();
        });
    });
}

// Both keys end here: a field would pass Enter on to the screen, where it begins a wind entry.
bool frmInstrumentPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lblQNH && event->type() == QEvent::MouseButtonPress) {
        guard.Run([this] { AskQnh(); });
        return true;
    }
    const auto* press = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event) : nullptr;
    const auto key = press ? press->key() : 0;
    const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter;
    const bool isLabel = watched == lblQNH;
    if (!isEnter && (isLabel || key != Qt::Key_Escape)) return QWidget::eventFilter(watched, event);
    // One press that is held must not open the entry and end it, too.
    if (press->isAutoRepeat()) return true;
    guard.Run([&] { isLabel ? AskQnh() : Do([&] { EndEntry(watched, isEnter); }); });
    return true;
}

// The corners of the dial are those of the panel, by day and by night.
void frmInstrumentPanel::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || !instrument) return;
    Kurskreisel->SetBackColor(palette().color(QPalette::Window).rgb() & 0xFFFFFF);
    guard.Run([this] { instrument->Redraw(); });
}

void frmInstrumentPanel::ShowEntry(QFrame& entry, QLineEdit& field, bool visible) {
    if (visible == !entry.isHidden()) return;
    if (visible) {
        field.clear();
        entry.adjustSize();
        const QPoint dial = mapTo(entry.parentWidget(), QPoint());
        entry.move(dial.x() - EntryWidth - 12, dial.y() + (&entry == frmEnterQNH ? QnhEntryTop : EntryTop));
        entry.show();
        entry.raise();
        field.setFocus();
    } else {
        entry.hide();
    }
}

void frmInstrumentPanel::ShowState(bool qnhShows, Colour qnhGround) {
    const bool isHsi = instrument->InstrumentMode == DialMode::Hsi;
    const QString station = Q(instrument->lblVOR1.empty() ? NoValue : instrument->lblVOR1);
    lblVOR1->setText(lblVOR1->fontMetrics().elidedText(station, Qt::ElideRight, 2 * CornerWidth - 20));
    lblVOR1->setVisible(instrument->StationShows);
    lbldistVOR->setText(Q(instrument->lbldistVOR.TextWithUnit(language.Locale)));
    lbldistVOR->setVisible(instrument->StationShows);
    lblKurs->setText(instrument->lblKurs.empty() ? Q(NoValue) : Q(instrument->lblKurs) + "°");
    lblKurs->setVisible(isHsi);
    lblQNH->setText(Q(qnh->lblQNH));
    lblQNH->setVisible(qnhShows);
    if (qnhGround != qnhGroundShown) {
        qnhGroundShown = qnhGround;
        lblQNH->setStyleSheet(
            QString("background: #%1; color: #101418; padding-left: 3px;").arg(qnhGround, 6, 16, QChar('0')));
    }
    lblResult->setText(Q(instrument->lblResult));
    ShowEntry(*frmVOR, *tVOR1, instrument->frmVOR);
    ShowEntry(*frmKurs, *tKurs, instrument->frmKurs);
    ShowEntry(*frmEnterQNH, *tEnterQNH, qnh->frmEnterQNH);
}

void frmInstrumentPanel::ApplyLanguage() {
    vorCaption->setText(Text("VOR suchen", "Search VOR"));
    courseCaption->setText(Text("Kurs", "Course"));
    qnhCaption->setText("QNH  [ hPa ]");
    Kurskreisel->setToolTip(Text(
        "Linke Taste: Kurskreisel, VOR, HSI. Rechte Taste: VOR wählen, im HSI den Kurs",
        "Left button: heading indicator, VOR, HSI. Right button: choose the VOR, in the HSI the course"));
    lblVOR1->setToolTip(Text("Gewähltes VOR (ein Wegpunkt)", "The chosen VOR (a waypoint)"));
    lbldistVOR->setToolTip(Text("Entfernung zum VOR", "Distance to the VOR"));
    lblKurs->setToolTip(Text("Gewählter Kurs", "The selected course"));
    lblQNH->setToolTip(Text("QNH in hPa, gilt für einen Tag; ein Klick öffnet die Eingabe",
                            "QNH in hPa, good for one day; a click opens the entry"));
    tEnterQNH->setToolTip(Text("950 bis 1049, alles andere zählt als 1013; Eingabe übernimmt, Esc schließt",
                               "950 to 1049, anything else counts as 1013; Enter takes it, Esc closes"));
    tVOR1->setToolTip(Text("Eingabe übernimmt den gefundenen Namen, Esc schließt",
                           "Enter takes the name found, Esc closes"));
    lblResult->setToolTip(Text("Der gefundene Wegpunkt", "The waypoint found"));
    tKurs->setToolTip(
        Text("Drei Ziffern, 000 bis 360; Esc schließt", "Three digits, 000 to 360; Esc closes"));
}

} // namespace ornivane
