// What a crash, a kill or a file that is no text does to backup, restore and import.
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <functional>
#include <iostream>

#include "ExchangeFixture.h"
#include "KillPoints.h"
#include "Programs.h"
#include "base/Error.h"
#include "exchange/AnsiLineReader.h"
#include "exchange/DatabaseFile.h"
#include "exchange/DurableFile.h"
#include "exchange/ExchangeRoutines.h"
#include "exchange/clsXport.h"

namespace {

QStringList temporaryFiles(const QString& folder) {
    QStringList found;
    for (const QString& name : QDir(folder).entryList(QDir::Files | QDir::Hidden)) {
        if (name.contains("~lindebrug-")) {
            found.append(name);
        }
    }
    return found;
}

// The bytes of a database and of the journal beside it, to put back before every try.
struct Snapshot {
    QByteArray database;
    QByteArray journal;

    static Snapshot of(const QString& path) {
        return {readBytes(path), readBytes(dbfile::journalName(path))};
    }
    void restoreTo(const QString& path) const {
        writeBytes(path, database);
        writeBytes(dbfile::journalName(path), journal);
    }
};

class CrashTest : public ExchangeTest {
protected:
    CrashTest() {
        addCustomers(1, 1500, "Klant");
        closeSharedConnections();
        committed = dump(database.path());
    }
    ~CrashTest() override { durable::removeLeftovers(workFolder()); }

    void addCustomers(int first, int count, const QString& name) {
        database.exec(QString("WITH RECURSIVE n(i) AS (SELECT %1 UNION ALL SELECT i + 1 FROM n "
                              "WHERE i < %2) INSERT INTO Klant (DebiteurNummer, Bedrijfsnaam, "
                              "Adres) SELECT i, '%3 ' || i, printf('%.40c', 'a') FROM n")
                          .arg(first)
                          .arg(first + count - 1)
                          .arg(name));
    }

    // A process that changes every customer with so small a page cache that the changed
    // pages reach db.daa, and dies before its COMMIT: a hot journal stays beside db.daa.
    void crashInsideATransaction() {
        const pid_t child = ::fork();
        if (child == 0) {
            sqlite3* db = nullptr;
            sqlite3_open(database.path().toUtf8().constData(), &db);
            sqlite3_exec(db,
                         "PRAGMA cache_size=5; BEGIN; UPDATE Klant SET Bedrijfsnaam = "
                         "Bedrijfsnaam || ' gewijzigd', Plaats = printf('%.60c', 'p');",
                         nullptr, nullptr, nullptr);
            ::_exit(0);
        }
        ::waitpid(child, nullptr, 0);
        ASSERT_GT(QFileInfo(dbfile::journalName(database.path())).size(), 0);
        writeBytes(work("alleen-het-bestand"), readBytes(database.path()));
        ASSERT_NE(dump(work("alleen-het-bestand")), committed)
            << "the file alone must hold uncommitted pages, or there is no crash to survive";
    }

    // More customers, committed, then the crash over them; the files as the crash left them.
    Snapshot addCustomersThenCrash(int first, int count, const QString& name) {
        addCustomers(first, count, name);
        closeSharedConnections();
        committed = dump(database.path());
        crashInsideATransaction();
        return Snapshot::of(database.path());
    }

    // Kills work at its point 0, 1, 2, ... until it runs to its end, and then it must have
    // succeeded. Before every try prepare() puts the files in place; after every kill
    // whole() must hold.
    static void atEveryKillPoint(const char* what, const std::function<void()>& prepare,
                                 const std::function<bool()>& work,
                                 const std::function<bool()>& whole) {
        int points = 0, intact = 0;
        for (;; ++points) {
            prepare();
            const auto outcome = killpoints::runChild(points, work);
            if (!outcome.killed) {
                EXPECT_EQ(outcome.exitCode, 0) << what << " ran to its end";
                break;
            }
            const bool ok = whole();
            EXPECT_TRUE(ok) << what << " killed at point " << points;
            intact += ok;
        }
        EXPECT_GT(points, 5);
        std::cout << "[ kill points ] " << what << ": " << points << " tried, " << intact
                  << " left everything whole\n";
        RecordProperty(std::string(what) + "_kill_points", points);
    }

