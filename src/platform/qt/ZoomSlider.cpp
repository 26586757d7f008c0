#include "platform/qt/ZoomSlider.h"

#include <QMouseEvent>
#include <algorithm>
#include <cmath>

namespace ornivane {

namespace {

constexpr int LeastHeight = 44; // pixels: for gloves

} // namespace

ZoomSlider::ZoomSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent) {
    setRange(-100, 100);
    setSingleStep(1);
    setPageStep(5);
    setMinimumHeight(LeastHeight);
    setFocusPolicy(Qt::TabFocus);
}

// Its width counts as 3500 units; in the margins at both ends a finger means the end.
void ZoomSlider::SlideTo(double x) {
    constexpr double wide = 3500, margin = 200;
    const double units = x * wide / std::max(1, width());
    const int at = static_cast<int>(std::nearbyint((units - wide / 2) * maximum() / (wide / 2)));
    setValue(units > wide - margin ? maximum() : units < margin ? minimum() : at);
}

void ZoomSlider::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) SlideTo(event->position().x());
}

void ZoomSlider::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton) SlideTo(event->position().x());
}

void ZoomSlider::mouseReleaseEvent(QMouseEvent* event) { mousePressEvent(event); }

} // namespace ornivane
