// The calculation of TwoPoints: from two points to the frame.

#include <cmath>

#include "base/Numbers.h"
#include "calibration/TwoPoints.h"

namespace ornivane {

namespace {

constexpr double LeastPixels = 20; // closer points say nothing of a scale

double Distance(const std::string& a, const std::string& b) { return std::abs(NumberIn(a) - NumberIn(b)); }

} // namespace

// Converts in place. After a refusal of the latitudes the longitudes of the first point are converted again:
// whoever enters the second point anew gets a scale that is off, and sees it in the text beside the message.
bool TwoPoints::ConvertLongitudes() {
    auto& [first, second] = Points;
    for (CalibrationPoint& point : Points)
        point.Long = NumberAsText(ToDecimalDegrees(StoredLongitude(NumberIn(point.Long))).Degrees());
    if (Distance(first.tx, second.tx) < LeastPixels) return false;
    const double x1 = NumberIn(first.tx);
    const double degX = CheckedDivide(NumberIn(second.Long) - NumberIn(first.Long), NumberIn(second.tx) - x1);
    const double west = NumberIn(first.Long) - x1 * degX;
    Links = ToDegMinValue(Longitude(west));
    Rechts = ToDegMinValue(Longitude(west + MapWidth * degX));
    return true;
}

bool TwoPoints::ConvertLatitudes() {
    auto& [first, second] = Points;
    for (CalibrationPoint& point : Points)
        point.Lat = NumberAsText(ToDecimalDegrees(StoredLatitude(NumberIn(point.Lat))).Degrees());
    if (Distance(first.ty, second.ty) < LeastPixels) return false;
    const double y1 = NumberIn(first.ty);
    // Downwards in the image is southwards: normally negative.
    const double degY = CheckedDivide(NumberIn(second.Lat) - NumberIn(first.Lat), NumberIn(second.ty) - y1);
    const double north = NumberIn(first.Lat) - y1 * degY;
    Oben = ToDegMinValue(Latitude(north));
    Unten = ToDegMinValue(Latitude(north + MapHeight * degY));
    return true;
}

bool TwoPoints::ApplyCalibration() {
    if (!ConvertLongitudes()) {
        SayTooClose();
        return false;
    }
    if (!ConvertLatitudes()) {
        SayTooClose();
        CalibrationPoint& second = Points[1];
        second.Colour = PointColour::ToEnter;
        second.FieldsEnabled = true;
        second.cmdSaveEnabled = true;
        second.tQuickfindEnabled = true;
        second.gridWayEnabled = true;
        return false;
    }
    FrameEdges edges = {Unten.Value(), Oben.Value(), Links.Value(), Rechts.Value()};
    for (double& edge : edges) edge = Round(edge, 3);
    catalogue.TakeFrame(ChartPlacement().WithEdges(edges).WithSize(
        {static_cast<double>(MapWidth), static_cast<double>(MapHeight)}));
    SayCalibrated();
    StoreResult();
    return true;
}

void TwoPoints::SayTooClose() {
    dialogs.MessageAndWait(
        language.Text("Datenfehler", "Points too close"),
        language.Text("Bitte andere Koordinatenpunkte aussuchen...", "Please choose other coordinates..."));
}

void TwoPoints::SayCalibrated() {
    const bool farApart = MapWidth / 2.0 <= Distance(Points[0].tx, Points[1].tx) &&
                          MapHeight / 2.0 <= Distance(Points[0].ty, Points[1].ty);
    const char* text =
        farApart
            ? language.Text("Karte wurde kalibriert.", "Map calibrated")
            : language.Text("Karte wurde kalibriert. Für ein besseres Ergebnis zwei Punkte auswählen, die "
                            "weiter auseinander liegen...",
                            "Map calibrated. For a better result please use two points which are further "
                            "apart...");
    dialogs.MessageWithDetails(language.Text("Karte kalibriert", "Map calibrated"), text,
                               catalogue.ScaleText());
}

// The tick is taken and set again: Active ends as it was, and the row is written once more. Not after a
// refusal: the tick would bring back the old frame over the one that was found, and ask nothing of the size.
void TwoPoints::StoreResult() {
    if (!catalogue.cmdSpeichern_Click()) return;
    const int item = catalogue.ListIndex;
    if (item < 0 || !catalogue.listKarten[static_cast<std::size_t>(item)].Selected) return;
    catalogue.listKarten_ItemCheck(item);
    catalogue.listKarten_ItemCheck(item);
}

} // namespace ornivane
