#include <gtest/gtest.h>

#include <QCoreApplication>

// The update check needs an event loop to wait in; the help launcher needs none, but shares
// the binary.
int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
