#pragma once

#include <functional>
#include <set>
#include <string>

#include "base/Language.h"
#include "base/RuntimeError.h"

namespace ornivane {

// Tells what ended a redraw, or a layer of it, before its end: what is missing, where and why. Each of these
// texts once until the screen is left, because redraws come with every movement of a drag.
class DrawingFaults {
public:
    // Whole: of the flying screen, where an error ends all that would follow, the aircraft included. Chart:
    // of a screen without one.
    enum class Layer { Whole, Chart, Airspace, Route, Waypoints };

    DrawingFaults(const Language& uiLanguage, std::function<void(const std::string&)> show);

    std::string TextOf(Layer layer, const RuntimeError& error) const;
    void Tell(Layer layer, const RuntimeError& error) { Tell(TextOf(layer, error)); }
    void Tell(const std::string& text); // nothing for an empty one
    // The screen is left: whoever comes back to it is told again.
    void Forget() { told.clear(); }

private:
    const Language& language;
    std::function<void(const std::string&)> show;
    std::set<std::string> told;
};

} // namespace ornivane
