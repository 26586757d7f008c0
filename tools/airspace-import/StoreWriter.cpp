#include "airspace-import/StoreWriter.h"

#include "airspace-import/Outline.h"
#include "base/AtomicFile.h"
#include "base/RuntimeError.h"
#include "store/Connection.h"
#include "store/Schema.h"
#include "store/Statement.h"

namespace ornivane {

namespace fs = std::filesystem;

namespace {

// A file that is gone with this object, unless it got another name before.
class ScratchFile {
public:
    explicit ScratchFile(fs::path of) : path(std::move(of)) { Remove(); }
    ~ScratchFile() { Remove(); }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    const fs::path& Path() const { return path; }

private:
    void Remove() const {
        std::error_code ignored;
        fs::remove(path, ignored);
        fs::remove(path.string() + "-journal", ignored);
    }

    fs::path path;
};

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

void BindRow(Statement& insert, const Airspace& airspace, const OutlineRow& row) {
    insert.Bind(4, airspace.AspType);
    insert.Bind(5, airspace.Low.Feet);
    insert.Bind(6, airspace.High.Feet);
    insert.Bind(7, LowTypeOf(airspace.Low));
    insert.Bind(8, HighTypeOf(airspace.High));
    insert.Bind(9, DrawtypeOf(row));
    insert.Bind(10, StoredNumber(row.Place.Lat));
    insert.Bind(11, StoredNumber(row.Place.Long));
    insert.Bind(12, row.Radius);
    // What a row does not have is 0 and empty: whoever reads a field as a number finds one.
    const bool arc = row.As == OutlineRow::Draw::Arc;
    int field = 13;
    for (const Position& position : {row.Centre, row.Start, row.End}) {
        insert.Bind(field++, arc ? StoredNumber(position.Lat) : 0.0);
        insert.Bind(field++, arc ? StoredNumber(position.Long) : 0.0);
    }
    insert.Bind(19, !arc ? "" : row.Clockwise ? "+" : "-");
}

void Fill(Connection& connection, const std::vector<Airspace>& airspaces, const Date& release) {
    Statement insert(connection,
                     "INSERT INTO Luftraum (\"Index\", MainIndex, PNumber, AspType, Low, High, LowType, "
                     "HighType, Drawtype, Lat, Long, arcRad, arcLat, arcLong, Arcx1, Arcy1, Arcx2, Arcy2, "
                     "arcDir) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    int index = 0;
    for (const Airspace& airspace : airspaces) {
        insert.Bind(1, ++index);
        insert.Bind(2, index);
        int number = 0;
        for (const OutlineRow& row : airspace.Outline) {
            insert.Bind(3, ++number);
            BindRow(insert, airspace, row);
            StatementRun run(insert);
            insert.Step();
        }
    }
    connection.Execute("INSERT INTO RELEASE (Datum) VALUES (?)", {DateText(release)});
}

[[noreturn]] void Refuse(const fs::path& store, const char* reason) {
    throw RuntimeError(ErrorNumber::PermissionDenied, store.string() + " " + reason);
}

bool IsAirspaceStore(const fs::path& file) {
    return !ErrorOf([&file] {
        Connection connection;
        connection.Open(file, Connection::Mode::ReadOnly);
        for (const char* table : {"Luftraum", "RELEASE"})
            Statement(connection, "SELECT 1 FROM \"" + std::string(table) + "\" LIMIT 1").Step();
    });
}

} // namespace

void CheckReplacing(const fs::path& store, bool replace) {
    std::error_code error;
    // A journal beside the store would be played back into the new one.
    if (fs::exists(store.string() + "-journal", error)) Refuse(store, "is being changed by another program");
    if (!fs::exists(store, error)) return;
    if (!replace) Refuse(store, "exists; --replace replaces it");
    if (!IsAirspaceStore(store)) Refuse(store, "is no airspace store and is not replaced");
}

void WriteAirspaceStore(const fs::path& store, const std::vector<Airspace>& airspaces, const Date& release,
                        bool replace) {
    if (airspaces.size() > MostAirspaces) throw RuntimeError(ErrorNumber::Overflow);
    CheckReplacing(store, replace);
    const ScratchFile scratch(store.string() + ".import");
    CreateStore(scratch.Path(), StoreKind::Luftraum);
    Connection connection;
    connection.Open(scratch.Path(), Connection::Mode::ReadWrite);
    Transaction transaction(connection);
    Fill(connection, airspaces, release);
    transaction.Commit();
    connection.Close();
    ReplaceFile(scratch.Path(), store);
}

} // namespace ornivane
