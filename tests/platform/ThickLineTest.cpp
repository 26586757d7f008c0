#include "platform/qt/ThickLine.h"

#include <cmath>
#include <random>
#include <vector>

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

namespace ornivane {
namespace {

constexpr int Size = 80, Guard = 200;
constexpr std::uint32_t White = 0xFFFFFFFF, Ink = 0xFF204080;

// A block with memory around it that no line may touch.
struct GuardedBlock {
    std::vector<std::uint32_t> Pixels = std::vector<std::uint32_t>(Size * Size + 2 * Guard, White);
    PixelBlock Block() { return {Pixels.data() + Guard, Size, Size, Size}; }
    bool GuardsStand() const {
        for (int i = 0; i < Guard; ++i)
            if (Pixels[static_cast<std::size_t>(i)] != White || Pixels[Pixels.size() - 1 - i] != White)
                return false;
        return true;
    }
};

double DistanceToSegment(double x, double y, double x1, double y1, double x2, double y2) {
    const double dx = x2 - x1, dy = y2 - y1, square = dx * dx + dy * dy;
    const double t = square > 0 ? std::clamp(((x - x1) * dx + (y - y1) * dy) / square, 0.0, 1.0) : 0;
    return std::hypot(x - x1 - t * dx, y - y1 - t * dy);
}

TEST(ThickLine, CoversWhatIsWithinHalfItsWidthAndNothingElse) {
    std::mt19937 random(5);
    const auto between = [&](double least, double most) {
        return std::uniform_real_distribution(least, most)(random);
    };
    for (int round = 0; round < 3000; ++round) {
        GuardedBlock block;
        const double width = round % 5 == 0 ? 1 : between(1, 14);
        double x1 = between(-30, 110), y1 = between(-30, 110), x2 = between(-30, 110), y2 = between(-30, 110);
        if (round % 7 == 0) y2 = y1; // level
        if (round % 11 == 0) x2 = x1;
        if (round % 13 == 0) x2 = x1, y2 = y1; // a dot
        DrawThickLine(block.Block(), {x1, y1, x2, y2}, width, Ink);
        ASSERT_TRUE(block.GuardsStand());
        for (int y = 0; y < Size; ++y)
            for (int x = 0; x < Size; ++x) {
                const double distance = DistanceToSegment(x + 0.5, y + 0.5, x1, y1, x2, y2);
                const std::uint32_t pixel = block.Block().Row(y)[x];
                if (distance > width / 2 + 0.51) {
                    ASSERT_EQ(pixel, White) << round << ' ' << x << ' ' << y;
                } else if (distance < width / 2 - 0.51) {
                    ASSERT_EQ(pixel, Ink) << round << ' ' << x << ' ' << y;
                }
            }
    }
}

TEST(ThickLine, LooksLikeThePaintersLine) {
    for (const double width : {1.0, 2.0, 4.0, 7.0, 12.0})
        for (int angle = 0; angle < 360; angle += 7) {
            GuardedBlock block;
            const double x2 = 40 + 30 * std::cos(angle * 0.0174533),
                         y2 = 40 + 30 * std::sin(angle * 0.0174533);
            DrawThickLine(block.Block(), {40, 40, x2, y2}, width, Ink);
            QImage image(Size, Size, QImage::Format_RGB32);
            image.fill(Qt::white);
            QPainter painter(&image);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(QPen(QColor::fromRgb(Ink), width, Qt::SolidLine, Qt::RoundCap));
            painter.drawLine(QPointF(40, 40), QPointF(x2, y2));
            double difference = 0;
            for (int y = 0; y < Size; ++y)
                for (int x = 0; x < Size; ++x) {
                    const int one = qRed(image.pixel(x, y)), other = qRed(block.Block().Row(y)[x]);
                    ASSERT_LE(std::abs(one - other), width < 2 ? 160 : 80)
                        << width << ' ' << angle << ' ' << x << ' ' << y;
                    difference += std::abs(one - other);
                }
            EXPECT_LT(difference / (Size * Size), 0.8) << width << ' ' << angle;
        }
}

} // namespace
} // namespace ornivane
