#include <gtest/gtest.h>

#include <QSettings>
#include <QTemporaryDir>

#ifdef LINDEBRUG_TEST_GUI
#include <QApplication>
using TestApplication = QApplication;
#else
#include <QCoreApplication>
using TestApplication = QCoreApplication;
#endif

// One main for every test program: an application object for the events, timers and
// widgets under test, living exactly as long as the tests.
int main(int argc, char** argv) {
#ifdef LINDEBRUG_TEST_GUI
    // Also when the test list is read at build time, outside CTest's environment.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
#endif
    TestApplication application(argc, argv);
    // Remembered window places and other user settings stay out of the user's own.
    const QTemporaryDir settingsFolder;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settingsFolder.path());
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
