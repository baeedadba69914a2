#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QPointer>

#include "Programs.h"
#include "RecordingUiService.h"
#include "TestDatabase.h"
#include "controllers/ImportViews.h"
#include "controllers/LabelViews.h"
#include "controllers/MainWindowController.h"
#include "controllers/ShellViews.h"
#include "controllers/ViewFactory.h"
#include "controllers/clsControllerFactuur.h"
#include "platform/clsHelp.h"
#include "platform/modGlobal.h"

namespace {

// Fakes of the frame's screens and of the registers. Each writes what was asked of it into
// one shared log, as short readable lines.

QString registerName(Register which) {
    static const char* const names[] = {"Artikelen", "Klanten", "Facturen", "Instellingen"};
    return names[static_cast<int>(which)];
}

struct FakeRegister : RegisterController {
    FakeRegister(Register which, QStringList& log) : which(which), log(log) {}
    void start() override { log << "start " + registerName(which); }
    void close() { Q_EMIT closed(); }  // the user closes the register's screen
    Register which;
    QStringList& log;
};

// The main window, the splash, the about and the import screen in one.
struct FakeScreen : IMainWindowView, ISplashView, IAboutView, IImportView {
    QStringList& log;
    QString version;
    bool timed = true;

    explicit FakeScreen(QStringList& log) : log(log) {}
    void unload() override { log << "unload"; }
    void setUpdateTool(const QString& caption, bool enabled) override {
        log << "update tool " + caption + (enabled ? " enabled" : " disabled");
    }
    void setVersion(const QString& text) override { version = text; }
    void stopUnloadTimer() override { timed = false; }
    void showModal() override { log << "splash " + version + (timed ? " timed" : " until closed"); }
    void showModeless() override { log << "about " + version; }
    void setEvents(IImportEvents*) override {}
    void show() override { log << "import screen"; }
    void close() override {}
};

// The label screen: says that it was shown.
struct FakeLabels : IEtikettenView {
    QStringList& log;
    explicit FakeLabels(QStringList& log) : log(log) {}
    void setEvents(IEtikettenEvents*) override {}
    void setOnderwerp(const QString&) override {}
    void setVellen(const QStringList&, int) override {}
    int vel() const override { return 0; }
    void setPosities(int) override {}
    int positie() const override { return 1; }
    void show() override { log << "label screen"; }
    void close() override {}
};

// The view factory while it lives. It also makes the registers and remembers each; a deleted
// one reads as null.
struct Fakes : ShellViewFactory, ImportViewFactory, LabelViewFactory {
    QStringList log;
    QList<QPointer<FakeRegister>> registers;
    ScopedViews<ShellViewFactory> shellViews{this};
    ScopedViews<ImportViewFactory> importViews{this};
    ScopedViews<LabelViewFactory> labelViews{this};

    std::unique_ptr<FakeScreen> screen() { return std::make_unique<FakeScreen>(log); }
    std::unique_ptr<ISplashView> createSplash() override { return screen(); }
    std::unique_ptr<IAboutView> createAbout() override { return screen(); }
    std::unique_ptr<IImportView> createImport() override { return screen(); }
    std::unique_ptr<IHelpImportView> createHelpImport() override { return nullptr; }
    std::unique_ptr<IEtikettenView> createEtiketten() override {
        return std::make_unique<FakeLabels>(log);
    }
    RegisterCreator registerCreator() {
        return [this](Register which) {
            registers.append(new FakeRegister(which, log));
            return std::unique_ptr<RegisterController>(registers.last().get());
        };
    }
};

const QString Sound = "Notification.Proximity";
const QString Version = "Versie " + modGlobal::ownVersion();

// The frame's logic with fake screens and registers, on a real database.
class ShellTest : public testing::Test {
protected:
    // The fakes' log, then what reached the desktop.
    QStringList observed() const {
        QStringList all = log;
        for (const ui::Message& message : ui.messages) {
            all << "message " + message.text;
        }
        for (const QString& prompt : ui.folderPrompts) {
            all << "folder " + prompt;
        }
        for (const auto& request : ui.fileRequests) {
            all << "file " + request.title;
        }
        for (const QString& address : ui.openedAddresses) {
            all << "address " + address;
        }
        for (const QStringList& program : ui.startedPrograms) {
            all << "program " + program.last();
        }
        return all;
    }

