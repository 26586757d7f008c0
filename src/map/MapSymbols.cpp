#include "map/MapSymbols.h"

#include <cmath>

#include "base/RuntimeError.h"
#include "base/Strings.h"
#include "geo/NavigationMaths.h"
#include "map/LabelCover.h"

namespace ornivane {

namespace {

// Radii, pens and places of labels are pixels.
struct Ring {
    double Radius;
    Colour Ink;
    int Pen;
};
struct Marker {
    Ring Inner, Outer;
    double LabelUp; // from the point to the top of its name
};
constexpr int ByZoom = 0;
constexpr Marker Markers[] = {
    {{2, Black, 4}, {5, Red, 4}, 7},
    {{2, Black, ByZoom}, {5, Blue, ByZoom}, 7},
    {{2, Black, ByZoom}, {5, Yellow, ByZoom}, 7},
    {{4, Yellow, 4}, {6, Black, 3}, 8},
    {{4, Red, 4}, {6, Black, 3}, 8},
    {{4, Blue, 4}, {6, Black, 3}, 8},
};
const Marker& MarkerOf(PointMode mode) { return Markers[static_cast<int>(mode)]; }

constexpr double LabelRight = 10, RunwayDown = 10; // pixels from the point to the corner of its texts
constexpr double SymbolReach = 11;      // pixels from the point to its symbol's edge and its margin
constexpr std::size_t FewPoints = 1000; // so many are drawn as fast as they are looked at

constexpr double LineDistance = 17; // pixels from one line of an airfield's texts to the next
constexpr std::size_t IcaoLength = 4;

struct Direction {
    double Sine, Cosine;
};

void DrawArrow(PictureSurface& surface, const Point& at, const Direction& to, Colour fixColour) {
    const Point tip{at.X + 15 * to.Sine, at.Y - 15 * to.Cosine};
    surface.SetDrawWidth(9);
    surface.Line(at.X, at.Y, tip.X, tip.Y, Blue);
    surface.SetDrawWidth(3);
    surface.Line(at.X, at.Y, tip.X, tip.Y, White);
    surface.SetDrawWidth(5);
    surface.Circle(at.X, at.Y, 1, fixColour);
    surface.Circle(at.X, at.Y, 6, 0x151200);
    surface.SetDrawWidth(1);
}

void DrawAeroplane(PictureSurface& surface, const Point& at, const Direction& to, Colour fixColour) {
    const auto [s, c] = to;
    struct Stroke {
        Point From, To;
        int BlackWidth;
    };
    const Point wing{at.X - 5 * s, at.Y + 5 * c};
    const Point tail{at.X - 17 * s, at.Y + 17 * c};
    const std::array<Stroke, 5> strokes{{
        {at, {at.X - 20 * s, at.Y + 20 * c}, 10},
        {wing, {wing.X + 17 * c, wing.Y + 17 * s}, 10},
        {wing, {wing.X - 17 * c, wing.Y - 17 * s}, 10},
        {tail, {tail.X + 7 * c, tail.Y + 7 * s}, 8},
        {tail, {tail.X - 7 * c, tail.Y - 7 * s}, 8},
    }};
    for (const Stroke& stroke : strokes) {
        surface.SetDrawWidth(stroke.BlackWidth);
        surface.Line(stroke.From.X, stroke.From.Y, stroke.To.X, stroke.To.Y, Black);
    }
    surface.SetDrawWidth(2);
    for (const Stroke& stroke : strokes)
        surface.Line(stroke.From.X, stroke.From.Y, stroke.To.X, stroke.To.Y, fixColour);
    surface.SetDrawWidth(3);
    surface.Circle(at.X, at.Y, 1, 0x80FFFF);
}

} // namespace

MapSymbols::MapSymbols(PictureSurface& pictureSurface, const MapTransform& mapTransform, int slideValue,
                       const PointSettings& pointSettings)
    : surface(pictureSurface), transform(mapTransform), zoomWidth(ZoomWidth(slideValue)),
      settings(pointSettings) {}

void MapSymbols::DrawLeg(const Position& from, const Position& to, Colour colour) {
    const Point first = transform.ViewOf(from);
    const Point second = transform.ViewOf(to);
    surface.SetDrawWidth(zoomWidth);
    surface.Line(second.X, second.Y, first.X, first.Y, colour);
    surface.SetDrawWidth(1);
}

MapSymbols::Placed MapSymbols::Place(const DegMin& at, PointMode mode, const std::string& name) {
    Placed point{transform.ViewOf(ToDecimalDegrees(at)), mode};
    if (IsOfPlanning(mode)) {
        PlaceOfPlanning(point, name);
    } else if (!settings.Airfields) {
        point.HasLabel[0] = settings.ShowNames;
    } else if ((point.Airfield = settings.AirfieldOf(name))) {
        point.HasSymbol = point.HasLabel[0] = settings.ShowAirfields;
        // The place of a missing station stays empty, without a plate.
        point.HasLabel[1] = settings.ShowAirfieldText;
        point.HasLabel[2] = settings.ShowAirfieldText && !point.Airfield->Information.empty();
        point.HasLabel[3] = settings.ShowAirfieldText && !point.Airfield->Atis.empty();
    } else {
        point.HasSymbol = mode == PointMode::DirectTarget || !settings.OnlyRoutePoints;
        point.HasLabel[0] = point.HasSymbol && settings.ShowNames;
    }
    return point;
}

void MapSymbols::PlaceOfPlanning(Placed& point, const std::string& name) {
    if (settings.IsAirfield(name)) point.Airfield = settings.Airfields->Find(name);
    point.HasLabel[0] = point.Mode != PointMode::PlanNewPoint;
    point.HasLabel[1] = point.Airfield != nullptr;
}

bool PointSettings::IsAirfield(const std::string& name) const {
    return Airfields && CharacterCount(name) == IcaoLength;
}

const AirfieldInfo* PointSettings::AirfieldOf(const std::string& name) const {
    return IsAirfield(name) ? &Airfields->Of(name) : nullptr;
}

std::string MapSymbols::LabelOf(const Placed& point, const std::string& name, int label) {
    if (label == 0 || !point.Airfield) return " " + name + " ";
    const AirfieldInfo& airfield = *point.Airfield;
    return " " + (label == 1 ? airfield.Runway : label == 2 ? airfield.Information : airfield.Atis) + " ";
}

Point MapSymbols::LabelAt(const Placed& point, int label) {
    const double down = label == 0 ? -MarkerOf(point.Mode).LabelUp : RunwayDown + (label - 1) * LineDistance;
    return {point.At.X + LabelRight, point.At.Y + down};
}

void MapSymbols::DrawPoint(const DegMin& at, PointMode mode, const std::string& name) {
    Draw(Place(at, mode, name), name);
}

void MapSymbols::DrawRoutePoint(const DegMin& at, PointMode mode, const std::string& name) {
    Placed point{transform.ViewOf(ToDecimalDegrees(at)), mode};
    point.HasLabel[0] = settings.ShowNames;
    Draw(point, name);
}

void MapSymbols::Draw(const Placed& point, const std::string& name) {
    surface.SetForeColor(Black);
    if (point.HasSymbol && point.Airfield) DrawAirfieldSymbol(point);
    if (point.HasSymbol && (!point.Airfield || IsOfPlanning(point.Mode))) DrawMarker(point);
    for (int label = 0; label < MostLabels; ++label) {
        if (!point.HasLabel[static_cast<std::size_t>(label)]) continue;
        const Point at = LabelAt(point, label);
        surface.Print(at.X, at.Y, LabelOf(point, name, label));
    }
    surface.SetDrawWidth(1);
}

void MapSymbols::DrawMarker(const Placed& point) {
    const Marker& marker = MarkerOf(point.Mode);
    for (const Ring& ring : {marker.Inner, marker.Outer}) {
        surface.SetDrawWidth(ring.Pen == ByZoom ? zoomWidth : ring.Pen);
        surface.Circle(point.At.X, point.At.Y, ring.Radius, ring.Ink);
    }
}

// A ring with the runway as a bar through it.
void MapSymbols::DrawAirfieldSymbol(const Placed& point) {
    const AirfieldInfo& airfield = *point.Airfield;
    surface.SetDrawWidth(6);
    surface.Circle(point.At.X, point.At.Y, 10, RouteColour);
    if (!airfield.Heading) return;
    const double angle = DegToRad(transform.ViewAngle(*airfield.Heading));
    const double s = 10 * std::sin(angle), c = 10 * std::cos(angle);
    const Colour colour = airfield.IsPaved ? 0xC0C0C0 : Green;
    surface.Line(point.At.X, point.At.Y, point.At.X + s, point.At.Y - c, colour);
    surface.Line(point.At.X, point.At.Y, point.At.X - s, point.At.Y + c, colour);
}

void MapSymbols::DrawPoints(const std::vector<StoredPoint>& points) {
    std::vector<Placed> placed;
    placed.reserve(points.size());
    const auto refused = ErrorOf([&] {
        for (const StoredPoint& point : points) placed.push_back(Place(point.At, point.Mode, point.Name));
    });
    if (placed.size() > FewPoints) LeaveOutHidden(placed, points);
    for (std::size_t i = 0; i < placed.size(); ++i) Draw(placed[i], points[i].Name);
    if (refused) throw RuntimeError(*refused);
}

void MapSymbols::LeaveOutHidden(std::vector<Placed>& placed, const std::vector<StoredPoint>& points) {
    LabelCover cover(surface);
    const double height = surface.TextHeight();
    for (std::size_t i = placed.size(); i-- > 0;) {
        Placed& point = placed[i];
        // The same symbol on the same pixel hides the one before it, and so does a pile of labels.
        if (point.HasSymbol && !point.Airfield) {
            const double left = point.At.X - SymbolReach, top = point.At.Y - SymbolReach;
            point.HasSymbol =
                cover.IsFirstAt(point.At) && cover.Shows({left, top, 2 * SymbolReach, 2 * SymbolReach});
        }
        for (int label = MostLabels; label-- > 0;) {
            bool& shows = point.HasLabel[static_cast<std::size_t>(label)];
            if (!shows) continue;
            const Point at = LabelAt(point, label);
            const double width = surface.TextWidth(LabelOf(point, points[i].Name, label));
            const PixelRect plate{at.X, at.Y, width, height};
            shows = cover.Shows(plate);
            if (shows) cover.Add(plate);
        }
    }
}

void DrawAircraft(PictureSurface& surface, const Point& at, double directionDegrees, bool hasFix,
                  int symbolType) {
    const double direction = DegToRad(directionDegrees);
    const Direction to{std::sin(direction), std::cos(direction)};
    const Colour fixColour = hasFix ? Green : Red;
    if (symbolType == 1)
        DrawArrow(surface, at, to, fixColour);
    else
        DrawAeroplane(surface, at, to, fixColour);
}

} // namespace ornivane
