#pragma once

#include <QString>
#include <memory>

// The abstract views of the program's frame: the main window, the splash screen and the
// about screen. The Qt screens implement them; tests put fakes in their place.

class IMainWindowView {
public:
    virtual ~IMainWindowView() = default;

    // Closes the frame, which ends the program.
    virtual void unload() = 0;
    // The update entry of the menu: its caption and whether it can be chosen.
    virtual void setUpdateTool(const QString& caption, bool enabled) = 0;
};

// The main window registers itself at its load so that every other screen opens inside it.
void registerMainWindow(IMainWindowView* window);
IMainWindowView* mainWindow();

class ISplashView {
public:
    virtual ~ISplashView() = default;

    virtual void setVersion(const QString& text) = 0;
    // tmrUnload: without it the splash stays until the user closes it.
    virtual void stopUnloadTimer() = 0;
    // Shows the splash and returns when it has closed.
    virtual void showModal() = 0;
};

class IAboutView {
public:
    virtual ~IAboutView() = default;

    virtual void setVersion(const QString& text) = 0;
    // Shows the screen, or brings it to the front, and returns at once.
    virtual void showModeless() = 0;
};

struct ShellViewFactory {
    virtual ~ShellViewFactory() = default;
    virtual std::unique_ptr<ISplashView> createSplash() = 0;
    virtual std::unique_ptr<IAboutView> createAbout() = 0;
};

// "Versie " + major.minor.revision of this build, as the splash and about screens show it.
QString versionText();
