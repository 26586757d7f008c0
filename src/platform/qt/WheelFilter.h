#pragma once

#include <QObject>

namespace ornivane {

// The wheel scrolls and does nothing else, in the whole application: a sleeve over the touchpad must not
// choose another route, chart or height. What does not scroll passes the wheel on to what lies around it, and
// the wheel takes the focus nowhere.
class WheelFilter : public QObject {
public:
    // Works from here on, also on controls that are made later.
    explicit WheelFilter(QObject& application);

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace ornivane
