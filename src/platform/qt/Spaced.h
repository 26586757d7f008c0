#pragma once

#include <QLayout>

namespace ornivane {

// A layout with so many pixels between its widgets, and around them.
template <typename Layout>
Layout* Spaced(Layout* layout, int spacingPixels, const QMargins& marginPixels = {}) {
    layout->setSpacing(spacingPixels);
    layout->setContentsMargins(marginPixels);
    return layout;
}

} // namespace ornivane
