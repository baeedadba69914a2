#include "controllers/ShellViews.h"

#include "platform/modGlobal.h"

namespace {

IMainWindowView* registeredMainWindow = nullptr;

}  // namespace

void registerMainWindow(IMainWindowView* window) {
    registeredMainWindow = window;
}

IMainWindowView* mainWindow() {
    return registeredMainWindow;
}

QString versionText() {
    return QStringLiteral("Versie ") + modGlobal::ownVersion();
}
