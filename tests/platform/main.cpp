#include <QApplication>

#include <gtest/gtest.h>

int main(int count, char** values) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&count, values);
    QApplication application(count, values);
    return RUN_ALL_TESTS();
}
