#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <utility>

namespace ornivane {

// The way from the threads of the tiles to who shows them: outlives the one who listens, and calls nobody
// after Close has returned.
class ViewSignal {
public:
    explicit ViewSignal(std::function<void()> callback) : call(std::move(callback)) {}

    // In the caller's thread.
    void Send() {
        {
            const std::lock_guard lock(guard);
            ++sent;
            if (call) call();
        }
        changed.notify_all();
    }
    void Close() {
        const std::lock_guard lock(guard);
        call = nullptr;
    }
    int Sent() const {
        const std::lock_guard lock(guard);
        return sent;
    }
    // Until something was sent that was not counted in `before`.
    void Wait(int before, std::chrono::steady_clock::time_point until) {
        std::unique_lock lock(guard);
        changed.wait_until(lock, until, [&] { return sent != before; });
    }

private:
    mutable std::mutex guard;
    std::condition_variable changed;
    std::function<void()> call;
    int sent = 0;
};

} // namespace ornivane
