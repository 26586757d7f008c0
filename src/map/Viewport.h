#pragma once

namespace ornivane {

// The source rectangle of a view in image pixels. Single precision: remembered views were always kept so.
struct SourceRect {
    float SX = 0, SY = 0, SW = 0, SH = 0;
    bool operator==(const SourceRect&) const = default;
};

// In pixels, of the image or of the view.
struct Point {
    double X = 0, Y = 0;
    bool operator==(const Point&) const = default;
};

// What zooming, panning and centring depend on, apart from the rectangle itself. All in pixels.
struct ViewSizes {
    float StoreWidth = 0, StoreHeight = 0; // the loaded image
    float AspectFactor = 0;                // source height per source width that keeps the image undistorted
    double HalfWidth = 0;                  // source width at slider value 0
    double ViewWidth = 0, ViewHeight = 0;  // the visible picture
    double HeightFactor = 1;               // stretches the height of a zoomed rectangle before it is cut
};

constexpr int SlideMin = -100;
constexpr int SlideMax = 100;

// (store height / store width) x (view height / view width) / (row height / row width): when the row's size
// agrees with the image this is the view's own proportion; when it does not, the distortion follows the row,
// because positions are computed from the row. RuntimeError DivisionByZero or Overflow for an empty size.
float AspectFactorOf(const ViewSizes& sizes, double rowWidthPixels, double rowHeightPixels);

// The view of a map that has never been shown: half the width, from the top left corner.
SourceRect OpenedView(const ViewSizes& sizes);

// For a slider value of -100 to 100; 100 is the whole width. Magnification stops at 8 view pixels for one
// image pixel. A picture less tall than the view's proportion is cut to its height and slightly stretched.
SourceRect Zoomed(SourceRect rect, const ViewSizes& sizes, int slideValue);

// Moved so that this place of the image comes to the middle, as far as the image reaches.
SourceRect CentredOn(SourceRect rect, const ViewSizes& sizes, const Point& imagePixel);

// Moved against a drag: by one image pixel for each of the view whatever the zoom.
SourceRect Dragged(SourceRect rect, const ViewSizes& sizes, const Point& imagePixels);

// Fitted to a changed view or picture.
SourceRect Resized(SourceRect rect, const ViewSizes& sizes);

// The pen width of legs for a slider value: 8 at the closest, 6 in the middle, 4 with the whole width in
// view.
int ZoomWidth(int slideValue);

} // namespace ornivane
