#include "controllers/MainWindowController.h"

#include <QHash>

#include "base/Error.h"
#include "base/UiService.h"
#include "controllers/JetMigrationController.h"
#include "controllers/ShellViews.h"
#include "controllers/ViewFactory.h"
#include "controllers/clsControllerFactuur.h"
#include "platform/modGlobal.h"
#include "records/clsObjInstellingen.h"
#include "store/clsFoutCodeVertaler.h"
#include "store/clsObjAppInstellingen.h"

bool gNoSound = false;

ShellServices ShellServices::program() {
    return {createProgramRegister, [] { return modGlobal::UpdateBeschikbaar(); }};
}

MainWindowController::MainWindowController(IMainWindowView& view, ShellServices services)
    : view_(view), services_(std::move(services)) {}

MainWindowController::~MainWindowController() {
    if (mainWindow() == &view_)
        registerMainWindow(nullptr);
}

bool MainWindowController::startUp() {
    if (!JetMigrationController::bringOverOldDatabase())
        return false;
    registerMainWindow(&view_);

    clsObjAppInstellingen database;
    if (!database.DatabaseNietOpAlleenLezen()) {
        ui::message(QStringLiteral("Databasebestand ontbreekt"), QString(), ui::Icon::Critical);
        return false;
    }
    database.AanpassenDatabase();

    const std::unique_ptr<ISplashView> splash = viewFactory().createSplash();
    splash->setVersion(versionText());
    splash->showModal();

    controller_ = std::make_unique<clsControllerFactuur>(services_.createRegister);
    readSoundSetting();
    labelUpdateTool();
    return true;
}

void MainWindowController::menuClick(const QString& toolName) {
    if (!gNoSound)
        ui::service().playSound(QStringLiteral("Notification.Proximity"));
    if (const Action action = dispatchTable().value(toolName))
        (this->*action)(toolName);
}

void MainWindowController::applySoundSetting(qint16 noSound) {
    gNoSound = noSound == 1;
}

const QHash<QString, MainWindowController::Action>& MainWindowController::dispatchTable() {
    // tEtiket opens the label screen, which this program does not have yet; tImportArtikelen,
    // tImportKlant and tlSchermen are in the menu without an action of their own.
    static const QHash<QString, Action> table{
        {QStringLiteral("tlAfsluiten"), &MainWindowController::quit},
        {QStringLiteral("tlArtikelen"), &MainWindowController::startArtikelen},
        {QStringLiteral("tlKlanten"), &MainWindowController::startKlanten},
        {QStringLiteral("tlFacturerenArtikelen"), &MainWindowController::startFacturen},
        {QStringLiteral("tlInstellingen"), &MainWindowController::startInstellingen},
        {QStringLiteral("tlHelp"), &MainWindowController::startHelp},
        {QStringLiteral("tlWebsite"), &MainWindowController::startWebsite},
        {QStringLiteral("tlExpKlanten"), &MainWindowController::exportRegister},
        {QStringLiteral("tlExpTarieven"), &MainWindowController::exportRegister},
        {QStringLiteral("tlExpArtikelen"), &MainWindowController::exportRegister},
        {QStringLiteral("tlExpArtikelfacturen"), &MainWindowController::exportRegister},
        {QStringLiteral("tlExpUurfacturen"), &MainWindowController::exportRegister},
        {QStringLiteral("tImportOnderM"), &MainWindowController::showImport},
        {QStringLiteral("tBackup"), &MainWindowController::backup},
        {QStringLiteral("tRestore"), &MainWindowController::restore},
        {QStringLiteral("tAbout"), &MainWindowController::showAbout},
        {QStringLiteral("tlOver"), &MainWindowController::showSplashUntilClosed},
        {QStringLiteral("tUpdate"), &MainWindowController::openUpdatePage},
    };
    return table;
}

void MainWindowController::readSoundSetting() {
    qint16 noSound = 0;
    try {
        const QList<clsObjInstellingen> settings = clsObjInstellingen().Lijst(QString());
        // Without a settings row the program keeps its sounds; the settings screen
        // reports the missing row when the user opens it.
        if (!settings.isEmpty())
            noSound = settings.first().NoSound();
    } catch (const Error& error) {
        ui::message(clsFoutCodeVertaler().GebruikerMelding(error),
                    QStringLiteral("KORVANE LINDEBRUG"), ui::Icon::Exclamation);
    }
    applySoundSetting(noSound);
}

void MainWindowController::labelUpdateTool() {
    if (services_.updateAvailable())
        view_.setUpdateTool(QStringLiteral("&Update beschikbaar"), true);
    else
        view_.setUpdateTool(QStringLiteral("Geen updates"), false);
}

void MainWindowController::quit(const QString&) {
    controller_->Afsluiten();
}

void MainWindowController::startArtikelen(const QString&) {
    controller_->StartArtikelen();
}

void MainWindowController::startKlanten(const QString&) {
    controller_->StartKlanten();
}

void MainWindowController::startFacturen(const QString&) {
    controller_->StartFacturen();
}

void MainWindowController::startInstellingen(const QString&) {
    controller_->StartInstellingen();
}

void MainWindowController::startHelp(const QString&) {
    controller_->StartHelp();
}

void MainWindowController::startWebsite(const QString&) {
    controller_->StartWebsite();
}

void MainWindowController::exportRegister(const QString& toolName) {
    exchange_.exportRegister(toolName, QStringLiteral("csv"));
}

void MainWindowController::showImport(const QString&) {
    exchange_.showImport();
}

void MainWindowController::backup(const QString&) {
    exchange_.backup();
}

void MainWindowController::restore(const QString&) {
    exchange_.restore();
}

void MainWindowController::showAbout(const QString&) {
    if (!about_) {
        about_ = viewFactory().createAbout();
        about_->setVersion(versionText());
    }
    about_->showModeless();
}

void MainWindowController::showSplashUntilClosed(const QString&) {
    const std::unique_ptr<ISplashView> splash = viewFactory().createSplash();
    splash->setVersion(versionText());
    splash->stopUnloadTimer();
    splash->showModal();
}

void MainWindowController::openUpdatePage(const QString&) {
    modGlobal::openAddress(modGlobal::updatePageAddress());
}
