#pragma once

#include <gtest/gtest.h>
#include <QDir>
#include <QStringList>
#include <QXmlStreamReader>
#include <map>

#include "ExchangeFixture.h"
#include "base/Currency.h"
#include "records/clsObjArtikelPerFactuur.h"
#include "records/clsObjBTW.h"
#include "records/clsObjFactuur.h"
#include "records/clsObjKlant.h"

// The leaf elements of an e-invoice by their path without prefixes ("Invoice/ID",
// "Invoice/InvoiceLine/LineExtensionAmount") and their attributes ("...EndpointID@schemeID"),
// in document order.
using XmlValues = std::multimap<QString, QString>;

inline XmlValues readXmlValues(const QByteArray& xml) {
    XmlValues values;
    QXmlStreamReader reader(xml);
    QStringList path;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement()) {
            path.append(reader.name().toString());
            for (const QXmlStreamAttribute& attribute : reader.attributes()) {
                values.emplace(path.join('/') + '@' + attribute.name(),
                               attribute.value().toString());
            }
        } else if (reader.isEndElement()) {
            path.removeLast();
        } else if (reader.isCharacters() && !reader.isWhitespace()) {
            values.emplace(path.join('/'), reader.text().toString());
        }
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    return values;
}

// The leaf elements of each InvoiceLine, by their path below it ("Price/PriceAmount").
inline QList<XmlValues> readInvoiceLines(const QByteArray& xml) {
    QList<XmlValues> lines;
    QXmlStreamReader reader(xml);
    QStringList path;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement()) {
            if (reader.name() == QLatin1String("InvoiceLine")) {
                lines.append(XmlValues());
                path.clear();
            } else if (!lines.isEmpty()) {
                path.append(reader.name().toString());
            }
        } else if (reader.isEndElement() && !path.isEmpty()) {
            path.removeLast();
        } else if (reader.isCharacters() && !reader.isWhitespace() && !lines.isEmpty()) {
            lines.last().emplace(path.join('/'), reader.text().toString());
        }
    }
    return lines;
}

inline QString xmlValue(const XmlValues& values, const QString& path) {
    const auto found = values.find(path);
    return found == values.end() ? QStringLiteral("<ontbreekt>") : found->second;
}

inline QStringList xmlValuesOf(const XmlValues& values, const QString& path) {
    QStringList list;
    const auto [from, to] = values.equal_range(path);
    for (auto it = from; it != to; ++it) {
        list.append(it->second);
    }
    return list;
}

// A program folder with a database that holds the company, customers of every kind the
// e-invoice tells apart, articles, and invoices saved the way the invoice editor saves them.
class UblDatabaseTest : public ExchangeTest {
protected:
    struct Customer {
        QString bedrijfsnaam, land, btwNummer;
        bool nulProcent = false;
        QString adres = QStringLiteral("Dorpsstraat 5"), postcode = QStringLiteral("1234 AB"),
                plaats = QStringLiteral("Ergens");
    };
    struct LineEntry {
        qint32 artikelId;
        double aantal;
        double korting = 0;
    };

    UblDatabaseTest() {
        database.exec(
            "UPDATE Instellingen SET Bedrijfsnaam='Lindebrug Testbedrijf B.V.', "
            "Adres='Kerkstraat 1', Postcode='3511 AB', Plaats='Utrecht', Land='Nederland', "
            "Telefoonnummer='030 123 45 67', Email='factuur@lindebrug.example', "
            "Banknummer='NL91 ABNA 0417 1643 00', BTWNummer='NL001234567B01', "
            "KVKNummer='12345678', BetaalTermijn=30, "
            "Opmerking='Levering volgens onze algemene voorwaarden.'");
    }

    qint32 addCustomer(const Customer& c) {
        clsObjKlant klant;
        klant.setBedrijfsnaam(c.bedrijfsnaam);
        klant.setVoorletters(c.bedrijfsnaam.isEmpty() ? "J." : "");
        klant.setTussenvoegsel(c.bedrijfsnaam.isEmpty() ? "de" : "");
        klant.setAchternaam(c.bedrijfsnaam.isEmpty() ? "Vries" : "Bakker");
        klant.setAdres(c.adres);
        klant.setPostcode(c.postcode);
        klant.setPlaats(c.plaats);
        klant.setLand(c.land);
        klant.setEmail("inkoop@klant.example");
        klant.setBTW(c.nulProcent);
        klant.setZichtbaar(true);
        klant.Opslaan();
        database.exec(QStringLiteral("UPDATE Klant SET Extra='%1' WHERE KlantID=%2")
                          .arg(c.btwNummer)
                          .arg(klant.KlantID()));
        return klant.KlantID();
    }

