#include "data/Tracks.h"

#include <array>

#include "store/Connection.h"
#include "store/KeptRows.h"

namespace ornivane {

namespace {

const char* const OfTrack = "\"Index\" = ?";
const char* const SelectPoints = "SELECT \"Index\", Number, Lat, Long, Height, \"Date\", \"Time\" FROM Track "
                                 "WHERE \"Index\" = ? ORDER BY Number";

double NumberOrZero(const Statement& row, int column) { return row.IsNull(column) ? 0 : row.Number(column); }

TrackPoint PointIn(const Statement& row) {
    TrackPoint point;
    point.Index = row.Integer(0);
    point.Number = row.IsNull(1) ? 0 : row.Integer(1);
    point.At = {Latitude(NumberOrZero(row, 2)), Longitude(NumberOrZero(row, 3))};
    if (!row.IsNull(4)) point.Height = row.Number(4);
    point.Date = row.Text(5);
    point.Time = row.Text(6);
    return point;
}

} // namespace

void Tracks::OpenList(Recordset& list) const {
    list.Open(connection, "SELECT * FROM List ORDER BY \"Index\"");
}

bool Tracks::Exists(std::int64_t index) const {
    return Statement(connection, "SELECT 1 FROM List WHERE \"Index\" = ?", std::array{Value(index)}).Step();
}

std::int64_t Tracks::Add(const std::string& name) const {
    connection.Execute("INSERT INTO List (Name) VALUES (?)", {name});
    return connection.LastRowId();
}

void Tracks::AddPoint(const TrackPoint& point) const {
    connection.Execute("INSERT INTO Track (\"Index\", Number, Lat, Long, Height, \"Date\", \"Time\") "
                       "VALUES (?, ?, ?, ?, ?, ?, ?)",
                       {point.Index, point.Number, point.At.Lat.Degrees(), point.At.Long.Degrees(),
                        point.Height ? Value(*point.Height) : Value(), point.Date, point.Time});
}

int Tracks::PointsOf(std::int64_t index) {
    const StatementRun run(counting, connection, "SELECT count(*) FROM Track WHERE \"Index\" = ?", {index});
    counting.Step();
    return static_cast<int>(counting.Integer(0));
}

void Tracks::ForEachPoint(std::int64_t index, const Visitor& visit) {
    const StatementRun run(all, connection, SelectPoints, {index});
    while (all.Step()) visit(PointIn(all));
}

void Tracks::ForEachPoint(std::int64_t index, const Block& block, const Visitor& visit) {
    const StatementRun run(part, connection, std::string(SelectPoints) + " LIMIT ? OFFSET ?",
                           {index, block.Count, block.First});
    while (part.Step()) visit(PointIn(part));
}

Tracks::Counts& Tracks::Counts::operator+=(const Counts& more) {
    Tracks += more.Tracks;
    Points += more.Points;
    return *this;
}

Tracks::Counts Tracks::Delete(std::int64_t index) const {
    const std::int64_t points = connection.Execute("DELETE FROM Track WHERE \"Index\" = ?", {index});
    return {connection.Execute("DELETE FROM List WHERE \"Index\" = ?", {index}), points};
}

Tracks::Counts Tracks::CopyFrom(Connection& other, std::int64_t index) const {
    return {KeptRows::Copy({other, connection}, "List", OfTrack, {index}),
            KeptRows::Copy({other, connection}, "Track", OfTrack, {index})};
}

} // namespace ornivane
