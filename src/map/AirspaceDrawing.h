#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "geo/Position.h"
#include "map/MapTransform.h"
#include "platform/PictureSurface.h"
#include "store/Statement.h"

namespace ornivane {

class Connection;

// One element of an airspace's outline, as stored. Reading an empty field is a RuntimeError InvalidNull.
struct AirspaceElement {
    long PNumber = 0; // order inside the airspace, from 1
    std::string AspType, LowType, HighType;
    std::string Drawtype;            // "DC" circle, "DB" arc, "DP" point of a polygon
    std::string arcDir;              // "+" clockwise, "-" counter-clockwise
    std::optional<double> Low, High; // feet
    std::optional<DegMin> Place;     // the point of a polygon, the centre of a circle
    std::optional<double> arcRad;    // of a circle, nautical miles
    std::optional<DegMin> ArcCentre, ArcStart, ArcEnd;
};

// Distance in nautical miles.
double ArcRadius(const DegMin& centre, const DegMin& point);
// True bearing in degrees from the centre to the point. RuntimeError DivisionByZero when the two are the
// same.
double ArcDimension(const DegMin& centre, const DegMin& point);

// " D 2500 - FL 65 "; empty for a traffic pattern.
std::string AirspaceLabel(const AirspaceElement& first);

// Colours of the outlines, 0xRRGGBB. All that have no colour of their own are red and black by turns.
constexpr Colour PatternColour = 0x8F35D9, TmzColour = 0x00FFFF, DangerColour = 0xFF8000,
                 AirspaceRed = 0xFF0000, AirspaceBlack = 0x000000;

// Draws the outlines of airspaces: circles and arcs on the sphere, straight sides, the closing line, the
// label with the heights. One for each screen; the alternation of the straight sides goes on from one
// airspace to the next.
class AirspaceDrawing {
public:
    explicit AirspaceDrawing(Connection& luftraumConn) : luftraum(luftraumConn) {}

    // What a redraw draws on.
    struct Canvas {
        PictureSurface& Surface;
        const MapTransform& Transform;
        int SlideValue;
        bool ShowAirspaceText;
        // The way around of an arc that has none; without it such an arc is not drawn.
        const char* DirectionIfNone = "";
    };

    // RuntimeError for a row that cannot be drawn, with its place: what was drawn so far stays.
    void DrawAirspace(const Canvas& canvas, std::int16_t index);
    void Draw(const Canvas& canvas, const std::vector<AirspaceElement>& elements);

private:
    // The label is written once, at the first place that may carry it.
    struct Pen {
        const Canvas& On;
        const std::string& AspType;
        std::string Label;
    };
    struct ArcShape {
        DegMin Centre;
        double Radius;               // nautical miles
        double StartAngle, EndAngle; // degrees
        std::string Direction;       // "+", "-" or "Kreis"
    };

    std::vector<AirspaceElement> Elements(std::int16_t index);
    // `first`: where the outline closes, set by the element number 1.
    void DrawElement(Pen& pen, const std::vector<AirspaceElement>& elements, std::size_t i,
                     std::optional<Position>& first);
    void DrawArcElement(Pen& pen, const AirspaceElement& element);
    void DrawArc(Pen& pen, ArcShape arc);
    static void DrawArcSegment(Pen& pen, const Position& from, const Position& to, Colour colour,
                               bool mayCarryLabel);
    void DrawAirspaceLine(Pen& pen, const Position& from, const Position& to);
    Colour NextColour(const std::string& type);

    Connection& luftraum;
    Statement rows;
    bool SegmentToggle = true;
};

} // namespace ornivane
