#pragma once

#include <QSize>
#include <memory>

#include "platform/PictureSurface.h"
#include "platform/qt/DecodedPictures.h"
#include "platform/qt/PictureLevels.h"

namespace ornivane {

// A chart image. Colour takes four bytes a pixel as decoded, grey and palette images one.
//
// The old picture is let go only when the new one is decoded, because a file can turn out to be damaged at
// its last byte. So while one chart of 12,000 x 9,000 replaces another, both are in memory (2 x 412 MiB); at
// rest there is one, also for several screens with the same chart.
class QtPicture : public Picture {
public:
    // `shared` may be missing; it must outlive the picture.
    explicit QtPicture(DecodedPictures* shared = nullptr) : others(shared) {}

    bool Load(const std::filesystem::path& file) override;
    int ScaleWidth() const override { return stored.width(); }
    int ScaleHeight() const override { return stored.height(); }
    // From now on images are decoded no larger than a preview of that size needs, where the decoder can; a
    // source rectangle still counts in pixels of the stored image.
    void ReduceTo(QSize enough) { preview = enough; }

    // Painting makes reduced levels when it first needs them, which changes nothing that is seen.
    PictureLevels& Levels() const { return *levels; }
    // A rectangle of the stored image in pixels of the first level.
    PixelRect InLevels(const PixelRect& source) const;

private:
    QSize stored{0, 0};
    QSize preview; // empty: full size
    std::shared_ptr<PictureLevels> levels = std::make_shared<PictureLevels>();
    DecodedPictures* others;
};

} // namespace ornivane
