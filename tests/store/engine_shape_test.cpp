#include <gtest/gtest.h>

#include "base/Currency.h"
#include "engine_fixture.h"

namespace {

// A small invoice database: three invoices (two lines, one line, none) for two customers.
class ShapeTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        for (const char* ddl : {
                 "CREATE TABLE Artikel (ArtikelID AUTOINCREMENT, Omschrijving TEXT(50), "
                 "Prijs CURRENCY, PRIMARY KEY (ArtikelID))",
                 "CREATE TABLE BTW (BTWId AUTOINCREMENT, BTW1 NUMBER, BTW2 NUMBER, "
                 "Zichtbaar YESNO, PRIMARY KEY (BTWId))",
                 "CREATE TABLE Klant (KlantID AUTOINCREMENT, Bedrijfsnaam TEXT(50), "
                 "Voorletters TEXT(10), Tussenvoegsel TEXT(10), Achternaam TEXT(50), "
                 "Adres TEXT(50), PRIMARY KEY (KlantID))",
                 "CREATE TABLE Instellingen (InstellingenId AUTOINCREMENT, Adres TEXT(50), "
                 "BetaalTermijn INTEGER, PRIMARY KEY (InstellingenId))",
                 "CREATE TABLE Factuur (FactuurID AUTOINCREMENT, Nummer LONG, KlantId LONG, "
                 "BTWId LONG, PRIMARY KEY (FactuurID))",
                 "CREATE TABLE ArtikelPerFactuur (FactuurArtikelID AUTOINCREMENT, FactuurID LONG "
                 "REFERENCES Factuur (FactuurID) ON DELETE CASCADE, ArtikelId LONG, "
                 "Aantal DOUBLE, BTWBedragTarief1 CURRENCY, PRIMARY KEY (FactuurArtikelID))",
                 "INSERT INTO Artikel (Omschrijving, Prijs) VALUES (\"Hamer\", 125000)",
                 "INSERT INTO Artikel (Omschrijving, Prijs) VALUES (\"Zaag\", 199900)",
                 "INSERT INTO BTW (BTW1, BTW2, Zichtbaar) VALUES (21, 9, True)",
                 "INSERT INTO Klant (Bedrijfsnaam, Voorletters, Tussenvoegsel, Achternaam, Adres) "
                 "VALUES ('Dijk BV', 'J.', 'van', 'Dijk', 'Klantstraat 1')",
                 "INSERT INTO Klant (Bedrijfsnaam, Voorletters, Tussenvoegsel, Achternaam, Adres) "
                 "VALUES ('Smit', 'A.', '', 'Smit', 'Smidse 4')",
                 "INSERT INTO Instellingen (Adres, BetaalTermijn) VALUES ('Bedrijfsweg 2', 30)",
                 "INSERT INTO Factuur (Nummer, KlantId, BTWId) VALUES (1001, 1, 1)",
                 "INSERT INTO Factuur (Nummer, KlantId, BTWId) VALUES (1002, 2, 1)",
                 "INSERT INTO Factuur (Nummer, KlantId, BTWId) VALUES (1003, 1, 1)",
                 "INSERT INTO ArtikelPerFactuur (FactuurID, ArtikelId, Aantal) VALUES (1, 1, 2)",
                 "INSERT INTO ArtikelPerFactuur (FactuurID, ArtikelId, Aantal) VALUES (2, 2, 1)",
                 "INSERT INTO ArtikelPerFactuur (FactuurID, ArtikelId, Aantal) VALUES (1, 2, 3)",
             }) {
            db.execute(QString::fromUtf8(ddl));
        }
    }

    // The invoice command exactly as the template opener builds it.
    static QString invoiceCommand(const QString& ids) {
        return QStringLiteral(
                   "SHAPE {SELECT *,btw.BTW1 as BTWTarief1, btw.BTW2 as "
                   "BTWTarief2,klant.voorletters "
                   "+ ' ' + Klant.Tussenvoegsel + ' ' + Klant.achternaam as naam, "
                   "Klant.Bedrijfsnaam as KlantBedrijfsnaam  FROM Factuur,BTW,Klant,Instellingen "
                   "WHERE FactuurId IN (") +
               ids +
               QStringLiteral(
                   ") AND Factuur.BTWId = BTW.BTWId AND Factuur.KlantId = Klant.KlantId}  AS "
                   "cmdFactuur APPEND (  ( SHAPE {SELECT * FROM ArtikelPerFactuur}  AS "
                   "cmdArtikelPerFactuur APPEND ({SELECT * FROM Artikel} AS cmdArtikel RELATE "
                   "'ArtikelID' TO 'ArtikelID') AS cmdArtikel) AS cmdArtikelPerFactuur RELATE "
                   "'FactuurId' TO 'FactuurId') AS cmdArtikelPerFactuur");
    }

    // Per invoice: "number naam: article x quantity, ..." read through all three levels.
    static QStringList describe(Recordset& invoices) {
        QStringList result;
        for (; !invoices.isEOF(); invoices.moveNext()) {
            QStringList lines;
            Recordset& invoiceLines = invoices.child(QStringLiteral("cmdArtikelPerFactuur"));
            for (; !invoiceLines.isEOF(); invoiceLines.moveNext()) {
                Recordset& article = invoiceLines.child(QStringLiteral("cmdArtikel"));
                EXPECT_EQ(article.recordCount(), 1);
                lines.append(article.value(QStringLiteral("Omschrijving")).toString() +
                             QStringLiteral(" x") +
                             invoiceLines.value(QStringLiteral("Aantal")).toString());
            }
            result.append(invoices.value(QStringLiteral("Nummer")).toString() + u' ' +
                          invoices.value(QStringLiteral("naam")).toString() + QStringLiteral(": ") +
                          lines.join(QStringLiteral(", ")));
        }
        return result;
    }
};

