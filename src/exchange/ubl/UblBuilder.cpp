#include "exchange/ubl/UblBuilder.h"

#include <QStringList>

#include "exchange/ubl/UblCodes.h"
#include "store/Recordset.h"
#include "store/clsDatabase.h"

namespace exchange::ubl {
namespace {

const QString kNoInvoice = QStringLiteral("Er kan geen e-factuur worden gemaakt. ");

QString joinedNonEmpty(const QStringList& parts) {
    QStringList kept;
    for (const QString& part : parts) {
        if (!part.trimmed().isEmpty()) {
            kept.append(part.trimmed());
        }
    }
    return kept.join(QLatin1Char(' '));
}

QString contactName(const clsObjKlant& klant) {
    return joinedNonEmpty({klant.Voorletters(), klant.Tussenvoegsel(), klant.Achternaam()});
}

// The labels of the fields a user must fill in, for those that are empty.
QStringList emptyFields(std::initializer_list<std::pair<QString, QString>> fields) {
    QStringList missing;
    for (const auto& [label, value] : fields) {
        if (value.trimmed().isEmpty()) {
            missing.append(label);
        }
    }
    return missing;
}

Party sellerParty(const clsObjInstellingen& instellingen) {
    Party seller;
    seller.name = instellingen.Bedrijfsnaam().trimmed();
    seller.street = instellingen.Adres().trimmed();
    seller.postcode = instellingen.Postcode().trimmed();
    seller.city = instellingen.Plaats().trimmed();
    seller.countryCode = countryCode(instellingen.Land());
    seller.vatNumber = normalizedVatNumber(instellingen.BTWNummer(), seller.countryCode);
    seller.kvkNumber = normalizedKvkNumber(instellingen.KVKNummer());
    seller.endpointScheme = QStringLiteral("0106");
    seller.endpointId = seller.kvkNumber;
    seller.telephone = instellingen.Telefoonnummer().trimmed();
    seller.email = instellingen.Email().trimmed();
    return seller;
}

// The customer as the e-invoice names it: by its company name, or by its contact person
// when it has none; its VAT number is also its electronic address where the network has a
// scheme for it.
Party buyerParty(const clsObjKlant& klant, const QString& btwNummer) {
    Party buyer;
    buyer.contactName = contactName(klant);
    buyer.name = klant.Bedrijfsnaam().trimmed().isEmpty() ? buyer.contactName
                                                          : klant.Bedrijfsnaam().trimmed();
    buyer.street = klant.Adres().trimmed();
    buyer.postcode = klant.Postcode().trimmed();
    buyer.city = klant.Plaats().trimmed();
    buyer.telephone = klant.Telefoon().trimmed();
    buyer.email = klant.Email().trimmed();
    buyer.countryCode = countryCode(klant.Land());
    buyer.vatNumber = normalizedVatNumber(btwNummer, buyer.countryCode);
    buyer.endpointScheme = vatEndpointScheme(buyer.vatNumber);
    if (!buyer.endpointScheme.isEmpty()) {
        buyer.endpointId = buyer.vatNumber;
    }
    return buyer;
}

// The category of the lines a customer invoiced at 0 % VAT gets: who pays the VAT, or why
// there is none, follows from where the customer is and whether it has a VAT number.
VatCategory zeroVatCategory(const Party& buyer) {
    const bool hasVatNumber = !buyer.vatNumber.isEmpty();
    if (buyer.countryCode == QLatin1String("NL")) {
        return hasVatNumber ? VatCategory::ReverseCharge : VatCategory::ZeroRated;
    }
    if (isEuMember(buyer.countryCode)) {
        return hasVatNumber ? VatCategory::IntraCommunity : VatCategory::ZeroRated;
    }
    return VatCategory::Export;
}

// Lines without VAT for a customer invoiced at 0 % take the customer's category; lines
// that carry VAT (saved before the customer went to 0 %) keep their rate.
TaxCategory lineTax(const clsObjArtikelPerFactuur& line, bool zeroVatCustomer,
                    VatCategory zeroCategory) {
    if (zeroVatCustomer && line.BTWBedrag().isZero()) {
        return {zeroCategory, 0};
    }
    if (line.BTWTarief() <= 0 && line.BTWBedrag().isZero()) {
        return {VatCategory::ZeroRated, 0};
    }
    return {VatCategory::Standard, line.BTWTarief()};
}

QString itemName(const clsObjArtikel& artikel) {
    if (!artikel.Omschrijving().trimmed().isEmpty()) {
        return artikel.Omschrijving().trimmed();
    }
    if (!artikel.Nummer().trimmed().isEmpty()) {
        return QStringLiteral("Artikel ") + artikel.Nummer().trimmed();
    }
    return QStringLiteral("Artikel zonder omschrijving");
}

Line invoiceLine(const clsObjArtikelPerFactuur& stored, const clsObjArtikel& artikel,
                 const TaxCategory& tax, Cents net) {
    Line line;
    line.name = itemName(artikel);
    line.articleNumber = artikel.Nummer().trimmed();
    line.unitCode = unitCode(artikel.Eenheid());
    // A net price is never negative on an e-invoice: a negative price (a deposit returned,
    // say) is the same amount as a negative quantity at the positive price.
    const bool negativePrice = stored.Prijs() < Currency();
    line.price = negativePrice ? -stored.Prijs() : stored.Prijs();
    line.quantity = negativePrice ? -stored.Aantal() : stored.Aantal();
    line.discountPercent = stored.Korting();
    line.netAmount = net;
    // The discount is what lies between quantity x price and the net amount, both to the
    // cent, so that a reader of the line finds 123.75 - 12.37 = 111.38 rather than the
    // 12.38 the discount makes on its own; the rules allow either within two cents.
    line.grossAmount = stored.Korting() != 0 ? toCents(stored.Prijs() * stored.Aantal()) : net;
    line.discountAmount = line.grossAmount - net;
    line.tax = tax;
    return line;
}

class InvoiceBuilder {
public:
    InvoiceBuilder(const InvoiceRecords& records, const clsObjInstellingen& instellingen,
                   Profile profile)
        : records_(records), instellingen_(instellingen), profile_(profile) {}

