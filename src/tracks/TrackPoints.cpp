#include "tracks/TrackPoints.h"

#include <algorithm>

#include "base/RuntimeError.h"

namespace ornivane {

constexpr int BlockSize = 256;

void TrackPoints::Open(Tracks& of, std::vector<std::int64_t> indexes) {
    Close();
    store = &of;
    std::sort(indexes.begin(), indexes.end());
    indexes.erase(std::unique(indexes.begin(), indexes.end()), indexes.end());
    for (const std::int64_t index : indexes) {
        const int points = store->PointsOf(index);
        if (points > 0) tracks.push_back({index, count, points});
        count += points;
    }
}

void TrackPoints::Close() {
    tracks.clear();
    read.clear();
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
    store->ForEachPoint(track->Index, {offset, BlockSize},
                        [this](const TrackPoint& point) { read.push_back(point); });
}

void TrackPoints::ForEach(const std::function<void(const TrackPoint&)>& visit) {
    for (const Track& track : tracks) store->ForEachPoint(track.Index, visit);
}

} // namespace ornivane
