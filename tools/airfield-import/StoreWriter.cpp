#include "airfield-import/StoreWriter.h"

#include "airfield-import/Collector.h"
#include "import-store/StoreFile.h"
#include "store/Connection.h"
#include "store/Schema.h"
#include "store/Statement.h"

namespace ornivane::airfields {

namespace {

namespace fs = std::filesystem;

class Rows {
public:
    explicit Rows(Connection& to) : store(to) {}

    void Add(const Airfield& field) {
        Insert(airport, "INSERT INTO ARPT (ICAO, RWYALen, RWYGLen, WGS_DLAT, WGS_DLONG) VALUES (?,?,?,?,?)",
               {field.Code, LongestRunway(field, true), LongestRunway(field, false), field.Latitude,
                field.Longitude});
        for (const Runway& each : field.Runways)
            Insert(runway, "INSERT INTO RWY (ICAO, LENGTH, Surface, rwy, RWYHdg) VALUES (?,?,?,?,?)",
                   {field.Code, each.Length, each.Paved ? "0" : "1", each.Designator, each.Heading});
        for (const Station& each : field.Stations)
            Insert(radio, "INSERT INTO ACOM (ICAO, Name, Freq) VALUES (?,?,?)",
                   {field.Code, each.Name, each.Frequency});
        ++written.Airfields;
        written.Runways += field.Runways.size();
        written.Stations += field.Stations.size();
    }

    void AddPrefix(const std::string& code, const std::string& name) {
        Insert(prefix, "INSERT INTO ICAOCODE (ICAO, Name) VALUES (?,?)", {code, name});
        ++written.Prefixes;
    }

    const Written& Count() const { return written; }

private:
    void Insert(Statement& statement, const char* sql, std::initializer_list<Value> values) {
        const StatementRun run(statement, store, sql, values);
        statement.Step();
    }

    Connection& store;
    Statement airport, runway, radio, prefix;
    Written written;
};

const StoreContent AirfieldStore{"airfield", {"ARPT", "RWY", "ACOM", "ICAOCODE"}};

} // namespace

void CheckReplacing(const fs::path& file, bool replace) { CheckReplacing(file, AirfieldStore, replace); }

Written WriteStore(const fs::path& file, const std::vector<Airfield>& fields,
                   const std::vector<std::pair<std::string, std::string>>& prefixes, bool replace) {
    CheckReplacing(file, replace);
    Written written;
    ReplaceStore(file, StoreKind::Airfields, [&](Connection& store) {
        Rows rows(store);
        for (const Airfield& field : fields) rows.Add(field);
        for (const auto& [code, name] : prefixes) rows.AddPrefix(code, name);
        written = rows.Count();
    });
    return written;
}

} // namespace ornivane::airfields
