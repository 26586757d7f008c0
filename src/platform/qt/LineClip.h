#pragma once

namespace ornivane {

struct LineEnds {
    double X1, Y1, X2, Y2;
};

struct Border {
    double Left, Top, Right, Bottom;
};

// Cuts the line to what lies inside the border. False when nothing of it does, or when a coordinate is no
// finite number. Good for ends at any distance: a painter's own arithmetic is not.
bool ClipLine(LineEnds& line, const Border& border);

} // namespace ornivane
