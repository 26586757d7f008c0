#include <gtest/gtest.h>

#include "platform/qt/Events.h"
#include "platform/qt/Theme.h"

int main(int count, char** values) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&count, values);
    ornivane::GuardedApplication application(count, values);
    ornivane::Theme::Apply(application, false); // the sizes that pilots see
    return RUN_ALL_TESTS();
}
