#pragma once

#include <QPushButton>

namespace ornivane {

// A button whose caption may be a name that a user chose: it wraps, and becomes smaller where that is not
// enough. It asks for no width of its own, so a long name moves nothing.
class FittedButton : public QPushButton {
    Q_OBJECT

public:
    using QPushButton::QPushButton;

    QSize sizeHint() const override { return {10, QPushButton::sizeHint().height()}; }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace ornivane