TEST_F(ShapeTest, InvoiceCommandGivesEachInvoiceItsLinesAndEachLineItsArticle) {
    for (auto open : {&Connection::openReadSet, &Connection::openUpdatableSet}) {
        auto invoices = (db.*open)(invoiceCommand(QStringLiteral("1,2,3")));
        EXPECT_EQ(invoices->childNames(), QStringList{QStringLiteral("cmdArtikelPerFactuur")});
        EXPECT_EQ(invoices->recordCount(), 3);
        EXPECT_EQ(invoices->value(QStringLiteral("BTWTarief1")), QVariant(21.0));
        EXPECT_EQ(invoices->value(QStringLiteral("KlantBedrijfsnaam")),
                  QVariant(QStringLiteral("Dijk BV")));
        EXPECT_EQ(invoices->value(QStringLiteral("Klant.Adres")),
                  QVariant(QStringLiteral("Klantstraat 1")));
        EXPECT_EQ(invoices->value(QStringLiteral("Instellingen.Adres")),
                  QVariant(QStringLiteral("Bedrijfsweg 2")));
        EXPECT_EQ(describe(*invoices),
                  (QStringList{"1001 J. van Dijk: Hamer x2, Zaag x3", "1002 A.  Smit: Zaag x1",
                               "1003 J. van Dijk: "}));
    }
}

TEST_F(ShapeTest, ChildSetsKeepTheirColumnsKinds) {
    auto invoices = db.openReadSet(invoiceCommand(QStringLiteral("1")));
    Recordset& article =
        invoices->child(QStringLiteral("cmdArtikelPerFactuur")).child(QStringLiteral("cmdArtikel"));
    EXPECT_EQ(article.value(QStringLiteral("Prijs")),
              QVariant::fromValue(Currency::fromRaw(125000)));
    EXPECT_EQ(article.field(0).type, FieldType::Long);
}

TEST_F(ShapeTest, IdsOfDeletedInvoicesGiveNoRows) {
    db.execute(QStringLiteral("DELETE FROM Factuur WHERE FactuurID=2"));
    auto invoices = db.openReadSet(invoiceCommand(QStringLiteral("2")));
    EXPECT_TRUE(invoices->isEOF());
    EXPECT_TRUE(invoices->isBOF());
    EXPECT_EQ(errorOf([&] { invoices->child(QStringLiteral("cmdArtikelPerFactuur")); }), 3021);
}

TEST_F(ShapeTest, MalformedCommandsAreRefused) {
    for (const char* text : {"SHAPE {SELECT * FROM Factuur",
                             "SHAPE {SELECT * FROM Factuur} APPEND ({SELECT * FROM "
                             "ArtikelPerFactuur} RELATE 'FactuurID' 'FactuurID') AS x",
                             "SHAPE {SELECT * FROM Factuur} AS a extra"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(errorOf([&] { db.openReadSet(QString::fromUtf8(text)); }), 3131);
    }
    EXPECT_EQ(errorOf([&] {
                  db.openReadSet(
                      QStringLiteral("SHAPE {SELECT * FROM Factuur} APPEND ({SELECT * "
                                     "FROM Artikel} RELATE 'Geen' TO 'ArtikelID')"));
              }),
              3265);
}

}  // namespace
