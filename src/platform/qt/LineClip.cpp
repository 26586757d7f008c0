#include "platform/qt/LineClip.h"

#include <cmath>

namespace ornivane {

namespace {

struct Ray {
    double Start, Direction;
};

struct Stretch {
    double From, To;
};

// Narrows the stretch of the line to the side where start + t * direction is at or above border.
bool Narrow(Stretch& inside, const Ray& ray, double border) {
    const double missing = border - ray.Start;
    if (ray.Direction == 0) return missing <= 0;
    const double t = missing / ray.Direction;
    if (ray.Direction > 0)
        inside.From = std::fmax(inside.From, t);
    else
        inside.To = std::fmin(inside.To, t);
    return inside.From <= inside.To;
}

} // namespace

bool ClipLine(LineEnds& line, const Border& border) {
    const double x = line.X1, y = line.Y1, dx = line.X2 - x, dy = line.Y2 - y;
    if (!std::isfinite(dx) || !std::isfinite(dy) || !std::isfinite(x) || !std::isfinite(y)) return false;
    Stretch inside{0, 1};
    if (!Narrow(inside, {x, dx}, border.Left) || !Narrow(inside, {-x, -dx}, -border.Right) ||
        !Narrow(inside, {y, dy}, border.Top) || !Narrow(inside, {-y, -dy}, -border.Bottom))
        return false;
    if (inside.To < 1) {
        line.X2 = x + inside.To * dx;
        line.Y2 = y + inside.To * dy;
    }
    if (inside.From > 0) {
        line.X1 = x + inside.From * dx;
        line.Y1 = y + inside.From * dy;
    }
    return true;
}

} // namespace ornivane
