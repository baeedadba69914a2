#pragma once

#include <QHash>
#include <QString>
#include <functional>
#include <memory>

#include "controllers/RegisterController.h"

class IMainWindowView;
class IAboutView;
class clsControllerFactuur;
class ImportController;
class clsContrEtiketten;

// True when menu clicks are to be silent; set from the settings at start-up.
extern bool gNoSound;

// What the frame gets from outside: the registers' list controllers and the update check.
struct ShellServices {
    RegisterCreator createRegister;
    std::function<bool()> updateAvailable;

    // The program's own: its registers and the check on the vendor's web site.
    static ShellServices program();
};

// The logic of the main window: its start-up and the dispatch of its menu. The window
// forwards its load and every menu click here.
class MainWindowController {
public:
    explicit MainWindowController(IMainWindowView& view,
                                  ShellServices services = ShellServices::program());
    ~MainWindowController();

    // The main window's load. False when the database file is missing: the message has
    // been shown and the program must end.
    bool startUp();

    // A click on the menu tool of that name.
    void menuClick(const QString& toolName);

    // Present once start-up has created it.
    clsControllerFactuur* applicationController() const { return controller_.get(); }

    // gNoSound from the settings' NoSound: silent only for exactly 1, so a yes/no True
    // (-1) keeps the sound.
    static void applySoundSetting(qint16 noSound);

private:
    void addActions();
    void readSoundSetting();
    void labelUpdateTool();
    void showAbout();
    void showSplashUntilClosed();

    IMainWindowView& view_;
    ShellServices services_;
    // What each menu tool does; a tool without an entry does nothing.
    QHash<QString, std::function<void()>> actions_;
    std::unique_ptr<clsControllerFactuur> controller_;
    std::unique_ptr<ImportController> import_;
    std::unique_ptr<clsContrEtiketten> labels_;
    std::unique_ptr<IAboutView> about_;
};