    // Articles straight into the table: prices to four decimals, VAT class 1 (first rate),
    // 2 (second rate) or 0 (none). Many at once go in one transaction.
    static QString articleInsert(qint32 id, const QString& omschrijving, const QString& eenheid,
                                 Currency prijs, int btwTarief) {
        return QStringLiteral(
                   "INSERT INTO Artikel (ArtikelID, Nummer, Omschrijving, Eenheid, "
                   "Voorraad, Prijs, NegVoorToestaan, BTWTarief, Zichtbaar, "
                   "GeenVoorraad) VALUES (%1, 'A%1', '%2', '%3', 100, %4, 1, %5, 1, 0);")
            .arg(id)
            .arg(omschrijving, eenheid)
            .arg(prijs.raw())
            .arg(btwTarief);
    }
    void addArticle(qint32 id, const QString& omschrijving, const QString& eenheid, Currency prijs,
                    int btwTarief) {
        database.exec(articleInsert(id, omschrijving, eenheid, prijs, btwTarief));
    }

    struct Row {
        qint32 artikelId;
        Currency prijs;
        double aantal, korting, tarief;
    };
    // An invoice and its lines as the editor's save leaves them, with the amounts from the
    // program's own line formulas, as SQL: many lines or invoices go in one transaction
    // where the save writes every row on its own.
    static QString invoiceRows(qint32 factuurId, const QString& nummer, qint32 klantId,
                               bool nulProcent, const QList<Row>& lines) {
        QString sql;
        Currency total, exBtw;
        for (const Row& r : lines) {
            const Currency net = clsObjArtikelPerFactuur::lineTotal(r.prijs, r.aantal, r.korting);
            const Currency btw =
                nulProcent ? Currency() : clsObjArtikelPerFactuur::vatAmount(net, r.tarief);
            total += net + btw;
            exBtw += net;
            const bool secondRate = r.tarief == 9;
            sql += QStringLiteral(
                       "INSERT INTO ArtikelPerFactuur (FactuurID, ArtikelId, Aantal, "
                       "Prijs, TotaalPrijs, BTWTarief, BTWBedragTarief1, "
                       "BTWBedragTarief2, Korting, Kortingsbedrag) VALUES (%1, %2, %3, "
                       "%4, %5, %6, %7, %8, %9, %10);")
                       .arg(factuurId)
                       .arg(r.artikelId)
                       .arg(r.aantal, 0, 'g', 17)
                       .arg(r.prijs.raw())
                       .arg(net.raw())
                       .arg(r.tarief)
                       .arg(secondRate ? 0 : btw.raw())
                       .arg(secondRate ? btw.raw() : 0)
                       .arg(r.korting, 0, 'g', 17)
                       .arg(clsObjArtikelPerFactuur::discountAmount(r.prijs, r.aantal, r.korting)
                                .raw());
        }
        return sql + QStringLiteral(
                         "INSERT INTO Factuur (FactuurID, Nummer, Datum, KlantId, "
                         "Klantnaam, TotaalPrijs, TotaalPrijsExBTW, BTWId) VALUES (%1, "
                         "%2, '2026-03-14 00:00:00', %3, 'Klant', %4, %5, 1);")
                         .arg(factuurId)
                         .arg(nummer)
                         .arg(klantId)
                         .arg(total.raw())
                         .arg(exBtw.raw());
    }

    // Saved as the invoice editor saves a new invoice: each line built from its article.
    clsObjFactuur addInvoice(const QString& nummer, qint32 klantId, const QList<LineEntry>& lines) {
        clsObjFactuur factuur;
        clsObjKlant klant;
        klant.SetID(klantId);
        klant.Ophalen();
        factuur.setKlant(klant);
        factuur.setNummer(nummer);
        factuur.setDatum(QDateTime(QDate(2026, 3, 14), QTime(0, 0)));
        const clsObjBTW rates = clsObjBTW::rowInUse();
        factuur.setBTWId(rates.BTWId());
        for (const LineEntry& entry : lines) {
            clsObjArtikel artikel;
            artikel.SetID(entry.artikelId);
            artikel.Ophalen();
            clsObjArtikelPerFactuur line;
            line.setArtikelID(entry.artikelId);
            line.setPrijs(artikel.Prijs());
            line.setAantal(entry.aantal);
            line.setKorting(entry.korting);
            line.setBTWTarief(rates.GeefBTWPercentage(artikel.BTWTarief()));
            line.setTotaalPrijs(
                clsObjArtikelPerFactuur::lineTotal(artikel.Prijs(), entry.aantal, entry.korting));
            factuur.ArtikelenPerFactuur().append(line);
        }
        factuur.OpslaanFactuur();
        return factuur;
    }
};
