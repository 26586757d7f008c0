#include "map/Viewport.h"

#include "base/Numbers.h"

namespace ornivane {

namespace {

SourceRect CutToHeight(SourceRect rect, const ViewSizes& sizes) {
    if (rect.SY + rect.SH > sizes.StoreHeight) rect.SY = sizes.StoreHeight - rect.SH;
    if (rect.SY < 0) {
        rect.SH += rect.SY;
        rect.SY = 0;
    }
    return rect;
}

} // namespace

float AspectFactorOf(const ViewSizes& sizes, double rowWidthPixels, double rowHeightPixels) {
    const double store = CheckedDivide(sizes.StoreHeight, sizes.StoreWidth);
    const double view = CheckedDivide(sizes.ViewHeight, sizes.ViewWidth);
    return static_cast<float>(CheckedDivide(store * view, CheckedDivide(rowHeightPixels, rowWidthPixels)));
}

SourceRect OpenedView(const ViewSizes& sizes) {
    const float width = sizes.StoreWidth / 2;
    return {0, 0, width, sizes.AspectFactor * width};
}

SourceRect Zoomed(SourceRect rect, const ViewSizes& sizes, int slideValue) {
    const double step = (sizes.StoreWidth - sizes.HalfWidth) / 100;
    rect.SW = static_cast<float>(slideValue * step + sizes.HalfWidth);
    if (sizes.ViewWidth / 8 > rect.SW) rect.SW = static_cast<float>(sizes.ViewWidth / 8);
    if (rect.SX + rect.SW > sizes.StoreWidth) rect.SX = sizes.StoreWidth - rect.SW;
    rect.SH = static_cast<float>(sizes.HeightFactor * (sizes.AspectFactor * rect.SW));
    return CutToHeight(rect, sizes);
}

SourceRect CentredOn(SourceRect rect, const ViewSizes& sizes, const Point& imagePixel) {
    // By way of view pixels: the rounding of remembered views comes from there.
    const double x = (imagePixel.X - rect.SX) * CheckedDivide(sizes.ViewWidth, rect.SW);
    const double y = (imagePixel.Y - rect.SY) * CheckedDivide(sizes.ViewHeight, rect.SH);
    rect.SX =
        static_cast<float>((x - sizes.ViewWidth / 2) * CheckedDivide(rect.SW, sizes.ViewWidth) + rect.SX);
    rect.SY =
        static_cast<float>((y - sizes.ViewHeight / 2) * CheckedDivide(rect.SH, sizes.ViewHeight) + rect.SY);
    if (rect.SW + rect.SX > sizes.StoreWidth) rect.SX = sizes.StoreWidth - rect.SW;
    if (rect.SH + rect.SY > sizes.StoreHeight) rect.SY = sizes.StoreHeight - rect.SH;
    if (rect.SX < 0) rect.SX = 0;
    if (rect.SY < 0) rect.SY = 0;
    return rect;
}

SourceRect Dragged(SourceRect rect, const ViewSizes& sizes, const Point& imagePixels) {
    rect.SX = static_cast<float>(rect.SX - imagePixels.X);
    if (rect.SX < 0) rect.SX = 0;
    if (sizes.StoreWidth - 10 < rect.SX) rect.SX = sizes.StoreWidth - 10;
    if (rect.SW + rect.SX > sizes.StoreWidth) rect.SX = sizes.StoreWidth - rect.SW;
    rect.SY = static_cast<float>(rect.SY - imagePixels.Y);
    if (rect.SY < 0) rect.SY = 0;
    const float lowest = sizes.StoreHeight - sizes.AspectFactor * 10;
    if (lowest < rect.SY) rect.SY = lowest;
    if (rect.SH + rect.SY > sizes.StoreHeight) rect.SY = sizes.StoreHeight - rect.SH;
    return rect;
}

SourceRect Resized(SourceRect rect, const ViewSizes& sizes) {
    rect.SH = sizes.AspectFactor * rect.SW;
    if (rect.SW + rect.SX > sizes.StoreWidth) rect.SX = sizes.StoreWidth - rect.SW;
    return CutToHeight(rect, sizes);
}

int ZoomWidth(int slideValue) { return static_cast<int>(Round(6 - slideValue / 50.0)); }

} // namespace ornivane
