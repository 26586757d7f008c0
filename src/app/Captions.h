#pragma once

#include <array>

#include "base/Language.h"

namespace ornivane {

inline constexpr const char* ProgramName = "Ornivane GPS";

// The screens of the main window, in the order of the toolbar.
enum class Mode { Flight, Planning, Settings, MapData, FlightPlan };
inline constexpr std::array<Mode, 5> AllModes{Mode::Flight, Mode::Planning, Mode::Settings, Mode::MapData,
                                              Mode::FlightPlan};

// Captions of the toolbar. Their blanks count: "  Map  Data  " is as wide as its neighbours.
Bilingual ModeCaption(Mode mode);
Bilingual ModeTooltip(Mode mode);

// Texts that several windows show.
namespace captions {
inline constexpr Bilingual Update{"Update vorhanden", "Update available"};
inline constexpr Bilingual About{"Über Ornivane GPS", "About Ornivane GPS"};
inline constexpr Bilingual Close{"Schließen", "Close"};
inline constexpr Bilingual CloseTip{"Dieses Fenster schließen", "Close this window"};
} // namespace captions

} // namespace ornivane
