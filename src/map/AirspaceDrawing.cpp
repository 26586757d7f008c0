#include "map/AirspaceDrawing.h"

#include <cmath>

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "geo/GreatCircle.h"
#include "geo/NavigationMaths.h"

namespace ornivane {

namespace {

constexpr Colour LabelColour = 0x800000;
constexpr double LabelRight = 10, LabelUp = 10; // pixels from the middle of the side

template <typename Field>
const Field& Held(const std::optional<Field>& field) {
    if (!field) throw RuntimeError(ErrorNumber::InvalidNull);
    return *field;
}

Position At(const std::optional<DegMin>& stored) { return ToDecimalDegrees(Held(stored)); }

// Outlines that alternate are a pixel wider than the others.
int OutlineWidth(const AirspaceDrawing::Canvas& on, Colour colour) {
    const bool alternates = colour == AirspaceRed || colour == AirspaceBlack;
    return static_cast<int>(Round((alternates ? 7 : 6) - on.SlideValue / 50.0));
}

// Degrees between two points of a circle: few for small ones.
double CircleStep(double radiusNM) { return radiusNM <= 4 ? 30 : radiusNM <= 10 ? 15 : 5; }

std::string Limit(const std::string& type, const std::optional<double>& feet, bool isLow) {
    if (isLow && type == " GND") return "GND";
    if (type == "FL") return "FL " + NumberText(Held(feet) / 100);
    return NumberText(Held(feet));
}

AirspaceElement ElementOf(const Statement& row) {
    const auto number = [&](int column) {
        return row.IsNull(column) ? std::optional<double>() : row.Number(column);
    };
    const auto place = [&](int column) {
        const auto latitude = number(column), longitude = number(column + 1);
        return latitude && longitude
                   ? std::optional(DegMin{StoredLatitude(*latitude), StoredLongitude(*longitude)})
                   : std::nullopt;
    };
    const auto text = [&](int column) { return std::string(row.Text(column)); };
    return {row.IsNull(0) ? 0 : static_cast<long>(row.Integer(0)),
            text(1),
            text(2),
            text(3),
            text(4),
            text(5),
            number(6),
            number(7),
            place(8),
            number(10),
            place(11),
            place(13),
            place(15)};
}

struct Circle {
    Position Centre;
    double RadiusRadians;
};

// The point at an angle from north.
Position OnCircle(const Circle& circle, double angleDegrees) {
    const double phi = circle.Centre.Lat.Radians(), lambda = circle.Centre.Long.Radians();
    const double r = circle.RadiusRadians, a = DegToRad(angleDegrees);
    const double lat = ASin(std::sin(phi) * std::cos(r) + std::cos(phi) * std::sin(r) * std::cos(a));
    const double longitude = lambda + ASin(CheckedDivide(std::sin(r) * std::sin(a), std::cos(lat)));
    return {Latitude(RadToDeg(lat)), Longitude(RadToDeg(longitude))};
}

} // namespace

// Not the distance of GreatCircle: arcs were always drawn with the factors in this order, whose last bit is
// another.
double ArcRadius(const DegMin& centre, const DegMin& point) {
    return AngleBetween(ToDecimalDegrees(centre), ToDecimalDegrees(point)) * 180 * 60 / Pi;
}

double ArcDimension(const DegMin& centre, const DegMin& point) {
    const auto circle = GreatCircle::Between(ToDecimalDegrees(centre), ToDecimalDegrees(point));
    if (circle.AngleRadians == 0) throw RuntimeError(ErrorNumber::DivisionByZero);
    return circle.TrueCourse;
}

std::string AirspaceLabel(const AirspaceElement& first) {
    if (first.AspType == "A") return {};
    return " " + first.AspType + " " + Limit(first.LowType, first.Low, true) + " - " +
           Limit(first.HighType, first.High, false) + " ";
}

std::vector<AirspaceElement> AirspaceDrawing::Elements(std::int16_t index) {
    std::vector<AirspaceElement> elements;
    const StatementRun run(rows, luftraum,
                           "SELECT PNumber, AspType, LowType, HighType, Drawtype, arcDir, Low, High, Lat, "
                           "Long, arcRad, arcLat, arcLong, Arcx1, Arcy1, Arcx2, Arcy2 FROM Luftraum "
                           "WHERE \"Index\" = ? ORDER BY PNumber ASC",
                           {static_cast<int>(index)});
    while (rows.Step()) {
        try {
            elements.push_back(ElementOf(rows));
        } catch (const RuntimeError& error) {
            throw Located("PNumber " + std::string(rows.Text(0)), error);
        }
    }
    return elements;
}

void AirspaceDrawing::DrawAirspace(const Canvas& canvas, std::int16_t index) {
    try {
        Draw(canvas, Elements(index));
    } catch (const RuntimeError& error) {
        throw Located("Luftraum.ovd, Index " + std::to_string(index), error);
    }
}

void AirspaceDrawing::Draw(const Canvas& canvas, const std::vector<AirspaceElement>& elements) {
    if (elements.empty()) return;
    // Kind and limits are those of the first element.
    Pen pen{canvas, elements.front().AspType, AirspaceLabel(elements.front())};
    std::optional<Position> first;
    for (std::size_t i = 0; i < elements.size(); ++i) {
        try {
            DrawElement(pen, elements, i, first);
        } catch (const RuntimeError& error) {
            throw Located("PNumber " + std::to_string(elements[i].PNumber), error);
        }
    }
    // Without an element number 1 there is no place to close the outline at.
    const AirspaceElement& last = elements.back();
    if (!first) return;
    if (last.Drawtype == "DB") DrawAirspaceLine(pen, At(last.ArcEnd), *first);
    if (last.Drawtype == "DP") DrawAirspaceLine(pen, At(last.Place), *first);
}

void AirspaceDrawing::DrawElement(Pen& pen, const std::vector<AirspaceElement>& elements, std::size_t i,
                                  std::optional<Position>& first) {
    const AirspaceElement& element = elements[i];
    if (element.Drawtype == "DC") {
        DrawArc(pen, {Held(element.Place), Held(element.arcRad), 0, 360, "Kreis"});
    } else if (element.Drawtype == "DB") {
        if (element.PNumber == 1) first = At(element.ArcStart);
        DrawArcElement(pen, element);
    } else if (element.Drawtype == "DP") {
        const Position here = At(element.Place);
        if (element.PNumber == 1) first = here;
        if (i > 0 && elements[i - 1].Drawtype == "DB")
            DrawAirspaceLine(pen, At(elements[i - 1].ArcEnd), here);
        if (i + 1 < elements.size() && elements[i + 1].Drawtype == "DP")
            DrawAirspaceLine(pen, here, At(elements[i + 1].Place));
    }
}

void AirspaceDrawing::DrawArcElement(Pen& pen, const AirspaceElement& element) {
    const DegMin& centre = Held(element.ArcCentre);
    const DegMin& start = Held(element.ArcStart);
    DrawArc(pen, {centre, ArcRadius(centre, start), ArcDimension(centre, start),
                  ArcDimension(centre, Held(element.ArcEnd)),
                  element.arcDir.empty() ? pen.On.DirectionIfNone : element.arcDir});
}

void AirspaceDrawing::DrawArc(Pen& pen, ArcShape arc) {
    double step = CircleStep(arc.Radius);
    if (arc.Direction == "+") {
        step = 10;
        if (arc.StartAngle > arc.EndAngle) arc.EndAngle += 360;
    } else if (arc.Direction == "-") {
        step = -10;
        if (arc.EndAngle > arc.StartAngle) arc.StartAngle += 360;
    } else if (arc.Direction != "Kreis") {
        return; // without a direction there is no way from start to end
    }
    const Circle circle{ToDecimalDegrees(arc.Centre), arc.Radius * Pi / 10800};
    const bool isTmz = pen.AspType == "TMZ", isDanger = pen.AspType == "Q";
    bool isRed = true; // by turns, from the first point on
    Position from;
    const auto go = [&](double angleDegrees, bool mayCarryLabel) {
        const Position to = OnCircle(circle, angleDegrees);
        const Colour colour = isTmz      ? TmzColour
                              : isDanger ? DangerColour
                              : isRed    ? AirspaceRed
                                         : AirspaceBlack;
        // South of the equator no point counts as a previous one: that is how arcs there were always drawn.
        if (from.Lat > Latitude(0)) DrawArcSegment(pen, from, to, colour, mayCarryLabel);
        from = to;
        isRed = !isRed;
    };
    const int points = static_cast<int>(std::floor((arc.EndAngle - arc.StartAngle) / step + 1e-9));
    for (int i = 0; i <= points; ++i) go(arc.StartAngle + i * step, false);
    // The steps end before or on the end, so one more point closes the arc; a circle's label stands there.
    go(arc.EndAngle, arc.Direction == "Kreis");
}

Colour AirspaceDrawing::NextColour(const std::string& type) {
    if (type == "A") return PatternColour;
    if (type == "TMZ") return TmzColour;
    if (type == "Q") return DangerColour;
    SegmentToggle = !SegmentToggle;
    return SegmentToggle ? AirspaceBlack : AirspaceRed;
}

void AirspaceDrawing::DrawAirspaceLine(Pen& pen, const Position& from, const Position& to) {
    DrawArcSegment(pen, from, to, NextColour(pen.AspType), true);
}

void AirspaceDrawing::DrawArcSegment(Pen& pen, const Position& from, const Position& to, Colour colour,
                                     bool mayCarryLabel) {
    PictureSurface& surface = pen.On.Surface;
    const Point first = pen.On.Transform.ViewOf(from), second = pen.On.Transform.ViewOf(to);
    surface.SetDrawWidth(OutlineWidth(pen.On, colour));
    surface.Line(first.X, first.Y, second.X, second.Y, colour);
    surface.SetDrawWidth(1);
    if (!mayCarryLabel) return;
    if (pen.On.ShowAirspaceText && !pen.Label.empty()) {
        surface.SetForeColor(LabelColour);
        surface.Print((first.X + second.X) / 2 + LabelRight, (first.Y + second.Y) / 2 - LabelUp, pen.Label);
    }
    pen.Label.clear();
}

} // namespace ornivane
