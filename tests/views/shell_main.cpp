#include <gtest/gtest.h>

#include <QApplication>

// The screens are real widgets on the offscreen platform. This main takes over from the weak
// one of the grid's tests: its application object ends with main(), before the exit
// handlers tear down Qt's input devices, which a static application would outlive.
int main(int argc, char** argv) {
    // Also when the test list is read at build time, outside CTest's environment.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
