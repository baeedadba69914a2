#include <QProcess>

#include "ExchangeFixture.h"

namespace {

// lindebrug-cli works on the database beside it, so each test gets its own copy of the
// program in its fresh program folder.
class CliTest : public ExchangeTest {
protected:
    CliTest() { QFile::copy(LINDEBRUG_CLI, database.file("lindebrug-cli")); }

    // Runs the program with these arguments; its exit code, then what it printed.
    QString run(const QStringList& arguments) {
        closeSharedConnections();  // the program must find the file as it is, free to replace
        QProcess process;
        process.start(database.file("lindebrug-cli"), arguments);
        EXPECT_TRUE(process.waitForFinished(60000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return QString::number(process.exitCode()) + ' ' + process.readAllStandardOutput();
    }
};

// A session as a user types it: a backup, imports undone by a restore of the backup, a
// second backup declined and then allowed, commands it does not know, and a restore of a
// file that is no database, which the restore and every command after it report.
TEST_F(CliTest, EveryCommandInOneSession) {
    addRegisters();
    writeBytes(work("klanten.txt"), "7;Zeven BV\r\n8;Acht BV\r\n");
    writeBytes(work("fout.txt"), "9;Negen BV\r\ngeen getal;Fout BV\r\n");
    writeBytes(work("kapot.bu1"), QByteArray(4096, 'x'));
    const QString folder = workFolder();
    const QString damaged = "Error 26 (Het bestand '" + database.path() +
                            "' kan niet als database worden geopend: file is not a database) in "
                            "procedure MaakConnectie of Class Module clsDatabase\n";
    const std::pair<QStringList, QString> steps[] = {
        {{"export", "klant", folder},
         "0 Export van klant naar csv gelukt. Het bestand is opgeslagen\nals " + folder +
             "/klant.csv\n"},
        {{"backup", folder}, "0 Backup gelukt!\n"},
        {{"import", "Klant", work("klanten.txt")}, "0 Importeren van Klant  gelukt\n"},
        {{"import", "Klant", work("fout.txt")}, "1 Importeren vanuit bestand mislukt!\n"},
        {{"backup", folder}, "1 Bestand bestaat! Overschrijven? Nee\n"},
        {{"restore", todaysBackup()}, "0 "},
        {{"--yes", "backup", folder}, "0 Bestand bestaat! Overschrijven? Ja\nBackup gelukt!\n"},
        {{}, "2 "},
        {{"export", "Klant", folder}, "2 "},
        {{"import", "klant", "x"}, "2 "},
        {{"backup"}, "2 "},
        {{"opruimen", "x"}, "2 "},
        {{"restore", work("kapot.bu1")}, "0 " + damaged},
        {{"import", "Klant", work("klanten.txt")},
         "1 " + damaged + "Importeren vanuit bestand mislukt!\n"},
    };
    for (const auto& [arguments, result] : steps) {
        EXPECT_EQ(run(arguments), result) << arguments.join(' ').toStdString();
    }
    EXPECT_TRUE(run({"--help"}).startsWith("0 Gebruik: lindebrug-cli"));
    EXPECT_EQ(readBytes(work("klant.csv")), testFile("klant.csv"));
    EXPECT_EQ(readBytes(database.path()), QByteArray(4096, 'x'));
    // The last backup holds the restored database: the two customers, without the imports.
    EXPECT_EQ(database.scalar("SELECT group_concat(Bedrijfsnaam, '|') FROM Klant", todaysBackup()),
              "Bakkerij Dé Korf|Jansen");

    QFile::remove(database.path());
    EXPECT_EQ(run({"backup", folder}), "1 Databasebestand ontbreekt\n");
}

}  // namespace
