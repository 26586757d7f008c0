#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "chart-import/ImportFailure.h"

namespace ornivane {

// What a virtual copy (VRT) of a source says of it, and what has to become of its channels so that they are
// red, green and blue, with or without alpha.
struct SourcePicture {
    enum class Channels { AsTheyAre, Palette, PaletteWithAlpha, Grey, GreyWithAlpha };

    int Width = 0, Height = 0; // pixels
    bool HasProjection = false;
    bool HasPlace = false; // a linear map to the projection, or points known in it
    bool HasNoData = false;
    Channels Kind = Channels::AsTheyAre;
    std::vector<int> Bands; // from 1: those that are red, green, blue and alpha
    int Bits = 8;           // of a channel

    // The arguments of gdal_translate that make the channels so: three of them and, for alpha, a mask,
    // because what is warped with a channel of alpha gets one as well, and no BMP has it. A palette with
    // transparent colours becomes red, green, blue and alpha by it, which is a picture of another kind:
    // Expanded.
    std::vector<std::string> Translation() const;
    SourcePicture Expanded() const;
};

// Reads the text of a VRT. In a palette that has a colour for no data, that colour becomes transparent, which
// changes the text. NotAChart, NotAPicture.
Imported<SourcePicture> ReadSourcePicture(std::string& vrt);

} // namespace ornivane
