#include "calibration/TwoPoints.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "data/Waypoints.h"

namespace ornivane {

namespace {

constexpr int ArrowInterval = 100;     // milliseconds
constexpr double ArrowStep = 1.0 / 20; // of the whole image, whatever the zoom
constexpr double LeastPixels = 20;     // closer points say nothing of a scale
constexpr Colour Black = 0x000000, Blue = 0x0000FF;

// What single precision holds, seven digits: pointers were always kept so.
double Single(double value) {
    char digits[32];
    std::snprintf(digits, sizeof digits, "%.7g", static_cast<double>(static_cast<float>(value)));
    return ParsePlainNumber(digits).value_or(0);
}

std::size_t Place(ArrowKey key) { return static_cast<std::size_t>(key); }

double Distance(const std::string& a, const std::string& b) { return std::abs(NumberIn(a) - NumberIn(b)); }

} // namespace

TwoPoints::TwoPoints(const World& world)
    : language(world.Texts), dataConn(world.DataConn), catalogue(world.Catalogue), storage(world.picStorage),
      surface(world.picMap), timer(world.timArr), dialogs(world.Messages) {
    Points[0].cmdSaveEnabled = true; // disabled is how a point says that it is done
}

void TwoPoints::Form_Load() {
    const std::string name = catalogue.SelectedName();
    const auto file = catalogue.ChartsFolder() / name;
    if (!storage.Load(file)) throw RuntimeError(ErrorNumber::DivisionByZero, name);
    ImageSize size;
    if (ReadImageSize(file, size) == SizeReading::Damaged) dialogs.Message({}, "Fehler im Bild");
    MapWidth = size.Width;
    MapHeight = size.Height;
    SayTopDown();
    ReadSizes();
    View = OpenedView(Sizes);
    CrossX = surface.ScaleWidth() / 2;
    CrossY = surface.ScaleHeight() / 2;
    ShowPixel();
}

// Now, and not when all coordinates have been entered: saving will refuse the height.
void TwoPoints::SayTopDown() {
    if (MapHeight >= 0) return;
    dialogs.Message(
        language.Text("Datenfehler", "Data error"),
        language.Text("%1 ist von oben nach unten gespeichert (Höhe %2). Die Kalibrierung kann nicht "
                      "gespeichert werden: Bitte das Bild in der üblichen Reihenfolge neu speichern.",
                      "%1 is stored from the top down (height %2). Its calibration cannot be stored: save "
                      "the image again in the usual order.",
                      {catalogue.SelectedName(), std::to_string(MapHeight)}));
}

void TwoPoints::ReadSizes() {
    Sizes.StoreWidth = static_cast<float>(storage.ScaleWidth());
    Sizes.StoreHeight = static_cast<float>(storage.ScaleHeight());
    Sizes.ViewWidth = surface.ScaleWidth();
    Sizes.ViewHeight = surface.ScaleHeight();
    Sizes.HalfWidth = static_cast<double>(Sizes.StoreWidth / 2);
    Sizes.AspectFactor = AspectFactorOf(Sizes, MapWidth, MapHeight);
}

void TwoPoints::Form_Resize() {
    ReadSizes();
    View = Resized(View, Sizes);
    CrossX = std::min(CrossX, surface.ScaleWidth() - 1);
    CrossY = std::min(CrossY, surface.ScaleHeight() - 1);
    Draw_Picture();
    ShowPixel();
}

void TwoPoints::Draw_Picture() {
    const double width = surface.ScaleWidth(), height = surface.ScaleHeight();
    surface.PaintPicture(storage, {0, 0, width, height}, {View.SX, View.SY, View.SW, View.SH});
    surface.SetDrawWidth(2);
    surface.Line(CrossX, 0, CrossX, CrossY, Black);
    surface.Line(CrossX, height, CrossX, CrossY, Black);
    surface.Line(0, CrossY, CrossX, CrossY, Black);
    surface.Line(width, CrossY, CrossX, CrossY, Black);
    if (ClickX != 0 || ClickY != 0) {
        const double x = (ClickX - View.SX) * CheckedDivide(width, View.SW);
        const double y = (ClickY - View.SY) * CheckedDivide(height, View.SH);
        surface.SetDrawWidth(5);
        surface.Circle(x, y, 5, Blue);
        surface.Circle(x, y, 8, Black);
    }
    surface.Refresh();
}

std::string TwoPoints::NumberAsText(double value) const { return NumberText(value, language.Locale); }

// The only place where a pointer becomes pixels of the image. Also after the picture moved under a resting
// pointer, so that what stands in the fields is always what lies under the cross-hair.
void TwoPoints::ShowPixel() {
    tx = NumberAsText(Single(CheckedDivide(CrossX, CheckedDivide(surface.ScaleWidth(), View.SW)) + View.SX));
    ty = NumberAsText(Single(CheckedDivide(CrossY, CheckedDivide(surface.ScaleHeight(), View.SH)) + View.SY));
}

void TwoPoints::MouseMove(const Point& at, bool leftHeld) {
    if (leftHeld) {
        View = Dragged(View, Sizes, {at.X - drag.X, at.Y - drag.Y});
        MouseDown(at);
    }
    CrossX = at.X;
    CrossY = at.Y;
    Draw_Picture();
    ShowPixel();
}

void TwoPoints::MoveCross(double dx, double dy) {
    MouseMove({std::min(std::max(CrossX + dx, 0.0), surface.ScaleWidth() - 1),
               std::min(std::max(CrossY + dy, 0.0), surface.ScaleHeight() - 1)},
              false);
}

void TwoPoints::picMap_Click() {
    ClickX = NumberIn(tx);
    ClickY = NumberIn(ty);
    Draw_Picture();
    if (!Points[0].cmdSaveEnabled) {
        Points[0].frmVisible = false;
        OpenPoint(1);
    }
    if (!Points[1].frmVisible) OpenPoint(0);
}

void TwoPoints::OpenPoint(std::size_t index) {
    CalibrationPoint& point = Points[index];
    point.frmVisible = true;
    point.cmdSaveEnabled = true;
    point.tLat.clear();
    point.tLong.clear();
    point.Colour = PointColour::ToEnter;
    point.tx = tx;
    point.ty = ty;
}

TypedInto TwoPoints::KeyTyped(const std::string& character) {
    const bool first = Points[0].frmVisible && Points[0].cmdSaveEnabled;
    if (character.size() == 1 && character[0] >= '0' && character[0] <= '9') {
        if (!first && !(Points[1].frmVisible && Points[1].FieldsEnabled)) return TypedInto::Nothing;
        Points[first ? 0 : 1].tLat = character;
        // The second field's caret goes where the first one's text ends; that has always been so.
        tLat2Caret = Points[0].tLat.size();
        return first ? TypedInto::Lat1 : TypedInto::Lat2;
    }
    if (!first && !(Points[1].frmVisible && Points[1].cmdSaveEnabled && Points[1].FieldsEnabled))
        return TypedInto::Nothing;
    Points[first ? 0 : 1].tQuickfind = character;
    FindWaypoint(first ? 0 : 1);
    return first ? TypedInto::Quickfind1 : TypedInto::Quickfind2;
}

void TwoPoints::SlideMap_Scroll(int value) {
    SlideMap = value;
    View = Zoomed(View, Sizes, value);
    Draw_Picture();
    ShowPixel();
}

void TwoPoints::SlideMap_Click(int value) {
    SlideMap = value;
    ViewSizes sizes = Sizes;
    // At the end of the slider the height is not the view's proportion but the image's own.
    if (value == SlideMax)
        sizes.HeightFactor = CheckedDivide(CheckedDivide(MapHeight, MapWidth),
                                           CheckedDivide(Sizes.ViewHeight, Sizes.ViewWidth));
    View = Zoomed(View, sizes, value);
    Draw_Picture();
    ShowPixel();
}

void TwoPoints::ArrowDown(ArrowKey key) {
    held[Place(key)] = true;
    timer.SetInterval(ArrowInterval);
}

// Stops also while another arrow is still held.
void TwoPoints::ArrowUp(ArrowKey key) {
    held[Place(key)] = false;
    timer.SetInterval(0);
}

void TwoPoints::ArrowsGone() {
    held.fill(false);
    timer.SetInterval(0);
}

void TwoPoints::timArr_Timer() {
    const double down = static_cast<double>(Sizes.StoreHeight) * ArrowStep;
    const double across = static_cast<double>(Sizes.StoreWidth) * ArrowStep;
    if (held[Place(ArrowKey::Up)]) Pan(0, down);
    if (held[Place(ArrowKey::Down)]) Pan(0, -down);
    if (held[Place(ArrowKey::Left)]) Pan(across, 0);
    if (held[Place(ArrowKey::Right)]) Pan(-across, 0);
}

void TwoPoints::Pan(double dx, double dy) {
    const SourceRect before = View;
    View = Dragged(View, Sizes, {dx, dy});
    if (dx == 0) View.SX = before.SX; // only the way that it moves is kept within the image
    if (dy == 0) View.SY = before.SY;
    Draw_Picture();
    ShowPixel();
}

void TwoPoints::FindWaypoint(std::size_t index) {
    CalibrationPoint& point = Points[index];
    Waypoints(dataConn).OpenBeginningWith(point.WaypointFindSet, point.tQuickfind);
    if (point.WaypointFindSet.RecordCount() == 0) {
        point.tLat.clear();
        point.tLong.clear();
    }
    gridWay_RowChanged(index);
}

void TwoPoints::gridWay_RowChanged(std::size_t index) {
    CalibrationPoint& point = Points[index];
    if (!point.WaypointFindSet.IsOpen() || point.WaypointFindSet.Eof()) return;
    point.tLat = NumberAsText(point.WaypointFindSet.Number("Lat"));
    point.tLong = NumberAsText(point.WaypointFindSet.Number("Long"));
}

bool TwoPoints::cmdSave_Click(std::size_t index) {
    CalibrationPoint& point = Points[index];
    if (point.Colour != PointColour::ToEnter) return false;
    if (!ParseNumber(point.tLat) || !ParseNumber(point.tLong)) return false;
    point.Lat = point.tLat;
    point.Long = point.tLong;
    point.Colour = PointColour::Accepted;
    point.FieldsEnabled = false;
    const bool row = point.WaypointFindSet.IsOpen() && !point.WaypointFindSet.Eof();
    point.tQuickfind = row ? point.WaypointFindSet.Text("Name") : std::string();
    point.cmdSaveEnabled = false;
    return index == 1 && ApplyCalibration();
}

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
