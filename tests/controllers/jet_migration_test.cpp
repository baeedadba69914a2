#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "Files.h"
#include "RecordingUiService.h"
#include "TestDatabase.h"
#include "controllers/JetMigrationController.h"
#include "records/clsObjInstellingen.h"
#include "store/jet/JetReader.h"

namespace {

const QString kCaption = "Overstappen van een eerdere versie";
const QString kQuestion =
    "db.daa is gemaakt door een eerdere versie van Lindebrug en staat nog in het oude formaat "
    "(Access). Het programma kan er pas mee werken als het is omgezet.\r\n\r\nWilt u db.daa nu "
    "omzetten? Het oorspronkelijke bestand blijft bewaard als db.daa.jet.";

struct StartUpCase {
    const char* name;
    const char* fixture;  // nullptr: a db.daa of the current format
    qint64 truncateTo;
    bool withCli;  // lindebrug-cli beside the program, to read the file first on its own
    ui::Answer answer;
    bool carriesOn;
    int progresses;
    ui::Icon lastIcon;
    QString lastText;  // the start of the last message; %1 is db.daa's path
};

void PrintTo(const StartUpCase& c, std::ostream* os) {
    *os << c.name;
}

class JetStartUpTest : public testing::TestWithParam<StartUpCase> {
protected:
    JetStartUpTest() {
        if (GetParam().fixture) {
            QFile::remove(database.path());
            QFile::copy(TestDatabase::testData(QString("jet/") + GetParam().fixture),
                        database.path());
            QFile::setPermissions(database.path(), QFile::ReadOwner | QFile::WriteOwner);
            if (GetParam().truncateTo) {
                QFile::resize(database.path(), GetParam().truncateTo);
            }
        }
        if (GetParam().withCli) {
            QFile::copy(LINDEBRUG_CLI, database.file("lindebrug-cli"));
        }
        original = readBytes(database.path());
    }

    TestDatabase database;
    RecordingUiService ui;
    QByteArray original;
};

// The question, then either the report of the conversion or why the program ends; an old
// file is replaced only when the user said Yes and the conversion succeeded.
TEST_P(JetStartUpTest, AsksConvertsAndReports) {
    const StartUpCase& c = GetParam();
    ui.answers.enqueue(c.answer);
    EXPECT_EQ(JetMigrationController::bringOverOldDatabase(), c.carriesOn);

    if (!c.fixture) {
        EXPECT_TRUE(ui.messages.isEmpty());
        return;
    }
    ASSERT_EQ(ui.messages.size(), 2);
    EXPECT_EQ(ui.messages[0].text, kQuestion);
    EXPECT_EQ(ui.messages[0].caption, kCaption);
    EXPECT_EQ(ui.messages[0].icon, ui::Icon::Question);
    EXPECT_EQ(ui.messages[0].buttons, ui::Buttons::YesNo);
    EXPECT_TRUE(ui.lastMessageBegins(QString(c.lastText).replace("%1", database.path()), kCaption,
                                     c.lastIcon));

    const bool converted = c.carriesOn;
    EXPECT_EQ(jet::isJetFile(database.path()), !converted);
    EXPECT_EQ(QFile::exists(database.path() + ".jet"), converted);
    if (!converted) {
        EXPECT_EQ(readBytes(database.path()), original);
    }
    EXPECT_EQ(ui.progressTitles.size(), c.progresses);
    EXPECT_EQ(QDir(database.folder()).entryList({"*.tmp"}, QDir::Files), QStringList());
}

INSTANTIATE_TEST_SUITE_P(
    Cases, JetStartUpTest,
    testing::Values(
        StartUpCase{"Converted", "db-jet4-orphans.daa", 0, false, ui::Answer::Yes, true, 1,
                    ui::Icon::Information,
                    "De database is omgezet naar het nieuwe formaat.\r\n\r\nBTW: 3 rijen\r\n"
                    "Artikel: 64 rijen\r\nKlant: 41 rijen\r\nFactuur: 123 rijen\r\n"
                    "ArtikelPerFactuur: 836 rijen\r\nInstellingen: 1 rij\r\n\r\n2 factuurregels "
                    "hoorden bij een factuur die niet meer bestaat; ze staan in "},
        StartUpCase{"Declined", "db-jet4.daa", 0, true, ui::Answer::No, false, 0,
                    ui::Icon::Exclamation,
                    "Lindebrug kan niet werken met een database in het oude formaat. Het "
                    "programma wordt afgesloten; db.daa is niet veranderd."},
        StartUpCase{"Incomplete", "db-jet4.daa", 76 * 4096, false, ui::Answer::Yes, false, 1,
                    ui::Icon::Critical,
                    "%1 kon niet worden omgezet.\r\n\r\nHet oude bestand is beschadigd of "
                    "onvolledig: van de tabel Instellingen zijn 0 van de 1 rijen te lezen.\r\n\r\n"
                    "Er is niets veranderd: %1 is gebleven zoals het was."},
        StartUpCase{"CheckedFirstThenConverted", "db-jet4-earliest.daa", 0, true, ui::Answer::Yes,
                    true, 2, ui::Icon::Information,
                    "De database is omgezet naar het nieuwe formaat.\r\n\r\nBTW: 1 rij\r\n"},
        // So damaged that reading it makes libmdb crash: the crash is the checking process's.
        StartUpCase{"CrashesTheReader", "db-jet4-damaged.daa", 0, true, ui::Answer::Yes, false, 1,
                    ui::Icon::Critical,
                    "db.daa is zo beschadigd dat het niet kan worden gelezen. Er is niets "
                    "veranderd; Lindebrug wordt afgesloten."},
        StartUpCase{"CurrentFormat", nullptr, 0, true, ui::Answer::Yes, true, 0, ui::Icon::None,
                    ""}),
    [](const auto& info) { return std::string(info.param.name); });

// After the conversion the program reads the settings as the old one had them, and a
// second start asks nothing.
TEST(JetStartUp, TheProgramWorksOnTheConvertedDatabase) {
    TestDatabase database;
    QFile::remove(database.path());
    QFile::copy(TestDatabase::testData("jet/db-jet4-earliest.daa"), database.path());
    RecordingUiService ui;
    ui.answers.enqueue(ui::Answer::Yes);
    ASSERT_TRUE(JetMigrationController::bringOverOldDatabase());
    ASSERT_TRUE(JetMigrationController::bringOverOldDatabase());
    EXPECT_EQ(ui.messages.size(), 2);

    const QList<clsObjInstellingen> settings = clsObjInstellingen().Lijst(QString());
    ASSERT_EQ(settings.size(), 1);
    EXPECT_EQ(settings.first().Bedrijfsnaam(), "Klusbedrijf Verhoeven");
    EXPECT_EQ(settings.first().FontName(), "Times New Roman");
    EXPECT_EQ(settings.first().NoSound(), 0);  // absent in the earliest layout: Null reads as False
    EXPECT_EQ(QDir(database.folder()).entryList({"*.tmp"}, QDir::Files), QStringList());
}

}  // namespace
