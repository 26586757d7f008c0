#pragma once

#include <QProgressBar>

#include "platform/Dialogs.h"

namespace ornivane {

// A progress bar that shows its value at once, without letting other events in between.
class QtProgress : public Progress {
public:
    explicit QtProgress(QProgressBar& progressBar) : bar(progressBar) {}
    void SetValue(int percent) override {
        bar.setValue(percent);
        bar.repaint();
    }
    void SetVisible(bool visible) override {
        bar.setVisible(visible);
        bar.repaint();
    }

private:
    QProgressBar& bar;
};

} // namespace ornivane
