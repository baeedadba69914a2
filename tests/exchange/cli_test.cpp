#include <QDir>
#include <QProcess>

#include "ExchangeFixture.h"
#include "Programs.h"

namespace {

// lindebrug-cli works on the database beside it, so each test gets its own copy of the
// program in its fresh program folder.
class CliTest : public ExchangeTest {
protected:
    CliTest() { QFile::copy(LINDEBRUG_CLI, database.file("lindebrug-cli")); }

    // Runs the program with these arguments; its exit code, then what it printed on
    // standard output, then "|" and what it printed on standard error.
    QString run(const QStringList& arguments) {
        closeSharedConnections();  // the program must find the file as it is, free to replace
        return runProgram(database.file("lindebrug-cli"), arguments, true);
    }
};

// A session as a user types it: a backup, imports undone by a restore of the backup, a
// second backup declined and then allowed, register names in other letter cases, commands
// it does not know, and a file that is no database: refused, then forced, after which the
// exit code and every later command say that db.daa is not usable.
TEST_F(CliTest, EveryCommandInOneSession) {
    addRegisters();
    writeBytes(work("klanten.txt"), "7;Zeven BV\r\n8;Acht BV\r\n");
    writeBytes(work("fout.txt"), "9;Negen BV\r\ngeen getal;Fout BV\r\n");
    writeBytes(work("kapot.bu1"), QByteArray(4096, 'x'));
    const QString leftover =
        database.file("db.daa~lindebrug-" + QString::number(endedProcessId()) + "-1.tmp");
    writeBytes(leftover, "van een afgebroken restore");
    const QString folder = workFolder();
    const QString damaged = "Error 26 (Het bestand '" + database.path() +
                            "' kan niet als database worden geopend: file is not a database) in "
                            "procedure MaakConnectie of Class Module clsDatabase\n";
    const QString exported = "Export van klant naar csv gelukt. Het bestand is opgeslagen\nals " +
                             folder + "/klant.csv\n";
    const std::pair<QStringList, QString> steps[] = {
        {{"export", "klant", folder}, "0 " + exported + "|"},
        {{"backup", folder}, "0 Backup gelukt!\n|"},
        {{"import", "Klant", work("klanten.txt")}, "0 Importeren van Klant  gelukt\n|"},
        {{"import", "KLANT", work("fout.txt")}, "1 Importeren vanuit bestand mislukt!\n|"},
        {{"Backup", folder}, "1 Bestand bestaat! Overschrijven? Nee\n|"},
        {{"restore", todaysBackup()}, "0 |"},
        {{"--yes", "backup", folder}, "0 Bestand bestaat! Overschrijven? Ja\nBackup gelukt!\n|"},
        {{"export", "Klant", folder, "--yes"},
         "0 Het bestand " + folder + "/klant.csv bestaat al. Verwijderen? Ja\n" + exported + "|"},
        {{"export", "KLANT", folder},
         "1 Het bestand " + folder +
             "/klant.csv bestaat al. Verwijderen? Nee\n"
             "Export naar csv-bestand mislukt!\n|Het bestaande bestand " +
             folder + "/klant.csv is gehouden.\n"},
        {{"import", "artikel", work("x")},
         "1 Importeren vanuit bestand mislukt!\n|Het bestand " + work("x") + " bestaat niet.\n"},
        {{"restore", work("kapot.bu1")},
         "1 Het bestand " + work("kapot.bu1") +
             " is geen backup van Lindebrug; de database is niet vervangen.\n"
             "|Het bestand is geen database.\n"},
        {{"restore", "--force", work("kapot.bu1")},
         "3 " + damaged + "|db.daa is geen bruikbare database: Het bestand is geen database.\n"},
        {{"import", "Klant", work("klanten.txt")},
         "1 " + damaged + "Importeren vanuit bestand mislukt!\n|" +
             damaged.section(" (", 1).section(") in", 0, 0) + "\n"},
    };
    for (const auto& [arguments, result] : steps) {
        QString printed = run(arguments);
        // The reason of a refused import line is the engine's own text; only its start is ours.
        if (arguments.contains("KLANT") && arguments[0] == "import") {
            printed = printed.section('|', 0, 0) + '|';
        }
        EXPECT_EQ(printed, result) << arguments.join(' ').toStdString();
    }
    EXPECT_FALSE(QFile::exists(leftover)) << "removed when the program starts";
    EXPECT_EQ(readBytes(work("klant.csv")), testFile("klant.csv"));
    EXPECT_EQ(readBytes(database.path()), QByteArray(4096, 'x'));
    // The last backup holds the restored database: the two customers, without the imports;
    // the database the forced restore replaced is kept.
    EXPECT_EQ(database.scalar("SELECT group_concat(Bedrijfsnaam, '|') FROM Klant", todaysBackup()),
              "Bakkerij Dé Korf|Jansen");
    EXPECT_EQ(dump(database.file("db.daa.vorige")), dump(todaysBackup()));

    QFile::remove(database.path());
    EXPECT_EQ(run({"backup", folder}),
              "1 Databasebestand ontbreekt\n|Er is geen db.daa in " + database.folder() + "\n");
}

// While another process holds the database locked, each command waits, fails, and names
// the lock as its reason.
TEST_F(CliTest, ALockOfAnotherProcessIsNamedAsTheReason) {
    addRegisters();
    writeBytes(work("klanten.txt"), "7;Zeven BV\r\n");
    closeSharedConnections();
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(database.path().toUtf8().constData(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    const QString locked = "De database is in gebruik door een ander programma (Het bestand '" +
                           database.path() +
                           "' kan niet als database worden geopend: database is locked).\n";
    const std::pair<QStringList, QString> commands[] = {
        {{"import", "klant", work("klanten.txt")},
         "Importeren vanuit bestand mislukt!\n|" + locked},
        {{"export", "artikel", workFolder()}, "Export naar csv-bestand mislukt!\n|" + locked},
        {{"backup", workFolder()},
         "Backup niet gelukt!\n|De database is in gebruik door een ander programma.\n"},
    };
    for (const auto& [arguments, result] : commands) {
        const QString printed = run(arguments);
        EXPECT_TRUE(printed.startsWith("1 ")) << printed.toStdString();
        EXPECT_TRUE(printed.endsWith(result)) << printed.toStdString();
    }
    sqlite3_exec(other, "ROLLBACK", nullptr, nullptr, nullptr);
    sqlite3_close(other);
    EXPECT_EQ(QDir(workFolder()).entryList(QDir::Files), QStringList{"klanten.txt"});
}

// restore takes only a database of the program: anything else is refused with exit 1 and
// db.daa stays as it was. Forced, such a file replaces db.daa and the exit code, 3, says
// that db.daa is not usable; the database it replaced waits as db.daa.vorige.
TEST_F(CliTest, RestoreRefusesWhatIsNoDatabaseOfTheProgramUnlessForced) {
    addRegisters();
    closeSharedConnections();
    const QString before = dump(database.path());
    writeBytes(work("leeg.bu1"), "");
    writeBytes(work("tekst.bu1"), "Dit is geen database.\n");
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(work("ander.bu1").toUtf8().constData(), &other), SQLITE_OK);
    sqlite3_exec(other, "CREATE TABLE Adres (Naam TEXT); INSERT INTO Adres VALUES ('x')", nullptr,
                 nullptr, nullptr);
    sqlite3_close(other);
    QByteArray cut = readBytes(database.path());
    cut.truncate(cut.size() / 2);
    writeBytes(work("afgebroken.bu1"), cut);
    const std::pair<const char*, QString> refused[] = {
        {"leeg.bu1", "Het bestand is leeg."},
        {"tekst.bu1", "Het bestand is geen database."},
        {"ander.bu1",
         "De database mist de tabellen van Lindebrug: Artikel, ArtikelPerFactuur, "
         "BTW, Factuur, Instellingen, Klant."},
        {"afgebroken.bu1", "De database is beschadigd"},
    };
    for (const auto& [file, reason] : refused) {
        const QString printed = run({"restore", work(file)});
        EXPECT_TRUE(printed.startsWith("1 Het bestand " + work(file) +
                                       " is geen backup van Lindebrug; de database is niet "
                                       "vervangen.\n|" +
                                       reason))
            << printed.toStdString();
        EXPECT_EQ(dump(database.path()), before) << file;
    }
    EXPECT_TRUE(run({"restore", "--force", work("ander.bu1")})
                    .startsWith("3 |db.daa is geen bruikbare database: De database mist de "
                                "tabellen van Lindebrug"));
    EXPECT_EQ(dump(database.path()), dump(work("ander.bu1")));
    EXPECT_EQ(dump(database.file("db.daa.vorige")), before);
}

// Wrong calls exit with 2 and say why on standard error, before the help; the help and
// the version exit with 0.
TEST_F(CliTest, WrongCallsAreExplainedAndHelpListsCommandsAndExitCodes) {
    const std::pair<QStringList, QString> wrong[] = {
        {{}, "Geen opdracht gegeven."},
        {{"export", "klanten", "map"}, "Onbekende tabel voor export: klanten"},
        {{"import", "FactArt", "x"}, "Onbekende tabel voor import: FactArt"},
        {{"backup"}, "Verkeerd aantal argumenten voor backup."},
        {{"opruimen", "x"}, "Onbekende opdracht: opruimen"},
    };
    for (const auto& [arguments, problem] : wrong) {
        const QString printed = run(arguments);
        EXPECT_TRUE(printed.startsWith("2 |" + problem + "\n\nGebruik: lindebrug-cli"))
            << printed.toStdString();
    }
    const QString help = run({"--help"});
    EXPECT_TRUE(help.startsWith("0 Gebruik: lindebrug-cli")) << help.toStdString();
    for (const char* line : {"db.daa kopiëren naar MAP/<ddmmjjjj>db.bu1", "Exitcodes:",
                             "  0  de opdracht is gelukt", "  3  db.daa is na de opdracht"}) {
        EXPECT_TRUE(help.contains(line)) << line;
    }
    EXPECT_EQ(run({"--version"}), "0 lindebrug-cli " LINDEBRUG_VERSION "\n|");
}

}  // namespace

// On a small file system of its own (a tmpfs in a mount namespace), filled to the last
// byte after a first backup: export, a second backup of the day and a restore report
// failure with the reason, leave no file behind, and the first backup survives.
TEST_F(CliTest, OnAFullDiskEveryCommandFailsAndLeavesNothingBehind) {
    QProcess probe;
    probe.start("unshare", {"-rm", "true"});
    if (!probe.waitForFinished(60000) || probe.exitStatus() != QProcess::NormalExit ||
        probe.exitCode() != 0) {
        GTEST_SKIP() << "this machine allows no mount namespace of our own (unshare -rm), so no "
                        "small file system can be made for the test";
    }
    addRegisters();
    closeSharedConnections();
    QDir(workFolder()).mkdir("schijf");
    const QString script = R"(
        set -u
        disk=$1; program=$disk/programma; out=$disk/uit
        size=$(( $(stat -c %s "$2/lindebrug-cli") / 1024 + 1024 ))
        mount -t tmpfs -o size=${size}k tmpfs "$disk" || exit 99
        mkdir "$program" "$out"
        cp "$2/lindebrug-cli" "$2/db.daa" "$program/"
        "$program/lindebrug-cli" backup "$out" >/dev/null || exit 98
        cp "$out"/*db.bu1 "$3/eerste.bu1"
        dd if=/dev/zero of="$disk/vulling" bs=4096 2>/dev/null
        "$program/lindebrug-cli" export klant "$out"; echo "export $?"
        "$program/lindebrug-cli" --yes backup "$out"; echo "backup $?"
        "$program/lindebrug-cli" restore "$3/eerste.bu1"; echo "restore $?"
        cmp -s "$out"/*db.bu1 "$3/eerste.bu1" && echo "eerste backup heel"
        cmp -s "$program/db.daa" "$2/db.daa" && echo "db.daa heel"
        ls -A "$out" "$program"
    )";
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start("unshare", {"-rm", "sh", "-c", script, "sh", work("schijf"), database.folder(),
                              workFolder()});
    ASSERT_TRUE(process.waitForFinished(120000));
    const QString printed = process.readAll();
    ASSERT_EQ(process.exitCode(), 0) << printed.toStdString();
    const QString backup = todaysBackup().section('/', -1);
    const QString folder = work("schijf");
    const QString expected =
        "Export naar csv-bestand mislukt!\n"
        "Kan niet schrijven naar bestand " +
        folder +
        "/uit/klant.csv (No space left on device)\n"
        "export 1\n"
        "Bestand bestaat! Overschrijven? Ja\nBackup niet gelukt!\n"
        "Kan niet schrijven naar " +
        folder + "/uit/" + backup +
        ": de schijf is vol\n"
        "backup 1\n"
        "Terugzetten van de backup mislukt; de database is niet vervangen.\n"
        "Kan niet schrijven naar " +
        folder +
        "/programma/db.daa: de schijf is vol\n"
        "restore 1\n"
        "eerste backup heel\n"
        "db.daa heel\n" +
        folder + "/programma:\ndb.daa\nlindebrug-cli\n\n" + folder + "/uit:\n" + backup + "\n";
    EXPECT_EQ(printed, expected);
}
