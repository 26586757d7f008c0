#include "tracks/TrackPoints.h"

#include <algorithm>

#include "base/RuntimeError.h"

namespace ornivane {

namespace {

constexpr int BlockSize = 256;

double NumberOrZero(const Statement& row, int column) { return row.IsNull(column) ? 0 : row.Number(column); }

TrackPoint PointIn(const Statement& row) {
    TrackPoint point;
    point.Index = row.Integer(0);
    point.Number = row.IsNull(1) ? 0 : row.Integer(1);
    point.Lat = NumberOrZero(row, 2);
    point.Long = NumberOrZero(row, 3);
    if (!row.IsNull(4)) point.Height = row.Number(4);
    point.Date = row.Text(5);
    point.Time = row.Text(6);
    return point;
}

} // namespace

void TrackPoints::Open(Connection& connection, std::vector<std::int64_t> indexes) {
    Close();
    std::sort(indexes.begin(), indexes.end());
    indexes.erase(std::unique(indexes.begin(), indexes.end()), indexes.end());
    Statement counting(connection, "SELECT count(*) FROM Track WHERE \"Index\" = ?");
    for (const std::int64_t index : indexes) {
        const StatementRun run(counting);
        counting.Bind(1, index);
        counting.Step();
        const int points = static_cast<int>(counting.Integer(0));
        if (points > 0) tracks.push_back({index, count, points});
        count += points;
    }
    const std::string select = "SELECT \"Index\", Number, Lat, Long, Height, \"Date\", \"Time\" FROM Track "
                               "WHERE \"Index\" = ? ORDER BY Number";
    block = Statement(connection, select + " LIMIT ? OFFSET ?");
    all = Statement(connection, select);
}

void TrackPoints::Close() {
    tracks.clear();
    read.clear();
    block = Statement();
    all = Statement();
    count = 0;
}

const TrackPoint& TrackPoints::At(int row) {
    if (row < 0 || row >= count) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    const auto isRead = [&] { return row >= firstRead && row - firstRead < static_cast<int>(read.size()); };
    if (!isRead()) ReadBlock(row);
    // Another program may have deleted them meanwhile.
    if (!isRead()) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return read[static_cast<std::size_t>(row - firstRead)];
}

void TrackPoints::ReadBlock(int row) {
    const auto track = std::find_if(tracks.begin(), tracks.end(),
                                    [row](const Track& each) { return row < each.First + each.Count; });
    const int offset = (row - track->First) / BlockSize * BlockSize;
    read.clear();
    firstRead = track->First + offset;
    const StatementRun run(block);
    block.Bind(1, track->Index);
    block.Bind(2, BlockSize);
    block.Bind(3, offset);
    while (block.Step()) read.push_back(PointIn(block));
}

void TrackPoints::ForEach(const std::function<void(const TrackPoint&)>& visit) {
    for (const Track& track : tracks) {
        const StatementRun run(all);
        all.Bind(1, track.Index);
        while (all.Step()) visit(PointIn(all));
    }
}

} // namespace ornivane
