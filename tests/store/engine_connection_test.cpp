#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>

#include "engine_fixture.h"

namespace {

class ConnectionStrings : public EngineTest,
                          public ::testing::WithParamInterface<QString (*)(const QString&)> {};

TEST_P(ConnectionStrings, OpenTheFileTheyNameAndNoOther) {
    Connection second;
    second.open(GetParam()(path));
    EXPECT_EQ(QFileInfo(second.filePath()).canonicalFilePath(),
              QFileInfo(path).canonicalFilePath());
    second.close();
    EXPECT_EQ(errorOf([&] { second.execute("SELECT 1"); }), 3704);
    EXPECT_EQ(errorOf([&] { second.openReadSet("SELECT 1"); }), 3704);

    const QString missing = data.file("daa.mdb");
    const Error missingError = errorFrom([&] { second.open(GetParam()(missing)); });
    EXPECT_EQ(missingError.number(), 3024);
    EXPECT_TRUE(missingError.description().contains(missing));
    EXPECT_FALSE(QFile::exists(missing));

    const QString text = data.file("notities.txt");
    QFile file(text);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(4096, 'x'));
    file.close();
    const Error textError = errorFrom([&] { second.open(GetParam()(text)); });
    EXPECT_EQ(textError.number(), 26);  // SQLite: not a database
    EXPECT_TRUE(textError.description().contains("kan niet als database"));
    EXPECT_EQ(second.state(), Connection::Closed);
    EXPECT_EQ(QFileInfo(text).size(), 4096);
}

INSTANTIATE_TEST_SUITE_P(BothForms, ConnectionStrings,
                         ::testing::Values(&EngineTest::connectionString, &EngineTest::odbcString));

using ConnectionTest = EngineTest;

TEST_F(ConnectionTest, CommitKeepsAndRollbackUndoesAtEveryDepthInTheFileItself) {
    EXPECT_EQ(scalar("PRAGMA journal_mode").toString(), "delete");
    EXPECT_EQ(scalar("PRAGMA synchronous").toInt(), 2);
    EXPECT_EQ(scalar("PRAGMA foreign_keys").toInt(), 1);

    db.beginTrans();
    db.execute("INSERT INTO Klant (Bedrijfsnaam) VALUES ('Weg')");
    EXPECT_TRUE(db.inTransaction());
    db.rollbackTrans();
    EXPECT_FALSE(db.inTransaction());

    db.beginTrans();
    db.execute("INSERT INTO Klant (Bedrijfsnaam) VALUES ('Buiten')");
    db.beginTrans();
    db.execute("INSERT INTO Klant (Bedrijfsnaam) VALUES ('Binnen weg')");
    db.rollbackTrans();
    db.beginTrans();
    db.execute("INSERT INTO Klant (Bedrijfsnaam) VALUES ('Binnen')");
    db.commitTrans();
    db.commitTrans();

    EXPECT_EQ(rows("SELECT Bedrijfsnaam FROM Klant ORDER BY KlantID"),
              (QStringList{"Buiten", "Binnen"}));
    EXPECT_EQ(errorOf([&] { db.commitTrans(); }), 3034);
    EXPECT_EQ(errorOf([&] { db.rollbackTrans(); }), 3034);
}

TEST_F(ConnectionTest, ExecuteCountsTheRowsItChangedAndRaisesTheEnginesErrors) {
    db.execute("INSERT INTO Artikel (Nummer, Voorraad) VALUES ('a', 5), ('b', 5), ('c', 5)");
    EXPECT_EQ(db.execute("Update Artikel SET Voorraad=Voorraad+-2 WHERE ArtikelID>1"), 2);
    EXPECT_EQ(scalar("SELECT Sum(Voorraad) FROM Artikel").toInt(), 11);

    const Error error =
        errorFrom([&] { db.execute("INSERT INTO Artikel (ArtikelID) VALUES (1)"); });
    EXPECT_EQ(error.number(), 19);  // SQLITE_CONSTRAINT
    EXPECT_TRUE(error.description().contains("Artikel.ArtikelID"));
    EXPECT_EQ(errorOf([&] { db.execute("SELECT * FROM Onbekend"); }), 1);
}

TEST_F(ConnectionTest, MoreThanOneStatementIsRefusedAndNothingRuns) {
    db.execute("INSERT INTO Klant (Bedrijfsnaam) VALUES ('Jansen')");
    for (const char* text :
         {"DELETE FROM Klant; DROP TABLE Klant", "DELETE FROM Klant;DELETE FROM Klant",
          "DELETE FROM Klant; x", "DELETE FROM Klant;; -- x"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(errorOf([&] { db.execute(text); }), 3142);
        EXPECT_EQ(errorOf([&] { db.openReadSet(text); }), 3142);
        EXPECT_EQ(scalar("SELECT count(*) FROM Klant").toInt(), 1);
    }
}

// Which "+" joins texts depends on the columns beside it, so these run on a database.
TEST_F(ConnectionTest, JetTextsRunAsJetWouldRunThem) {
    run(
        {"INSERT INTO Klant (Bedrijfsnaam, Voorletters, Tussenvoegsel, Achternaam, BTW, Dhr, "
         "Zichtbaar) VALUES (\"Zon\", 'J.', 'van', 'Dijk', True, False, True)",
         "INSERT INTO Klant (Bedrijfsnaam, Zichtbaar) VALUES ('Aal', False)",
         "INSERT INTO Artikel (Nummer, Voorraad) VALUES ('5', 10)",
         "INSERT INTO Factuur (Nummer) VALUES (12), (9)"});
    const std::pair<const char*, QStringList> cases[] = {
        {"SELECT \"it's \"\"x\"\"\" + ' \"b\" + true;' + [Bedrijfsnaam] FROM [Klant] WHERE "
         "Zichtbaar=True AND BTW<>FALSE; ",
         {"it's \"x\" \"b\" + true;Zon"}},
        {"SELECT Voorletters + Achternaam FROM Klant WHERE KlantID=1", {"J.Dijk"}},
        {"SELECT klant.voorletters + ' ' + Klant.Tussenvoegsel + ' ' + Klant.achternaam as naam "
         "FROM Klant",
         {"J. van Dijk", "<Null>"}},
        {"SELECT Voorraad+-2, Voorraad + Voorraad, Nummer + 1 FROM Artikel", {"8|20|6"}},
        {"SELECT count(*) FROM Klant WHERE Bedrijfsnaam = 'ZON'", {"1"}},
        {"SELECT count(*), Max(Nummer) FROM Factuur WHERE Nummer='12'", {"1|12"}},
        {"SELECT *  ,IIF(BTW=true,\"Ja\",\"Nee\") AS NulP,IIF(Dhr=true,\"M\",\"V\") AS "
         "HeerMevrouw  FROM Klant WHERE Zichtbaar=true ORDER BY Bedrijfsnaam",
         {"1|<Null>|Zon|<Null>|<Null>|J.|van|Dijk|<Null>|<Null>|<Null>|<Null>|<Null>|true|true|"
          "false|<Null>|Ja|V"}},
        {"SELECT Bedrijfsnaam, IIF(BTW=true,\"Ja\",\"Nee\") AS NulP FROM Klant ORDER BY "
         "Bedrijfsnaam",
         {"Aal|Nee", "Zon|Ja"}},
    };
    for (const auto& [sql, expected] : cases) {
        EXPECT_EQ(rows(sql), expected) << sql;
    }
}

}  // namespace
