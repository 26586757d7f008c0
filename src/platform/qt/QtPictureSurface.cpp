#include "platform/qt/QtPictureSurface.h"

#include <algorithm>
#include <cmath>

#include "platform/qt/CompassCard.h"
#include "platform/qt/LineClip.h"
#include "platform/qt/QtPicture.h"
#include "platform/qt/Resample.h"
#include "platform/qt/ThickLine.h"

namespace ornivane {

namespace {

constexpr double LargestStamp = 64; // device pixels of radius and pen together
constexpr std::size_t MostStamps = 256;

bool HasArea(const PixelRect& rect) {
    return std::isfinite(rect.X) && std::isfinite(rect.Y) && rect.Width > 0 && rect.Height > 0 &&
           std::isfinite(rect.X + rect.Width) && std::isfinite(rect.Y + rect.Height);
}

PixelRect Scaled(const PixelRect& rect, double by) {
    return {rect.X * by, rect.Y * by, rect.Width * by, rect.Height * by};
}

std::uint32_t Opaque(Colour colour) { return colour | 0xFF000000U; }

} // namespace

QtPictureSurface::QtPictureSurface(double surfaceWidth, double surfaceHeight, double devicePixelRatio) {
    Allocate({surfaceWidth, surfaceHeight}, devicePixelRatio);
}

void QtPictureSurface::Resize(double newWidth, double newHeight, double newRatio) {
    if (newWidth == width && newHeight == height && newRatio == ratio) return;
    Allocate({newWidth, newHeight}, newRatio);
}

void QtPictureSurface::Allocate(const QSizeF& size, double newRatio) {
    if (painter.isActive()) painter.end();
    if (newRatio != ratio) texts = ChartText(newRatio);
    stamps.clear();
    kept.clear();
    width = size.width();
    height = size.height();
    ratio = newRatio;
    const int deviceWidth = std::max(1, static_cast<int>(std::lround(width * ratio)));
    const int deviceHeight = std::max(1, static_cast<int>(std::lround(height * ratio)));
    pixels.assign(static_cast<std::size_t>(deviceWidth) * deviceHeight, Opaque(backColor));
    image = QImage(reinterpret_cast<uchar*>(pixels.data()), deviceWidth, deviceHeight, deviceWidth * 4LL,
                   QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    painter.begin(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    pen = {0, -1};
}

PixelBlock QtPictureSurface::Block() { return {pixels.data(), image.width(), image.height(), image.width()}; }

void QtPictureSurface::Cls() { std::fill(pixels.begin(), pixels.end(), Opaque(backColor)); }

void QtPictureSurface::FillRect(const PixelRect& rect, Colour colour) {
    const auto border = [](double at, int limit) {
        return static_cast<int>(std::clamp(std::ceil(at - 0.5), 0.0, static_cast<double>(limit)));
    };
    const int left = border(rect.X, image.width()), right = border(rect.X + rect.Width, image.width());
    const int bottom = border(rect.Y + rect.Height, image.height());
    for (int y = border(rect.Y, image.height()); y < bottom && left < right; ++y)
        std::fill(Block().Row(y) + left, Block().Row(y) + right, Opaque(colour));
}

void QtPictureSurface::PaintPicture(const Picture& picture, const PixelRect& destination,
                                    const PictureSection& section) {
    ++redraws;
    if (!HasArea(destination)) return;
    const auto* chart = dynamic_cast<const QtPicture*>(&picture);
    const PixelRect target = Scaled(destination, ratio);
    // No section is turned. One that is needs a painter of its own here, in place of PaintChart, which
    // resamples an axis at a time.
    const PixelRect source{section.X, section.Y, section.AcrossX, section.DownY};
    isSharp = true;
    if (!chart || chart->ScaleWidth() == 0 || !HasArea(source) || !PaintChart(*chart, target, source))
        FillRect(target, backColor);
}

bool QtPictureSurface::PaintChart(const QtPicture& chart, const PixelRect& target, const PixelRect& source) {
    TileView view =
        chart.View({source.X, source.Y, source.Width, source.Height, target.Width, target.Height});
    isSharp = chart.IsFinished() && view.IsSharp();
    if (view.IsEmpty()) return false;
    const double scale = 1.0 / (1 << view.Level());
    const ImageExtent level = view.Extent(), whole = chart.Extent();
    const PixelRect from = Scaled(source, scale);
    const ResampleAxis x({target.X, target.Width, image.width()}, {from.X, from.Width, level.Width},
                         whole.Width * scale);
    const ResampleAxis y({target.Y, target.Height, image.height()}, {from.Y, from.Height, level.Height},
                         whole.Height * scale);
    if (x.IsEmpty() || y.IsEmpty()) return false;
    const bool insideOfPicture = source.X >= 0 && source.Y >= 0 && source.X + source.Width <= whole.Width &&
                                 source.Y + source.Height <= whole.Height;
    if (!insideOfPicture) FillRect(target, backColor);
    Resample(Block(), x, y, [&view](int row, int begin, int end) { return view.Row(row, begin, end); });
    return true;
}

void QtPictureSurface::PaintAgain(const std::function<void()>& paint) {
    const int before = redraws;
    paint();
    redraws = before;
}

void QtPictureSurface::PaintTurned(const Picture& picture, double angle) {
    const auto* card = dynamic_cast<const CompassCard*>(&picture);
    if (!card || card->ScaleWidth() == 0 || !std::isfinite(angle)) return;
    // Drawn at twice the resolution and brought down while it turns: a picture of the same resolution would
    // lose the edges of its letters to the turning.
    const QImage& image2 = card->At(2 * image.width());
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(width / 2, height / 2);
    painter.rotate(angle);
    painter.drawImage(QRectF(-width / 2, -height / 2, width, height), image2);
    painter.restore();
}

void QtPictureSurface::UsePen(Colour colour) {
    if (pen == std::pair(colour, drawWidth)) return;
    pen = {colour, drawWidth};
    painter.setPen(QPen(QColor::fromRgb(Opaque(colour)), std::max(drawWidth, 1), Qt::SolidLine, Qt::RoundCap,
                        Qt::RoundJoin));
}

void QtPictureSurface::Line(double x1, double y1, double x2, double y2, Colour colour) {
    const double margin = drawWidth + 2;
    LineEnds line{x1, y1, x2, y2};
    if (!ClipLine(line, {-margin, -margin, width + margin, height + margin})) return;
    line = {line.X1 * ratio, line.Y1 * ratio, line.X2 * ratio, line.Y2 * ratio};
    DrawThickLine(Block(), line, std::max(drawWidth, 1) * ratio, Opaque(colour));
}

const CircleStamp& QtPictureSurface::StampFor(double deviceRadius, double deviceWidth) {
    const std::pair key(deviceRadius, deviceWidth);
    if (const auto found = stamps.find(key); found != stamps.end()) return found->second;
    if (stamps.size() >= MostStamps) stamps.clear();
    return stamps.emplace(key, CircleStamp(deviceRadius, deviceWidth)).first->second;
}

void QtPictureSurface::Circle(double x, double y, double radius, Colour colour) {
    const double reach = radius + drawWidth;
    if (!std::isfinite(reach) || radius < 0) return;
    if (!(x > -reach && x < width + reach && y > -reach && y < height + reach)) return;
    if (reach * ratio <= LargestStamp) {
        StampFor(radius * ratio, std::max(drawWidth, 1) * ratio)
            .Draw(Block(), static_cast<int>(std::floor(x * ratio)), static_cast<int>(std::floor(y * ratio)),
                  Opaque(colour));
        return;
    }
    UsePen(colour);
    painter.drawEllipse(QPointF(x, y), radius, radius);
}

void QtPictureSurface::Print(double x, double y, const std::string& text) {
    // Texts far to the left cannot be excluded before their width is known.
    if (!(x > -1e6 && x < width && y > -ChartText::LineHeight && y < height)) return;
    texts.Draw(Block(), static_cast<int>(std::lround(x * ratio)), static_cast<int>(std::lround(y * ratio)),
               text, Opaque(foreColor));
}

bool QtPictureSurface::Recall() {
    if (kept.empty()) return false;
    std::copy(kept.begin(), kept.end(), pixels.begin());
    return true;
}

void QtPictureSurface::Refresh() {
    if (refreshed) refreshed();
}

} // namespace ornivane
