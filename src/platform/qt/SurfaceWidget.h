#pragma once

#include <QWidget>

#include "platform/qt/QtPictureSurface.h"

namespace ornivane {

// Shows a surface that is as large as itself. The owner draws on Surface(); Refresh there shows it.
class SurfaceWidget : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int Redraws READ Redraws)

public:
    explicit SurfaceWidget(QWidget* parent = nullptr);

    QtPictureSurface& Surface() { return surface; }
    // How often a picture was painted on the surface.
    int Redraws() const { return surface.Redraws(); }
    void SetBackColor(Colour colour);

signals:
    // Positions are surface pixels.
    void Pressed(QPointF at, Qt::MouseButton button);
    void Moved(QPointF at, Qt::MouseButtons held);
    void Released(QPointF at, Qt::MouseButton button);
    // The surface has a new size or resolution and is empty.
    void Resized();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void FitSurface();

    QtPictureSurface surface;
};

} // namespace ornivane
