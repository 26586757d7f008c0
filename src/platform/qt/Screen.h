#pragma once

#include <QWidget>

namespace ornivane {

// A screen of the main window: made on first use, then kept for the life of the program. The main window
// calls these; nothing in them may block.
class Screen : public QWidget {
public:
    using QWidget::QWidget;

    // The screen has come to the front: reread what other screens may have changed.
    virtual void Form_Activate() {}
    // The screen leaves the front: stop what runs, save what must survive.
    virtual void Form_Deactivate() {}
    // The program ends (after Form_Deactivate when the screen was in front).
    virtual void Form_Unload() {}
    // Every caption and tooltip in the language of this moment.
    virtual void ApplyLanguage() {}
};

} // namespace ornivane