    QString committed;  // every row of db.daa before the crash
};

// The copy of the file's bytes would hold half a transaction; the backup holds the rows
// that were committed and passes the check, and db.daa itself is whole again after it.
TEST_F(CrashTest, ABackupAfterACrashHoldsTheLastCommittedRows) {
    crashInsideATransaction();
    QString reason;
    ASSERT_TRUE(dbfile::backup(database.path(), work("na-crash.bu1"), QString(), &reason))
        << reason.toStdString();
    EXPECT_EQ(integrity(work("na-crash.bu1")), "ok");
    EXPECT_EQ(dump(work("na-crash.bu1")), committed);
    EXPECT_EQ(integrity(database.path()), "ok");
    EXPECT_EQ(dump(database.path()), committed);
    EXPECT_EQ(temporaryFiles(workFolder()), QStringList());
}

TEST_F(CrashTest, ARestoreOverAHotJournalNeverPlaysItIntoTheRestoredFile) {
    const QString backedUp = committed;
    ASSERT_TRUE(dbfile::backup(database.path(), work("eerder.bu1"), QString(), nullptr));
    addCustomersThenCrash(5000, 700, "Later");

    QString reason;
    ASSERT_TRUE(dbfile::restore(work("eerder.bu1"), database.path(), QString(), &reason))
        << reason.toStdString();
    EXPECT_FALSE(QFileInfo::exists(dbfile::journalName(database.path())));
    EXPECT_EQ(integrity(database.path()), "ok");
    EXPECT_EQ(dump(database.path()), backedUp);
    EXPECT_EQ(dump(dbfile::previousName(database.path())), committed);
    EXPECT_EQ(temporaryFiles(database.folder()), QStringList());
}

// At every point (each write, sync and delete of SQLite, each step of publishing) a killed
// backup leaves the earlier backup of the day or the new one, both whole, and db.daa whole.
TEST_F(CrashTest, KilledAtEveryPointABackupLeavesTheOldOrTheNewBackupWhole) {
    const QString target = work("backup.bu1");
    ASSERT_TRUE(dbfile::backup(database.path(), target, QString(), nullptr));
    const QByteArray earlier = readBytes(target);
    const Snapshot crashed = addCustomersThenCrash(9000, 300, "Nieuw");

    atEveryKillPoint(
        "backup",
        [&] {
            crashed.restoreTo(database.path());
            writeBytes(target, earlier);
        },
        [&] { return dbfile::backup(database.path(), target, QString(), nullptr); },
        [&] {
            durable::removeLeftovers(workFolder());
            return integrity(target) == "ok" &&
                   (readBytes(target) == earlier || dump(target) == committed) &&
                   integrity(database.path()) == "ok" && dump(database.path()) == committed &&
                   temporaryFiles(workFolder()).isEmpty();
        });
    EXPECT_EQ(dump(target), committed);
}

// A restore over a database with a hot journal, killed at every point: db.daa is the old
// database (its committed rows) or the restored one, never a mix, and the journal never
// outlives the old file.
TEST_F(CrashTest, KilledAtEveryPointARestoreLeavesTheOldOrTheNewDatabaseWhole) {
    const QString source = work("terug.bu1");
    ASSERT_TRUE(dbfile::backup(database.path(), source, QString(), nullptr));
    const QString restored = dump(source);
    const Snapshot crashed = addCustomersThenCrash(5000, 700, "Later");

    atEveryKillPoint(
        "restore",
        [&] {
            QFile::remove(dbfile::previousName(database.path()));
            crashed.restoreTo(database.path());
        },
        [&] { return dbfile::restore(source, database.path(), QString(), nullptr); },
        [&] {
            // Opening it as the program does plays back a journal that is still there.
            exchange::removeLeftovers();
            return integrity(database.path()) == "ok" &&
                   (dump(database.path()) == committed || dump(database.path()) == restored) &&
                   temporaryFiles(database.folder()).isEmpty();
        });
    EXPECT_EQ(dump(database.path()), restored);
    EXPECT_EQ(dump(dbfile::previousName(database.path())), committed);
}

// An import killed at every write and sync: the rows stored are the file's first lines,
// complete, and a backup made afterwards passes the check and holds them.
TEST_F(CrashTest, KilledAtEveryPointAnImportKeepsWholeLinesAndABackupOfThem) {
    database.exec("DELETE FROM Klant");
    QByteArray lines;
    for (int i = 1; i <= 2300; ++i) {
        lines += QByteArray::number(i) + ";Regel " + QByteArray::number(i) + ";" +
                 QByteArray(40, 'f') + "\r\n";
    }
    writeBytes(work("import.txt"), lines);
    closeSharedConnections();
    const QByteArray empty = readBytes(database.path());

    atEveryKillPoint(
        "import",
        [&] {
            writeBytes(database.path(), empty);
            QFile::remove(dbfile::journalName(database.path()));
        },
        [&] {
            try {
                return clsXport().Mport("Klant", work("import.txt"));
            } catch (const Error&) {
                return false;
            }
        },
        [&] {
            const QString backup = work("na-import.bu1");
            // The rows are the file's lines 1 to their number, each complete.
            return dbfile::backup(database.path(), backup, QString(), nullptr) &&
                   integrity(backup) == "ok" &&
                   database.scalar(
                               "SELECT count(*) = 0 OR (count(DISTINCT DebiteurNummer) = "
                               "count(*) AND max(DebiteurNummer) = count(*) AND "
                               "min(Bedrijfsnaam = 'Regel ' || DebiteurNummer AND "
                               "length(Fax) = 40)) FROM Klant",
                               backup)
                           .toInt() == 1;
        });
    EXPECT_EQ(database.scalar("SELECT count(*) FROM Klant"), 2300);
}

// Another process commits one change of every customer after another (as a scheduled
// import would), while backups are made: every backup is one committed state, whole.
TEST_F(CrashTest, BackupsWhileAnotherProcessWritesAreEachOneCommittedState) {
    const pid_t writer = ::fork();
    if (writer == 0) {
        sqlite3* db = nullptr;
        sqlite3_open(database.path().toUtf8().constData(), &db);
        sqlite3_busy_timeout(db, 10000);
        for (int i = 1; i <= 300; ++i) {
            const QByteArray sql = "UPDATE Klant SET Plaats = 'stand " + QByteArray::number(i) +
                                   "', Adres = printf('%." + QByteArray::number(i % 90 + 1) +
                                   "c', 'a')";
            if (sqlite3_exec(db, sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK) {
                ::_exit(1);
            }
            // Another program saves now and then; one that writes without a pause locks a
            // reader out for as long as it goes on, which on a loaded machine outlasts the
            // backup's wait and makes it refuse.
            ::usleep(2000);
        }
        ::_exit(0);
    }
    int backups = 0, whole = 0, status = 0;
    for (bool writing = true; writing; ++backups) {
        writing = ::waitpid(writer, &status, WNOHANG) == 0;
        QString reason;
        const bool made = dbfile::backup(database.path(), work("tijdens.bu1"), QString(), &reason);
        const bool ok = made && integrity(work("tijdens.bu1")) == "ok" &&
                        database.scalar(
                                    "SELECT count(DISTINCT ifnull(Plaats, '')) = 1 AND "
                                    "count(DISTINCT Adres) = 1 AND "
                                    "count(*) = 1500 FROM Klant",
                                    work("tijdens.bu1"))
                                .toInt() == 1;
        EXPECT_TRUE(ok) << "backup " << backups << ": " << reason.toStdString();
        whole += ok;
    }
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0)
        << "the writer was never blocked out";
    std::cout << "[ concurrent ] " << backups << " backups while another process wrote, " << whole
              << " whole\n";
}

// Only names of this program whose writer is gone are removed: a running writer's file
// and the user's own files stay.
TEST(Leftovers, OnlyTheTemporaryFilesOfEndedWritersAreRemoved) {
    QTemporaryDir folder;
    const QString gone = QString::number(endedProcessId());
    const QStringList names = {"db.daa~lindebrug-" + gone + "-1a2b.tmp",
                               "15112026db.bu1~lindebrug-" + gone + "-ff.tmp-journal",
                               "klant.csv~lindebrug-1-3c.tmp",
                               "klant.csv",
                               "eigen~lindebrug.tmp",
                               "db.daa.vorige"};
    for (const QString& name : names) {
        writeBytes(folder.filePath(name), "x");
    }
    writeBytes(durable::temporaryNameFor(folder.filePath("FactArt.csv")), "van een eerdere start");
    durable::removeLeftovers(folder.path());
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files, QDir::Name),
              (QStringList{"db.daa.vorige", "eigen~lindebrug.tmp", "klant.csv",
                           "klant.csv~lindebrug-1-3c.tmp"}));
}

