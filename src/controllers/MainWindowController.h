#pragma once

#include <QString>
#include <functional>
#include <memory>

#include "controllers/DataExchangeController.h"
#include "controllers/RegisterController.h"

class IMainWindowView;
class IAboutView;
class clsControllerFactuur;

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
    using Action = void (MainWindowController::*)(const QString& toolName);

    static const QHash<QString, Action>& dispatchTable();
    void readSoundSetting();
    void labelUpdateTool();

    void quit(const QString&);
    void startArtikelen(const QString&);
    void startKlanten(const QString&);
    void startFacturen(const QString&);
    void startInstellingen(const QString&);
    void startHelp(const QString&);
    void startWebsite(const QString&);
    void exportRegister(const QString& toolName);
    void showImport(const QString&);
    void backup(const QString&);
    void restore(const QString&);
    void showAbout(const QString&);
    void showSplashUntilClosed(const QString&);
    void openUpdatePage(const QString&);

    IMainWindowView& view_;
    ShellServices services_;
    std::unique_ptr<clsControllerFactuur> controller_;
    DataExchangeController exchange_;
    std::unique_ptr<IAboutView> about_;
};