    bool updateAvailable = false;
    TestDatabase database;
    RecordingUiService ui;
    Fakes fakes;
    QStringList& log = fakes.log;
    FakeScreen window{log};
    MainWindowController controller{window,
                                    {fakes.registerCreator(), [this] { return updateAvailable; }}};
};

TEST_F(ShellTest, AMissingDatabaseEndsTheProgramWithACriticalMessage) {
    QFile::remove(database.path());

    EXPECT_FALSE(controller.startUp());
    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_TRUE(ui.lastMessageIs("Databasebestand ontbreekt", QString(), ui::Icon::Critical));
    EXPECT_TRUE(log.isEmpty()) << "no splash before the check";
}

// A backup, restore or export killed half way left a temporary file; the next start removes
// it, but not one of a writer that still runs (lindebrug-cli beside the window).
TEST_F(ShellTest, StartUpRemovesTheTemporaryFilesOfKilledWork) {
    const QString left =
        database.file("db.daa~lindebrug-" + QString::number(endedProcessId()) + "-7.tmp");
    const QString running = database.file("db.daa~lindebrug-1-8.tmp");
    for (const QString& path : {left, running}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    ASSERT_TRUE(controller.startUp());
    EXPECT_FALSE(QFile::exists(left));
    EXPECT_TRUE(QFile::exists(running));
}

TEST_F(ShellTest, AnUnreadableDatabaseIsReportedAndTheFrameStillOpens) {
    QFile file(database.path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(QByteArray(4096, 'x'));
    file.close();

    EXPECT_TRUE(controller.startUp());
    ASSERT_FALSE(ui.messages.isEmpty());
    EXPECT_TRUE(ui.lastMessage().text.startsWith(
        "Er is een fout opgetreden bij de verwerking van uw opdracht."));
    EXPECT_EQ(ui.lastMessage().caption, "KORVANE LINDEBRUG");
}

TEST_F(ShellTest, StartUpShowsTheTimedSplashAndLabelsTheUpdateTool) {
    for (const bool published : {false, true}) {
        updateAvailable = published;
        ASSERT_TRUE(controller.startUp());
    }
    const QString splash = "splash " + Version + " timed";
    EXPECT_EQ(log, QStringList({splash, "update tool Geen updates disabled", splash,
                                "update tool &Update beschikbaar enabled"}));
    EXPECT_TRUE(ui.messages.isEmpty());
}

// Only exactly 1 silences the menu. The settings row's True reads as 1; a yes/no True handed
// over as -1 keeps the sound.
TEST_F(ShellTest, NoSoundOneSilencesTheMenu) {
    for (const auto& [stored, sounds] : {std::pair{"0", true}, {"NULL", true}, {"1", false}}) {
        database.exec(QString("UPDATE Instellingen SET NoSound = ") + stored);
        ASSERT_TRUE(controller.startUp());
        ui.sounds.clear();
        controller.menuClick("tlOnbekend");
        EXPECT_EQ(ui.sounds, sounds ? QStringList{Sound} : QStringList()) << stored;
    }
    MainWindowController::applySoundSetting(-1);  // after 1 silenced the menu
    EXPECT_FALSE(gNoSound);
}

struct Dispatch {
    const char* tool;
    QStringList effect;  // apart from the sound
};

// Started, with a manual in the program folder, and the start-up's own log forgotten.
class DispatchTest : public ShellTest, public testing::WithParamInterface<Dispatch> {
protected:
    void SetUp() override {
        for (const char* name : {"Lindebrug.qch", "Lindebrug.qhc"}) {
            QFile(database.file(name)).open(QIODevice::WriteOnly);
        }
        ASSERT_TRUE(controller.startUp());
        log.clear();
    }
};

TEST_P(DispatchTest, AToolDoesWhatItsNameSays) {
    controller.menuClick(GetParam().tool);
    EXPECT_EQ(ui.sounds, QStringList{Sound});
    EXPECT_EQ(observed(), GetParam().effect);
}

const QString ExportFolder = "folder Map voor export aanwijzen";

INSTANTIATE_TEST_SUITE_P(
    Tools, DispatchTest,
    testing::Values(
        Dispatch{"tlAfsluiten", {"unload"}}, Dispatch{"tlArtikelen", {"start Artikelen"}},
        Dispatch{"tlKlanten", {"start Klanten"}},
        Dispatch{"tlFacturerenArtikelen", {"start Facturen"}},
        Dispatch{"tlInstellingen", {"start Instellingen"}},
        Dispatch{"tlHelp", {"program " + clsHelp::pageUrl("Introductie.htm")}},
        Dispatch{"tlWebsite", {"address https://" + modGlobal::vendorSite()}},
        Dispatch{"tlExpKlanten", {ExportFolder}}, Dispatch{"tlExpTarieven", {ExportFolder}},
        Dispatch{"tlExpArtikelen", {ExportFolder}},
        Dispatch{"tlExpArtikelfacturen", {ExportFolder}},
        Dispatch{"tlExpUurfacturen", {ExportFolder}}, Dispatch{"tImportOnderM", {"import screen"}},
        Dispatch{"tBackup", {"folder Kies map voor de backup"}},
        Dispatch{"tRestore", {"file Kies backup bestand"}},
        Dispatch{"tAbout", {"about " + Version}},
        Dispatch{"tlOver", {"splash " + Version + " until closed"}},
        Dispatch{"tUpdate", {"address https://" + modGlobal::updatePageAddress()}},
        Dispatch{"tEtiket", {"label screen"}},
        // In the menu without an action of their own, or no tool of this program.
        Dispatch{"tImportArtikelen", {}}, Dispatch{"tImportKlant", {}}, Dispatch{"tlSchermen", {}},
        Dispatch{"tOverige", {}}, Dispatch{"TLARTIKELEN", {}}),
    [](const auto& info) { return std::string(info.param.tool); });

// Each register's entry of the application controller, without the frame.
class RegisterSlotTest
    : public testing::TestWithParam<std::pair<Register, void (clsControllerFactuur::*)()>> {
protected:
    void start() { (controller.*GetParam().second)(); }

    const Register which = GetParam().first;
    Fakes fakes;
    clsControllerFactuur controller{fakes.registerCreator()};
};

TEST_P(RegisterSlotTest, OneControllerUntilItReportsClosing) {
    start();
    start();
    ASSERT_EQ(fakes.registers.size(), 1);
    EXPECT_EQ(fakes.log, QStringList(2, "start " + registerName(which)));
    FakeRegister* first = fakes.registers.first();
    first->close();
    EXPECT_EQ(controller.openRegister(which), nullptr);

    start();
    ASSERT_EQ(fakes.registers.size(), 2);
    first->close();  // a late second closing event of the old one keeps its successor
    EXPECT_EQ(controller.openRegister(which), fakes.registers.last());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(fakes.registers.first().isNull());
}

TEST_P(RegisterSlotTest, WithoutTheRegisterTheEntryDoesNothing) {
    clsControllerFactuur bare{[](Register) { return std::unique_ptr<RegisterController>(); }};
    (bare.*GetParam().second)();
    EXPECT_EQ(bare.openRegister(which), nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    Registers, RegisterSlotTest,
    testing::Values(std::pair{Register::Artikelen, &clsControllerFactuur::StartArtikelen},
                    std::pair{Register::Klanten, &clsControllerFactuur::StartKlanten},
                    std::pair{Register::Facturen, &clsControllerFactuur::StartFacturen},
                    std::pair{Register::Instellingen, &clsControllerFactuur::StartInstellingen}),
    [](const auto& info) { return registerName(info.param.first).toStdString(); });

}  // namespace
