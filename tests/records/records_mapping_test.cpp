// The column mapping of every record class: what each writes where, what each reads
// back, and how Null columns read.
#include <gtest/gtest.h>

#include <QRegularExpression>

#include "RecordingUiService.h"
#include "TestDatabase.h"
#include "base/Error.h"
#include "records/clsObjArtikel.h"
#include "records/clsObjArtikelPerFactuur.h"
#include "records/clsObjBTW.h"
#include "records/clsObjFactuur.h"
#include "records/clsObjInstellingen.h"
#include "records/clsObjKlant.h"

namespace {

// A record as the column values it stands for, by column name.
using Row = QList<QPair<QString, QVariant>>;

Row columnsOf(const clsObjArtikel& r) {
    return {{"ArtikelID", r.artikelID()},       {"Nummer", r.Nummer()},
            {"Omschrijving", r.Omschrijving()}, {"Eenheid", r.Eenheid()},
            {"Voorraad", r.Voorraad()},         {"Prijs", QVariant::fromValue(r.Prijs())},
            {"NegVoorToestaan", r.Negatief()},  {"BTWTarief", int(r.BTWTarief())},
            {"Zichtbaar", r.Zichtbaar()},       {"GeenVoorraad", r.GeenVoorraad()}};
}

Row columnsOf(const clsObjBTW& r) {
    return {
        {"BTWId", r.BTWId()}, {"BTW1", r.BTW1()}, {"BTW2", r.BTW2()}, {"Zichtbaar", r.Zichtbaar()}};
}

Row columnsOf(const clsObjKlant& r) {
    return {{"KlantID", r.KlantID()},
            {"DebiteurNummer", r.DebiteurNummer()},
            {"Bedrijfsnaam", r.Bedrijfsnaam()},
            {"Fax", r.Fax()},
            {"Email", r.Email()},
            {"Voorletters", r.Voorletters()},
            {"Tussenvoegsel", r.Tussenvoegsel()},
            {"Achternaam", r.Achternaam()},
            {"Adres", r.Adres()},
            {"Postcode", r.Postcode()},
            {"Plaats", r.Plaats()},
            {"Land", r.Land()},
            {"Telefoon", r.Telefoon()},
            {"Zichtbaar", r.Zichtbaar()},
            {"BTW", r.BTW()},
            {"Dhr", r.Dhr()}};
}

Row columnsOf(const clsObjFactuur& r) {
    return {{"FactuurID", r.FactuurId()},
            {"Nummer", r.Nummer()},
            {"Datum", r.Datum()},
            {"KlantId", r.KlantID()},
            {"Klantnaam", r.Klantnaam()},
            {"TotaalPrijs", QVariant::fromValue(r.TotaalPrijs())},
            {"TotaalPrijsExBTW", QVariant::fromValue(r.TotaalPrijsExBTW())},
            {"BTWId", r.BTWId()}};
}

Row columnsOf(const clsObjArtikelPerFactuur& r) {
    return {{"FactuurArtikelID", r.FactuurArtikelID()},
            {"FactuurID", r.FactuurId()},
            {"ArtikelId", int(r.artikelID())},
            {"Aantal", r.Aantal()},
            {"Prijs", QVariant::fromValue(r.Prijs())},
            {"TotaalPrijs", QVariant::fromValue(r.TotaalPrijs())},
            {"BTWTarief", r.BTWTarief()},
            {"BTWBedragTarief1", QVariant::fromValue(r.BTWBedragTarief1())},
            {"BTWBedragTarief2", QVariant::fromValue(r.BTWBedragTarief2())},
            {"Korting", r.Korting()},
            {"Kortingsbedrag", QVariant::fromValue(r.KortingsBedrag())}};
}

Row columnsOf(const clsObjInstellingen& r) {
    return {{"InstellingenId", r.InstellingenId()},
            {"Bedrijfsnaam", r.Bedrijfsnaam()},
            {"Adres", r.Adres()},
            {"Postcode", r.Postcode()},
            {"Plaats", r.Plaats()},
            {"Land", r.Land()},
            {"Telefoonnummer", r.Telefoonnummer()},
            {"Faxnummer", r.Faxnummer()},
            {"Banknaam", r.Banknaam()},
            {"Banknummer", r.Banknummer()},
            {"BTWNummer", r.BTWNummer()},
            {"KVKNummer", r.KVKNummer()},
            {"Opmerking", r.Opmerking()},
            {"Logo", r.Logo()},
            {"Email", r.Email()},
            {"Website", r.WebSite()},
            {"BetaalTermijn", int(r.BetaalTermijn())},
            {"Sjabloon", int(r.Sjabloon())},
            {"MargeLinks", int(r.MargeLinks())},
            {"MargeBoven", int(r.MargeBoven())},
            {"MargeFactuurBoven", int(r.MargeFactuurBoven())},
            {"MargeFactuurOnder", int(r.MargeFactuurOnder())},
            {"FontName", r.FontName()},
            {"FontSize", r.FontSize()},
            {"NoSound", r.NoSound() != 0}};
}

QString text(const QVariant& v) {
    if (v.metaType() == QMetaType::fromType<Currency>()) {
        return QString::number(v.value<Currency>().raw()) + "/10000";
    }
    return v.toString();
}

QStringList texts(const Row& row) {
    QStringList all;
    for (const auto& [column, value] : row) {
        all << column + "=" + text(value);
    }
    return all;
}

// The stored row as the engine hands it out, in the columns of the record.
Row storedRow(const QString& table, const QString& key, qint32 id, const Row& like) {
    clsDatabase().MaakConnectie();
    auto set =
        gConnectie->openReadSet(QString("SELECT * FROM %1 WHERE %2=%3").arg(table, key).arg(id));
    Row row;
    for (const auto& [column, value] : like) {
        row.append({column, set->value(column)});
    }
    return row;
}

clsObjArtikel artikel() {
    clsObjArtikel r;
    r.setNummer("A-17");
    r.setOmschrijving("Eiken plank 18 mm");
    r.setEenheid("m²");
    r.setVoorraad(-4);
    r.setPrijs(Currency::fromRaw(123456));
    r.setNegatief(true);
    r.setBTWTarief(2);
    r.setZichtbaar(true);
    r.setGeenVoorraad(true);
    return r;
}

clsObjBTW btw() {
    clsObjBTW r;
    r.setBTW1(21);
    r.setBTW2(9.5);
    r.setZichtbaar(true);
    return r;
}

clsObjKlant klant() {
    clsObjKlant r;
    r.setBedrijfsnaam("Bakkerij 't Hoekje");
    r.setFax("038-1111111");
    r.setEmail("info@hoekje.example");
    r.setBTW(true);
    r.setVoorletters("J.P.");
    r.setDhr(true);
    r.setTussenvoegsel("van der");
    r.setDebiteurNummer(90210);
    r.setAchternaam("Veen");
    r.setAdres("Kerkstraat 1");
    r.setPostcode("8011 AB");
    r.setPlaats("Zwolle");
    r.setLand("Nederland");
    r.setTelefoon("038-2222222");
    r.setZichtbaar(true);
    return r;
}

clsObjFactuur factuur() {
    clsObjFactuur r;
    r.setNummer("2024017");
    r.setDatum(QDateTime(QDate(2024, 3, 1), QTime(9, 30)));
    r.setKlantID(12);
    r.setKlantnaam("Bakkerij 't Hoekje");
    r.setTotaalPrijs(Currency::fromRaw(1210001));
    r.setTotaalPrijsExBTW(Currency::fromRaw(1000001));
    r.setBTWId(3);
    return r;
}

clsObjArtikelPerFactuur regel(qint32 factuurId) {
    clsObjArtikelPerFactuur r;
    r.setFactuurId(factuurId);
    r.setArtikelID(32767);
    r.setAantal(2.5);
    r.setPrijs(Currency::fromRaw(199900));
    r.setTotaalPrijs(Currency::fromRaw(449775));
    r.setBTWTarief(9);
    r.setKorting(10);
    r.setKortingsBedrag(Currency::fromRaw(49975));
    r.setBTWBedrag(Currency::fromRaw(40480));
    return r;
}

clsObjInstellingen instellingen() {
    clsObjInstellingen r;
    r.setNoSound(1);
    r.setFontSize(10.5f);
    r.setFontName("DejaVu Serif");
    r.setBetaalTermijn(14);
    r.setEmail("post@linde.example");
    r.setWebSite("www.linde.example");
    r.setSjabloon(6);
    r.setLogo("/home/piet/logo.png");
    r.setBedrijfsnaam("Timmerbedrijf De Linde");
    r.setAdres("Dorpsweg 3");
    r.setPostcode("1234 AB");
    r.setPlaats("Linde");
    r.setLand("Nederland");
    r.setTelefoonnummer("0522-123456");
    r.setFaxnummer("0522-123457");
    r.setBanknaam("Spaarbank");
    r.setBanknummer("NL00BANK0123456789");
    r.setBTWNummer("NL001234567B01");
    r.setKVKNummer("01234567");
    r.setOpmerking("Betaling graag binnen de termijn.");
    r.setMargeLinks(110);
    r.setMargeBoven(50);
    r.setMargeFactuurBoven(10);
    r.setMargeFactuurOnder(20);
    return r;
}

class RecordMapping : public ::testing::Test {
protected:
    // Stores the record, then checks the stored row column by column and a fresh read of it.
    template <class R>
    void roundTrip(R record, const QString& table, const QString& key) {
        record.Opslaan();
        ASSERT_NE(record.GetID(), 0);
        EXPECT_EQ(texts(storedRow(table, key, record.GetID(), columnsOf(record))),
                  texts(columnsOf(record)));
        R read;
        read.SetID(record.GetID());
        read.Ophalen();
        EXPECT_EQ(texts(columnsOf(read)), texts(columnsOf(record)));
    }

