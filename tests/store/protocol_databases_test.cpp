// Where the two databases are looked for, the start-up check of db.daa, the schema
// routines and the upgrade that runs at every start, and the direct stock updates that go
// to daa.mdb.
#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>

#include "ErrorOf.h"
#include "RecordingUiService.h"
#include "TestDatabase.h"
#include "base/ProgramFolder.h"
#include "store/PersistentRecord.h"
#include "store/StatementTexts.h"
#include "store/clsDatabase.h"
#include "store/clsObjAppInstellingen.h"
#include "store/modDatabase.h"

namespace {

TEST(DatabasePaths, FollowTheProgramFolderAndTheStockPathStaysOnceSet) {
    // The stock database always gets a separator of its own.
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"/opt/lindebrug", "/opt/lindebrug/db.daa", "/opt/lindebrug/daa.mdb"},
        {"/opt/lindebrug/", "/opt/lindebrug/db.daa", "/opt/lindebrug//daa.mdb"},
        {"/", "/db.daa", "//daa.mdb"},
    };
    for (const auto& [folder, database, stockDatabase] : cases) {
        SCOPED_TRACE(folder);
        gOdbcPad.clear();
        ProgramFolder::setForTests(folder);
        EXPECT_EQ(clsDatabase::DatabasePath(), database);
        EXPECT_EQ(clsDatabase().connectionString(),
                  QString("Data Provider=Microsoft.Jet.OLEDB.4.0;Data Source=") + database +
                      ";Persist Security Info=False");
        EXPECT_EQ(GeefOdbcConnectieString(),
                  QString("DRIVER={Microsoft Access Driver (*.mdb)};DBQ=") + stockDatabase +
                      ";UID=sa;PWD=;");
        EXPECT_EQ(gOdbcPad, stockDatabase);
    }
    ProgramFolder::setForTests("/tweede");
    EXPECT_EQ(gOdbcPad, "//daa.mdb");
    ZetOdbcPad("/elders/voorraad.mdb");
    EXPECT_EQ(GeefOdbcConnectieString(),
              "DRIVER={Microsoft Access Driver (*.mdb)};DBQ=/elders/voorraad.mdb;UID=sa;PWD=;");
    gOdbcPad.clear();
    ProgramFolder::setForTests(QString());
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

TEST(SchemaAndStockStatements, AreSentWordForWord) {
    const std::pair<QString, const char*> cases[] = {
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
        {sqltext::stockUpdate(7, -2, true),
         "Update Artikel SET Voorraad=Voorraad+-2 WHERE ArtikelID=7"},
        {sqltext::stockUpdate(12, 5, false), "Update Artikel SET Voorraad=5 WHERE ArtikelID=12"},
        {sqltext::newLookupTable("Kleur"),
         "CREATE TABLE Kleur(KleurID   AUTOINCREMENT, Weergeven YESNO, Naam      TEXT(15), "
         "Lengte    NUMBER , Nummer    NUMBER , PRIMARY KEY (KleurID))"},
    };
    for (const auto& [actual, expected] : cases) {
        EXPECT_EQ(actual, expected);
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
                         .arg(table, column)) == 1;
}

TEST(SchemaUpgrade, AddsTheMissingYesNoColumnsOnceAndOlderRowsReadFalse) {
    TestDatabase db{TestDatabase::testData("earliest_layout.sql")};
    RecordingUiService ui;
    ASSERT_FALSE(hasColumn(db, "Artikel", "GeenVoorraad"));
    clsObjAppInstellingen().AanpassenDatabase();
    EXPECT_TRUE(hasColumn(db, "Instellingen", "NoSound"));
    QList<bool> geenVoorraad;
    for (auto set = gConnectie->openReadSet("SELECT GeenVoorraad FROM Artikel"); !set->isEOF();
         set->moveNext()) {
        EXPECT_EQ(set->field(0).type, FieldType::Boolean);
        geenVoorraad.append(persist::toBoolean(set->value(0)));
    }
    EXPECT_EQ(geenVoorraad, QList<bool>({false, false, false}));

    const QString once = snapshot(db);
    clsObjAppInstellingen().AanpassenDatabase();
    EXPECT_EQ(snapshot(db), once);
    EXPECT_TRUE(ui.messages.isEmpty());
}

// Each schema routine on a full database changes the layout as Jet would, or fails without
// a word where it ignores its failure.
class SchemaRoutines : public ::testing::Test {
protected:
    void TearDown() override { EXPECT_TRUE(ui.messages.isEmpty()); }

    Field field(const QString& table, const QString& column) {
        return gConnectie->openReadSet("SELECT " + column + " FROM " + table)->field(0);
    }

    TestDatabase db;
    RecordingUiService ui;
    clsDatabase database;
};

TEST_F(SchemaRoutines, NieuweKolomAddsAColumnOfEachKindOnceAndNothingForAnUnknownKind) {
    const QString before = snapshot(db);
    database.NieuweKolom("BTW", "Onbekend", 3, 10);
    EXPECT_EQ(snapshot(db), before);
    for (int time = 0; time < 2; ++time) {  // the second time fails
        database.NieuweKolom("BTW", "Omschrijving", 1, 30);
        database.NieuweKolom("BTW", "Volgorde", 2, 4);
        database.NieuweKolom("BTW", "Standaard", 5, 1);
    }
    EXPECT_EQ(db.scalar("SELECT count(*) FROM pragma_table_info('BTW')"), 7);
    EXPECT_EQ(field("BTW", "Omschrijving").type, FieldType::Text);
    EXPECT_EQ(field("BTW", "Omschrijving").size, 30);
    EXPECT_EQ(field("BTW", "Volgorde").type, FieldType::Double);
    EXPECT_EQ(field("BTW", "Standaard").type, FieldType::Boolean);
    EXPECT_EQ(db.scalar("SELECT coalesce(Omschrijving, Volgorde, Standaard) FROM BTW"), QVariant());
    db.exec("UPDATE BTW SET Omschrijving = 'Hoog'");
    EXPECT_EQ(db.scalar("SELECT count(*) FROM BTW WHERE Omschrijving = 'HOOG'"), 1);
}

