#include "platform/qt/SurfaceWidget.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

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

void SurfaceWidget::SetScale(double unitsAcross, double unitsDown) {
    scale = {unitsAcross, unitsDown};
    FitSurface();
}

void SurfaceWidget::FitSurface() {
    resolution = devicePixelRatioF();
    const QSizeF units = scale.isEmpty() ? QSizeF(size()) : scale;
    // Not below 1, which painters do not know: a smaller widget shows the finished picture reduced.
    const double ratio = scale.isEmpty() ? resolution : std::max(1.0, resolution * width() / scale.width());
    if (surface.ScaleWidth() == units.width() && surface.ScaleHeight() == units.height() &&
        surface.DevicePixelRatio() == ratio)
        return;
    surface.Resize(units.width(), units.height(), ratio);
    emit Resized();
}

QPointF SurfaceWidget::OnSurface(QPointF at) const {
    if (scale.isEmpty()) return at;
    return {at.x() * scale.width() / width(), at.y() * scale.height() / height()};
}

void SurfaceWidget::paintEvent(QPaintEvent* event) {
    // The window may have moved to a screen of another resolution. Redrawing is the owner's work and must not
    // happen inside of painting.
    if (resolution != devicePixelRatioF())
        QMetaObject::invokeMethod(this, &SurfaceWidget::FitSurface, Qt::QueuedConnection);
    QPainter painter(this);
    painter.setClipRegion(event->region());
    painter.setRenderHint(QPainter::SmoothPixmapTransform, !scale.isEmpty());
    painter.drawImage(QRectF(rect()), surface.Image());
}

void SurfaceWidget::mousePressEvent(QMouseEvent* event) {
    emit Pressed(OnSurface(event->position()), event->button());
}

void SurfaceWidget::mouseMoveEvent(QMouseEvent* event) {
    emit Moved(OnSurface(event->position()), event->buttons());
}

void SurfaceWidget::mouseReleaseEvent(QMouseEvent* event) {
    emit Released(OnSurface(event->position()), event->button());
}

void SurfaceWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
    emit DoubleClicked(OnSurface(event->position()), event->button());
}

} // namespace ornivane