    BuiltInvoice build() {
        const clsObjFactuur& factuur = records_.factuur;
        BuiltInvoice built;
        Invoice& invoice = built.invoice;
        invoice.number = factuur.Nummer();
        invoice.seller = sellerParty(instellingen_);
        invoice.iban = normalizedIban(instellingen_.Banknummer());
        invoice.note = instellingen_.Opmerking().trimmed();
        invoice.issueDate = factuur.Datum().date();
        const int termijn = qMax<int>(0, instellingen_.BetaalTermijn());
        invoice.dueDate = invoice.issueDate.addDays(termijn);
        invoice.paymentTerms =
            QStringLiteral("Betaling binnen %1 dagen na factuurdatum.").arg(termijn);
        built.refusal = addBuyer(invoice.buyer);
        if (built.refusal.isEmpty()) {
            built.refusal = addLines(invoice);
        }
        return built;
    }

private:
    QString refusal(const QString& text) const {
        return QStringLiteral("Factuur %1: ").arg(records_.factuur.Nummer()) + text;
    }

    // Each of these fills its part of the invoice and tells why the invoice cannot become
    // an e-invoice, or nothing when it can.

    QString addBuyer(Party& buyer) const {
        const clsObjKlant& klant = records_.factuur.Klant();
        buyer = buyerParty(klant, records_.klantBtwNummer);
        const QString who = buyer.name.isEmpty() ? QStringLiteral("de klant")
                                                 : QStringLiteral("klant ") + buyer.name;
        if (buyer.countryCode.isEmpty()) {
            return refusal(QStringLiteral("het land van %1 (%2) is onbekend. Vul bij de klant "
                                          "de naam van het land in, bijvoorbeeld België.")
                               .arg(who, klant.Land().trimmed()));
        }
        // A Dutch address needs its postcode; abroad not every country has one.
        const QStringList missing = emptyFields({
            {QStringLiteral("Bedrijfsnaam of Achternaam"), buyer.name},
            {QStringLiteral("Adres"), buyer.street},
            {QStringLiteral("Postcode"),
             buyer.countryCode == QLatin1String("NL") ? buyer.postcode : QStringLiteral("-")},
            {QStringLiteral("Plaats"), buyer.city},
        });
        if (!missing.isEmpty()) {
            return refusal(QStringLiteral("vul bij %1 eerst in: %2.").arg(who, missing.join(", ")));
        }
        if (profile_ == Profile::NlCius && buyer.countryCode == QLatin1String("NL")) {
            return refusal(QStringLiteral("SI-UBL (NLCIUS) vraagt het KvK-nummer van een "
                                          "Nederlandse klant, en dat houdt Lindebrug niet bij. "
                                          "Maak de e-factuur voor %1 als Peppol e-factuur.")
                               .arg(who));
        }
        // The Peppol network delivers an invoice only to an electronic address, and the one
        // address the program knows of a customer is its VAT number.
        if (profile_ == Profile::Peppol && buyer.endpointId.isEmpty()) {
            return refusal(
                buyer.vatNumber.isEmpty()
                    ? QStringLiteral("%1 heeft geen btw-nummer. Een Peppol e-factuur heeft het "
                                     "btw-nummer als elektronisch adres van de klant nodig: vul "
                                     "het BTW-nummer van de klant in.")
                          .arg(who)
                    : QStringLiteral("het btw-nummer %1 van %2 is geen Peppol-adres. Maak de "
                                     "e-factuur als SI-UBL (NLCIUS).")
                          .arg(buyer.vatNumber, who));
        }
        return QString();
    }

