#include "tiles/TileWorker.h"

#include <algorithm>
#include <chrono>

namespace ornivane {

namespace {

constexpr auto TellEvery = std::chrono::milliseconds(30);

} // namespace

TileWorker::TileWorker() {
    thread = std::jthread([this](const std::stop_token& stop) { Run(stop); });
}

TileWorker::~TileWorker() {
    thread.request_stop();
    thread.join();
}

void TileWorker::Place(Order order) {
    std::reverse(order.Seen.begin(), order.Seen.end()); // taken from the back
    std::reverse(order.Ahead.begin(), order.Ahead.end());
    Withdraw(order.Signal);
    if (order.Seen.empty() && order.Ahead.empty()) return;
    const std::lock_guard lock(guard);
    orders.push_back(std::move(order));
    changed.notify_one();
}

void TileWorker::Withdraw(const std::shared_ptr<ViewSignal>& signal) {
    std::deque<Order> gone; // charts may end with it, and must not while others wait for the guard
    const std::lock_guard lock(guard);
    for (auto at = orders.begin(); at != orders.end();) {
        if (at->Signal != signal) {
            ++at;
            continue;
        }
        gone.push_back(std::move(*at));
        at = orders.erase(at);
    }
}

TileWorker::Step TileWorker::Next(Order& order) {
    Step step{order.Chart, order.Signal, {}, !order.Seen.empty(), order.Seen.size() == 1};
    auto& from = step.Seen ? order.Seen : order.Ahead;
    step.Key = from.back();
    from.pop_back();
    return step;
}

void TileWorker::Run(const std::stop_token& stop) {
    TileUnpacker unpacker;
    auto told = std::chrono::steady_clock::now();
    while (true) {
        Step step;
        {
            std::unique_lock lock(guard);
            if (!changed.wait(lock, stop, [this] { return !orders.empty(); })) return;
            auto at = std::find_if(orders.begin(), orders.end(),
                                   [](const Order& order) { return !order.Seen.empty(); });
            if (at == orders.end()) at = orders.begin();
            step = Next(*at);
            if (at->Seen.empty() && at->Ahead.empty()) orders.erase(at);
        }
        const bool loaded = step.Chart->Find(step.Key) || step.Chart->Load(step.Key, unpacker);
        const auto now = std::chrono::steady_clock::now();
        if (!step.Seen || !(step.LastSeen || (loaded && now - told > TellEvery))) continue;
        told = now;
        step.Signal->Send();
    }
}

} // namespace ornivane
