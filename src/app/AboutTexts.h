#pragma once

#include <array>

#include "app/Captions.h"

namespace ornivane {

// One page of the About box, in simple HTML.
struct AboutPage {
    const char* Name;
    Bilingual Title;
    Bilingual Html;
};

// Links, change log, credits.
const std::array<AboutPage, 3>& AboutPages();

} // namespace ornivane
