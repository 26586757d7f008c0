#pragma once

#include <QObject>
#include <map>

class QKeyEvent;
class QWidget;

namespace ornivane {

// A key belongs to the window in which it was pressed, in the whole application. Enter or Escape closes a
// message while it is still down: neither its repetitions nor its end may answer, close or enter something in
// the window below.
class HeldKeyFilter : public QObject {
public:
    // Works from here on.
    explicit HeldKeyFilter(QObject& application);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool Pressed(const QWidget& window, const QKeyEvent& key);
    bool Released(const QWidget& window, const QKeyEvent& key);
    bool IsOfAnother(const QWidget& window, int key) const;

    std::map<int, const QWidget*> pressedIn; // windows, which may be gone: they are only compared
};

} // namespace ornivane
