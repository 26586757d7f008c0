#include "chart-import/ImportFailure.h"

#include <array>

namespace ornivane {

namespace {

struct FaultText {
    ImportFault Kind;
    Bilingual Text;
};

constexpr std::array<FaultText, 21> FaultTexts{{
    {ImportFault::NotThere,
     {"Die Datei fehlt oder darf nicht gelesen werden.", "The file is missing or may not be read."}},
    {ImportFault::NameNotTaken,
     {"Der Name oder Ordner der Datei enthält das Zeichen <. Bitte umbenennen.",
      "The name or folder of the file holds the character <. Please rename it."}},
    {ImportFault::ProgramsMissing,
     {"Zum Einlesen fehlen die Programme von GDAL. Bitte das Paket gdal-bin installieren.",
      "The programs of GDAL are missing, which read the chart. Please install the package gdal-bin."}},
    {ImportFault::NotAChart,
     {"Die Datei ist keine Karte in einem bekannten Format, oder sie ist beschädigt.",
      "The file is no chart of a known format, or it is damaged."}},
    {ImportFault::NotAPicture,
     {"Die Datei enthält kein farbiges oder graues Bild.", "The file holds no picture of colours or grey."}},
    {ImportFault::NoPlace,
     {"Nichts sagt, wo die Karte auf der Erde liegt. Als Bild in den Kartenordner legen und kalibrieren.",
      "Nothing says where on the earth the chart lies. Put it into the chart folder as an image and "
      "calibrate "
      "it."}},
    {ImportFault::ProjectionNeeded,
     {"Die Datei sagt nicht, in welcher Projektion sie liegt. Bitte angeben, etwa EPSG:4326.",
      "The file does not say in which projection it is. Please give it, such as EPSG:4326."}},
    {ImportFault::WrongProjection,
     {"Das ist keine Projektion. Bitte eine Nummer wie EPSG:32632 angeben.",
      "This is no projection. Please give a number such as EPSG:32632."}},
    {ImportFault::SeveralParts,
     {"Die Datei hat mehrere Karten. Bitte die Nummer der gewünschten angeben.",
      "The file has several charts. Please give the number of the one that is wanted."}},
    {ImportFault::NoSuchPart, {"Einen solchen Teil hat die Datei nicht.", "The file has no such part."}},
    {ImportFault::CannotBePlaced,
     {"Die Karte reicht über das hinaus, was in Länge und Breite zu rechnen ist, oder über 180 Grad. Bitte "
      "zuschneiden.",
      "The chart reaches beyond what can be computed in latitude and longitude, or across 180 degrees. "
      "Please "
      "cut it."}},
    {ImportFault::OutsideCut,
     {"Innerhalb des Zuschnitts liegt nichts von der Karte.", "Nothing of the chart lies within the cut."}},
    {ImportFault::TooFine,
     {"Die Karte hat zu viele Bildpunkte. Bitte gröber einlesen.",
      "The chart has too many pixels. Please import it coarser."}},
    {ImportFault::Damaged,
     {"Die Karte ist beschädigt: Das Bild wurde nicht vollständig.",
      "The chart is damaged: its picture did not become whole."}},
    {ImportFault::BlackAreas,
     {"Teile des Bildes sind ganz schwarz: Die Datei ist beschädigt, oder sie hat einen schwarzen Rand.",
      "Parts of the picture are all black: the file is damaged, or it has a black border."}},
    {ImportFault::TookTooLong,
     {"Das Einlesen dauerte zu lange und wurde beendet.", "Reading took too long and was ended."}},
    {ImportFault::TooMuchMemory,
     {"Das Einlesen brauchte mehr Speicher, als es bekommt.",
      "Reading needed more memory than it may have."}},
    {ImportFault::DiskFull,
     {"Auf dem Datenträger ist zu wenig Platz.", "There is too little free disk space."}},
    {ImportFault::CannotWrite,
     {"In den Kartenordner kann nicht geschrieben werden.", "The chart folder cannot be written to."}},
    {ImportFault::ProgramFailed, {"Das Einlesen ist gescheitert.", "Reading failed."}},
    {ImportFault::Cancelled, {"Abgebrochen.", "Cancelled."}},
}};

} // namespace

std::string ImportFailureText(const Language& language, const ImportFailure& failure) {
    std::string text;
    for (const FaultText& each : FaultTexts)
        if (each.Kind == failure.Kind) text = each.Text.In(language);
    if (!failure.Detail.empty()) text += " (" + failure.Detail + ")";
    return text;
}

} // namespace ornivane