    // A row holding nothing but its key, read into a record.
    template <class R>
    R nullRow(const QString& table, const QString& key) {
        db.exec(QString("INSERT INTO %1 (%2) VALUES (500)").arg(table, key));
        R record;
        record.SetID(500);
        record.Ophalen();
        return record;
    }

    TestDatabase db;
    RecordingUiService ui;
};

TEST_F(RecordMapping, EveryColumnIsWrittenWhereItBelongsAndReadBack) {
    roundTrip(artikel(), "Artikel", "ArtikelID");
    roundTrip(btw(), "BTW", "BTWId");
    roundTrip(klant(), "Klant", "KlantID");
    clsObjFactuur head = factuur();
    roundTrip(head, "Factuur", "FactuurID");
    head.Opslaan();
    roundTrip(regel(head.GetID()), "ArtikelPerFactuur", "FactuurArtikelID");
    roundTrip(instellingen(), "Instellingen", "InstellingenId");
}

TEST_F(RecordMapping, NullColumnsReadAsEmptyValues) {
    struct Case {
        QString table;
        QStringList read;
        QStringList expected;
    };
    const clsObjFactuur head = nullRow<clsObjFactuur>("Factuur", "FactuurID");
    const Case cases[] = {
        {"Artikel",
         texts(columnsOf(nullRow<clsObjArtikel>("Artikel", "ArtikelID"))),
         {"ArtikelID=500", "Nummer=", "Omschrijving=", "Eenheid=", "Voorraad=0", "Prijs=0/10000",
          "NegVoorToestaan=false", "BTWTarief=0", "Zichtbaar=false", "GeenVoorraad=false"}},
        {"BTW",
         texts(columnsOf(nullRow<clsObjBTW>("BTW", "BTWId"))),
         {"BTWId=500", "BTW1=0", "BTW2=0", "Zichtbaar=false"}},
        {"Klant",
         texts(columnsOf(nullRow<clsObjKlant>("Klant", "KlantID"))),
         {"KlantID=500", "DebiteurNummer=0", "Bedrijfsnaam=", "Fax=", "Email=", "Voorletters=",
          "Tussenvoegsel=", "Achternaam=", "Adres=", "Postcode=", "Plaats=", "Land=", "Telefoon=",
          "Zichtbaar=false", "BTW=false", "Dhr=false"}},
        {"ArtikelPerFactuur",
         texts(
             columnsOf(nullRow<clsObjArtikelPerFactuur>("ArtikelPerFactuur", "FactuurArtikelID"))),
         {"FactuurArtikelID=500", "FactuurID=0", "ArtikelId=0", "Aantal=0", "Prijs=0/10000",
          "TotaalPrijs=0/10000", "BTWTarief=0", "BTWBedragTarief1=0/10000",
          "BTWBedragTarief2=0/10000", "Korting=0", "Kortingsbedrag=0/10000"}},
        // An invoice without a number reads "0"; its date is looked at below.
        {"Factuur",
         texts(columnsOf(head)).replaceInStrings(QRegularExpression("^Datum=.*"), "Datum"),
         {"FactuurID=500", "Nummer=0", "Datum", "KlantId=0", "Klantnaam=", "TotaalPrijs=0/10000",
          "TotaalPrijsExBTW=0/10000", "BTWId=0"}},
        // A settings row without a font reads as the font "0".
        {"Instellingen",
         texts(columnsOf(nullRow<clsObjInstellingen>("Instellingen", "InstellingenId"))),
         {"InstellingenId=500",
          "Bedrijfsnaam=",
          "Adres=",
          "Postcode=",
          "Plaats=",
          "Land=",
          "Telefoonnummer=",
          "Faxnummer=",
          "Banknaam=",
          "Banknummer=",
          "BTWNummer=",
          "KVKNummer=",
          "Opmerking=",
          "Logo=",
          "Email=",
          "Website=",
          "BetaalTermijn=0",
          "Sjabloon=0",
          "MargeLinks=0",
          "MargeBoven=0",
          "MargeFactuurBoven=0",
          "MargeFactuurOnder=0",
          "FontName=0",
          "FontSize=0",
          "NoSound=false"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.table.toStdString());
        EXPECT_EQ(c.read, c.expected);
    }
    EXPECT_LE(qAbs(head.Datum().secsTo(QDateTime::currentDateTime())), 5)
        << "a missing date reads as now";
}

TEST_F(RecordMapping, NoSoundIsOneOnlyWhenTheColumnIsTrueAndIsWrittenAsYesNo) {
    db.exec("DELETE FROM Instellingen");
    db.exec("INSERT INTO Instellingen (InstellingenId, NoSound) VALUES (1, 1), (2, 0), (3, NULL)");
    const QList<clsObjInstellingen> rows = clsObjInstellingen().Lijst("");
    ASSERT_EQ(rows.size(), 3);
    EXPECT_EQ(rows[0].NoSound(), 1);
    EXPECT_EQ(rows[1].NoSound(), 0);
    EXPECT_EQ(rows[2].NoSound(), 0);

    clsObjInstellingen settings = rows[2];
    settings.setNoSound(1);
    settings.Bijwerken();
    EXPECT_EQ(db.scalar("SELECT NoSound FROM Instellingen WHERE InstellingenId=3").toInt(), 1);
    EXPECT_EQ(settings.InstellingenId(), 3) << "the key is never written";
}

TEST_F(RecordMapping, AnInvoiceNumberIsStoredAsANumberAndFoundAsText) {
    clsObjFactuur head = factuur();
    head.setNummer("12");
    head.Opslaan();
    EXPECT_EQ(db.scalar("SELECT typeof(Nummer) FROM Factuur").toString(), "integer");
    const QList<clsObjFactuur> found = clsObjFactuur().Lijst("Nummer='12'");
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found[0].Nummer(), "12");
}

TEST_F(RecordMapping, HidingACustomerByItsKeyBlanksTheOtherColumns) {
    clsObjKlant stored = klant();
    stored.Opslaan();
    clsObjKlant hidden;
    hidden.setKlantID(stored.KlantID());
    hidden.setZichtbaar(false);
    hidden.Bijwerken();

    clsObjKlant read;
    read.setKlantID(stored.KlantID());
    read.Ophalen();
    EXPECT_EQ(texts(columnsOf(read)), texts(columnsOf(hidden)));
    EXPECT_EQ(db.scalar("SELECT Bedrijfsnaam FROM Klant").toString(), "") << "empty, not Null";
    EXPECT_TRUE(clsObjKlant().Lijst("Zichtbaar = true").isEmpty());
}

TEST(VatPercentage, ComesFromTheClassOfTheRate) {
    clsObjBTW rates = btw();
    const std::pair<qint16, double> cases[] = {{1, 21}, {2, 9.5}, {0, 0}, {3, 0}, {-1, 0}};
    for (const auto& [tarief, expected] : cases) {
        SCOPED_TRACE(tarief);
        EXPECT_EQ(rates.GeefBTWPercentage(tarief), expected);
    }
}

TEST_F(RecordMapping, TheVatRowInUseIsTheFirstVisibleOne) {
    EXPECT_EQ(clsObjBTW::rowInUse().BTW1(), 21) << "the shipped database has one";
    db.exec("UPDATE BTW SET Zichtbaar=0");
    clsObjBTW newer = btw();
    newer.Opslaan();
    EXPECT_EQ(clsObjBTW::rowInUse().BTWId(), newer.BTWId());

    db.exec("UPDATE BTW SET Zichtbaar=0");
    try {
        clsObjBTW::rowInUse();
        ADD_FAILURE() << "no error without a visible row";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 9);
    }
}

TEST_F(RecordMapping, AnArticleKeyAbove32767CannotBeHeldByALine) {
    clsObjArtikelPerFactuur line;
    EXPECT_NO_THROW(line.setArtikelID(32767));
    try {
        line.setArtikelID(32768);
        ADD_FAILURE() << "no overflow";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), Error::Overflow);
    }
    EXPECT_EQ(line.artikelID(), 32767);

    db.exec("INSERT INTO ArtikelPerFactuur (FactuurArtikelID, ArtikelId) VALUES (1, 40000)");
    line.SetID(1);
    EXPECT_THROW(line.Ophalen(), Error);
}

TEST_F(RecordMapping, TheArticleOfALineIsReadAgainAtEveryCall) {
    clsObjArtikel stored = artikel();
    stored.Opslaan();
    clsObjArtikelPerFactuur line;
    line.setArtikelID(stored.artikelID());
    EXPECT_EQ(line.Artikel().Omschrijving(), "Eiken plank 18 mm");
    db.exec("UPDATE Artikel SET Omschrijving='Grenen plank'");
    EXPECT_EQ(line.Artikel().Omschrijving(), "Grenen plank");
}

}  // namespace
