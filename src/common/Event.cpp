#include "common/Event.h"

#include <algorithm>
#include <exception>

namespace ornivane {

Event::Listener::Listener(Event& of, std::function<void()> does) : event(of), action(std::move(does)) {
    event.listeners.push_back(this);
}

Event::Listener::~Listener() { std::erase(event.listeners, this); }

void Event::Raise() const {
    std::exception_ptr first;
    const auto all = listeners; // while one is told, it or another may leave
    for (const Listener* listener : all) {
        if (std::find(listeners.begin(), listeners.end(), listener) == listeners.end()) continue;
        try {
            listener->action();
        } catch (...) {
            if (!first) first = std::current_exception();
        }
    }
    if (first) std::rethrow_exception(first);
}

} // namespace ornivane
