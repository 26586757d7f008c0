#include "airfield-import/StoreWriter.h"

#include "airfield-import/Collector.h"
#include "base/AtomicFile.h"
#include "base/RuntimeError.h"
#include "store/Connection.h"
#include "store/Schema.h"
#include "store/Statement.h"

namespace ornivane::airfields {

namespace {

namespace fs = std::filesystem;

// Gone with this object, whatever became of it.
class TemporaryName {
public:
    explicit TemporaryName(const fs::path& target) : Name(target.string() + ".import") { Remove(); }
    ~TemporaryName() { Remove(); }
    TemporaryName(const TemporaryName&) = delete;
    TemporaryName& operator=(const TemporaryName&) = delete;
    const fs::path Name;

private:
    void Remove() const {
        std::error_code ignored;
        fs::remove(Name, ignored);
        fs::remove(Name.string() + "-journal", ignored);
    }
};

void Insert(Statement& statement, std::initializer_list<Value> values) {
    const StatementRun run(statement);
    int parameter = 0;
    for (const Value& value : values) statement.Bind(++parameter, value);
    statement.Step();
}

class Rows {
public:
    explicit Rows(Connection& store)
        : airport(store, "INSERT INTO ARPT (ICAO, RWYALen, RWYGLen, WGS_DLAT, WGS_DLONG) VALUES (?,?,?,?,?)"),
          runway(store, "INSERT INTO RWY (ICAO, LENGTH, Surface, rwy, RWYHdg) VALUES (?,?,?,?,?)"),
          radio(store, "INSERT INTO ACOM (ICAO, Name, Freq) VALUES (?,?,?)"),
          prefix(store, "INSERT INTO ICAOCODE (ICAO, Name) VALUES (?,?)") {}

    void Add(const Airfield& field) {
        Insert(airport, {field.Code, LongestRunway(field, true), LongestRunway(field, false), field.Latitude,
                         field.Longitude});
        for (const Runway& each : field.Runways)
            Insert(runway, {field.Code, each.Length, each.Paved ? "0" : "1", each.Designator, each.Heading});
        for (const Station& each : field.Stations) Insert(radio, {field.Code, each.Name, each.Frequency});
        ++written.Airfields;
        written.Runways += field.Runways.size();
        written.Stations += field.Stations.size();
    }

    void AddPrefix(const std::string& code, const std::string& name) {
        Insert(prefix, {code, name});
        ++written.Prefixes;
    }

    const Written& Count() const { return written; }

private:
    Statement airport, runway, radio, prefix;
    Written written;
};

void RefuseExisting(const fs::path& file) {
    std::error_code error;
    if (fs::exists(file, error)) throw RuntimeError(ErrorNumber::PermissionDenied, file.string() + " exists");
}

} // namespace

Written WriteStore(const fs::path& file, const std::vector<Airfield>& fields,
                   const std::vector<std::pair<std::string, std::string>>& prefixes, bool replace) {
    if (!replace) RefuseExisting(file);
    const TemporaryName temporary(file);
    CreateStore(temporary.Name, StoreKind::Airfields);
    Connection store;
    store.Open(temporary.Name, Connection::Mode::ReadWrite);
    Written written;
    {
        Transaction transaction(store);
        Rows rows(store);
        for (const Airfield& field : fields) rows.Add(field);
        for (const auto& [code, name] : prefixes) rows.AddPrefix(code, name);
        written = rows.Count();
        transaction.Commit();
    }
    store.Close();
    ReplaceFile(temporary.Name, file);
    return written;
}

} // namespace ornivane::airfields
