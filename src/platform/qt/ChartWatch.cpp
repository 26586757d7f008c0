#include "platform/qt/ChartWatch.h"

#include <QEvent>
#include <QProgressBar>

#include "platform/qt/Events.h"
#include "platform/qt/SurfaceWidget.h"

namespace ornivane {

ChartWatch::ChartWatch(const World& of, std::function<void()> paintAgain)
    : world(of), paint(std::move(paintAgain)) {
    world.Chart.OnBetter([this] { Better(); });
    world.Map.installEventFilter(this);
}

bool ChartWatch::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show && isDue) PaintAgain();
    return QObject::eventFilter(watched, event);
}

void ChartWatch::Better() {
    ShowPass();
    TellTrouble();
    if (world.Map.isVisible())
        PaintAgain();
    else
        isDue = true;
}

void ChartWatch::PaintAgain() {
    isDue = false;
    world.Map.Surface().PaintAgain([this] { world.Guard.Run(paint); });
}

void ChartWatch::ShowPass() {
    const std::optional<int> percent = world.Chart.PassPercent();
    if (percent.value_or(0) > 0) {
        showsPass = true;
        world.Bar.setFormat(QString::fromUtf8(world.Texts.Text("Karte: %p %", "Chart: %p %")));
        world.Bar.setValue(*percent);
        world.Bar.show();
    } else if (showsPass && !percent) {
        showsPass = false;
        world.Bar.resetFormat();
        world.Bar.hide();
    }
}

void ChartWatch::TellTrouble() {
    if (const auto trouble = world.Chart.NewTrouble())
        world.Guard.Notices().Show(world.Texts.Text("Karte %1: ", "Chart %1: ", {trouble->FileName}) +
                                   FailureText(world.Texts, trouble->Why));
}

} // namespace ornivane
