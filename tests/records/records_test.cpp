// The records: what each class reads and writes where, and the money of an invoice.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Files.h"
#include "RecordingUiService.h"
#include "TestDatabase.h"
#include "base/Error.h"
#include "records/clsObjArtikel.h"
#include "records/clsObjArtikelPerFactuur.h"
#include "records/clsObjBTW.h"
#include "records/clsObjFactuur.h"
#include "records/clsObjInstellingen.h"
#include "records/clsObjKlant.h"
#include "store/Recordset.h"

namespace {

using ::testing::Property;
using ::testing::Throws;

const auto money = [](double amount) { return Currency::fromDouble(amount); };

QString text(const QVariant& v) {
    if (v.metaType() == QMetaType::fromType<Currency>()) {
        return QString::number(v.value<Currency>().raw() / 10000.0, 'f', 4);
    }
    // So that the rule "a missing date reads as the present" can be written down.
    if (v.metaType() == QMetaType::fromType<QDateTime>() &&
        qAbs(v.toDateTime().secsTo(QDateTime::currentDateTime())) < 60) {
        return "nu";
    }
    return v.toString();
}

// A record as "column=value" texts, the key first; values in the order of the columns named.
QStringList row(const char* columns, const QVariantList& values) {
    const QStringList names = QString(columns).split(' ');
    EXPECT_EQ(names.size(), values.size()) << columns;
    QStringList all;
    for (qsizetype i = 0; i < names.size(); ++i) {
        all << names[i] + '=' + text(values.value(i));
    }
    return all;
}

const auto m = [](Currency amount) { return QVariant::fromValue(amount); };

QStringList columnsOf(const clsObjArtikel& r) {
    return row(
        "ArtikelID Nummer Omschrijving Eenheid Voorraad Prijs NegVoorToestaan BTWTarief Zichtbaar "
        "GeenVoorraad",
        {r.artikelID(), r.Nummer(), r.Omschrijving(), r.Eenheid(), r.Voorraad(), m(r.Prijs()),
         r.Negatief(), r.BTWTarief(), r.Zichtbaar(), r.GeenVoorraad()});
}

QStringList columnsOf(const clsObjBTW& r) {
    return row("BTWId BTW1 BTW2 Zichtbaar", {r.BTWId(), r.BTW1(), r.BTW2(), r.Zichtbaar()});
}

QStringList columnsOf(const clsObjKlant& r) {
    return row(
        "KlantID DebiteurNummer Bedrijfsnaam Fax Email Voorletters Tussenvoegsel Achternaam Adres "
        "Postcode Plaats Land Telefoon Zichtbaar BTW Dhr",
        {r.KlantID(), r.DebiteurNummer(), r.Bedrijfsnaam(), r.Fax(), r.Email(), r.Voorletters(),
         r.Tussenvoegsel(), r.Achternaam(), r.Adres(), r.Postcode(), r.Plaats(), r.Land(),
         r.Telefoon(), r.Zichtbaar(), r.BTW(), r.Dhr()});
}

QStringList columnsOf(const clsObjFactuur& r) {
    return row("FactuurID Nummer Datum KlantId Klantnaam TotaalPrijs TotaalPrijsExBTW BTWId",
               {r.FactuurId(), r.Nummer(), r.Datum(), r.KlantID(), r.Klantnaam(),
                m(r.TotaalPrijs()), m(r.TotaalPrijsExBTW()), r.BTWId()});
}

QStringList columnsOf(const clsObjArtikelPerFactuur& r) {
    return row(
        "FactuurArtikelID FactuurID ArtikelId Aantal Prijs TotaalPrijs BTWTarief BTWBedragTarief1 "
        "BTWBedragTarief2 Korting Kortingsbedrag",
        {r.FactuurArtikelID(), r.FactuurId(), r.artikelID(), r.Aantal(), m(r.Prijs()),
         m(r.TotaalPrijs()), r.BTWTarief(), m(r.BTWBedragTarief1()), m(r.BTWBedragTarief2()),
         r.Korting(), m(r.KortingsBedrag())});
}

QStringList columnsOf(const clsObjInstellingen& r) {
    return row("InstellingenId Bedrijfsnaam Adres Postcode Plaats Land Telefoonnummer Faxnummer "
               "Banknaam Banknummer BTWNummer KVKNummer Opmerking",
               {r.InstellingenId(), r.Bedrijfsnaam(), r.Adres(), r.Postcode(), r.Plaats(), r.Land(),
                r.Telefoonnummer(), r.Faxnummer(), r.Banknaam(), r.Banknummer(), r.BTWNummer(),
                r.KVKNummer(), r.Opmerking()}) +
           row("Logo Email Website BetaalTermijn Sjabloon MargeLinks MargeBoven MargeFactuurBoven "
               "MargeFactuurOnder FontName FontSize NoSound",
               {r.Logo(), r.Email(), r.WebSite(), r.BetaalTermijn(), r.Sjabloon(), r.MargeLinks(),
                r.MargeBoven(), r.MargeFactuurBoven(), r.MargeFactuurOnder(), r.FontName(),
                r.FontSize(), r.NoSound() != 0});
}

// Adds a row through the program's engine with a value in every column that no other column
// holds (yes/no columns aside), and hands back its key.
qint32 addDistinctRow(const QString& table) {
    auto set = clsDatabase().ExecuteQuery("SELECT * FROM " + table + " WHERE 1=2");
    set->addNew();
    for (int i = 1; i < set->fieldCount(); ++i) {
        const std::map<FieldType, QVariant> values{
            {FieldType::Text, QString("tekst %1 é").arg(i)},
            {FieldType::Boolean, i % 2 == 1},
            {FieldType::Single, i + 0.5},
            {FieldType::Double, i + 0.5},
            {FieldType::Currency, m(Currency::fromRaw(i * 10000 + 1234))},
            {FieldType::DateTime, QDateTime(QDate(2024, 3, i), QTime(9, 30))}};
        const auto value = values.find(set->field(i).type);
        set->setValue(i, value == values.end() ? QVariant(i) : value->second);
    }
    set->update();
    return set->value(0).toInt();
}

// The stored row of a record's key as the engine hands it out, in the record's columns.
QStringList storedRow(const QString& table, const QStringList& record) {
    auto set = clsDatabase().ExecuteQuery("SELECT * FROM " + table + " WHERE " + record[0]);
    QStringList stored;
    for (const QString& column : record) {
        const QString name = column.section('=', 0, 0);
        stored << name + '=' + text(set->value(name));
    }
    return stored;
}

// The record of the key as read; with copy, as it is after being inserted again as a new row.
template <class R>
QStringList readRecord(qint32 id, bool copy = false) {
    R r;
    r.SetID(id);
    r.Ophalen();
    if (copy) {
        r.SetID(0);
        r.Opslaan();
    }
    return columnsOf(r);
}

class RecordsTest : public ::testing::Test {
protected:
    TestDatabase db;
    RecordingUiService ui;
};

TEST_F(RecordsTest, EveryColumnIsReadIntoAndWrittenFromItsOwnFieldAndNullReadsAsEmpty) {
    const struct {
        const char* table;
        QStringList (*read)(qint32 id, bool copy);
        const char* nullRow;  // the record of a row holding nothing but the key 500
    } mappings[] = {
        {"Artikel", readRecord<clsObjArtikel>,
         "ArtikelID=500 Nummer= Omschrijving= Eenheid= Voorraad=0 Prijs=0.0000 "
         "NegVoorToestaan=false BTWTarief=0 Zichtbaar=false GeenVoorraad=false"},
        {"BTW", readRecord<clsObjBTW>, "BTWId=500 BTW1=0 BTW2=0 Zichtbaar=false"},
        {"Klant", readRecord<clsObjKlant>,
         "KlantID=500 DebiteurNummer=0 Bedrijfsnaam= Fax= Email= Voorletters= "
         "Tussenvoegsel= Achternaam= Adres= Postcode= Plaats= Land= Telefoon= "
         "Zichtbaar=false BTW=false Dhr=false"},
        // An invoice without a number reads "0", without a date the present.
        {"Factuur", readRecord<clsObjFactuur>,
         "FactuurID=500 Nummer=0 Datum=nu KlantId=0 Klantnaam= "
         "TotaalPrijs=0.0000 TotaalPrijsExBTW=0.0000 BTWId=0"},
        {"ArtikelPerFactuur", readRecord<clsObjArtikelPerFactuur>,
         "FactuurArtikelID=500 FactuurID=0 ArtikelId=0 Aantal=0 Prijs=0.0000 "
         "TotaalPrijs=0.0000 BTWTarief=0 BTWBedragTarief1=0.0000 BTWBedragTarief2=0.0000 "
         "Korting=0 Kortingsbedrag=0.0000"},
        // A settings row without a font reads the font "0".
        {"Instellingen", readRecord<clsObjInstellingen>,
         "InstellingenId=500 Bedrijfsnaam= Adres= Postcode= Plaats= Land= Telefoonnummer= "
         "Faxnummer= Banknaam= Banknummer= BTWNummer= KVKNummer= Opmerking= Logo= Email= "
         "Website= BetaalTermijn=0 Sjabloon=0 MargeLinks=0 MargeBoven=0 MargeFactuurBoven=0 "
         "MargeFactuurOnder=0 FontName=0 FontSize=0 NoSound=false"},
    };
    db.exec("INSERT INTO Factuur (FactuurID) VALUES (1)");  // the invoice of the line rows
    for (const auto& c : mappings) {
        SCOPED_TRACE(c.table);
        const qint32 id = addDistinctRow(c.table);
        const QStringList read = c.read(id, false);
        EXPECT_EQ(read, storedRow(c.table, read));
        const QStringList copy = c.read(id, true);
        EXPECT_EQ(storedRow(c.table, copy), copy);

        db.exec(
            QString("INSERT INTO %1 (%2) VALUES (500)").arg(c.table, read[0].section('=', 0, 0)));
        EXPECT_EQ(c.read(500, false).join(' '), QString(c.nullRow));
    }
}

TEST_F(RecordsTest, HidingACustomerByItsKeyBlanksTheOtherColumns) {
    clsObjKlant hidden;
    hidden.setKlantID(addDistinctRow("Klant"));
    hidden.setZichtbaar(false);
    hidden.Bijwerken();
    EXPECT_EQ(readRecord<clsObjKlant>(hidden.KlantID()), columnsOf(hidden));
}

TEST_F(RecordsTest, TheVatRowInUseIsTheFirstVisibleOneAndGivesThePercentageOfAClass) {
    db.exec("UPDATE BTW SET Zichtbaar = 0; INSERT INTO BTW VALUES (7, 19, 6, 1), (8, 1, 2, 1)");
    const clsObjBTW rates = clsObjBTW::rowInUse();
    EXPECT_EQ(rates.BTWId(), 7);
    const std::pair<qint16, double> cases[] = {{1, 19}, {2, 6}, {0, 0}, {3, 0}, {-1, 0}};
    for (const auto& [tarief, expected] : cases) {
        EXPECT_EQ(rates.GeefBTWPercentage(tarief), expected) << "class " << tarief;
    }

    db.exec("UPDATE BTW SET Zichtbaar = 0");
    EXPECT_THAT([] { clsObjBTW::rowInUse(); }, Throws<Error>(Property(&Error::number, 9)));
}

TEST_F(RecordsTest, ALineHoldsAnArticleKeyUpTo32767AndReadsTheArticleAtEveryCall) {
    clsObjArtikelPerFactuur line;
    line.setArtikelID(addDistinctRow("Artikel"));
    EXPECT_EQ(line.Artikel().Omschrijving(), "tekst 2 é");
    db.exec("UPDATE Artikel SET Omschrijving = 'Grenen plank'");
    EXPECT_EQ(line.Artikel().Omschrijving(), "Grenen plank");

    line.setArtikelID(32767);
    EXPECT_THAT([&] { line.setArtikelID(32768); },
                Throws<Error>(Property(&Error::number, Error::Overflow)));
    EXPECT_EQ(line.artikelID(), 32767);
}

TEST(LineAmounts, AreEachRoundedOnceToTheTenThousandth) {
    const double cases[][5] = {
        // Together 3.7036, one ten-thousandth more than price times quantity: kept so.
        {1.2345, 3, 10, 3.3332, 0.3704}, {1.2345, 3, 0, 3.7035, 0},   {1.2345, 3, 100, 0, 3.7035},
        {0.3333, 1.5, 33, 0.335, 0.165}, {-12.5, 2, 10, -22.5, -2.5},
    };
    for (const auto& [prijs, aantal, korting, total, discount] : cases) {
        SCOPED_TRACE(testing::Message() << prijs << " x " << aantal << " -" << korting);
        EXPECT_EQ(clsObjArtikelPerFactuur::lineTotal(money(prijs), aantal, korting), money(total));
        EXPECT_EQ(clsObjArtikelPerFactuur::discountAmount(money(prijs), aantal, korting),
                  money(discount));
    }
}

TEST_F(RecordsTest, TheVatColumnOfALineFollowsTheRateItIsOrIsNearestToAndTheFirstOnATie) {
    const double cases[][4] = {{21, 9, 21, 1}, {21, 9, 9, 2},  {21, 9, 19, 1}, {21, 9, 10, 2},
                               {21, 9, 15, 1}, {9, 21, 15, 1}, {9, 9, 9, 1},   {9, 9, 21, 1}};
    qint32 id = 100;
    for (const auto& [btw1, btw2, tarief, column] : cases) {
        // Rates of their own that are also the row in use, and an invoice on them: the line
        // is tried against the invoice's VAT record and, without an invoice, the row in use.
        db.exec(QString("UPDATE BTW SET Zichtbaar = 0; INSERT INTO BTW VALUES (%1, %2, %3, 1);"
                        "INSERT INTO Factuur (FactuurID, BTWId) VALUES (%1, %1)")
                    .arg(QString::number(++id), QString::number(btw1), QString::number(btw2)));
        for (qint32 factuurId : {id, 0}) {
            SCOPED_TRACE(testing::Message() << tarief << "% against " << btw1 << "/" << btw2
                                            << ", invoice " << factuurId);
            clsObjArtikelPerFactuur line;
            line.setFactuurId(factuurId);
            line.setBTWTarief(tarief);
            line.setBTWBedrag(money(1.5));
            EXPECT_EQ(line.BTWBedragTarief1(), column == 1 ? money(1.5) : Currency());
            EXPECT_EQ(line.BTWBedragTarief2(), column == 2 ? money(1.5) : Currency());
            EXPECT_EQ(line.BTWBedrag(), money(1.5)) << "the second when the first is zero";
        }
    }
}

// The list of every invoice reads each number column as its digits, whatever SQLite stored.
TEST_F(RecordsTest, TheInvoiceListReadsNumbersAsDigitsAndNoNumberAsZero) {
    db.exec(
        "INSERT INTO Factuur (FactuurID, Nummer) VALUES (1, 2024001), (2, NULL), (3, 12.0), "
        "(4, -7), (5, '31')");
    QStringList numbers;
    for (const clsObjFactuur& factuur : clsObjFactuur().Lijst("FactuurID<=5")) {
        numbers << factuur.Nummer();
    }
    EXPECT_EQ(numbers.join(' '), "2024001 0 12 -7 31");
}

// An invoice without a customer has the empty one; a copy given another customer leaves
// the original's alone.
TEST_F(RecordsTest, AnInvoiceCopyTakesAnotherCustomerOnItsOwn) {
    clsObjFactuur original;
    EXPECT_EQ(original.Klant().KlantID(), 0);
    clsObjKlant first;
    first.setBedrijfsnaam("Garage Zuid");
    original.setKlant(first);
    first.setBedrijfsnaam("later");
    clsObjFactuur copy = original;
    clsObjKlant second;
    second.setBedrijfsnaam("Stichting Nul");
    copy.setKlant(second);
    EXPECT_EQ(original.Klant().Bedrijfsnaam(), "Garage Zuid");
    EXPECT_EQ(copy.Klant().Bedrijfsnaam(), "Stichting Nul");
}

// An invoice as the invoice editor builds it; a log shows how its head row is written.
class InvoiceSave : public RecordsTest {
protected:
    void SetUp() override {
        customer.setBedrijfsnaam("Garage Zuid");
        customer.Opslaan();
        invoice.setKlant(customer);
        invoice.setNummer("2024001");
        invoice.setBTWId(clsObjBTW::rowInUse().BTWId());
        db.exec(
            "CREATE TABLE Log (Wat TEXT);"
            "CREATE TRIGGER n AFTER INSERT ON Factuur BEGIN INSERT INTO Log VALUES ('in'); END;"
            "CREATE TRIGGER u AFTER UPDATE ON Factuur BEGIN INSERT INTO Log VALUES ('up'); END");
    }

