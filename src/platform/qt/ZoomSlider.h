#pragma once

#include <QSlider>

namespace ornivane {

// The slider of a chart's magnification, -100 to 100. It jumps to the pointer instead of being dragged by its
// knob.
class ZoomSlider : public QSlider {
    Q_OBJECT

public:
    explicit ZoomSlider(QWidget* parent = nullptr);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override { mousePressEvent(event); }
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }

private:
    void SlideTo(double x); // pixels
    double UnitsAt(double x) const;
};

} // namespace ornivane
