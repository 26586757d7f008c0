#pragma once

#include <QFont>
#include <QString>
#include <vector>

namespace ornivane {

// A piece of a text in a font of its own, its place from the left edge of the whole.
struct FittedRun {
    QString Text;
    QFont Font;
    double Left = 0;
};

// The largest size in pixels, up to the font's own, in which the text is not wider than that; at least 1.
int FittedPixelSize(const QString& text, const QFont& font, double width);

// The text on one line that is not wider than that. A number that is cut reads as another number, so what is
// too long becomes smaller: of a number its decimals, as long as they remain visible, so that the whole part
// and the point can be read as ever; else all of it.
std::vector<FittedRun> FitInWidth(const QString& text, const QFont& font, double width);

} // namespace ornivane