// The reader takes the file in blocks of 1 MB; a line end whose CR is the last byte of a
// block is one line end with the LF that opens the next block, and a lone CR there ends a
// line all the same.
TEST(LineReader, ALineEndAcrossTwoBlocksIsOneLineEnd) {
    for (const QByteArray& end : {QByteArray("\r\n"), QByteArray("\r")}) {
        SCOPED_TRACE(end == "\r" ? "CR" : "CR LF");
        QTemporaryDir folder;
        const int block = 1024 * 1024, step = 3 + end.size();
        QByteArray text = "1;" + QByteArray((block - 3) % step, 'A') + end;
        const int lines = (block - 1 + end.size() - text.size()) / step;
        for (int i = 0; i < lines; ++i) {
            text += "1;A" + end;
        }
        ASSERT_EQ(text.size() - end.size(), block - 1) << "the last CR ends the block";
        text += "2;B";
        writeBytes(folder.filePath("regels.txt"), text);
        QFile file(folder.filePath("regels.txt"));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        AnsiLineReader reader(file);
        QString line, last;
        int count = 0, empty = 0;
        while (reader.readLine(line)) {
            ++count;
            empty += line.isEmpty();
            last = line;
        }
        EXPECT_EQ(count, lines + 2);
        EXPECT_EQ(empty, 0);
        EXPECT_EQ(last, "2;B");
        EXPECT_EQ(reader.position(), text.size());
    }
}

