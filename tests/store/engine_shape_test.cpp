#include <gtest/gtest.h>

#include "base/Currency.h"
#include "engine_fixture.h"

namespace {

// Three invoices (two lines, one line, none) for two customers.
class ShapeTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        run(
            {"INSERT INTO Artikel (Omschrijving, Prijs) VALUES (\"Hamer\", 125000), (\"Zaag\", "
             "199900)",
             "INSERT INTO Klant (Bedrijfsnaam, Voorletters, Tussenvoegsel, Achternaam, Adres) "
             "VALUES ('Dijk BV', 'J.', 'van', 'Dijk', 'Klantstraat 1'), ('Smit', 'A.', '', "
             "'Smit', 'Smidse 4')",
             "UPDATE Instellingen SET Adres = 'Bedrijfsweg 2'",
             "INSERT INTO Factuur (Nummer, KlantId, BTWId) VALUES (1001, 1, 1), (1002, 2, 1), "
             "(1003, 1, 1)",
             "INSERT INTO ArtikelPerFactuur (FactuurID, ArtikelId, Aantal) VALUES (1, 1, 2), "
             "(2, 2, 1), (1, 2, 3)"});
    }

    // The invoice command exactly as the template opener builds it.
    static QString invoiceCommand(const QString& ids) {
        return "SHAPE {SELECT *,btw.BTW1 as BTWTarief1, btw.BTW2 as BTWTarief2,klant.voorletters "
               "+ ' ' + Klant.Tussenvoegsel + ' ' + Klant.achternaam as naam, "
               "Klant.Bedrijfsnaam as KlantBedrijfsnaam  FROM Factuur,BTW,Klant,Instellingen "
               "WHERE FactuurId IN (" +
               ids +
               ") AND Factuur.BTWId = BTW.BTWId AND Factuur.KlantId = Klant.KlantId}  AS "
               "cmdFactuur APPEND (  ( SHAPE {SELECT * FROM ArtikelPerFactuur}  AS "
               "cmdArtikelPerFactuur APPEND ({SELECT * FROM Artikel} AS cmdArtikel RELATE "
               "'ArtikelID' TO 'ArtikelID') AS cmdArtikel) AS cmdArtikelPerFactuur RELATE "
               "'FactuurId' TO 'FactuurId') AS cmdArtikelPerFactuur";
    }

    // Per invoice "number naam: article price x quantity, ...", read through all three levels;
    // the price is the money amount times 10000.
    static QStringList describe(Recordset& invoices) {
        QStringList result;
        for (; !invoices.isEOF(); invoices.moveNext()) {
            QStringList lines;
            Recordset& invoiceLines = invoices.child("cmdArtikelPerFactuur");
            for (; !invoiceLines.isEOF(); invoiceLines.moveNext()) {
                Recordset& article = invoiceLines.child("cmdArtikel");
                EXPECT_EQ(article.recordCount(), 1);
                EXPECT_EQ(article.field(0).type, FieldType::Long);
                lines.append(article.value("Omschrijving").toString() + u' ' +
                             QString::number(article.value("Prijs").value<Currency>().raw()) +
                             " x" + invoiceLines.value("Aantal").toString());
            }
            result.append(invoices.value("Nummer").toString() + u' ' +
                          invoices.value("naam").toString() + ": " + lines.join(", "));
        }
        return result;
    }
};

TEST_F(ShapeTest, InvoiceCommandGivesEachInvoiceItsLinesAndEachLineItsArticle) {
    for (auto open : {&Connection::openReadSet, &Connection::openUpdatableSet}) {
        auto invoices = (db.*open)(invoiceCommand("1,2,3"));
        EXPECT_EQ(invoices->childNames(), QStringList{"cmdArtikelPerFactuur"});
        EXPECT_EQ(invoices->recordCount(), 3);
        EXPECT_EQ(invoices->value("BTWTarief1"), QVariant(21.0));
        EXPECT_EQ(invoices->value("KlantBedrijfsnaam"), QVariant("Dijk BV"));
        EXPECT_EQ(invoices->value("Klant.Adres"), QVariant("Klantstraat 1"));
        EXPECT_EQ(invoices->value("Instellingen.Adres"), QVariant("Bedrijfsweg 2"));
        EXPECT_EQ(describe(*invoices),
                  (QStringList{"1001 J. van Dijk: Hamer 125000 x2, Zaag 199900 x3",
                               "1002 A.  Smit: Zaag 199900 x1", "1003 J. van Dijk: "}));
    }
    db.execute("DELETE FROM Factuur WHERE FactuurID=2");
    auto none = db.openReadSet(invoiceCommand("2"));
    EXPECT_TRUE(none->isEOF() && none->isBOF());
    EXPECT_EQ(errorOf([&] { none->child("cmdArtikelPerFactuur"); }), 3021);
}

// A child is read for its parents' keys alone, yet keeps the fields its own query has: a
// name two joined tables share keeps its name and its table.
TEST_F(ShapeTest, AChildReadForItsParentsKeysKeepsTheFieldsOfItsQuery) {
    auto invoices = db.openUpdatableSet(
        "SHAPE {SELECT * FROM Factuur WHERE FactuurID IN (1, 2)} APPEND ({SELECT * FROM "
        "ArtikelPerFactuur, Artikel WHERE ArtikelPerFactuur.ArtikelId = Artikel.ArtikelID;} "
        "RELATE 'FactuurID' TO 'FactuurID') AS regels");
    QStringList seen;
    for (; !invoices->isEOF(); invoices->moveNext()) {
        Recordset& lines = invoices->child("regels");
        for (; !lines.isEOF(); lines.moveNext()) {
            const int articlePrice = lines.fieldIndex("Artikel.Prijs");
            EXPECT_NE(articlePrice, lines.fieldIndex("ArtikelPerFactuur.Prijs"));
            EXPECT_EQ(lines.field(articlePrice).name, "Prijs");
            seen << invoices->value("Nummer").toString() + u' ' +
                        lines.value("Omschrijving").toString() + u' ' +
                        QString::number(lines.value("Artikel.Prijs").value<Currency>().raw());
        }
    }
    EXPECT_EQ(seen, (QStringList{"1001 Hamer 125000", "1001 Zaag 199900", "1002 Zaag 199900"}));
}

TEST_F(ShapeTest, MalformedCommandsAreRefused) {
    const std::pair<const char*, long> cases[] = {
        {"SHAPE {SELECT * FROM Factuur", 3131},
        {"SHAPE {SELECT * FROM Factuur} APPEND ({SELECT * FROM ArtikelPerFactuur} RELATE "
         "'FactuurID' 'FactuurID') AS x",
         3131},
        {"SHAPE {SELECT * FROM Factuur} AS a extra", 3131},
        {"SHAPE {SELECT * FROM Factuur} APPEND ({SELECT * FROM Artikel} RELATE 'Geen' TO "
         "'ArtikelID')",
         3265},
    };
    for (const auto& [text, number] : cases) {
        EXPECT_EQ(errorOf([&] { db.openReadSet(text); }), number) << text;
    }
}

}  // namespace
