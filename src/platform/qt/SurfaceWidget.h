#pragma once

#include <QWidget>

#include "platform/qt/QtPictureSurface.h"

namespace ornivane {

// Shows a surface that fills it. The owner draws on Surface(); Refresh there shows it.
class SurfaceWidget : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int Redraws READ Redraws)

public:
    explicit SurfaceWidget(QWidget* parent = nullptr);

    QtPictureSurface& Surface() { return surface; }
    // How often a picture was painted on the surface.
    int Redraws() const { return surface.Redraws(); }
    void SetBackColor(Colour colour);
    // The surface counts this many units across and down, whatever size the widget has; else pixels.
    void SetScale(double unitsAcross, double unitsDown);

signals:
    // Positions are those of the surface.
    void Pressed(QPointF at, Qt::MouseButton button);
    void Moved(QPointF at, Qt::MouseButtons held);
    void Released(QPointF at, Qt::MouseButton button);
    // After Pressed for the second of two quick clicks.
    void DoubleClicked(QPointF at, Qt::MouseButton button);
    // The surface has a new size or resolution and is empty.
    void Resized();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent*) override { FitSurface(); }
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void FitSurface();
    QPointF OnSurface(QPointF at) const;

    QSizeF scale;          // empty: the widget's own pixels
    double resolution = 0; // device pixels for one of the widget's, when the surface was made
    QtPictureSurface surface;
};

} // namespace ornivane
