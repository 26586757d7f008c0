#pragma once

#include <filesystem>
#include <string>

namespace ornivane {

// 0xRRGGBB.
using Colour = unsigned;

// A rectangle in pixels.
struct PixelRect {
    double X = 0, Y = 0, Width = 0, Height = 0;
    bool operator==(const PixelRect&) const = default;
};

// What of a picture a rectangle of a surface shows, in the picture's pixels: the point at the top left of the
// rectangle, the way along its top edge, (AcrossX, AcrossY), and the way down its left one, (DownX, DownY).
// Four numbers are an upright rectangle of the picture.
struct PictureSection {
    double X = 0, Y = 0, AcrossX = 0, DownY = 0, AcrossY = 0, DownX = 0;
};

// A loaded image at its full size.
class Picture {
public:
    virtual ~Picture() = default;
    // Reads an image of one of the PictureFormats, by its content. False when it cannot be read; the picture
    // that was there stays then.
    virtual bool Load(const std::filesystem::path& file) = 0;
    // The file could not be read to its end: what is there of the picture can be painted, and loading the
    // same file again may bring the rest.
    virtual bool MustBeReadAgain() const { return false; }
    // Pixels as stored in the file; 0 before anything was loaded.
    virtual int ScaleWidth() const = 0;
    virtual int ScaleHeight() const = 0;
};

// What maps and instruments are drawn on. Coordinates are view pixels from the top left; lines and circles
// use the pen width last set. A step of drawing outside the surface draws nothing there and is no error.
class PictureSurface {
public:
    virtual ~PictureSurface() = default;
    virtual double ScaleWidth() const = 0;
    virtual double ScaleHeight() const = 0;
    virtual void Cls() = 0;
    // Stretches a section of the picture over a rectangle of this surface.
    virtual void PaintPicture(const Picture& picture, const PixelRect& destination,
                              const PictureSection& section) = 0;
    // Copies the whole picture over the whole surface, turned about the middle: degrees, clockwise.
    virtual void PaintTurned(const Picture& picture, double angle) = 0;
    virtual void SetDrawWidth(int pixels) = 0;
    virtual void SetForeColor(Colour colour) = 0;
    virtual void Line(double x1, double y1, double x2, double y2, Colour colour) = 0;
    // An outline; radius to the middle of the pen.
    virtual void Circle(double x, double y, double radius, Colour colour) = 0;
    // The text's top left corner, in the fore colour.
    virtual void Print(double x, double y, const std::string& text) = 0;
    // What Print covers with this text.
    virtual double TextWidth(const std::string& text) = 0;
    virtual double TextHeight() const = 0;
    // Keeps a copy of what stands on the surface, for Recall.
    virtual void Keep() = 0;
    // Brings that copy back. False when there is none of this size: nothing happens then.
    virtual bool Recall() = 0;
    // Shows what was drawn.
    virtual void Refresh() = 0;
};

} // namespace ornivane
