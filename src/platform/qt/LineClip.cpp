#include "platform/qt/LineClip.h"

#include <cmath>

namespace ornivane {

namespace {

// Narrows the stretch from..to of the line to the side where start + t * direction is at or above border.
bool Narrow(double start, double direction, double border, double& from, double& to) {
    const double missing = border - start;
    if (direction == 0) return missing <= 0;
    const double t = missing / direction;
    if (direction > 0)
        from = std::fmax(from, t);
    else
        to = std::fmin(to, t);
    return from <= to;
}

} // namespace

bool ClipLine(double& x1, double& y1, double& x2, double& y2, double left, double top, double right,
              double bottom) {
    const double dx = x2 - x1, dy = y2 - y1;
    if (!std::isfinite(dx) || !std::isfinite(dy) || !std::isfinite(x1) || !std::isfinite(y1)) return false;
    double from = 0, to = 1;
    if (!Narrow(x1, dx, left, from, to) || !Narrow(-x1, -dx, -right, from, to) ||
        !Narrow(y1, dy, top, from, to) || !Narrow(-y1, -dy, -bottom, from, to))
        return false;
    const double startX = x1, startY = y1;
    if (to < 1) {
        x2 = startX + to * dx;
        y2 = startY + to * dy;
    }
    if (from > 0) {
        x1 = startX + from * dx;
        y1 = startY + from * dy;
    }
    return true;
}

} // namespace ornivane
