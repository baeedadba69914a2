#include <gtest/gtest.h>

#include <QFile>

#include "RecordingUiService.h"
#include "TestDatabase.h"
#include "controllers/MainWindowController.h"
#include "platform/clsHelp.h"
#include "platform/modGlobal.h"
#include "shell_fakes.h"

namespace {

const QString Sound = "Notification.Proximity";
const QString Version = "Versie " + modGlobal::ownVersion();

// The frame's logic with fake screens and registers, on a real database.
class MainWindowFixture {
protected:
    explicit MainWindowFixture(bool updateAvailable = false)
        : controller(window, {registers.creator(), [updateAvailable] { return updateAvailable; }}) {
    }

    // The fakes' log, then what reached the desktop.
    QStringList observed() const {
        QStringList all = log;
        for (const ui::Message& message : ui.messages) all << "message " + message.text;
        for (const QString& prompt : ui.folderPrompts) all << "folder " + prompt;
        for (const RecordingUiService::FileRequest& request : ui.fileRequests)
            all << "file " + request.title;
        for (const QString& address : ui.openedAddresses) all << "address " + address;
        for (const QStringList& program : ui.startedPrograms) all << "program " + program.last();
        return all;
    }

    TestDatabase database;
    RecordingUiService ui;
    ShellLog log;
    FakeMainWindow window{log};
    FakeShellViews views{log};
    FakeRegisters registers{log};
    MainWindowController controller;
};

class StartUpTest : public MainWindowFixture, public testing::Test {};

TEST_F(StartUpTest, AMissingDatabaseEndsTheProgramWithACriticalMessage) {
    QFile::remove(database.path());

    EXPECT_FALSE(controller.startUp());
    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_EQ(ui.lastMessage().text, "Databasebestand ontbreekt");
    EXPECT_EQ(ui.lastMessage().caption, QString());
    EXPECT_EQ(ui.lastMessage().icon, ui::Icon::Critical);
    EXPECT_TRUE(log.isEmpty()) << "no splash before the check";
}

TEST_F(StartUpTest, ShowsTheTimedSplashAndMakesTheApplicationController) {
    ASSERT_TRUE(controller.startUp());
    EXPECT_EQ(log, QStringList{"splash " + Version + " timed"});
    EXPECT_NE(controller.applicationController(), nullptr);
    EXPECT_EQ(mainWindow(), &window);
    EXPECT_TRUE(ui.messages.isEmpty());
}

TEST_F(StartUpTest, AnUnreadableDatabaseIsReportedAndTheFrameStillOpens) {
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

class UpdateToolTest : public MainWindowFixture, public testing::TestWithParam<bool> {
protected:
    UpdateToolTest() : MainWindowFixture(GetParam()) {}
};

TEST_P(UpdateToolTest, LabelsTheUpdateEntryOnce) {
    ASSERT_TRUE(controller.startUp());
    EXPECT_EQ(window.updateCaption, GetParam() ? "&Update beschikbaar" : "Geen updates");
    EXPECT_EQ(window.updateEnabled, GetParam());
}

INSTANTIATE_TEST_SUITE_P(Published, UpdateToolTest, testing::Bool());

// The settings row's NoSound column as stored, and whether menu clicks still sound.
class StoredSoundTest : public MainWindowFixture,
                        public testing::TestWithParam<std::pair<const char*, bool>> {};

TEST_P(StoredSoundTest, TheSettingsDecideWhetherMenuClicksSound) {
    database.exec(QString("UPDATE Instellingen SET NoSound = ") + GetParam().first);
    ASSERT_TRUE(controller.startUp());
    controller.menuClick("tlOnbekend");
    EXPECT_EQ(ui.sounds, GetParam().second ? QStringList{Sound} : QStringList());
}

INSTANTIATE_TEST_SUITE_P(Settings, StoredSoundTest,
                         testing::Values(std::pair{"1", false}, std::pair{"0", true},
                                         std::pair{"NULL", true}));

// Only exactly 1 silences: a yes/no True handed over as -1 keeps the sound.
TEST(SoundSettingTest, ComparesWithTheNumberOne) {
    for (const auto& [noSound, silent] :
         {std::pair<qint16, bool>{1, true}, {-1, false}, {0, false}}) {
        SCOPED_TRACE(noSound);
        MainWindowController::applySoundSetting(noSound);
        EXPECT_EQ(gNoSound, silent);
    }
}

struct Dispatch {
    const char* tool;
    QStringList effect;  // apart from the sound
};

void PrintTo(const Dispatch& dispatch, std::ostream* out) {
    *out << dispatch.tool;
}

// Started, with a manual in the program folder, and the start-up's own log forgotten.
class DispatchTest : public MainWindowFixture, public testing::TestWithParam<Dispatch> {
protected:
    void SetUp() override {
        for (const char* name : {"Lindebrug.qch", "Lindebrug.qhc"})
            QFile(database.file(name)).open(QIODevice::WriteOnly);
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
        Dispatch{"tAbout", {"new about", "about " + Version}},
        Dispatch{"tlOver", {"splash " + Version + " until closed"}},
        Dispatch{"tUpdate", {"address https://" + modGlobal::updatePageAddress()}},
        // In the menu without an action of their own, or no tool of this program.
        Dispatch{"tEtiket", {}}, Dispatch{"tImportArtikelen", {}}, Dispatch{"tImportKlant", {}},
        Dispatch{"tlSchermen", {}}, Dispatch{"tOverige", {}}, Dispatch{"TLARTIKELEN", {}}),
    [](const auto& info) { return std::string(info.param.tool); });

}  // namespace
