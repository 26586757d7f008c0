#include "platform/qt/CompassCard.h"

#include <QPainter>

namespace ornivane {

bool CompassCard::Load(const std::filesystem::path& file) {
    auto loaded = std::make_unique<QSvgRenderer>(QString::fromStdString(file.string()));
    if (!loaded->isValid()) return false;
    drawing = std::move(loaded);
    rendered = QImage();
    return true;
}

int CompassCard::ScaleWidth() const { return drawing ? drawing->defaultSize().width() : 0; }
int CompassCard::ScaleHeight() const { return drawing ? drawing->defaultSize().height() : 0; }

const QImage& CompassCard::At(int devicePixels) const {
    if (!drawing || rendered.width() == devicePixels) return rendered;
    rendered = QImage(devicePixels, devicePixels, QImage::Format_ARGB32_Premultiplied);
    rendered.fill(Qt::transparent);
    QPainter painter(&rendered);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing->render(&painter);
    return rendered;
}

} // namespace ornivane
