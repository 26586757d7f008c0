#pragma once

#include <QImage>
#include <QSvgRenderer>
#include <memory>

#include "platform/PictureSurface.h"

namespace ornivane {

// A round picture that is turned when it is painted: drawn from an SVG at the resolution of the surface, so
// that it stays sharp at every scale.
class CompassCard : public Picture {
public:
    // An SVG file or resource.
    bool Load(const std::filesystem::path& file) override;
    int ScaleWidth() const override;
    int ScaleHeight() const override;

    // The card at a width in device pixels; kept until another one is asked for.
    const QImage& At(int devicePixels) const;

private:
    std::unique_ptr<QSvgRenderer> drawing;
    mutable QImage rendered;
};

} // namespace ornivane
