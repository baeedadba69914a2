#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <csignal>

#include "ErrorOf.h"
#include "base/Error.h"
#include "jet_fixture.h"
#include "store/jet/JetMigration.h"
#include "store/jet/JetReader.h"
#include "store/jet/JetText.h"

using namespace jettest;

namespace {

// The columns of a table in a database file with their declared types, in their order.
QString columnsOf(const TestDatabase& reader, const QString& database, const QString& table) {
    const QString sql =
        "SELECT group_concat(name || ' ' || type, ', ') FROM pragma_table_info('%1')";
    return reader.scalar(sql.arg(table), database).toString();
}

// A program folder holding an old file as db.daa.
class JetFolder {
public:
    explicit JetFolder(const QString& fixtureName, const QString& name = "db.daa") {
        QFile::copy(fixture(fixtureName), folder.file(name));
        QFile::setPermissions(folder.file(name), QFile::ReadOwner | QFile::WriteOwner |
                                                     QFile::ReadGroup | QFile::ReadOther);
        original = readBytes(folder.file(name));
    }
    QString database() const { return folder.file("db.daa"); }
    QStringList files() const { return QDir(folder.path()).entryList(QDir::Files | QDir::System); }

    TempProgramFolder folder;
    QByteArray original;
};

struct Fixture {
    const char* file;
    const char* expected;
    int deletedInvoice;  // its lines are left in the file; 0 for none
};

void PrintTo(const Fixture& f, std::ostream* os) {
    *os << f.file;
}

class JetFixtureTest : public testing::TestWithParam<Fixture> {};

// Every cell as the old program held it, money exact, Null apart from "", dates with their
// time; an earliest file ends in the current layout; orphaned lines stay out.
TEST_P(JetFixtureTest, ConvertsEveryCellAsExpected) {
    const Fixture& f = GetParam();
    TempProgramFolder folder;
    const jet::ConversionResult result = jet::convert(fixture(f.file), folder.file("db.daa"));
    QJsonObject expected = expectedTables(f.expected);
    if (f.deletedInvoice) {
        expected = withoutInvoice(expected, f.deletedInvoice);
    }
    EXPECT_EQ(differences(folder.file("db.daa"), expected).join('\n').toStdString(), "");

    TestDatabase current;
    for (const QString& table : jet::convertedTables()) {
        EXPECT_EQ(columnsOf(current, folder.file("db.daa"), table),
                  columnsOf(current, current.path(), table));
    }
    for (const jet::TableCount& count : result.tables) {
        EXPECT_EQ(count.rows, expected.value(count.table).toObject().value("rowCount").toInt())
            << count.table.toStdString();
    }
    EXPECT_EQ(result.orphans.size(), f.deletedInvoice ? 2 : 0);
}

INSTANTIATE_TEST_SUITE_P(
    Fixtures, JetFixtureTest,
    testing::Values(Fixture{"db-jet4.daa", "db-jet4.expected.json", 0},
                    Fixture{"db-jet4-earliest.daa", "db-jet4-earliest.expected.json", 0},
                    Fixture{"db-jet4-empty.daa", "db-jet4-empty.expected.json", 0},
                    Fixture{"db-jet4-orphans.daa", "db-jet4.expected.json", 10}));

TEST(JetDetection, TellsAJetFileFromOthers) {
    TestDatabase sqlite;
    EXPECT_TRUE(jet::isJetFile(fixture("db-jet4-empty.daa")));
    EXPECT_FALSE(jet::isJetFile(sqlite.path()));
    EXPECT_FALSE(jet::isJetFile(sqlite.file("absent.daa")));
}

// The old file converted in its own place: the new database takes its name, the old one
// stays as db.daa.jet, the lines of the deleted invoice go to a CSV file, and the old
// program's daa.mdb becomes a link to the new db.daa after its stock was compared.
TEST(JetMigration, ReplacesInPlaceKeepingTheOldFileAndSettingOrphansApart) {
    JetFolder folder("db-jet4-orphans.daa");
    QFile::copy(fixture("db-jet4-earliest.daa"), folder.folder.file("daa.mdb"));
    const jet::MigrationResult result = jet::migrate(folder.database(), folder.database());

    EXPECT_FALSE(jet::isJetFile(folder.database()));
    EXPECT_EQ(QFileInfo(folder.database()).permissions(), QFileInfo(result.keptAs).permissions());
    EXPECT_EQ(result.keptAs, folder.database() + ".jet");
    EXPECT_EQ(readBytes(result.keptAs), folder.original);
    EXPECT_EQ(
        differences(folder.database(), withoutInvoice(expectedTables("db-jet4.expected.json"), 10)),
        QStringList());

    const QList<QByteArray> lines =
        readBytes(folder.folder.file("db-regels-zonder-factuur.csv")).split('\n');
    ASSERT_EQ(lines.size(), 4);  // header, two lines, and the end after the last CR LF
    // The two lines of invoice 10 as its rows read, money with its four decimals.
    const QStringList header = QString::fromUtf8(lines[0].trimmed()).split(';');
    EXPECT_EQ(header.mid(0, 5),
              (QStringList{"FactuurArtikelID", "FactuurID", "ArtikelId", "Aantal", "Prijs"}));
    QStringList orphans;
    for (const QJsonValue row :
         expectedTables("db-jet4.expected.json").value("ArtikelPerFactuur")["rows"].toArray()) {
        if (row["FactuurID"].toInt() != 10) {
            continue;
        }
        QStringList fields;
        for (const QString& column : header) {
            fields << (row[column].isString() ? row[column].toString()
                                              : QString::number(row[column].toDouble(), 'g',
                                                                QLocale::FloatingPointShortest));
        }
        orphans << fields.join(';');
    }
    EXPECT_EQ(QString::fromUtf8(lines[1].trimmed() + "\n" + lines[2].trimmed()),
              orphans.join('\n'));

    // Stock that differs between the two files, article by article, from their rows.
    QHash<int, int> ours, theirs;
    for (const auto& [json, stock] : {std::pair{"db-jet4.expected.json", &ours},
                                      std::pair{"db-jet4-earliest.expected.json", &theirs}}) {
        for (const QJsonValue row :
             expectedTables(json).value("Artikel").toObject().value("rows").toArray()) {
            stock->insert(row["ArtikelID"].toInt(), row["Voorraad"].toInt());
        }
    }
    int differing = 0;
    for (auto it = ours.begin(); it != ours.end(); ++it) {
        differing += !theirs.contains(it.key()) || theirs.value(it.key()) != it.value();
    }
    EXPECT_EQ(result.stockDifferences.size(), differing);
    EXPECT_TRUE(result.stockDifferences.contains(
        QString("ArtikelID 64: db.daa %1, daa.mdb leeg").arg(ours[64])));

    const QString report = QString::fromUtf8(readBytes(result.reportFile));
    EXPECT_TRUE(report.contains("  ArtikelPerFactuur   : 836\r\n")) << report.toStdString();
    EXPECT_TRUE(report.contains(result.stockDifferences.first()));
    EXPECT_TRUE(report.contains("Het oude daa.mdb is bewaard als " + result.stockFileKeptAs));
    EXPECT_EQ(QFileInfo(folder.folder.file("daa.mdb")).symLinkTarget(), folder.database());
    EXPECT_TRUE(jet::isJetFile(result.stockFileKeptAs));
}

TEST(JetMigration, ReplacingAnotherDatabaseKeepsItAsVorige) {
    JetFolder old("db-jet4-empty.daa", "OUD.daa");
    TestDatabase current;
    const QByteArray before = readBytes(current.path());
    const jet::MigrationResult result = jet::migrate(old.folder.file("OUD.daa"), current.path());
    EXPECT_EQ(result.keptAs, current.path() + ".vorige");
    EXPECT_EQ(readBytes(result.keptAs), before);
    EXPECT_EQ(jet::invoiceCount(current.path()), 0);
    EXPECT_EQ(jet::invoiceCount(old.folder.file("OUD.daa")), -1);
    EXPECT_EQ(old.files(), (QStringList{"OUD-omzetverslag.txt", "OUD.daa"}));
    EXPECT_EQ(readBytes(old.folder.file("OUD.daa")), old.original);
}

struct Refusal {
    const char* name;
    const char* fixture;
    qint64 truncateTo;  // 0: the whole file
    std::pair<const char*, const char*> schemaChange;
    QString message;
};

QString schemaWith(std::pair<const char*, const char*> change) {
    QString schema = QString::fromUtf8(readBytes(TestDatabase::schemaScript()));
    return change.first ? schema.replace(change.first, change.second) : schema;
}

void PrintTo(const Refusal& r, std::ostream* os) {
    *os << r.name;
}

class JetRefusalTest : public testing::TestWithParam<Refusal> {};

// What the new schema cannot hold, or a file that is no (whole) Jet file, stops with a
// message that names the problem; the old file stays as it was and nothing else is left.
TEST_P(JetRefusalTest, StopsWithAMessageAndLeavesTheFolderAsItWas) {
    const Refusal& r = GetParam();
    JetFolder folder(r.fixture);
    if (r.truncateTo) {
        QFile::resize(folder.database(), r.truncateTo);
    }
    folder.original = readBytes(folder.database());
    const Error error = errorFrom([&] {
        jet::migrate(folder.database(), folder.database(), {}, schemaWith(r.schemaChange));
    });
    EXPECT_EQ(error.description().toStdString(),
              QString(r.message).replace("%1", folder.database()).toStdString());
    EXPECT_EQ(folder.files(), QStringList{"db.daa"});
    EXPECT_EQ(readBytes(folder.database()), folder.original);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, JetRefusalTest,
    testing::Values(
        Refusal{"TextTooLong",
                "db-jet4-earliest.daa",
                0,
                {"Bedrijfsnaam TEXT(100) COLLATE NOCASE,\n    Fax",
                 "Bedrijfsnaam TEXT(12) COLLATE NOCASE,\n    Fax"},
                "Tabel Klant, KlantID 1, kolom Bedrijfsnaam: de tekst is 19 tekens lang; de kolom "
                "neemt er hoogstens 12."},
        Refusal{"NumberOutOfRange",
                "db-jet4.daa",
                0,
                {"Nummer LONG,\n    Datum", "Nummer INTEGER,\n    Datum"},
                "Tabel Factuur, FactuurID 1, kolom Nummer: het getal 2021001 past niet in de "
                "kolom (die houdt -32768 tot en met 32767)."},
        Refusal{"OtherKindOfValue",
                "db-jet4.daa",
                0,
                {"Klantnaam TEXT(100)", "Klantnaam LONG"},
                "Tabel Factuur, FactuurID 1, kolom Klantnaam: de kolom houdt in het oude "
                "bestand een ander soort gegevens."},
        Refusal{"ColumnUnknownToTheSchema",
                "db-jet4.daa",
                0,
                {"    Klantnaam TEXT(100) COLLATE NOCASE,\n", ""},
                "Tabel Factuur, FactuurID 1, kolom Klantnaam: deze kolom bestaat niet in het "
                "nieuwe formaat."},
        Refusal{"NotAJetFile", "db-jet4.expected.json", 0, {}, "%1 is geen Access-database."},
        Refusal{"TruncatedAtAPage",
                "db-jet4.daa",
                200704,
                {},
                "De tabel Instellingen in %1 is niet te lezen."},
        Refusal{"RowsMissing",
                "db-jet4.daa",
                76 * 4096,
                {},
                "Het oude bestand is beschadigd of onvolledig: van de tabel Instellingen zijn 0 "
                "van de 1 rijen te lezen."},
        Refusal{"TruncatedInAPage",
                "db-jet4.daa",
                150001,
                {},
                "%1 is onvolledig: het houdt op midden in een blok van 4096 bytes."}),
    [](const auto& info) { return std::string(info.param.name); });

// A conversion killed at any moment (the child process dies at its n-th progress report)
// leaves db.daa as it was; the next one clears what the killed one left and succeeds.
class JetKillTest : public testing::TestWithParam<int> {};

TEST_P(JetKillTest, AKilledConversionLeavesTheOldFile) {
    JetFolder folder("db-jet4.daa");
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        int reports = 0;
        try {
            jet::migrate(folder.database(), folder.database(), [&](qint64, qint64) {
                if (++reports == GetParam()) {
                    ::raise(SIGKILL);
                }
                return true;
            });
        } catch (...) {
        }
        ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
    EXPECT_EQ(readBytes(folder.database()), folder.original);
    EXPECT_FALSE(QFileInfo::exists(folder.database() + ".jet"));

    jet::migrate(folder.database(), folder.database());
    EXPECT_EQ(folder.files(), (QStringList{"db-omzetverslag.txt", "db.daa", "db.daa.jet"}));
}

INSTANTIATE_TEST_SUITE_P(AtReport, JetKillTest, testing::Values(1, 4, 7));

// Cancelled in the progress dialog: the same as a refusal, with the cancel's own number.
TEST(JetMigration, ACancelledConversionChangesNothing) {
    JetFolder folder("db-jet4.daa");
    int reports = 0;
    const auto cancelAtTheFifthReport = [&](qint64 done, qint64 total) {
        EXPECT_EQ(total, 1071);
        EXPECT_LE(done, total);
        return ++reports < 5;
    };
    EXPECT_EQ(errorOf([&] {
                  jet::migrate(folder.database(), folder.database(), cancelAtTheFifthReport);
              }),
              Error::DialogCancelled);
    EXPECT_EQ(folder.files(), QStringList{"db.daa"});
    EXPECT_EQ(readBytes(folder.database()), folder.original);
}

}  // namespace

namespace {

class MoneyTextTest : public testing::TestWithParam<std::pair<qint64, const char*>> {};

// Exact text of an amount: small negatives keep their sign, the extremes their digits.
TEST_P(MoneyTextTest, FourDecimalsExactly) {
    EXPECT_EQ(jet::moneyText(GetParam().first), GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(Amounts, MoneyTextTest,
                         testing::Values(std::pair<qint64, const char*>{0, "0.0000"},
                                         std::pair<qint64, const char*>{-500, "-0.0500"},
                                         std::pair<qint64, const char*>{123456789, "12345.6789"},
                                         std::pair<qint64, const char*>{INT64_MIN,
                                                                        "-922337203685477.5808"}));

TEST(JetCsv, QuotesWhatWouldSplitAField) {
    EXPECT_EQ(jet::csvLine({"a", "b;c", "d\"e", "x\r\ny", ""}),
              QByteArray("a;\"b;c\";\"d\"\"e\";\"x\r\ny\";\r\n"));
}

}  // namespace
