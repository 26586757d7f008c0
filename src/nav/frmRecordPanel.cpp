#include "nav/frmRecordPanel.h"

#include <QGridLayout>

#include "platform/qt/Events.h"
#include "platform/qt/FittedText.h"
#include "platform/qt/LampButton.h"
#include "platform/qt/Named.h"

namespace ornivane {

namespace {

constexpr int LargestCount = 19; // pixels, for three digits
constexpr int WidestCount = 160; // of the button; the count has 100 to 150 of them

} // namespace

frmRecordPanel::frmRecordPanel(QWidget* parent, const Language& languageOfTexts, EventGuard& eventGuard,
                               Notice& noticeBar)
    : QWidget(parent), language(languageOfTexts), guard(eventGuard), notices(noticeBar) {
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    cmdRecord = Stage("cmdRecord", [this] { begin(); });
    cmdRecordAuto = Stage("cmdRecordAuto", [this] {
        notices.Show(language.Text("Die Aufzeichnung beginnt von selbst über 30 kts (Einstellungen).",
                                   "Recording starts by itself above 30 kts (Settings)."));
    });
    picRecord = Stage("picRecord", [this] { end(); });
    cmdRecord->SetIcon(":/icons/record.svg");
    cmdRecordAuto->SetIcon(":/icons/record-auto.svg");
    picRecord->SetLit(true);
    picRecord->SetLamp(QColor(0xFF2020));
    lblRecord = Named(new FittedText(LargestCount, picRecord), "lblRecord");
    lblRecord->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
    lblRecord->setAttribute(Qt::WA_TransparentForMouseEvents); // a click on the number is one on the button
    auto* inside = new QGridLayout(picRecord);
    inside->setContentsMargins(0, 1, 0, 5);
    inside->addWidget(lblRecord, 0, 0, Qt::AlignHCenter | Qt::AlignBottom);
}

LampButton* frmRecordPanel::Stage(const char* name, const std::function<void()>& click) {
    auto* button = Named(new LampButton(this), name);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QAbstractButton::clicked, this, [this, click] {
        guard.Run(click);
        stateChanged(); // also after an error: what could be done shows
    });
    button->hide();
    static_cast<QGridLayout*>(layout())->addWidget(button, 0, 0);
    return button;
}

void frmRecordPanel::Attach(const TrackLoggerShown& toShow, std::function<void()> onBegin,
                            std::function<void()> onEnd, std::function<void()> changed) {
    logger = &toShow;
    begin = std::move(onBegin);
    end = std::move(onEnd);
    stateChanged = std::move(changed);
}

void frmRecordPanel::ShowState() {
    picRecord->setVisible(logger->picRecord);
    cmdRecord->setVisible(logger->cmdRecord && !logger->picRecord);
    cmdRecordAuto->setVisible(logger->cmdRecordAuto && !logger->picRecord);
    lblRecord->setText(QString::fromStdString(logger->lblRecord));
    // From the sizes in which the number grows: 14, 12, 10 of the font, 100 to 150 of the width.
    lblRecord->SetLargest(LargestCount * logger->lblRecordFont / 14);
    lblRecord->setFixedWidth(picRecord->width() * logger->lblRecordWidth / WidestCount);
}

void frmRecordPanel::ApplyLanguage() {
    cmdRecord->setToolTip(
        Text("Track aufzeichnen; braucht einen GPS-Fix", "Record the track; needs a GPS fix"));
    cmdRecordAuto->setToolTip(Text("Aufzeichnung bereit: beginnt von selbst über 30 kts",
                                   "Armed: recording starts by itself above 30 kts"));
    picRecord->setToolTip(Text("Der Track wird aufgezeichnet, Zahl der Punkte – Klick beendet",
                               "Recording the track, number of points – click to stop"));
}

} // namespace ornivane
