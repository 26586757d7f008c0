#include "app/Captions.h"

namespace ornivane {

namespace {

struct ModeTexts {
    Bilingual Caption;
    Bilingual Tooltip;
};

constexpr std::array<ModeTexts, AllModes.size()> Texts{{
    {{"Flug", "Flight"},
     {"Flugbildschirm mit bewegter Karte (F1)", "Flying screen with the moving map (F1)"}},
    {{"Planung", "Plan Mode"}, {"Wegpunkte und Strecken planen (F2)", "Plan waypoints and routes (F2)"}},
    {{"Einstellungen", "Settings"},
     {"GPS-Anschluss, Sprache und Aufzeichnung einstellen (F3)", "Set GPS port, language and logging (F3)"}},
    {{"Kartendaten", "  Map  Data  "},
     {"Karten anmelden und kalibrieren (F4)", "Register and calibrate charts (F4)"}},
    {{"Flugplan", "Flightplan"},
     {"Flugplan rechnen und drucken (F5)", "Compute and print the flight plan (F5)"}},
}};

const ModeTexts& TextsOf(Mode mode) { return Texts[static_cast<std::size_t>(mode)]; }

} // namespace

Bilingual ModeCaption(Mode mode) { return TextsOf(mode).Caption; }

Bilingual ModeTooltip(Mode mode) { return TextsOf(mode).Tooltip; }

} // namespace ornivane
