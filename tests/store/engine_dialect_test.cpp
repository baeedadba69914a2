#include <gtest/gtest.h>

#include "engine_fixture.h"
#include "store/JetDialect.h"

namespace {

struct Translation {
    const char* jet;
    const char* sqlite;
};

void PrintTo(const Translation& t, std::ostream* os) {
    *os << t.jet;
}

class JetTranslation : public ::testing::TestWithParam<Translation> {};

TEST_P(JetTranslation, GivesSqliteWhatItUnderstands) {
    EXPECT_EQ(jet::translate(QString::fromUtf8(GetParam().jet)),
              QString::fromUtf8(GetParam().sqlite));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, JetTranslation,
    ::testing::Values(
        Translation{"SELECT * FROM Artikel WHERE Zichtbaar = true ORDER BY Omschrijving",
                    "SELECT * FROM Artikel WHERE Zichtbaar = 1 ORDER BY Omschrijving"},
        Translation{"SELECT * FROM BTW WHERE Zichtbaar=True AND x=FALSE",
                    "SELECT * FROM BTW WHERE Zichtbaar=1 AND x=0"},
        Translation{"SELECT 'true', \"false\" FROM t", "SELECT 'true', 'false' FROM t"},
        Translation{"SELECT Nummer,Omschrijving, Eenheid, IIF(NegVoorToestaan=true,\"Ja\", "
                    "\"Neen\") as Neg,Prijs FROM Artikel WHERE Zichtbaar=true ORDER BY Nummer ",
                    "SELECT Nummer,Omschrijving, Eenheid, IIF(NegVoorToestaan=1,'Ja', 'Neen') "
                    "as Neg,Prijs FROM Artikel WHERE Zichtbaar=1 ORDER BY Nummer"},
        Translation{"SELECT \"it's\", \"zeg \"\"hoi\"\"\"", "SELECT 'it''s', 'zeg \"hoi\"'"},
        Translation{"SELECT 'a \"b\" + c' FROM t", "SELECT 'a \"b\" + c' FROM t"},
        Translation{"SELECT [Naam] FROM [Klant]", "SELECT [Naam] FROM [Klant]"},
        Translation{"SELECT a + ' ' + b AS naam", "SELECT a || ' ' || b AS naam"},
        Translation{"SELECT \"x\" + (a)", "SELECT 'x' || (a)"},
        Translation{"Update Artikel SET Voorraad=Voorraad+-2 WHERE ArtikelID=7",
                    "Update Artikel SET Voorraad=Voorraad+-2 WHERE ArtikelID=7"},
        Translation{"SELECT Prijs + 1, +5 FROM Artikel", "SELECT Prijs + 1, +5 FROM Artikel"},
        Translation{"SELECT 1;", "SELECT 1"}, Translation{"SELECT 'a;b' ; ; ", "SELECT 'a;b'"},
        Translation{"ALTER TABLE Artikel ADD COLUMN GeenVoorraad YESNO;",
                    "ALTER TABLE Artikel ADD COLUMN GeenVoorraad YESNO"},
        Translation{"ALTER TABLE Klant ADD COLUMN Merk TEXT(25)",
                    "ALTER TABLE Klant ADD COLUMN Merk TEXT(25) COLLATE NOCASE"},
        Translation{"ALTER TABLE Klant ADD COLUMN (Gewicht, NUMBER(8))",
                    "ALTER TABLE Klant ADD COLUMN Gewicht DOUBLE"},
        Translation{"CREATE TABLE Maat(MaatID   AUTOINCREMENT, Weergeven YESNO, Naam      "
                    "TEXT(15), Lengte    NUMBER , Nummer    NUMBER , PRIMARY KEY (MaatID))",
                    "CREATE TABLE Maat(MaatID INTEGER PRIMARY KEY AUTOINCREMENT, Weergeven "
                    "YESNO, Naam TEXT(15) COLLATE NOCASE, Lengte DOUBLE, Nummer DOUBLE)"},
        Translation{"CREATE TABLE a (Id COUNTER PRIMARY KEY, Notitie MEMO, Bedrag CURRENCY, "
                    "Actief BIT NOT NULL DEFAULT True, Code TEXT (4) COLLATE BINARY)",
                    "CREATE TABLE a (Id INTEGER PRIMARY KEY AUTOINCREMENT, Notitie LONGTEXT "
                    "COLLATE NOCASE, Bedrag CURRENCY, Actief YESNO NOT NULL DEFAULT 1, Code "
                    "TEXT(4) COLLATE BINARY)"}));

class MoreThanOneStatement : public EngineTest,
                             public ::testing::WithParamInterface<const char*> {};

TEST_P(MoreThanOneStatement, IsRefusedAndNothingRuns) {
    db.execute(QStringLiteral("CREATE TABLE Klant (KlantID AUTOINCREMENT, Naam TEXT(20))"));
    db.execute(QStringLiteral("INSERT INTO Klant (Naam) VALUES ('Jansen')"));

    EXPECT_EQ(errorOf([&] { db.execute(QString::fromUtf8(GetParam())); }), 3142);
    EXPECT_EQ(errorOf([&] { db.openReadSet(QString::fromUtf8(GetParam())); }), 3142);
    EXPECT_EQ(scalar(QStringLiteral("SELECT count(*) FROM Klant")).toInt(), 1);
}

INSTANTIATE_TEST_SUITE_P(Texts, MoreThanOneStatement,
                         ::testing::Values("DELETE FROM Klant; DROP TABLE Klant",
                                           "DELETE FROM Klant;DELETE FROM Klant",
                                           "DELETE FROM Klant; x", "DELETE FROM Klant;; -- x"));

// Which "+" joins texts depends on the columns beside it, so these run on a database.
struct QueryCase {
    const char* sql;
    QVariant expected;
};

void PrintTo(const QueryCase& c, std::ostream* os) {
    *os << c.sql;
}

class JetQueries : public EngineTest, public ::testing::WithParamInterface<QueryCase> {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        db.execute(
            QStringLiteral("CREATE TABLE Klant (KlantID AUTOINCREMENT, Bedrijfsnaam "
                           "TEXT(50), Voorletters TEXT(10), Tussenvoegsel TEXT(10), "
                           "Achternaam TEXT(30), Nummer TEXT(5), Voorraad LONG, BTW YESNO, "
                           "Dhr YESNO, Zichtbaar YESNO, PRIMARY KEY (KlantID))"));
        db.execute(
            QStringLiteral("INSERT INTO Klant (Bedrijfsnaam, Voorletters, Tussenvoegsel, "
                           "Achternaam, Nummer, Voorraad, BTW, Dhr, Zichtbaar) VALUES "
                           "(\"Zon\", 'J.', 'van', 'Dijk', '5', 10, True, False, True)"));
        db.execute(
            QStringLiteral("INSERT INTO Klant (Bedrijfsnaam, Zichtbaar) VALUES ('Aal', "
                           "False)"));
        db.execute(
            QStringLiteral("CREATE TABLE Factuur (FactuurID AUTOINCREMENT, Nummer LONG, "
                           "PRIMARY KEY (FactuurID))"));
        db.execute(QStringLiteral("INSERT INTO Factuur (Nummer) VALUES (12)"));
        db.execute(QStringLiteral("INSERT INTO Factuur (Nummer) VALUES (9)"));
    }
};

