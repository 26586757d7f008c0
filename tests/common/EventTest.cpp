#include "common/Event.h"

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "base/RuntimeError.h"

namespace ornivane {
namespace {

TEST(Event, EverybodyWhoIsThereHearsItWhateverBecomesOfTheOthers) {
    Event event;
    event.Raise();
    std::string heard;
    auto first = std::make_unique<Event::Listener>(event, [&] { heard += "first "; });
    std::unique_ptr<Event::Listener> leaving;
    const Event::Listener failing(event, [&] {
        heard += "failing ";
        leaving.reset();
        throw RuntimeError(ErrorNumber::StoreError);
    });
    leaving = std::make_unique<Event::Listener>(event, [&] { heard += "leaving "; });
    const Event::Listener second(event, [&] { heard += "second "; });
    EXPECT_THROW(event.Raise(), RuntimeError);
    EXPECT_EQ(heard, "first failing second ");
    first.reset();
    heard.clear();
    EXPECT_THROW(event.Raise(), RuntimeError);
    EXPECT_EQ(heard, "failing second ");
}

} // namespace
} // namespace ornivane
