#pragma once

#include <functional>
#include <vector>

namespace ornivane {

// What one screen tells all others, without knowing them.
class Event {
public:
    // Its action runs at each event from its making to its end. The event must outlast it.
    class Listener {
    public:
        Listener(Event& of, std::function<void()> does);
        ~Listener();
        Listener(const Listener&) = delete;
        Listener& operator=(const Listener&) = delete;

    private:
        friend class Event;
        Event& event;
        std::function<void()> action;
    };

    Event() = default;
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    // Tells everybody in the order in which they came. An error of one keeps nobody else from hearing it;
    // the first error passes on afterwards.
    void Raise() const;

private:
    std::vector<Listener*> listeners;
};

} // namespace ornivane
