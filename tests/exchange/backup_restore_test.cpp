#include <QDate>
#include <QDir>
#include <QFile>

#include "ExchangeFixture.h"
#include "base/Error.h"
#include "controllers/DataExchangeController.h"
#include "store/clsDatabase.h"

namespace {

const QString kCaption = QStringLiteral("KORVANE LINDEBRUG");

class BackupTest : public ExchangeTest {
protected:
    QString todaysBackup() const {
        return work(QDate::currentDate().toString("ddMMyyyy") + "db.bu1");
    }
    void backupTo(const QString& folder) {
        ui.foldersToChoose.enqueue(folder);
        DataExchangeController().backup();
    }
    void restoreFrom(const QString& file) {
        ui.filesToOpen.enqueue(file);
        DataExchangeController().restore();
    }
    void expectNotice(const QString& text) {
        ASSERT_FALSE(ui.messages.isEmpty());
        EXPECT_EQ(ui.lastMessage().text, text);
        EXPECT_EQ(ui.lastMessage().caption, kCaption);
        EXPECT_EQ(ui.lastMessage().icon, ui::Icon::Information);
    }
};

TEST_F(BackupTest, CopiesTheDatabaseByteForByteUnderTodaysName) {
    addCustomers();
    backupTo(workFolder() + "/");
    EXPECT_EQ(ui.folderPrompts, QStringList{"Kies map voor de backup"});
    EXPECT_EQ(QDir(workFolder()).entryList(QDir::Files),
              QStringList{QDate::currentDate().toString("ddMMyyyy") + "db.bu1"});
    EXPECT_EQ(readBytes(todaysBackup()), readBytes(database.path()));
    expectNotice("Backup gelukt!");
    EXPECT_EQ(ui.messages.size(), 1);
}

TEST_F(BackupTest, ASecondBackupOnTheSameDayAsksFirst) {
    addCustomers();
    backupTo(workFolder());
    const QByteArray first = readBytes(todaysBackup());
    addArticles();
    ASSERT_NE(readBytes(database.path()), first);

    ui.messages.clear();
    ui.answers.enqueue(ui::Answer::No);
    backupTo(workFolder());
    ASSERT_EQ(ui.messages.size(), 1);
    const ui::Message& question = ui.lastMessage();
    EXPECT_EQ(question.text, "Bestand bestaat! Overschrijven?");
    EXPECT_EQ(question.caption, kCaption);
    EXPECT_EQ(question.icon, ui::Icon::None);
    EXPECT_EQ(question.buttons, ui::Buttons::YesNo);
    EXPECT_EQ(readBytes(todaysBackup()), first);

    ui.answers.enqueue(ui::Answer::Yes);
    backupTo(workFolder());
    EXPECT_EQ(readBytes(todaysBackup()), readBytes(database.path()));
    expectNotice("Backup gelukt!");
}

TEST_F(BackupTest, AFolderThatCannotTakeTheCopySaysItFailed) {
    backupTo(work("bestaat-niet"));
    expectNotice("Backup niet gelukt!");
    EXPECT_FALSE(QDir(work("bestaat-niet")).exists());
}

TEST_F(BackupTest, CancelledDialogsChangeNothing) {
    const QByteArray before = readBytes(database.path());
    DataExchangeController().backup();
    DataExchangeController().restore();
    EXPECT_TRUE(ui.messages.isEmpty());
    EXPECT_TRUE(QDir(workFolder()).entryList(QDir::Files).isEmpty());
    EXPECT_EQ(readBytes(database.path()), before);
}

TEST_F(BackupTest, RestoreBringsBackTheRowsAtOnce) {
    addCustomers();
    backupTo(workFolder());
    addRow("Klant", {{"Bedrijfsnaam", "Na de backup"}});
    ASSERT_EQ(count("Klant"), 3);

    ui.messages.clear();
    restoreFrom(todaysBackup());
    ASSERT_EQ(ui.fileRequests.size(), 1);
    EXPECT_EQ(ui.fileRequests[0].title, "Kies backup bestand");
    EXPECT_EQ(ui.fileRequests[0].filter, "bu1-bestanden|*.bu1");
    EXPECT_TRUE(ui.messages.isEmpty());
    // Through the program's own connection, without a restart.
    EXPECT_EQ(column("Klant", "Bedrijfsnaam"),
              (QVariantList{QStringLiteral("Bakkerij Dé Korf"), "Jansen"}));
    addRow("Klant", {{"Bedrijfsnaam", "Na het terugzetten"}});
    EXPECT_EQ(count("Klant"), 3);
}

TEST_F(BackupTest, RestoringAFileThatIsNoDatabaseReplacesItAllTheSame) {
    writeBytes(work("kapot.bu1"), "Dit is geen database.\n");
    restoreFrom(work("kapot.bu1"));
    EXPECT_EQ(readBytes(database.path()), QByteArray("Dit is geen database.\n"));
    // The damage shows when the database is used, as an error the screens can report.
    EXPECT_THROW(clsDatabase().ExecuteQuery("SELECT * FROM Klant"), Error);
}

TEST_F(BackupTest, AFailedRestoreLeavesTheDatabaseAsItWas) {
    addCustomers();
    const QByteArray before = readBytes(database.path());
    restoreFrom(work("bestaat-niet.bu1"));
    EXPECT_EQ(readBytes(database.path()), before);
    EXPECT_EQ(count("Klant"), 2);
    EXPECT_TRUE(QDir(database.folder()).entryList({"*.tmp"}, QDir::Files).isEmpty());
}

}  // namespace
