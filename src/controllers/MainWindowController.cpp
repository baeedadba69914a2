#include "controllers/MainWindowController.h"

#include "base/UiService.h"
#include "controllers/ImportController.h"
#include "controllers/JetMigrationController.h"
#include "controllers/ShellViews.h"
#include "controllers/Trapped.h"
#include "controllers/ViewFactory.h"
#include "controllers/clsContrEtiketten.h"
#include "controllers/clsControllerFactuur.h"
#include "exchange/ExchangeRoutines.h"
#include "platform/modGlobal.h"
#include "records/clsObjInstellingen.h"
#include "store/clsObjAppInstellingen.h"

bool gNoSound = false;

ShellServices ShellServices::program() {
    return {createProgramRegister, [] { return modGlobal::UpdateBeschikbaar(); }};
}

MainWindowController::MainWindowController(IMainWindowView& view, ShellServices services)
    : view_(view), services_(std::move(services)) {
    addActions();
}

MainWindowController::~MainWindowController() {
    if (mainWindow() == &view_) {
        registerMainWindow(nullptr);
    }
}

bool MainWindowController::startUp() {
    if (!JetMigrationController::bringOverOldDatabase()) {
        return false;
    }
    registerMainWindow(&view_);
    exchange::removeLeftovers();

    clsObjAppInstellingen database;
    if (!database.DatabaseNietOpAlleenLezen()) {
        ui::message(QStringLiteral("Databasebestand ontbreekt"), QString(), ui::Icon::Critical);
        return false;
    }
    database.AanpassenDatabase();

    trapped([] {
        const std::unique_ptr<ISplashView> splash = views<ShellViewFactory>().createSplash();
        splash->setVersion(versionText());
        splash->showModal();
    });

    controller_ = std::make_unique<clsControllerFactuur>(services_.createRegister);
    readSoundSetting();
    labelUpdateTool();
    return true;
}

void MainWindowController::menuClick(const QString& toolName) {
    if (!gNoSound) {
        ui::service().playSound(QStringLiteral("Notification.Proximity"));
    }
    const auto action = actions_.constFind(toolName);
    if (action != actions_.cend()) {
        trapped(*action);
    }
}

void MainWindowController::applySoundSetting(qint16 noSound) {
    gNoSound = noSound == 1;
}

void MainWindowController::addActions() {
    const auto exportTo = [](const QString& toolName) {
        return [toolName] {
            exchange::exportRegister(exchange::exportBaseName(toolName), QStringLiteral("csv"));
        };
    };
    // tImportArtikelen, tImportKlant and tlSchermen are in the menu without an action of their own.
    actions_ = {
        {QStringLiteral("tlAfsluiten"), [this] { controller_->Afsluiten(); }},
        {QStringLiteral("tlArtikelen"), [this] { controller_->StartArtikelen(); }},
        {QStringLiteral("tlKlanten"), [this] { controller_->StartKlanten(); }},
        {QStringLiteral("tlFacturerenArtikelen"), [this] { controller_->StartFacturen(); }},
        {QStringLiteral("tlInstellingen"), [this] { controller_->StartInstellingen(); }},
        {QStringLiteral("tlHelp"), [this] { controller_->StartHelp(); }},
        {QStringLiteral("tlWebsite"), [this] { controller_->StartWebsite(); }},
        {QStringLiteral("tImportOnderM"),
         [this] {
             if (!import_) {
                 import_ = std::make_unique<ImportController>();
             }
             import_->show();
         }},
        {QStringLiteral("tEtiket"),
         [this] {
             if (!labels_) {
                 labels_ = std::make_unique<clsContrEtiketten>();
             }
             labels_->show();
         }},
        {QStringLiteral("tBackup"), [] { exchange::backup(); }},
        {QStringLiteral("tRestore"), [] { exchange::restore(); }},
        {QStringLiteral("tAbout"), [this] { showAbout(); }},
        {QStringLiteral("tlOver"), [this] { showSplashUntilClosed(); }},
        {QStringLiteral("tUpdate"), [] { modGlobal::openAddress(modGlobal::updatePageAddress()); }},
    };
    for (const char* tool : {"tlExpKlanten", "tlExpTarieven", "tlExpArtikelen",
                             "tlExpArtikelfacturen", "tlExpUurfacturen"}) {
        actions_.insert(QLatin1String(tool), exportTo(QLatin1String(tool)));
    }
}

void MainWindowController::readSoundSetting() {
    qint16 noSound = 0;
    trapped([&noSound] {
        const QList<clsObjInstellingen> settings = clsObjInstellingen().Lijst(QString());
        // Without a settings row the program keeps its sounds; the settings screen
        // reports the missing row when the user opens it.
        if (!settings.isEmpty()) {
            noSound = settings.first().NoSound();
        }
    });
    applySoundSetting(noSound);
}

void MainWindowController::labelUpdateTool() {
    if (services_.updateAvailable()) {
        view_.setUpdateTool(QStringLiteral("&Update beschikbaar"), true);
    } else {
        view_.setUpdateTool(QStringLiteral("Geen updates"), false);
    }
}

void MainWindowController::showAbout() {
    if (!about_) {
        about_ = views<ShellViewFactory>().createAbout();
        about_->setVersion(versionText());
    }
    about_->showModeless();
}

void MainWindowController::showSplashUntilClosed() {
    const std::unique_ptr<ISplashView> splash = views<ShellViewFactory>().createSplash();
    splash->setVersion(versionText());
    splash->stopUnloadTimer();
    splash->showModal();
}
