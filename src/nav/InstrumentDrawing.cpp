#include "nav/InstrumentDrawing.h"

#include <array>
#include <cmath>
#include <iterator>

#include "geo/NavigationMaths.h"

namespace ornivane::InstrumentDrawing {

namespace {

constexpr Colour White = 0xFFFFFF, Yellow = 0xFFFF00, Magenta = 0xFF00FF, Black = 0x000000;
constexpr double Middle = 100;

struct Spot {
    double X, Y;
};

constexpr Spot Outline[] = {{90, 105},  {50, 120},  {50, 105},  {90, 80},   {93, 60},   {100, 35},
                            {107, 60},  {110, 80},  {150, 105}, {150, 120}, {107, 105}, {107, 125},
                            {130, 140}, {130, 150}, {105, 140}, {100, 155}, {95, 140},  {70, 150},
                            {70, 140},  {93, 125},  {93, 105}};

constexpr std::array<Spot, 2> BezelMarks[] = {
    {{{141, 26}, {144, 19}}},   {{{57, 26}, {54, 19}}},     {{{172, 58}, {179, 54}}},
    {{{27, 58}, {20, 54}}},     {{{185, 100}, {193, 100}}}, {{{15, 100}, {7, 100}}},
    {{{142, 173}, {146, 180}}}, {{{57, 172}, {53, 180}}},   {{{173, 142}, {180, 146}}},
    {{{27, 141}, {19, 146}}},
};

// From the middle, in the direction of an angle and to the right of it.
struct Way {
    double Along, Across = 0;
};

Spot At(double degrees, const Way& way) {
    const double s = std::sin(DegToRad(degrees)), c = std::cos(DegToRad(degrees));
    return {Middle + way.Along * s + way.Across * c, Middle - way.Along * c + way.Across * s};
}

void Line(PictureSurface& surface, const Spot& from, const Spot& to, Colour colour) {
    surface.Line(from.X, from.Y, to.X, to.Y, colour);
}

} // namespace

void DrawInstrumentAircraft(PictureSurface& surface) {
    surface.SetDrawWidth(2);
    for (std::size_t i = 0; i < std::size(Outline); ++i)
        Line(surface, Outline[i], Outline[(i + 1) % std::size(Outline)], White);
    surface.SetDrawWidth(5);
    for (const auto& [from, to] : BezelMarks) Line(surface, from, to, Yellow);
}

void Hub(PictureSurface& surface) {
    surface.SetDrawWidth(3);
    surface.Circle(Middle, Middle, 5, Black);
}

void Arrow(PictureSurface& surface, double degrees, double lengthUnits, double innerUnits, Colour colour) {
    surface.SetDrawWidth(3);
    const Spot tip = At(degrees, {lengthUnits});
    Line(surface, At(degrees, {innerUnits}), tip, colour);
    Line(surface, At(degrees, {-innerUnits}), At(degrees, {-lengthUnits}), colour);
    // The head: two strokes of 20 units, 30 degrees on either side of the shaft.
    for (const double side : {30.0, -30.0}) {
        const double stroke = DegToRad(degrees + side);
        Line(surface, tip, {tip.X - 20 * std::sin(stroke), tip.Y + 20 * std::cos(stroke)}, colour);
    }
}

void SmallAircraft(PictureSurface& surface) {
    surface.SetDrawWidth(3);
    surface.Line(100, 120, 100, 85, Magenta);
    surface.Line(85, 95, 115, 95, Magenta);
    surface.Line(95, 115, 105, 115, Magenta);
}

void DeviationScale(PictureSurface& surface, double courseDegrees) {
    surface.SetDrawWidth(2);
    for (const double distance : {50.0, 25.0, -25.0, -50.0}) {
        const Spot dot = At(courseDegrees, {0, distance});
        surface.Circle(dot.X, dot.Y, 3, Black);
    }
}

void ToFrom(PictureSurface& surface, double courseDegrees, bool isTo) {
    surface.SetDrawWidth(3);
    const double side = isTo ? 1 : -1;
    const Spot tip = At(courseDegrees, {side * 60});
    for (const double half : {8.0, 6.0, 4.0, 2.0, 0.0})
        for (const double across : {half, -half})
            Line(surface, At(courseDegrees, {side * 45, across}), tip, White);
}

void DeviationBar(PictureSurface& surface, double courseDegrees, double offsetUnits) {
    surface.SetDrawWidth(3);
    const Spot middle = At(courseDegrees, {0, -offsetUnits});
    Line(surface, middle, At(courseDegrees, {40, -offsetUnits}), Yellow);
    Line(surface, middle, At(courseDegrees, {-40, -offsetUnits}), Yellow);
}

} // namespace ornivane::InstrumentDrawing
