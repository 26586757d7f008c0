#include "tiles/Failure.h"

namespace ornivane {

namespace {

const char* PlainText(const Language& language, Fault fault) {
    switch (fault) {
    case Fault::NotThere:
        return language.Text("Die Bilddatei fehlt oder darf nicht gelesen werden.",
                             "The image file is missing or may not be read.");
    case Fault::CannotRead:
        return language.Text("Die Bilddatei kann nicht gelesen werden. Ist der Datenträger noch da?",
                             "The image file cannot be read. Is its medium still there?");
    case Fault::NotAPicture:
        return language.Text("Die Datei ist kein Bild im Format BMP oder JPEG.",
                             "The file is no image of the formats BMP or JPEG.");
    case Fault::Damaged:
        return language.Text("Das Bild ist beschädigt.", "The image is damaged.");
    case Fault::TooLarge:
        return language.Text("Das Bild ist zu breit oder zu hoch.", "The image is too wide or too high.");
    case Fault::Coefficients:
        return language.Text(
            "Ein progressives JPEG dieser Größe braucht zu viel Speicher. Bitte als gewöhnliches "
            "JPEG (baseline) speichern.",
            "A progressive JPEG of this size needs too much memory. Please save it as an "
            "ordinary (baseline) JPEG.");
    case Fault::Changed:
        return language.Text("Die Bilddatei wurde beim Lesen verändert.",
                             "The image file was changed while it was read.");
    case Fault::DiskFull:
        return language.Text("Kein Platz für den Zwischenspeicher der Karte: Sie wird gröber gezeigt.",
                             "No space for the cache of the chart: it is shown coarser.");
    case Fault::CannotWrite:
        return language.Text(
            "Der Zwischenspeicher der Karte kann nicht angelegt werden: Sie wird gröber gezeigt.",
            "The cache of the chart cannot be made: it is shown coarser.");
    case Fault::Cancelled:
        break;
    }
    return language.Text("Abgebrochen.", "Cancelled.");
}

} // namespace

std::string FailureText(const Language& language, const Failure& failure) {
    std::string text = PlainText(language, failure.Kind);
    if (!failure.Detail.empty()) text += " (" + failure.Detail + ")";
    return text;
}

} // namespace ornivane
