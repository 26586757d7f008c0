#pragma once

#include <condition_variable>
#include <filesystem>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "tiles/ChartTiles.h"

namespace ornivane {

// The charts of all screens: one that several show is in memory once. Outlives their pictures.
class SharedCharts {
public:
    explicit SharedCharts(const std::filesystem::path& cacheFolder);
    // Waits until all passes have ended.
    ~SharedCharts();
    SharedCharts(const SharedCharts&) = delete;
    SharedCharts& operator=(const SharedCharts&) = delete;

    // Where the user's programs keep what can be made again. The folder of the program may be on a stick that
    // cannot be written.
    static std::filesystem::path CacheFolderOfUser();

    ChartTiles& Tiles() { return tiles; }
    // The pass of a chart that nobody else shows ends. Does not wait for it: a pass may be writing to a slow
    // disk.
    void LetGo(std::shared_ptr<TiledChart> chart);
    // The first time that this is wrong with this file.
    bool IsNew(const std::filesystem::path& file, Fault fault) {
        return told.emplace(file.string(), fault).second;
    }

private:
    void EndThem(const std::stop_token& stop);

    ChartTiles tiles;
    std::set<std::pair<std::string, Fault>> told;
    std::mutex guard;
    std::condition_variable_any changed;
    std::vector<std::shared_ptr<TiledChart>> gone;
    std::jthread ending; // last
};

} // namespace ornivane
