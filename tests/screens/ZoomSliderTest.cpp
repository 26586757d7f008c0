#include "platform/qt/ZoomSlider.h"

#include <QStyle>
#include <QStyleOptionSlider>
#include <QTest>

#include <gtest/gtest.h>

namespace ornivane {
namespace {

class SeenSlider : public ZoomSlider {
public:
    double MiddleOfKnob() const {
        QStyleOptionSlider option;
        initStyleOption(&option);
        const QRect knob = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
        return knob.x() + knob.width() / 2.0;
    }
};

TEST(ZoomSlider, PressMoveAndReleaseTakeThePointersPlaceInTheUnitsOfTheKnobsWay) {
    SeenSlider slider;
    slider.setStyleSheet("QSlider::groove:horizontal { height: 10px; background: grey; }"
                         "QSlider::handle:horizontal { width: 34px; margin: -15px 0; background: red; }");
    slider.resize(740, 44);
    slider.show();
    slider.setValue(-100);
    const double left = slider.MiddleOfKnob();
    slider.setValue(100);
    const double way = slider.MiddleOfKnob() - left; // 3500 units
    const auto pixel = [&](double units) { return QPoint(qRound(left + units * way / 3500), 20); };
    struct {
        double Units;
        int Least, Most;
    } const cases[] = {{-60, -100, -100}, {190, -100, -100}, {215, -89, -87}, {875, -51, -49},
                       {1750, -1, 1},     {2625, 49, 51},    {3310, 88, 90},  {3400, 93, 95},
                       {3499, 99, 100},   {3560, 100, 100},  {3850, 100, 100}};
    for (const auto& c : cases) {
        slider.setValue(30);
        QTest::mousePress(&slider, Qt::LeftButton, {}, pixel(c.Units));
        const int pressed = slider.value();
        EXPECT_GE(pressed, c.Least) << c.Units;
        EXPECT_LE(pressed, c.Most) << c.Units;
        if (c.Units > 200 && c.Units < 3500) {
            EXPECT_NEAR(slider.MiddleOfKnob(), pixel(c.Units).x(), way / 200 + 1);
        }
        QTest::mouseMove(&slider, pixel(1000));
        QTest::mouseMove(&slider, pixel(c.Units));
        EXPECT_EQ(slider.value(), pressed) << c.Units << " moved";
        QTest::mouseRelease(&slider, Qt::LeftButton, {}, pixel(1000));
        QTest::mouseRelease(&slider, Qt::LeftButton, {}, pixel(c.Units));
        EXPECT_EQ(slider.value(), pressed) << c.Units << " let go";
    }
    QTest::mouseMove(&slider, pixel(1000)); // without a button
    EXPECT_EQ(slider.value(), 100);
}

} // namespace
} // namespace ornivane