    QString addLines(Invoice& invoice) const {
        const clsObjFactuur& factuur = records_.factuur;
        const QList<clsObjArtikelPerFactuur>& lines = factuur.ArtikelenPerFactuur();
        if (lines.isEmpty()) {
            return refusal(QStringLiteral("de factuur heeft geen regels."));
        }
        const bool zeroVatCustomer = factuur.Klant().BTW();
        const VatCategory zeroCategory = zeroVatCategory(invoice.buyer);
        QList<LineAmounts> amounts;
        Currency linesTotal;
        for (const clsObjArtikelPerFactuur& line : lines) {
            amounts.append({line.TotaalPrijs(), line.BTWBedrag(),
                            lineTax(line, zeroVatCustomer, zeroCategory)});
            linesTotal += line.TotaalPrijs() + line.BTWBedrag();
        }
        if (linesTotal != factuur.TotaalPrijs()) {
            return refusal(QStringLiteral("het totaal van de factuur (%1) is niet de som van de "
                                          "regels (%2). Open de factuur en sla haar opnieuw op.")
                               .arg(formatPrice(factuur.TotaalPrijs()), formatPrice(linesTotal)));
        }
        invoice.totals = computeTotals(amounts, factuur.TotaalPrijs());
        for (qsizetype i = 0; i < lines.size(); ++i) {
            invoice.lines.append(invoiceLine(lines.at(i), records_.artikelen.at(i),
                                             amounts.at(i).tax, invoice.totals.lineNet.at(i)));
        }
        return QString();
    }

    const InvoiceRecords& records_;
    const clsObjInstellingen& instellingen_;
    Profile profile_;
};

}  // namespace

std::optional<InvoiceRecords> loadInvoiceRecords(qint32 factuurId) {
    const QList<clsObjFactuur> found =
        clsObjFactuur().Lijst(QStringLiteral("FactuurID=") + QString::number(factuurId));
    if (found.isEmpty()) {
        return std::nullopt;
    }
    InvoiceRecords records{found.first(), {}, {}};
    records.factuur.LaadKlant();
    records.factuur.LaadArtikelenPerFactuur();
    for (const clsObjArtikelPerFactuur& line : records.factuur.ArtikelenPerFactuur()) {
        records.artikelen.append(line.Artikel());
    }
    const auto set =
        clsDatabase().openReadSet(QStringLiteral("SELECT Extra FROM Klant WHERE KlantID=") +
                                  QString::number(records.factuur.KlantID()));
    if (!set->isEOF()) {
        records.klantBtwNummer = set->text(0).value_or(QString());
    }
    return records;
}

clsObjInstellingen loadSettings() {
    const QList<clsObjInstellingen> rows = clsObjInstellingen().Lijst(QString());
    return rows.isEmpty() ? clsObjInstellingen() : rows.first();
}

QString settingsRefusal(const clsObjInstellingen& instellingen) {
    const QStringList missing = emptyFields({
        {QStringLiteral("Bedrijfsnaam"), instellingen.Bedrijfsnaam()},
        {QStringLiteral("Adres"), instellingen.Adres()},
        {QStringLiteral("Postcode"), instellingen.Postcode()},
        {QStringLiteral("Plaats"), instellingen.Plaats()},
        {QStringLiteral("Banknummer"), instellingen.Banknummer()},
        {QStringLiteral("BTW nummer"), instellingen.BTWNummer()},
        {QStringLiteral("KVK nummer"), instellingen.KVKNummer()},
    });
    if (!missing.isEmpty()) {
        return kNoInvoice + QStringLiteral("Vul in de instellingen (tabblad Bedrijf) eerst in: ") +
               missing.join(QStringLiteral(", ")) + QLatin1Char('.');
    }
    if (countryCode(instellingen.Land()).isEmpty()) {
        return kNoInvoice + QStringLiteral(
                                "Het land in de instellingen (%1) is onbekend: vul de "
                                "naam van het land in, bijvoorbeeld Nederland.")
                                .arg(instellingen.Land().trimmed());
    }
    if (normalizedIban(instellingen.Banknummer()).isEmpty()) {
        return kNoInvoice + QStringLiteral(
                                "Het banknummer in de instellingen (%1) is geen geldig "
                                "IBAN. Een e-factuur vraagt om betaling per "
                                "SEPA-overboeking naar een IBAN.")
                                .arg(instellingen.Banknummer().trimmed());
    }
    return QString();
}

BuiltInvoice buildInvoice(const InvoiceRecords& records, const clsObjInstellingen& instellingen,
                          Profile profile) {
    return InvoiceBuilder(records, instellingen, profile).build();
}

}  // namespace exchange::ubl
