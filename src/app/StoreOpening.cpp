#include "app/StoreOpening.h"

#include <span>

#include "store/Recordset.h"
#include "store/Statement.h"

namespace ornivane {

namespace {

// The day numbers 1 and 2 of the calendar in which older installations count days: how far the opening of the
// airspace store came, until the store tells its own date.
constexpr Date BeforeOpening{1899, 12, 31};
constexpr Date AfterOpening{1900, 1, 1};

struct NeededTable {
    const char* Name;
    const char* Fields;
};
// What the program reads of the stores that come from elsewhere. In brackets, because a quoted name that is
// no field would be taken for a text.
constexpr NeededTable AirspaceTables[] = {
    {"Luftraum", "[Index], MainIndex, PNumber, AspType, Low, High, LowType, HighType, Drawtype, Lat, Long, "
                 "arcRad, arcLat, arcLong, Arcx1, Arcy1, Arcx2, Arcy2, arcDir"},
    {"RELEASE", "Datum"}};
constexpr NeededTable AirfieldTables[] = {{"ARPT", "ICAO, RWYALen, RWYGLen, WGS_DLAT, WGS_DLONG"},
                                          {"RWY", "ICAO, LENGTH, Surface, rwy, RWYHdg"},
                                          {"ACOM", "ICAO, Name, Freq"},
                                          {"ICAOCODE", "ICAO, Name"}};
constexpr NeededTable DataTables[] = {
    {"Waypoints", "1"}, {"Kategorie", "1"}, {"Route", "1"}, {"GpsPoints", "1"}, {"Maps", "1"}};
constexpr NeededTable TrackTables[] = {{"List", "1"}, {"Track", "1"}};

// An empty file opens as a store without tables. Better to learn that here than in the middle of a flight.
void RequireTables(Connection& connection, std::span<const NeededTable> tables) {
    for (const NeededTable& table : tables)
        Statement(connection, std::string("SELECT ") + table.Fields + " FROM [" + table.Name + "] LIMIT 1")
            .Step();
}

// Why it cannot be used; closed then.
std::optional<RuntimeError> Open(Connection& connection, const std::filesystem::path& file,
                                 Connection::Mode mode, std::span<const NeededTable> tables) {
    auto failure = ErrorOf([&] {
        connection.Open(file, mode);
        RequireTables(connection, tables);
    });
    if (failure) connection.Close();
    return failure;
}

Date ReleaseDate(Connection& connection) {
    Recordset release;
    release.Open(connection, "SELECT Datum FROM RELEASE");
    const std::string text = release.Text("Datum");
    const std::optional<Date> date = ParseDate(std::string_view(text).substr(0, 10));
    if (!date) throw RuntimeError(ErrorNumber::TypeMismatch, "RELEASE.Datum = " + text);
    return *date;
}

} // namespace

StoreOpening::StoreOpening(Variablen& shared, Dialogs& messages) : variablen(shared), dialogs(messages) {}

StoreOpening::Result StoreOpening::Run() {
    // Airfields are an extra that many installations do not have; the flag tells the screens.
    variablen.AirfieldStoreOpen = !Open(variablen.AirfieldConn, variablen.ProgramFolder / "ovdata.ovd",
                                        Connection::Mode::ReadOnly, AirfieldTables);
    Result result;
    result.MustEnd = !OpenData();
    if (result.MustEnd) return result;
    result.TrackFailure = OpenTrack();
    result.AirspaceFailure = OpenAirspace();
    return result;
}

std::string StoreOpening::Reason(const RuntimeError& error) const {
    return error.Number() == ErrorNumber::FileNotFound ? "" : DescribeError(error, variablen);
}

bool StoreOpening::OpenData() {
    const auto failure = Open(variablen.DataConn, variablen.ProgramFolder / "data.ovd",
                              Connection::Mode::ReadWrite, DataTables);
    if (!failure) return true;
    std::string text = variablen.Text("Die Datei - data.ovd - wurde nicht im Programmordner gefunden.",
                                      "File - data.ovd - was not found.");
    if (const std::string reason = Reason(*failure); !reason.empty()) text += "\n" + reason;
    dialogs.MessageAndWait(variablen.Text("Datenfehler", "Data error"), text);
    return false;
}

std::optional<std::string> StoreOpening::OpenTrack() {
    const auto failure = Open(variablen.TrackConn, variablen.ProgramFolder / "track.ovd",
                              Connection::Mode::ReadWrite, TrackTables);
    if (!failure) return std::nullopt;
    variablen.TrackEnabled = false;
    variablen.TrackInterval = 0;
    variablen.TrackAuto = false;
    return Reason(*failure);
}

std::optional<std::string> StoreOpening::OpenAirspace() {
    const auto failure = ErrorOf([this] {
        variablen.LuftraumDate = BeforeOpening;
        variablen.LuftraumConn.Open(variablen.ProgramFolder / "Luftraum.ovd", Connection::Mode::ReadOnly);
        variablen.LuftraumDate = AfterOpening;
        RequireTables(variablen.LuftraumConn, AirspaceTables);
        variablen.LuftraumDate = ReleaseDate(variablen.LuftraumConn);
    });
    if (!failure) return std::nullopt;
    // Closed also when only its date could not be read: an open store means airspace on every screen.
    variablen.LuftraumConn.Close();
    return Reason(*failure);
}

} // namespace ornivane
