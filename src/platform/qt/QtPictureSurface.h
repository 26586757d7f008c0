#pragma once

#include <QImage>
#include <QPainter>
#include <cstdint>
#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "platform/PictureSurface.h"
#include "platform/qt/ChartText.h"
#include "platform/qt/CircleStamp.h"
#include "platform/qt/PixelBlock.h"

namespace ornivane {

class QtPicture;

// A surface in memory. Sizes and positions are logical pixels; it holds devicePixelRatio times as many, and
// all drawing is done at that resolution. Positions count from the borders of pixels: the first one reaches
// from 0 to 1. Coordinates that are no finite number draw nothing.
class QtPictureSurface : public PictureSurface {
public:
    QtPictureSurface(double width, double height, double devicePixelRatio = 1);
    QtPictureSurface(const QtPictureSurface&) = delete;
    QtPictureSurface& operator=(const QtPictureSurface&) = delete;

    double ScaleWidth() const override { return width; }
    double ScaleHeight() const override { return height; }
    void Cls() override;
    // Upright sections. What of one lies outside of the picture shows the background.
    void PaintPicture(const Picture& picture, const PixelRect& destination,
                      const PictureSection& section) override;
    // A CompassCard; any other picture draws nothing.
    void PaintTurned(const Picture& picture, double angle) override;
    void SetDrawWidth(int newWidth) override { drawWidth = newWidth; }
    void SetForeColor(Colour colour) override { foreColor = colour; }
    void Line(double x1, double y1, double x2, double y2, Colour colour) override;
    void Circle(double x, double y, double radius, Colour colour) override;
    void Print(double x, double y, const std::string& text) override;
    double TextWidth(const std::string& text) override { return texts.WidthOf(text) / ratio; }
    double TextHeight() const override { return ChartText::LineHeight; }
    void Keep() override { kept = pixels; }
    bool Recall() override;
    void Refresh() override;

    // A new size, cleared to the background. Nothing happens when it is the present one.
    void Resize(double newWidth, double newHeight, double newRatio);
    double DevicePixelRatio() const { return ratio; }
    void SetBackColor(Colour colour) { backColor = colour; }
    void OnRefresh(std::function<void()> callback) { refreshed = std::move(callback); }
    // What was drawn; good until the next Resize.
    const QImage& Image() const { return image; }
    // How often PaintPicture was called, but for what was painted again.
    int Redraws() const { return redraws; }
    // The same picture once more, because more of its chart has come: no redraw of its own.
    void PaintAgain(const std::function<void()>& paint);
    // All of the chart that was painted last is there, at the resolution of the surface.
    bool IsSharp() const { return isSharp; }

private:
    void Allocate(const QSizeF& size, double newRatio);
    PixelBlock Block();
    void FillRect(const PixelRect& rect, Colour colour);
    bool PaintChart(const QtPicture& chart, const PixelRect& target, const PixelRect& source);
    void UsePen(Colour colour);
    const CircleStamp& StampFor(double deviceRadius, double deviceWidth);

    double width = 0, height = 0, ratio = 1;
    int drawWidth = 1;
    Colour foreColor = 0x000000, backColor = 0xFFFFFF;
    int redraws = 0;
    bool isSharp = true;
    std::function<void()> refreshed;

    // The image has no memory of its own: writing to `pixels` must never make it copy itself.
    std::vector<std::uint32_t> pixels;
    std::vector<std::uint32_t> kept; // of the same size, or empty
    QImage image;
    QPainter painter; // kept open: opening one costs more than most of what is drawn with it
    std::pair<Colour, int> pen{0, -1};

    std::map<std::pair<double, double>, CircleStamp> stamps; // by radius and pen, device pixels
    ChartText texts;
};

} // namespace ornivane
