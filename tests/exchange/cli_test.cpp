#include <QDate>
#include <QDir>
#include <QFile>
#include <QProcess>

#include "ExchangeFixture.h"
#include "store/clsDatabase.h"

namespace {

struct CliRun {
    int exitCode = -1;
    QString output;
};

// lindebrug-cli works on the database beside it, so each test gets its own copy of the
// program in its fresh program folder.
class CliTest : public ExchangeTest {
protected:
    CliTest() {
        program_ = database.file("lindebrug-cli");
        QFile::copy(QStringLiteral(LINDEBRUG_CLI), program_);
    }

    CliRun run(const QStringList& arguments) {
        // The program must see the file as it is, and find it free to replace.
        closeSharedConnections();
        QProcess process;
        process.start(program_, arguments);
        EXPECT_TRUE(process.waitForFinished(60000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput())};
    }

    QString todaysBackup() const {
        return work(QDate::currentDate().toString("ddMMyyyy") + "db.bu1");
    }

private:
    QString program_;
};

TEST_F(CliTest, ExportsWithTheProgramsMessage) {
    addCustomers();
    const CliRun result = run({"export", "klant", workFolder()});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, "Export van klant naar csv gelukt. Het bestand is opgeslagen\nals " +
                                 workFolder() + "/klant.csv\n");
    EXPECT_EQ(readBytes(work("klant.csv")), expectedFile("klant.csv"));
}

TEST_F(CliTest, BackupAndRestoreMakeARoundTrip) {
    addCustomers();
    CliRun result = run({"backup", workFolder()});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, "Backup gelukt!\n");

    result = run({"backup", workFolder()});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, "Bestand bestaat! Overschrijven? Nee\n");
    result = run({"--yes", "backup", workFolder()});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, "Bestand bestaat! Overschrijven? Ja\nBackup gelukt!\n");

    addArticles();
    ASSERT_EQ(run({"restore", todaysBackup()}).exitCode, 0);
    EXPECT_EQ(count("Artikel"), 0);
    EXPECT_EQ(count("Klant"), 2);
    EXPECT_EQ(readBytes(database.path()), readBytes(todaysBackup()));
}

TEST_F(CliTest, ImportsIntoTheDatabaseBesideIt) {
    writeBytes(work("klanten.txt"), "7;Zeven BV\r\n8;Acht BV\r\n");
    const CliRun result = run({"import", "Klant", work("klanten.txt")});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, "Importeren van Klant  gelukt\n");
    EXPECT_EQ(column("Klant", "Bedrijfsnaam"), (QVariantList{"Zeven BV", "Acht BV"}));

    writeBytes(work("fout.txt"), "9;Negen BV\r\ngeen getal;Fout BV\r\n");
    const CliRun failed = run({"import", "Klant", work("fout.txt")});
    EXPECT_EQ(failed.exitCode, 1);
    EXPECT_EQ(failed.output, "Importeren vanuit bestand mislukt!\n");
    EXPECT_EQ(count("Klant"), 3);
}

TEST_F(CliTest, ADamagedDatabaseIsReportedNotACrash) {
    writeBytes(work("kapot.bu1"), QByteArray(4096, 'x'));
    EXPECT_EQ(run({"restore", work("kapot.bu1")}).exitCode, 0);
    const CliRun next = run({"export", "klant", workFolder()});
    EXPECT_EQ(next.exitCode, 1);
    EXPECT_TRUE(next.output.endsWith("Export naar csv-bestand mislukt!\n"))
        << next.output.toStdString();
}

TEST_F(CliTest, AMissingDatabaseIsReported) {
    QFile::remove(database.path());
    const CliRun result = run({"backup", workFolder()});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, "Databasebestand ontbreekt\n");
}

TEST_F(CliTest, HelpAndWrongUse) {
    const CliRun help = run({"--help"});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_TRUE(help.output.startsWith("Gebruik: lindebrug-cli"));
    for (const QStringList& wrong : QList<QStringList>{{},
                                                       {"export", "Klant", workFolder()},
                                                       {"import", "klant", "x"},
                                                       {"backup"},
                                                       {"opruimen", "x"}}) {
        SCOPED_TRACE(wrong.join(' ').toStdString());
        EXPECT_EQ(run(wrong).exitCode, 2);
    }
}

}  // namespace
