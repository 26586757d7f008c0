#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace ornivane {

inline constexpr const char* ProgramName = "Ornivane GPS";

// The screens of the main window, in the order of the toolbar.
enum class Mode { Flight, Planning, Settings, MapData, FlightPlan };
inline constexpr std::array<Mode, 5> AllModes{Mode::Flight, Mode::Planning, Mode::Settings, Mode::MapData,
                                              Mode::FlightPlan};

// One text site: the same text in both languages.
struct Bilingual {
    const char* German;
    const char* English;

    const char* In(bool english) const { return english ? English : German; }
};

// Captions of the toolbar. They are also the keys by which a pressed button is recognised, so their blanks
// count ("  Map  Data  " is as wide as its neighbours).
Bilingual ModeCaption(Mode mode);
Bilingual ModeTooltip(Mode mode);

// The mode whose caption in the given language is exactly this; a caption of the other language is none.
std::optional<Mode> ModeOfCaption(std::string_view caption, bool english);

namespace captions {
inline constexpr Bilingual Update{"Update vorhanden", "Update available"};
inline constexpr Bilingual UpdateTip{"Das Update-Programm starten; Ornivane GPS wird dazu beendet",
                                     "Start the update program; this ends Ornivane GPS"};
inline constexpr Bilingual Export{"Strecke exportieren", "Export Route"};
inline constexpr Bilingual ExportTip{"Eine Strecke als Datei speichern (im Bildschirm Planung)",
                                     "Save a route to a file (on the planning screen)"};
inline constexpr Bilingual Import{"Strecke importieren", "Import Route"};
inline constexpr Bilingual ImportTip{"Eine Strecke aus einer Datei einlesen (im Bildschirm Planung)",
                                     "Read a route from a file (on the planning screen)"};
inline constexpr Bilingual Airspace{"Luftraumanzeige", "Airspace View"};
inline constexpr Bilingual AirspaceTip{
    "Wählen, welche Lufträume die Planungskarte zeigt (im Bildschirm Planung)",
    "Choose which airspaces the planning map shows (on the planning screen)"};
inline constexpr Bilingual About{"Über Ornivane GPS", "About Ornivane GPS"};
inline constexpr Bilingual AboutTip{"Version und Herkunft des Programms",
                                    "Version and origin of the program"};
inline constexpr Bilingual Menu{"Menü", "Menu"};
inline constexpr Bilingual MenuTip{"Strecken austauschen, Luftraumanzeige, Über das Programm (F10)",
                                   "Exchange routes, airspace view, about the program (F10)"};
inline constexpr Bilingual Night{"Nacht", "Night"};
inline constexpr Bilingual NightTip{"Dunkle Farben für die Nacht, die Karte bleibt wie sie ist (F9)",
                                    "Dark colours for the night, the chart stays as it is (F9)"};
inline constexpr Bilingual Close{"Schließen", "Close"};
inline constexpr Bilingual CloseTip{"Dieses Fenster schließen", "Close this window"};
} // namespace captions

// Titles of message boxes.
inline constexpr Bilingual DataErrorTitle{"Datenfehler", "Data error"};

} // namespace ornivane
