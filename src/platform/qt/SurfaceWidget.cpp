#include "platform/qt/SurfaceWidget.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

namespace ornivane {

SurfaceWidget::SurfaceWidget(QWidget* parent) : QWidget(parent), surface(1, 1) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    surface.OnRefresh([this] { update(); });
}

void SurfaceWidget::SetBackColor(Colour colour) {
    surface.SetBackColor(colour);
    surface.Cls();
    update();
}

void SurfaceWidget::FitSurface() {
    if (surface.ScaleWidth() == width() && surface.ScaleHeight() == height() &&
        surface.DevicePixelRatio() == devicePixelRatioF())
        return;
    surface.Resize(width(), height(), devicePixelRatioF());
    emit Resized();
}

void SurfaceWidget::resizeEvent(QResizeEvent*) { FitSurface(); }

void SurfaceWidget::paintEvent(QPaintEvent* event) {
    // The window may have moved to a screen of another resolution. Redrawing is the owner's work and must not
    // happen inside of painting.
    if (surface.DevicePixelRatio() != devicePixelRatioF())
        QMetaObject::invokeMethod(this, &SurfaceWidget::FitSurface, Qt::QueuedConnection);
    QPainter painter(this);
    painter.setClipRegion(event->region());
    painter.drawImage(QRectF(rect()), surface.Image());
}

void SurfaceWidget::mousePressEvent(QMouseEvent* event) { emit Pressed(event->position(), event->button()); }

void SurfaceWidget::mouseMoveEvent(QMouseEvent* event) { emit Moved(event->position(), event->buttons()); }

void SurfaceWidget::mouseReleaseEvent(QMouseEvent* event) {
    emit Released(event->position(), event->button());
}

} // namespace ornivane
