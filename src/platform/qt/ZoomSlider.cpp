#include "platform/qt/ZoomSlider.h"

#include <QMouseEvent>
#include <QStyle>
#include <QStyleOptionSlider>
#include <algorithm>
#include <cmath>

namespace ornivane {

constexpr int LeastHeight = 44; // pixels: for gloves
constexpr double Way = 3500;    // units

ZoomSlider::ZoomSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent) {
    setRange(-100, 100);
    setSingleStep(1);
    setPageStep(5);
    setMinimumHeight(LeastHeight);
    setFocusPolicy(Qt::TabFocus);
}

// The way of the knob's middle is 3500 units, so that the knob comes to lie under the pointer.
double ZoomSlider::UnitsAt(double x) const {
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRect groove = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, this);
    const QRect knob = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
    const double way = std::max(1, groove.width() - knob.width());
    return (x - groove.x() - knob.width() / 2.0) * Way / way;
}

// A press, a movement and the release all mean the place of the pointer; near the left end and well beyond
// the right one they mean that end.
void ZoomSlider::SlideTo(double x) {
    constexpr double leftEnd = 200, rightEnd = 3800;
    const double units = UnitsAt(x);
    const double at = std::nearbyint((units - Way / 2) * maximum() / (Way / 2));
    setValue(units > rightEnd  ? maximum()
             : units < leftEnd ? minimum()
                               : std::min(maximum(), static_cast<int>(at)));
}

void ZoomSlider::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) SlideTo(event->position().x());
}

void ZoomSlider::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton) SlideTo(event->position().x());
}

} // namespace ornivane
