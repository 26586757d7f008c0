#pragma once

#include <QObject>
#include <functional>

#include "base/Language.h"
#include "platform/qt/QtPicture.h"

class QProgressBar;

namespace ornivane {

class EventGuard;
class SurfaceWidget;

// What every screen does when more of its chart has come: it paints once more, shows how far the pass is, and
// the notice tells once what keeps the chart from being shown as it is.
class ChartWatch : public QObject {
public:
    // All of it outlives this.
    struct World {
        QtPicture& Chart;
        SurfaceWidget& Map;
        QProgressBar& Bar;
        EventGuard& Guard;
        const Language& Texts;
    };
    // `paintAgain`: what was painted last, and nothing else; not called while the map is hidden.
    ChartWatch(const World& of, std::function<void()> paintAgain);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Better();
    void PaintAgain();
    void ShowPass();
    void TellTrouble();

    World world;
    std::function<void()> paint;
    bool isDue = false, showsPass = false;
};

} // namespace ornivane
