#include "chart-import/PixelPlaces.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "base/Numbers.h"
#include "base/Strings.h"

namespace ornivane {

namespace {

constexpr int PointsOfSide = 64;
constexpr int GridSide = 5;

struct Place {
    double X = 0, Y = 0;
};

std::vector<Place> Border(double width, double height) {
    std::vector<Place> places;
    const auto side = [&places](Place from, Place to) {
        for (int i = 0; i < PointsOfSide; ++i) {
            const double part = static_cast<double>(i) / PointsOfSide;
            places.push_back({from.X + (to.X - from.X) * part, from.Y + (to.Y - from.Y) * part});
        }
    };
    side({0, 0}, {width, 0});
    side({width, 0}, {width, height});
    side({width, height}, {0, height});
    side({0, height}, {0, 0});
    return places;
}

// Around each point of the grid: west, east, north and south of it.
std::vector<Place> Crosses(double width, double height) {
    std::vector<Place> places;
    for (int row = 0; row < GridSide; ++row)
        for (int column = 0; column < GridSide; ++column) {
            const double x = width * (column + 0.5) / GridSide, y = height * (row + 0.5) / GridSide;
            places.insert(places.end(), {{x - 0.5, y}, {x + 0.5, y}, {x, y - 0.5}, {x, y + 0.5}});
        }
    return places;
}

std::optional<Place> PlaceIn(std::string_view line) {
    const std::string_view text = Trim(line);
    const std::size_t gap = text.find(' ');
    if (gap == std::string_view::npos) return std::nullopt;
    const auto longitude = ParsePlainNumber(text.substr(0, gap));
    const auto latitude = ParsePlainNumber(text.substr(gap + 1));
    if (!longitude || !latitude || std::abs(*longitude) > 180.01 || std::abs(*latitude) > 90.01)
        return std::nullopt;
    return Place{*longitude, *latitude};
}

// The step in longitude and latitude along which one pixel is passed: the columns of the inverse of the
// matrix of derivatives.
PixelDegrees StepAt(const Place* cross) {
    const double lonX = cross[1].X - cross[0].X, latX = cross[1].Y - cross[0].Y;
    const double lonY = cross[3].X - cross[2].X, latY = cross[3].Y - cross[2].Y;
    const double determinant = std::abs(lonX * latY - lonY * latX);
    return {determinant / std::hypot(latX, latY), determinant / std::hypot(lonX, lonY)};
}

} // namespace

std::string PixelPlaces::Questions() const {
    std::string text;
    for (const auto& places : {Border(width, height), Crosses(width, height)})
        for (const Place& place : places) text += NumberText(place.X) + ' ' + NumberText(place.Y) + '\n';
    return text;
}

Imported<PixelPlaces::Answer> PixelPlaces::Read(std::string_view answers) const {
    const ImportFailure cannot{ImportFault::CannotBePlaced, {}};
    std::vector<Place> places;
    for (const std::string& line : Split(answers, "\n")) {
        if (line.empty()) continue;
        const auto place = PlaceIn(line);
        if (!place) return cannot;
        places.push_back(*place);
    }
    constexpr std::size_t border = 4 * PointsOfSide;
    if (places.size() != border + 4 * GridSide * GridSide) return cannot;
    Answer answer{{90, -90, 180, -180}, {1e9, 1e9}};
    for (std::size_t i = 0; i < border; ++i) {
        // A side that jumps goes across 180 degrees or around a pole.
        if (std::abs(places[i].X - places[(i + 1) % border].X) > 90) return cannot;
        answer.Box = {std::min(answer.Box.South, places[i].Y), std::max(answer.Box.North, places[i].Y),
                      std::min(answer.Box.West, places[i].X), std::max(answer.Box.East, places[i].X)};
    }
    for (std::size_t i = border; i < places.size(); i += 4) {
        const PixelDegrees step = StepAt(&places[i]);
        if (!(step.Across > 0) || !(step.Down > 0)) return cannot;
        answer.Pixel = {std::min(answer.Pixel.Across, step.Across), std::min(answer.Pixel.Down, step.Down)};
    }
    return answer;
}

} // namespace ornivane
