#include "tracks/Gpx.h"

#include <charconv>
#include <cmath>
#include <fstream>
#include <limits>

#include "base/Format.h"
#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "base/TemporaryFile.h"
#include "base/Xml.h"

namespace ornivane {

namespace {

constexpr const char* Head = "<?xml version=\"1.0\"?> \r\n"
                             "<gpx\r\n"
                             " version=\"1.1\"\r\n"
                             " creator=\"Kestwold - http://www.ornivane.example\"\r\n"
                             " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"  "
                             "xmlns:topografix=\"http://www.topografix.com/GPX/Private/TopoGrafix/0/1\"\r\n"
                             " xmlns=\"http://www.topografix.com/GPX/1/1\"\r\n"
                             " xsi:schemaLocation=\"http://www.topografix.com/GPX/1/1 "
                             "http://www.topografix.com/GPX/1/1/gpx.xsd\">\"\r\n";

// The picture "###.####", in a fifth of the time that Format takes: a year of flights has two million of
// them. Values near the middle between two last digits, where it matters how a value is rounded, are left to
// Format.
std::string Degrees(double value) {
    constexpr double places = 1e4, nearMiddle = 1e-5;
    const double scaled = std::abs(value) * places;
    const double rounded = std::floor(scaled + 0.5);
    if (!(scaled < 1e8) || std::abs(scaled - std::floor(scaled) - 0.5) < nearMiddle)
        return Format(value, "###.####", {});
    const int digits = static_cast<int>(rounded), whole = digits / 10000;
    char text[16];
    char* end = text;
    if (value < 0 && digits > 0) *end++ = '-';
    if (whole > 0) end = std::to_chars(end, text + sizeof text, whole).ptr;
    *end++ = '.';
    for (int rest = digits % 10000, place = 1000; rest > 0; rest %= place, place /= 10)
        *end++ = static_cast<char>('0' + rest / place);
    return {text, end};
}

// Without sign; RuntimeError Overflow beyond 32 bits, as no altitude is.
int Metres(double height) {
    const double metres = Round(std::abs(height));
    if (!(metres <= std::numeric_limits<int>::max())) throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<int>(metres);
}

// Dates and times are texts in the store, and other programs may have written there. The usual ones need
// nothing: a year of flights has two million of them.
void WriteText(std::ostream& to, const std::string& text) {
    if (text.find_first_not_of("0123456789-:") == std::string::npos)
        to << text;
    else
        to << EscapedXml(text);
}

void Open(std::ostream& to, const char* tag, const TrackPoint& point) {
    to << "\r\n<" << tag << " lat=\"" << Degrees(point.At.Lat.Degrees()) << "\" lon=\""
       << Degrees(point.At.Long.Degrees()) << "\">\r\n";
    // A sample without altitude has none here either.
    if (point.Height) to << " <ele>" << Metres(*point.Height) << "</ele>\r\n";
}

void WriteWaypoints(std::ostream& to, TrackPoints& points) {
    points.ForEach([&to](const TrackPoint& point) {
        Open(to, "wpt", point);
        to << " <name>" << point.Number << "</name>\r\n</wpt>\r\n";
    });
}

void WriteTrack(std::ostream& to, TrackPoints& points) {
    to << "<trk>\r\n<trkseg>\r\n";
    points.ForEach([&to](const TrackPoint& point) {
        Open(to, "trkpt", point);
        to << " <time>";
        WriteText(to, point.Date);
        to << "T";
        WriteText(to, point.Time);
        to << "Z</time>\r\n</trkpt>\r\n";
    });
    to << "</trkseg></trk>\r\n";
}

} // namespace

void WriteGpx(std::ostream& to, TrackPoints& points, GpxContent content) {
    to << Head;
    if (content != GpxContent::Track) WriteWaypoints(to, points);
    if (content != GpxContent::Waypoints) WriteTrack(to, points);
    to << "</gpx>\r\n";
}

void SaveGpxFile(const std::filesystem::path& file, TrackPoints& points, GpxContent content) {
    TemporaryFile temporary(file);
    std::ofstream to(temporary.Path(), std::ios::binary | std::ios::trunc);
    if (!to) throw RuntimeError(ErrorNumber::PermissionDenied);
    WriteGpx(to, points, content);
    to.close();
    if (!to) throw RuntimeError(ErrorNumber::DiskFull);
    temporary.Keep();
}

} // namespace ornivane
