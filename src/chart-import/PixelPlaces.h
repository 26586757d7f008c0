#pragma once

#include <string>
#include <string_view>

#include "chart-import/ImportFailure.h"
#include "chart-import/SheetPlan.h"

namespace ornivane {

// Where a picture lies and how fine it is, found from the places of some of its pixels: all around its
// border, because sides bulge in other projections, and in a grid of points, each with its neighbours.
class PixelPlaces {
public:
    PixelPlaces(int pictureWidth, int pictureHeight) : width(pictureWidth), height(pictureHeight) {}

    // The pixels asked for: "x y", a line each, which gdaltransform answers in lines "longitude latitude".
    std::string Questions() const;

    struct Answer {
        DegreeBox Box;
        PixelDegrees Pixel; // so small that no pixel of the source is lost anywhere
    };
    // CannotBePlaced.
    Imported<Answer> Read(std::string_view answers) const;

private:
    int width, height;
};

} // namespace ornivane
