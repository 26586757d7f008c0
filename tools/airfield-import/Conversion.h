#pragma once

#include <string>
#include <string_view>

namespace ornivane::airfields {

enum class Surface { Paved, Unpaved, Unknown };

// By the first word of the many ways in which surfaces are written: "ASP", "Asphalt/Concrete", "TURF", ...
// What is neither paved nor empty nor unknown counts as unpaved.
Surface SurfaceOf(std::string_view text);

// Whole metres.
int MetresOf(double feet);

// "07/25" from "7" and "25", letters kept; one end alone when the other is empty. What is no runway number
// ("N", "H1") stays as it stands.
std::string DesignatorOf(std::string_view low, std::string_view high);

// As the runway list has it: the number with its letters, and the true heading in degrees.
struct RunwayEnd {
    std::string_view Ident, Heading;
};

// Three digits, 001 to 360, from the headings in degrees (empty, or outside 0 to 360: not known), the lower
// end's first, else from the runway numbers; empty when neither tells.
std::string HeadingOf(const RunwayEnd& low, const RunwayEnd& high);

// "119.025" from MHz, above 0 and below 1000.
std::string FrequencyText(double megahertz);

// As the list of frequencies has it: the kind of station ("TWR") and its description.
struct FrequencyWords {
    std::string_view Type, Description;
};

// The description, with the kind of station behind it when it does not say it: "Köln" and "TWR" give
// "Köln TWR". The program finds stations by the words ATIS, INFO and TWR in their names.
std::string StationName(const FrequencyWords& words);

} // namespace ornivane::airfields