// One file of the bad-input corpus (or a file made by the test), what the import stores
// as "DebiteurNummer|Bedrijfsnaam" rows, and the start of its reason when it fails.
struct CorpusCase {
    const char* file;
    QStringList rows;
    const char* failure;  // nullptr: the import succeeds
};

void PrintTo(const CorpusCase& corpus, std::ostream* out) {
    *out << corpus.file;
}

class ImportCorpus : public ExchangeTest, public ::testing::WithParamInterface<CorpusCase> {
protected:
    QString pathOf(const QString& file) {
        if (file.startsWith('/')) {
            return file;
        }
        if (file == "regel-van-10-MB.txt") {
            writeBytes(work(file),
                       "1;Alfa\r\n2;" + QByteArray(10 * 1024 * 1024, 'x') + "\r\n3;Gamma\r\n");
            return work(file);
        }
        return TestDatabase::testData("import/" + file);
    }
};

TEST_P(ImportCorpus, StoresTheRowsOfTextAndRefusesTheRestWithAReason) {
    const CorpusCase& corpus = GetParam();
    ui.filesToOpen.enqueue(pathOf(corpus.file));
    const bool imported = exchange::importTable("Klant");
    ASSERT_EQ(ui.messages.size(), 1);
    if (corpus.failure) {
        EXPECT_FALSE(imported);
        EXPECT_EQ(ui.lastMessage().text, "Importeren vanuit bestand mislukt!");
        EXPECT_TRUE(ui.lastMessage().details.startsWith(corpus.failure))
            << ui.lastMessage().details.toStdString();
    } else {
        EXPECT_TRUE(imported) << ui.lastMessage().details.toStdString();
        EXPECT_EQ(ui.lastMessage().text, "Importeren van Klant  gelukt");
    }
    QStringList rows;
    const QVariantList numbers = column("Klant", "DebiteurNummer");
    const QVariantList names = column("Klant", "Bedrijfsnaam");
    for (int i = 0; i < numbers.size(); ++i) {
        rows.append(numbers[i].toString() + '|' + names[i].toString());
    }
    EXPECT_EQ(rows, corpus.rows);
}

INSTANTIATE_TEST_SUITE_P(
    BadInput, ImportCorpus,
    ::testing::Values(
        CorpusCase{"cr-alleen.txt", {"1|Alfa", "2|Beta"}, nullptr},
        CorpusCase{"gemengde-regeleinden.txt", {"1|Alfa", "2|Beta", "3|Gamma", "4|Delta"}, nullptr},
        CorpusCase{"losse-cr-aan-het-eind.txt", {"1|Alfa", "2|Beta", "3|Gamma"}, nullptr},
        CorpusCase{"ansi-met-lege-regels.txt", {"1|Crème brûlée", "|", "2|"}, nullptr},
        CorpusCase{"utf8-met-bom.txt", {"1|Crème", "2|Zoë"}, nullptr},
        CorpusCase{"nul-tekens.txt", {}, "Regel 1: het bestand bevat NUL-tekens"},
        CorpusCase{"utf16.txt", {}, "Regel 1: het bestand is in UTF-16"},
        CorpusCase{"binair.bin", {}, "Regel 1: het bestand bevat NUL-tekens"},
        CorpusCase{"regel-van-10-MB.txt", {"1|Alfa"}, "Regel 2: de regel is langer dan 1 MB"},
        CorpusCase{"/dev/zero", {}, "Regel 1: het bestand bevat NUL-tekens"}));

}  // namespace
