#pragma once

#include <QIcon>
#include <QToolButton>

namespace ornivane {

// A button that shows whether its setting is on: lit it is filled, thickly framed and carries a lamp, so that
// it is told apart without colour. At least 44 pixels high.
class LampButton : public QToolButton {
    Q_OBJECT
    Q_PROPERTY(bool Lit READ IsLit)

public:
    explicit LampButton(QWidget* parent = nullptr);

    // An SVG, drawn in the colour of the text.
    void SetIcon(const QString& file);
    void SetLit(bool on);
    // The colour of its lamp.
    void SetLamp(const QColor& colour) { lamp = colour; }
    // Dots under the text, so many of them filled: the stage of a switch that has more than two.
    struct Dots {
        int Filled = 0, All = 0;
    };
    void SetStage(Dots toShow);
    bool IsLit() const { return lit; }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void nextCheckState() override {} // the logic says when it is lit

private:
    QPixmap Tinted(const QColor& colour, int size) const;

    QIcon picture;
    QColor lamp = QColor(0x7CFC00);
    Dots dots;
    bool lit = false;
};

} // namespace ornivane