TEST_F(SchemaRoutines, ZetTekstKolomLengteKeepsRowsLinesAndTheirCascadeOrFailsWhenTheyDoNotFit) {
    db.linkStockDatabase();
    ASSERT_TRUE(OpenOdbcConnectie());
    gOdbcConnectie->openReadSet("SELECT Klantnaam FROM Factuur");
    db.exec("INSERT INTO Factuur (FactuurID, Klantnaam) VALUES (1, 'Aal de Vries')");
    db.exec("INSERT INTO ArtikelPerFactuur (FactuurID) VALUES (1)");

    database.ZetTekstKolomLengte("Factuur", "Klantnaam", 200);
    EXPECT_EQ(field("Factuur", "Klantnaam").size, 200);
    EXPECT_EQ(gOdbcConnectie->openReadSet("SELECT Klantnaam FROM Factuur")->field(0).size, 200);
    database.ZetTekstKolomLengte("Factuur", "Klantnaam", 4);
    EXPECT_EQ(field("Factuur", "Klantnaam").size, 200);
    EXPECT_EQ(db.scalar("SELECT Klantnaam FROM Factuur WHERE Klantnaam = 'AAL DE VRIES'"),
              "Aal de Vries");
    EXPECT_EQ(db.scalar("SELECT count(*) FROM ArtikelPerFactuur"), 1);
    gConnectie->execute("DELETE FROM Factuur");
    EXPECT_EQ(db.scalar("SELECT count(*) FROM ArtikelPerFactuur"), 0);

    // The customer table's definition carries comments with quotes in them.
    database.ZetTekstKolomLengte("Klant", "Extra", 80);
    EXPECT_EQ(field("Klant", "Extra").size, 80);
}

TEST_F(SchemaRoutines, VerwijderKolomFailsAndNieuweTabelMakesTheLookupTable) {
    database.VerwijderKolom("Klant", "Fax");
    EXPECT_TRUE(hasColumn(db, "Klant", "Fax"));

    database.NieuweTabel("Maat");
    auto set = gConnectie->openUpdatableSet("SELECT * FROM Maat");
    const QList<FieldType> types{FieldType::Long, FieldType::Boolean, FieldType::Text,
                                 FieldType::Double, FieldType::Double};
    ASSERT_EQ(set->fieldCount(), types.size());
    for (int i = 0; i < types.size(); ++i) {
        EXPECT_EQ(set->field(i).type, types[i]) << i;
    }
    EXPECT_TRUE(set->field(0).autoIncrement);
    EXPECT_EQ(set->field(2).size, 15);
    for (int expectedKey : {1, 2}) {
        set->addNew();
        set->setValue("Naam", "Maat");
        set->update();
        EXPECT_EQ(set->value("MaatID"), QVariant(expectedKey));
    }
    EXPECT_EQ(errorOf([&] { set->setValue("Naam", QString(16, u'x')); }), Error::FieldTooSmall);
}

class StockUpdate : public ::testing::Test {
protected:
    void SetUp() override { addArticles(db.path()); }

    void addArticles(const QString& file) const {
        db.exec(
            "INSERT INTO Artikel (ArtikelID, Nummer, Voorraad) VALUES (7, '7', 10), (8, '8', 10)",
            file);
    }
    QString stock(const QString& file) const {
        return db.scalar("SELECT group_concat(Voorraad) FROM Artikel", file).toString();
    }

    TestDatabase db;
    RecordingUiService ui;
};

TEST_F(StockUpdate, ReachesDaaMdbAndNotDbDaaAlsoAfterTheConnectionWasClosed) {
    const QString stockFile = db.file("daa.mdb");
    TestDatabase::createFromScript(stockFile, TestDatabase::schemaScript());
    addArticles(stockFile);

    UpdateVoorraad(7, -2, true);
    EXPECT_EQ(stock(stockFile), "8,10");
    const Connection* first = gOdbcConnectie.get();
    UpdateVoorraad(7, 5, false);
    EXPECT_EQ(gOdbcConnectie.get(), first) << "an open connection is kept";
    EXPECT_EQ(stock(stockFile), "5,10");
    closeSharedConnections();
    UpdateVoorraad(7, 1, true);
    EXPECT_EQ(stock(stockFile), "6,10");
    EXPECT_EQ(stock(db.path()), "10,10");
}

TEST_F(StockUpdate, IsLostSilentlyWithoutDaaMdb) {
    EXPECT_FALSE(OpenOdbcConnectie());
    EXPECT_NO_THROW(UpdateVoorraad(7, -2, true));
    EXPECT_EQ(stock(db.path()), "10,10");
    EXPECT_FALSE(QFile::exists(db.file("daa.mdb"))) << "a missing database is never created";
    EXPECT_TRUE(ui.messages.isEmpty());
}

}  // namespace
