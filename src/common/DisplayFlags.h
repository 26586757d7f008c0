#pragma once

#include <array>
#include <filesystem>

namespace ornivane {

// What the flying screen shows.
struct DisplayFlags {
    bool ShowAirspace = false;
    bool ShowAirspaceText = false;
    bool ShowPatterns = false;
    bool ShowRoute = false;
    bool ShowNames = false;
    bool ShowAirfields = false;
    bool ShowAirfieldText = false;
    bool operator==(const DisplayFlags&) const = default;
};

// A flag, and the lamp of the panel frmSet that switches it; without a name there is none, and a button of
// several stages switches it together with others.
struct DisplayFlag {
    bool DisplayFlags::*Flag;
    const char* Name = nullptr; // of the control
    const char* Icon = nullptr;
    const char *German = nullptr, *English = nullptr;
    const char *GermanTip = nullptr, *EnglishTip = nullptr;
    bool OfAirspace = false; // stands beside the airspace, and shows only with its store
};

// All of them in the order of Set.crm, to which a new one is appended.
inline constexpr auto DisplayFlagTable = std::to_array<DisplayFlag>(
    {{&DisplayFlags::ShowAirspace},
     {&DisplayFlags::ShowAirspaceText},
     {&DisplayFlags::ShowPatterns, "cmdPR", "pattern", "Platzrunden", "Patterns",
      "Platzrunden der Flugplätze zeigen", "Show the traffic patterns of airfields", true},
     {&DisplayFlags::ShowRoute, "cmdshowRoute", "route", "Strecke", "Route", "Strecke auf der Karte zeigen",
      "Show the route on the chart"},
     {&DisplayFlags::ShowNames, "cmdWayInfo", "names", "Namen", "Names", "Namen der Wegpunkte zeigen",
      "Show the names of waypoints"},
     {&DisplayFlags::ShowAirfields},
     {&DisplayFlags::ShowAirfieldText}});

// Set.crm, as the other settings files are read and written.
bool ReadDisplayFlags(const std::filesystem::path& folder, DisplayFlags& flags);
void WriteDisplayFlags(const std::filesystem::path& folder, const DisplayFlags& flags);

} // namespace ornivane
