#pragma once

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "tiles/TiledChart.h"

namespace ornivane {

// The thread that decodes what the views lack.
class TileWorker {
public:
    struct Order {
        std::shared_ptr<TiledChart> Chart;
        std::shared_ptr<ViewSignal> Signal;
        std::vector<TileKey> Seen, Ahead; // in this order; of the first it tells
    };

    TileWorker();
    ~TileWorker();
    TileWorker(const TileWorker&) = delete;
    TileWorker& operator=(const TileWorker&) = delete;

    // Takes the place of what was ordered with the same signal.
    void Place(Order order);
    void Withdraw(const std::shared_ptr<ViewSignal>& signal);

private:
    struct Step {
        std::shared_ptr<TiledChart> Chart;
        std::shared_ptr<ViewSignal> Signal;
        TileKey Key;
        bool Seen = false, LastSeen = false;
    };

    void Run(const std::stop_token& stop);
    Step Next(Order& order);

    std::mutex guard;
    std::condition_variable_any changed;
    std::deque<Order> orders;
    std::jthread thread; // last
};

} // namespace ornivane
