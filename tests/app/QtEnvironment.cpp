#include <gtest/gtest.h>

#include <memory>

#include "platform/qt/Events.h"
#include "platform/qt/Theme.h"

namespace {

// Forms need an application object; it lives as long as the tests run, without a display.
class QtEnvironment : public testing::Environment {
public:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        application = std::make_unique<ornivane::GuardedApplication>(argumentCount, arguments);
        ornivane::Theme::Apply(*application, false);
    }
    void TearDown() override { application.reset(); }

private:
    int argumentCount = 1;
    char name[9] = "test_app";
    char* arguments[2] = {name, nullptr};
    std::unique_ptr<ornivane::GuardedApplication> application;
};

[[maybe_unused]] const auto* const registered = testing::AddGlobalTestEnvironment(new QtEnvironment);

} // namespace
