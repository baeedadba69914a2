// Where the two databases are looked for, the start-up check of db.daa, the schema
// routines and the upgrade that runs at every start.
#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>

#include "RecordingUiService.h"
#include "TestDatabase.h"
#include "base/ProgramFolder.h"
#include "store/StatementTexts.h"
#include "store/clsDatabase.h"
#include "store/clsObjAppInstellingen.h"
#include "store/modDatabase.h"

namespace {

struct FolderCase {
    const char* folder;
    const char* database;
    const char* stockDatabase;
};

class DatabasePaths : public ::testing::TestWithParam<FolderCase> {
protected:
    void SetUp() override {
        gOdbcPad.clear();
        ProgramFolder::setForTests(GetParam().folder);
    }
    void TearDown() override {
        gOdbcPad.clear();
        ProgramFolder::setForTests(QString());
    }
};

TEST_P(DatabasePaths, FollowTheProgramFolder) {
    EXPECT_EQ(clsDatabase::DatabasePath(), GetParam().database);
    EXPECT_EQ(clsDatabase().connectionString(),
              QString("Data Provider=Microsoft.Jet.OLEDB.4.0;Data Source=") + GetParam().database +
                  ";Persist Security Info=False");
    EXPECT_EQ(GeefOdbcConnectieString(), QString("DRIVER={Microsoft Access Driver (*.mdb)};DBQ=") +
                                             GetParam().stockDatabase + ";UID=sa;PWD=;");
    EXPECT_EQ(gOdbcPad, GetParam().stockDatabase);
}

INSTANTIATE_TEST_SUITE_P(Folders, DatabasePaths,
                         ::testing::Values(FolderCase{"/opt/lindebrug", "/opt/lindebrug/db.daa",
                                                      "/opt/lindebrug/daa.mdb"},
                                           // The stock database always gets a separator of its own.
                                           FolderCase{"/opt/lindebrug/", "/opt/lindebrug/db.daa",
                                                      "/opt/lindebrug//daa.mdb"},
                                           FolderCase{"/", "/db.daa", "//daa.mdb"}));

TEST(StockDatabasePath, OnceSetItStaysWhenTheProgramFolderChanges) {
    gOdbcPad.clear();
    ProgramFolder::setForTests("/eerste");
    GeefOdbcConnectieString();
    ProgramFolder::setForTests("/tweede");
    EXPECT_EQ(gOdbcPad, "/eerste/daa.mdb");
    ZetOdbcPad("/elders/voorraad.mdb");
    EXPECT_EQ(GeefOdbcConnectieString(),
              "DRIVER={Microsoft Access Driver (*.mdb)};DBQ=/elders/voorraad.mdb;UID=sa;PWD=;");
    gOdbcPad.clear();
    ProgramFolder::setForTests(QString());
}

struct StatementCase {
    QString actual;
    const char* expected;
};

TEST(SchemaStatements, AreSentWordForWord) {
    const StatementCase cases[] = {
        {sqltext::textColumnLength("Klant", "Fax", 40),
         "ALTER TABLE Klant ALTER COLUMN Fax Text(40)"},
        {sqltext::newColumn("Klant", "Extra", 1, 50),
         "ALTER TABLE Klant ADD COLUMN Extra TEXT(50)"},
        {sqltext::newColumn("Klant", "Punten", 2, 4),
         "ALTER TABLE Klant ADD COLUMN (Punten, NUMBER(4))"},
        {sqltext::newColumn("Artikel", "GeenVoorraad", 5, 1),
         "ALTER TABLE Artikel ADD COLUMN GeenVoorraad YESNO;"},
        {sqltext::newColumn("Artikel", "Iets", 3, 1), ""},
        {sqltext::dropColumn("Klant", "Fax"), "ALTER TABLE Klant DROP Fax)"},
        {sqltext::newLookupTable("Kleur"),
         "CREATE TABLE Kleur(KleurID   AUTOINCREMENT, Weergeven YESNO, Naam      TEXT(15), "
         "Lengte    NUMBER , Nummer    NUMBER , PRIMARY KEY (KleurID))"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.expected);
        EXPECT_EQ(c.actual, c.expected);
    }
}

// What describes the database: its tables with their columns, and the rows they hold.
QString snapshot(const TestDatabase& db) {
    QString all = db.scalar("SELECT group_concat(sql, ';') FROM sqlite_master").toString();
    for (const char* table : {"Artikel", "BTW", "Instellingen"}) {
        all += db.scalar(QString("SELECT group_concat(rowid) FROM %1").arg(table)).toString();
    }
    return all;
}

bool hasColumn(const TestDatabase& db, const QString& table, const QString& column) {
    return db.scalar(QString("SELECT COUNT(*) FROM pragma_table_info('%1') WHERE name='%2'")
                         .arg(table, column))
               .toInt() == 1;
}

class SchemaUpgrade : public ::testing::Test {
protected:
    TestDatabase db{TestDatabase::testData("earliest_layout.sql")};
    RecordingUiService ui;
};

TEST_F(SchemaUpgrade, AddsTheMissingColumnsWhichOlderRowsHoldAsNull) {
    ASSERT_FALSE(hasColumn(db, "Artikel", "GeenVoorraad"));
    clsObjAppInstellingen().AanpassenDatabase();
    EXPECT_TRUE(hasColumn(db, "Artikel", "GeenVoorraad"));
    EXPECT_TRUE(hasColumn(db, "Instellingen", "NoSound"));
    EXPECT_EQ(db.scalar("SELECT COUNT(*) FROM Artikel WHERE GeenVoorraad IS NULL").toInt(), 3);

    auto set = gConnectie->openReadSet("SELECT GeenVoorraad FROM Artikel");
    EXPECT_EQ(set->field(0).type, FieldType::Boolean) << "the new column is a yes/no column";
    EXPECT_TRUE(ui.messages.isEmpty());
}

TEST_F(SchemaUpgrade, ASecondStartChangesAndReportsNothing) {
    clsObjAppInstellingen().AanpassenDatabase();
    const QString once = snapshot(db);
    clsObjAppInstellingen().AanpassenDatabase();
    EXPECT_EQ(snapshot(db), once);
    EXPECT_TRUE(ui.messages.isEmpty());
}

TEST_F(SchemaUpgrade, NieuweKolomAddsColumnsOfEachKindAndRunsNothingForAnUnknownKind) {
    clsDatabase database;
    const QString before = snapshot(db);
    database.NieuweKolom("BTW", "Onbekend", 3, 10);
    EXPECT_EQ(snapshot(db), before);

    database.NieuweKolom("BTW", "Omschrijving", 1, 30);
    database.NieuweKolom("BTW", "Volgorde", 2, 4);
    database.NieuweKolom("BTW", "Standaard", 5, 1);
    for (const char* column : {"Omschrijving", "Volgorde", "Standaard"}) {
        EXPECT_TRUE(hasColumn(db, "BTW", column)) << column;
    }
    EXPECT_TRUE(ui.messages.isEmpty());
}

TEST(StartupCheck, FindsTheDatabaseAndMakesItWritable) {
    TestDatabase db;
    QFile::setPermissions(db.path(), QFile::ReadOwner | QFile::ReadUser);
    EXPECT_TRUE(clsObjAppInstellingen().DatabaseNietOpAlleenLezen());
    EXPECT_TRUE(QFileInfo(db.path()).permissions() & QFile::WriteOwner);

    // The same file is found from a folder written with its trailing separator.
    ProgramFolder::setForTests(db.folder() + "/");
    EXPECT_TRUE(clsObjAppInstellingen().DatabaseNietOpAlleenLezen());

    QFile::remove(db.path());
    EXPECT_FALSE(clsObjAppInstellingen().DatabaseNietOpAlleenLezen());
}

}  // namespace
