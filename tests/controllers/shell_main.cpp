#include <gtest/gtest.h>

#include <QCoreApplication>

// The controllers run without a display but need an application object for their events.
// Weak, so that another file of this test program may bring its own.
__attribute__((weak)) int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