    static clsObjArtikelPerFactuur line(qint32 artikelId, double prijs, double aantal,
                                        double korting = 0, double tarief = 21) {
        clsObjArtikelPerFactuur l;
        l.setArtikelID(artikelId);
        l.setPrijs(money(prijs));
        l.setAantal(aantal);
        l.setKorting(korting);
        l.setBTWTarief(tarief);
        l.setTotaalPrijs(clsObjArtikelPerFactuur::lineTotal(l.Prijs(), aantal, korting));
        return l;
    }

    // The head as stored; the invoice itself holds its lines as stored after a save.
    clsObjFactuur storedHead() const {
        clsObjFactuur head;
        head.SetID(invoice.FactuurId());
        head.Ophalen();
        return head;
    }

    QString log() const { return db.scalar("SELECT group_concat(Wat, ',') FROM Log").toString(); }

    clsObjKlant customer;
    clsObjFactuur invoice;
};

TEST_F(InvoiceSave, ANewInvoiceIsWrittenThenUpdatedWithTheTotalsOfItsStoredLines) {
    invoice.ArtikelenPerFactuur() = {line(1, 1.2345, 3, 10), line(2, 100, 1, 0, 9)};
    invoice.OpslaanFactuur();

    EXPECT_EQ(log(), "in,up");
    const auto& lines = invoice.ArtikelenPerFactuur();
    ASSERT_EQ(lines.size(), 2);
    EXPECT_NE(lines[0].FactuurArtikelID(), 0);
    EXPECT_EQ(lines[0].FactuurId(), invoice.FactuurId());
    EXPECT_EQ(columnsOf(lines[0]).mid(2).join(' '),
              "ArtikelId=1 Aantal=3 Prijs=1.2345 TotaalPrijs=3.3332 BTWTarief=21 "
              "BTWBedragTarief1=0.7000 BTWBedragTarief2=0.0000 Korting=10 Kortingsbedrag=0.3704");
    EXPECT_EQ(lines[1].BTWBedragTarief2(), money(9));
    const clsObjFactuur head = storedHead();
    EXPECT_EQ(head.KlantID(), customer.KlantID());
    EXPECT_EQ(head.Klantnaam(), "Garage Zuid");
    EXPECT_EQ(head.TotaalPrijsExBTW(), money(103.3332));
    EXPECT_EQ(head.TotaalPrijs(), money(113.0332));

    clsObjFactuur unsaved;
    unsaved.ArtikelenPerFactuur() = {line(1, 10, 1)};
    unsaved.LaadArtikelenPerFactuur();
    EXPECT_TRUE(unsaved.ArtikelenPerFactuur().isEmpty());
}

// A stored line takes the new quantity and discount, and amounts from the edited price, but
// keeps its stored price and rate.
TEST_F(InvoiceSave, RemovingALineDeletesItsRowAndReAddingItUpdatesTheRow) {
    invoice.ArtikelenPerFactuur() = {line(1, 10, 1), line(2, 20, 1)};
    invoice.OpslaanFactuur();
    const qint32 keyOfSecond = invoice.ArtikelenPerFactuur()[1].FactuurArtikelID();

    auto& lines = invoice.ArtikelenPerFactuur();
    lines.removeLast();
    lines.append(line(2, 12, 4, 50, 9));
    lines.removeFirst();
    db.exec("DELETE FROM Log");
    invoice.OpslaanFactuur();

    EXPECT_EQ(log(), "up,up");
    EXPECT_EQ(db.scalar("SELECT COUNT(*) FROM ArtikelPerFactuur").toInt(), 1);
    ASSERT_EQ(lines.size(), 1);
    EXPECT_EQ(lines[0].FactuurArtikelID(), keyOfSecond);
    EXPECT_EQ(columnsOf(lines[0]).mid(2).join(' '),
              "ArtikelId=2 Aantal=4 Prijs=20.0000 TotaalPrijs=24.0000 BTWTarief=21 "
              "BTWBedragTarief1=5.0400 BTWBedragTarief2=0.0000 Korting=50 Kortingsbedrag=24.0000");
    EXPECT_EQ(storedHead().TotaalPrijs(), money(29.04));
}

TEST_F(InvoiceSave, AZeroRatedCustomerGetsNoVatOnNewLinesWhileOlderLinesKeepTheirs) {
    invoice.ArtikelenPerFactuur() = {line(1, 100, 1)};
    invoice.OpslaanFactuur();

    clsObjKlant zeroRated;
    zeroRated.setBedrijfsnaam("Stichting Nul");
    zeroRated.setBTW(true);
    invoice.setKlant(zeroRated);
    invoice.ArtikelenPerFactuur().append(line(2, 50, 2, 10));
    invoice.ArtikelenPerFactuur()[0].setAantal(2);
    invoice.OpslaanFactuur();

    const auto& lines = invoice.ArtikelenPerFactuur();
    EXPECT_EQ(lines[0].BTWBedrag(), money(21)) << "kept from the first save";
    EXPECT_EQ(lines[0].TotaalPrijs(), money(200));
    EXPECT_EQ(lines[1].BTWBedrag(), Currency());
    const clsObjFactuur head = storedHead();
    EXPECT_EQ(head.Klantnaam(), "Stichting Nul") << "taken again at every save";
    EXPECT_EQ(head.TotaalPrijsExBTW(), money(290));
    EXPECT_EQ(head.TotaalPrijs(), money(311));
}

}  // namespace
