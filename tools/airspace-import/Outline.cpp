#include "airspace-import/Outline.h"

#include <algorithm>
#include <cmath>

#include "airspace-import/Unusable.h"
#include "base/Numbers.h"

namespace ornivane {

namespace {

constexpr double Metre = 1 / 1852.0;   // nautical miles
constexpr double LeastRadius = 0.01;   // nautical miles; below it bearings from the centre lose all meaning
constexpr double MostRadius = 500;     // nautical miles
constexpr double ClosingRadius = 0.05; // nautical miles between the radii of an arc's two ends
constexpr double DifferentRadii = 1.5; // times: the ends are not of one arc

bool Same(const Position& a, const Position& b) { return Distance(a, b) < Metre; }

Position MiddleOf(const Element& arc, double radius) {
    const double start = Bearing(arc.Centre, arc.Start), end = Bearing(arc.Centre, arc.End);
    const double sweep = std::fmod((arc.Clockwise ? end - start : start - end) + 360, 360);
    return Destination(arc.Centre, start + (arc.Clockwise ? sweep : -sweep) / 2, radius);
}

OutlineRow Circle(const Position& centre, double radius) {
    OutlineRow row;
    row.As = OutlineRow::Draw::Circle;
    row.Place = centre;
    row.Radius = radius;
    return row;
}

void CheckRadii(double start, double end) {
    if (std::min(start, end) < LeastRadius) throw Unusable("an arc that begins or ends at its centre");
    if (std::max(start, end) > MostRadius) throw Unusable("an arc of a radius above 500 nautical miles");
    if (std::max(start, end) > DifferentRadii * std::min(start, end))
        throw Unusable("an arc whose ends are " + NumberText(Round(start, 2)) + " and " +
                       NumberText(Round(end, 2)) + " nautical miles from its centre");
}

class OutlineBuilder {
public:
    void AddPoint(const Position& point) {
        if (!rows.empty() && Same(last, point)) return;
        OutlineRow row;
        row.Place = point;
        Add(row, point, point);
    }

    void AddArc(const Element& arc) {
        const double radius = Distance(arc.Centre, arc.Start), endRadius = Distance(arc.Centre, arc.End);
        CheckRadii(radius, endRadius);
        if (Same(arc.Start, arc.End))
            throw Unusable("an arc that ends where it begins, beside other elements");
        if (!rows.empty()) AddPoint(arc.Start);
        // The drawn arc keeps the radius of its start. Where the file has its end elsewhere, a straight side
        // leads there.
        const bool apart = std::fabs(radius - endRadius) > ClosingRadius;
        const Position end = apart ? Destination(arc.Centre, Bearing(arc.Centre, arc.End), radius) : arc.End;
        OutlineRow row;
        row.As = OutlineRow::Draw::Arc;
        row.Place = MiddleOf(arc, radius);
        row.Centre = arc.Centre;
        row.Start = arc.Start;
        row.End = end;
        row.Clockwise = arc.Clockwise;
        Add(row, arc.Start, end);
        AddPoint(arc.End);
        hasArc = true;
    }

    std::vector<OutlineRow> Finish() {
        // The drawing closes the line by itself.
        if (rows.size() > 1 && rows.back().As == OutlineRow::Draw::Point && Same(last, first))
            rows.pop_back();
        if (!hasArc && rows.size() < 3) throw Unusable("fewer than three points and no circle");
        return std::move(rows);
    }

private:
    void Add(const OutlineRow& row, const Position& start, const Position& end) {
        if (rows.empty()) first = start;
        rows.push_back(row);
        last = end;
    }

    std::vector<OutlineRow> rows;
    Position first, last;
    bool hasArc = false;
};

} // namespace

std::vector<OutlineRow> OutlineRows(const std::vector<Element>& elements) {
    if (elements.size() == 1) {
        const Element& only = elements.front();
        if (only.Is == Element::Kind::Circle) return {Circle(only.Start, only.Radius)};
        if (only.Is == Element::Kind::Arc && Same(only.Start, only.End)) {
            const double radius = Distance(only.Centre, only.Start);
            CheckRadii(radius, radius);
            return {Circle(only.Centre, radius)};
        }
    }
    OutlineBuilder outline;
    for (const Element& element : elements) {
        if (element.Is == Element::Kind::Circle) throw Unusable("a circle beside other elements");
        if (element.Is == Element::Kind::Arc)
            outline.AddArc(element);
        else
            outline.AddPoint(element.Start);
    }
    return outline.Finish();
}

double StoredNumber(Latitude latitude) { return Round(ToDegMinValue(latitude).Value(), 9); }
double StoredNumber(Longitude longitude) { return Round(ToDegMinValue(longitude).Value(), 9); }

} // namespace ornivane
