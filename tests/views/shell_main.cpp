#include <gtest/gtest.h>

#include <QApplication>

// The screens are real widgets on the offscreen platform. Weak, like the other mains of
// this shared test program: whichever the linker takes makes the one application object.
__attribute__((weak)) int main(int argc, char** argv) {
    // Also when the test list is read at build time, outside CTest's environment.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