TEST_P(JetQueries, RunAsJetWouldRunThem) {
    auto set = db.openReadSet(QString::fromUtf8(GetParam().sql));
    const QVariant& expected = GetParam().expected;
    if (expected.typeId() == QMetaType::QStringList) {
        QStringList values;
        for (; !set->isEOF(); set->moveNext()) {
            values.append(set->value(set->fieldCount() - 1).toString());
        }
        EXPECT_EQ(values, expected.toStringList());
    } else {
        EXPECT_EQ(set->value(0), expected);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Queries, JetQueries,
    ::testing::Values(
        QueryCase{"SELECT Voorletters + Achternaam FROM Klant", QVariant(QStringLiteral("J.Dijk"))},
        QueryCase{"SELECT klant.voorletters + ' ' + Klant.Tussenvoegsel + ' ' + "
                  "Klant.achternaam as naam FROM Klant",
                  QVariant(QStringLiteral("J. van Dijk"))},
        QueryCase{"SELECT Voorraad+-2 FROM Klant", QVariant(8)},
        QueryCase{"SELECT Voorraad + Voorraad FROM Klant", QVariant(20)},
        QueryCase{"SELECT Nummer + 1 FROM Klant", QVariant(6)},
        QueryCase{"SELECT count(*) FROM Klant WHERE Bedrijfsnaam = 'ZON'", QVariant(1)},
        QueryCase{"SELECT count(*) FROM Factuur WHERE Nummer='12'", QVariant(1)},
        QueryCase{"SELECT Max(Nummer) FROM Factuur", QVariant(12)},
        QueryCase{"SELECT *  ,IIF(BTW=true,\"Ja\",\"Nee\") AS NulP,IIF(Dhr=true,\"M\",\"V\") "
                  "AS HeerMevrouw  FROM Klant WHERE Zichtbaar=true ORDER BY Bedrijfsnaam",
                  QVariant(QStringList{"V"})},
        QueryCase{"SELECT Bedrijfsnaam, IIF(BTW=true,\"Ja\",\"Nee\") AS NulP FROM Klant "
                  "ORDER BY Bedrijfsnaam",
                  QVariant(QStringList{"Nee", "Ja"})}));

}  // namespace
