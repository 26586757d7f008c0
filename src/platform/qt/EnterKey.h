#pragma once

#include <QObject>
#include <functional>

class QWidget;

namespace ornivane {

// What Enter does in a widget. It acts when the key is let go where it was pressed, and once when it is held:
// the Enter that closed a message is let go over another control, which must not take it for its own.
class EnterKey : public QObject {
public:
    // Belongs to the widget.
    EnterKey(QWidget& widget, std::function<void()> does);
    // Enter presses whichever button of the form has the focus, as the space bar does.
    static void PressesButtonsOf(QWidget& form);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void()> action;
    bool pressed = false;
};

} // namespace ornivane
