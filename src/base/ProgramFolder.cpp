#include "base/ProgramFolder.h"

#include <QCoreApplication>
#include <QDir>

namespace {

QString& testFolder() {
    static QString folder;
    return folder;
}

}  // namespace

namespace ProgramFolder {

QString path() {
    if (!testFolder().isEmpty()) {
        return testFolder();
    }
    return QCoreApplication::applicationDirPath();
}

void setForTests(const QString& folder) {
    testFolder() = folder;
}

}  // namespace ProgramFolder
