#include "airspace-import/StoreWriter.h"

#include "airspace-import/Outline.h"
#include "base/RuntimeError.h"
#include "import-store/StoreFile.h"
#include "store/Connection.h"
#include "store/Schema.h"
#include "store/Statement.h"

namespace ornivane {

namespace fs = std::filesystem;

namespace {

const char* LowTypeOf(const Limit& limit) {
    if (limit.Of == Limit::Reference::FlightLevel) return "FL";
    // The leading blank is part of the mark.
    return limit.Of == Limit::Reference::Ground && limit.Feet == 0 ? " GND" : "";
}

const char* HighTypeOf(const Limit& limit) { return limit.Of == Limit::Reference::FlightLevel ? "FL" : ""; }

const char* DrawtypeOf(const OutlineRow& row) {
    switch (row.As) {
    case OutlineRow::Draw::Circle:
        return "DC";
    case OutlineRow::Draw::Arc:
        return "DB";
    case OutlineRow::Draw::Point:
        break;
    }
    return "DP";
}

class Rows {
public:
    explicit Rows(Connection& store) : connection(store) {}

    void Add(const Airspace& airspace) {
        ++index;
        int number = 0;
        for (const OutlineRow& row : airspace.Outline) Add(airspace, row, ++number);
    }

private:
    void Add(const Airspace& airspace, const OutlineRow& row, int number) {
        // What a row does not have is 0 and empty: whoever reads a field as a number finds one.
        const bool arc = row.As == OutlineRow::Draw::Arc;
        const auto ofArc = [arc](auto coordinate) { return arc ? StoredNumber(coordinate) : 0.0; };
        const StatementRun run(
            insert, connection,
            "INSERT INTO Luftraum (\"Index\", MainIndex, PNumber, AspType, Low, High, LowType, HighType, "
            "Drawtype, Lat, Long, arcRad, arcLat, arcLong, Arcx1, Arcy1, Arcx2, Arcy2, arcDir) "
            "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
            {index, index, number, airspace.AspType, airspace.Low.Feet, airspace.High.Feet,
             LowTypeOf(airspace.Low), HighTypeOf(airspace.High), DrawtypeOf(row), StoredNumber(row.Place.Lat),
             StoredNumber(row.Place.Long), row.Radius, ofArc(row.Centre.Lat), ofArc(row.Centre.Long),
             ofArc(row.Start.Lat), ofArc(row.Start.Long), ofArc(row.End.Lat), ofArc(row.End.Long),
             !arc            ? ""
             : row.Clockwise ? "+"
                             : "-"});
        insert.Step();
    }

    Connection& connection;
    Statement insert;
    int index = 0;
};

const StoreContent AirspaceStore{"airspace", {"Luftraum", "RELEASE"}};

} // namespace

void CheckReplacing(const fs::path& store, bool replace) { CheckReplacing(store, AirspaceStore, replace); }

void WriteAirspaceStore(const fs::path& store, const std::vector<Airspace>& airspaces, const Date& release,
                        bool replace) {
    if (airspaces.size() > MostAirspaces) throw RuntimeError(ErrorNumber::Overflow);
    CheckReplacing(store, replace);
    ReplaceStore(store, StoreKind::Luftraum, [&](Connection& connection) {
        Rows rows(connection);
        for (const Airspace& airspace : airspaces) rows.Add(airspace);
        connection.Execute("INSERT INTO RELEASE (Datum) VALUES (?)", {DateText(release)});
    });
}

} // namespace ornivane
