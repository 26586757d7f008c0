#pragma once

#include <QLabel>

namespace ornivane {

// A line of text at a size in pixels that becomes smaller when the text would not fit. A value that is cut
// reads as another value.
class FittedText : public QLabel {
    Q_OBJECT

public:
    explicit FittedText(int pixelSize, QWidget* parent = nullptr);

    void SetLargest(int pixelSize);
    QSize sizeHint() const override { return {10, QFontMetrics(FontOf(largest)).height()}; }
    QSize minimumSizeHint() const override { return {10, sizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QFont FontOf(int pixels) const;

    int largest;
};

} // namespace ornivane
