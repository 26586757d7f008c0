#include "nav/frmWindPanel.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>

#include "platform/qt/Events.h"
#include "platform/qt/Named.h"
#include "platform/qt/Spaced.h"

namespace ornivane {

namespace {

constexpr int PictureSize = 44; // pixels

QString Q(const std::string& text) { return QString::fromStdString(text); }

} // namespace

frmWindPanel::frmWindPanel(QWidget* parent, const Language& languageOfTexts, EventGuard& eventGuard)
    : QWidget(parent), language(languageOfTexts), guard(eventGuard) {
    auto* row = Spaced(new QHBoxLayout(this), 6);
    lblHeading = Field("lblHeading", headingCaption);
    lblIAS = Field("lblIAS", iasCaption);
    lblWind = Field("lblWind", windCaption);
    row->addWidget(headingCaption->parentWidget(), 3);
    row->addWidget(iasCaption->parentWidget(), 3);
    row->addWidget(windCaption->parentWidget(), 5);
    picWind = Named(new SurfaceWidget(this), "picWind");
    picWind->setFixedSize(PictureSize, PictureSize);
    picWind->SetScale(100, 100);
    row->addWidget(picWind);
}

// A caption over a value, on the dark ground of a display: its colours mean something.
QLabel* frmWindPanel::Field(const char* name, QLabel*& caption) {
    auto* frame = new QWidget(this);
    auto* column = Spaced(new QVBoxLayout(frame), 0);
    caption = new QLabel(frame);
    caption->setProperty("role", "caption");
    auto* value = Named(new QLabel(frame), name);
    value->setProperty("role", "entry");
    value->setAlignment(Qt::AlignCenter);
    column->addWidget(caption);
    column->addWidget(value, 1);
    return value;
}

void frmWindPanel::Attach(WindCalculator& toShow) {
    wind = &toShow;
    guard.Connect(picWind, &SurfaceWidget::Resized, [this] { wind->RedrawArrow(); });
    TakePalette();
}

void frmWindPanel::TakePalette() {
    picWind->SetBackColor(palette().color(QPalette::Base).rgb() & 0xFFFFFF);
    wind->ArrowColour = palette().color(QPalette::Text).rgb() & 0xFFFFFF;
    wind->RedrawArrow();
}

void frmWindPanel::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && wind) guard.Run([this] { TakePalette(); });
}

void frmWindPanel::ShowState() {
    lblHeading->setText(Q(wind->lblHeading));
    // Above 360 the field is filled, too: red on dark alone is lost on a pilot who sees it poorly.
    const bool isWrong = wind->lblHeadingColour == WindCalculator::WrongHeading;
    if (lblHeading->property("wrong").toBool() != isWrong) {
        lblHeading->setProperty("wrong", isWrong);
        lblHeading->setStyleSheet(isWrong ? "color: #ff0000; border: 3px solid #ff0000;" : QString());
    }
    lblIAS->setText(Q(wind->lblIAS));
    lblIAS->setToolTip(wind->lblIASToolTip.empty() ? iasTip : Q(wind->lblIASToolTip));
    lblWind->setText(Q(wind->lblWind));
}

void frmWindPanel::ApplyLanguage() {
    headingCaption->setText(Text("Steuerkurs", "Heading"));
    iasCaption->setText("IAS");
    windCaption->setText("Wind");
    lblHeading->setToolTip(Text("Steuerkurs: drei Ziffern tippen, dann drei für die IAS",
                                "Heading: type three digits, then three for the IAS"));
    iasTip = Text("Angezeigte Fahrt in der Einheit der Geschwindigkeit: drei Ziffern nach dem Steuerkurs",
                  "Indicated airspeed in the unit of the speed: three digits after the heading");
    lblWind->setToolTip(Text("Wind: Richtung / Stärke in der Einheit der Geschwindigkeit",
                             "Wind: direction / speed in the unit of the ground speed"));
    picWind->setToolTip(Text("Woher der Wind kommt, Bug oben", "Where the wind comes from, nose up"));
}

} // namespace ornivane
