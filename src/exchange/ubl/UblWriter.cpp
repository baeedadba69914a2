#include "exchange/ubl/UblWriter.h"

#include <QXmlStreamWriter>
#include <algorithm>

namespace exchange::ubl {
namespace {

const QString kInvoiceNs = QStringLiteral("urn:oasis:names:specification:ubl:schema:xsd:Invoice-2");
const QString kCac =
    QStringLiteral("urn:oasis:names:specification:ubl:schema:xsd:CommonAggregateComponents-2");
const QString kCbc =
    QStringLiteral("urn:oasis:names:specification:ubl:schema:xsd:CommonBasicComponents-2");
const QString kCurrency = QStringLiteral("EUR");

struct CategoryCodes {
    const char* id;
    const char* exemptionCode;    // empty: none
    const char* exemptionReason;  // empty: none
};

// Z carries no exemption reason: the rules forbid one for zero-rated lines.
CategoryCodes codesOf(VatCategory category) {
    switch (category) {
        case VatCategory::Standard:
            return {"S", "", ""};
        case VatCategory::ReverseCharge:
            return {"AE", "VATEX-EU-AE", "Btw verlegd"};
        case VatCategory::IntraCommunity:
            return {"K", "VATEX-EU-IC", "Intracommunautaire levering"};
        case VatCategory::Export:
            return {"G", "VATEX-EU-G", "Uitvoer buiten de EU"};
        case VatCategory::ZeroRated:
            return {"Z", "", ""};
    }
    return {"S", "", ""};
}

class Writer {
public:
    Writer(QByteArray& out, Profile profile) : xml_(&out), profile_(profile) {
        xml_.setAutoFormatting(true);
        xml_.setAutoFormattingIndent(2);
    }

    void write(const Invoice& invoice) {
        xml_.writeStartDocument();
        xml_.writeDefaultNamespace(kInvoiceNs);
        xml_.writeNamespace(kCac, QStringLiteral("cac"));
        xml_.writeNamespace(kCbc, QStringLiteral("cbc"));
        xml_.writeStartElement(kInvoiceNs, QStringLiteral("Invoice"));
        writeHead(invoice);
        writeParty("AccountingSupplierParty", invoice.seller, true);
        writeParty("AccountingCustomerParty", invoice.buyer, false);
        if (hasIntraCommunityLines(invoice)) {
            writeDelivery(invoice);
        }
        writePayment(invoice);
        writeTaxTotal(invoice.totals);
        writeMonetaryTotal(invoice.totals);
        for (qsizetype i = 0; i < invoice.lines.size(); ++i) {
            writeLine(i + 1, invoice.lines.at(i));
        }
        xml_.writeEndElement();
        xml_.writeEndDocument();
    }

private:
    bool peppol() const { return profile_ == Profile::Peppol; }

    void begin(const char* name) { xml_.writeStartElement(kCac, QLatin1String(name)); }
    void end() { xml_.writeEndElement(); }
    // Empty elements are not allowed: an empty value leaves its element out.
    void text(const char* name, const QString& value) {
        if (!value.isEmpty()) {
            xml_.writeTextElement(kCbc, QLatin1String(name), value);
        }
    }
    void withAttribute(const char* name, const char* attribute, const QString& attributeValue,
                       const QString& value) {
        xml_.writeStartElement(kCbc, QLatin1String(name));
        xml_.writeAttribute(QLatin1String(attribute), attributeValue);
        xml_.writeCharacters(value);
        xml_.writeEndElement();
    }
    void amount(const char* name, Cents value) {
        withAttribute(name, "currencyID", kCurrency, formatCents(value));
    }

    void writeHead(const Invoice& invoice) {
        text("CustomizationID",
             peppol() ? QStringLiteral("urn:cen.eu:en16931:2017#compliant#urn:fdc:peppol.eu:"
                                       "2017:poacc:billing:3.0")
                      : QStringLiteral("urn:cen.eu:en16931:2017#compliant#urn:fdc:nen.nl:nlcius:"
                                       "v1.0"));
        if (peppol()) {
            text("ProfileID", QStringLiteral("urn:fdc:peppol.eu:2017:poacc:billing:01:1.0"));
        }
        text("ID", invoice.number);
        text("IssueDate", invoice.issueDate.toString(Qt::ISODate));
        text("DueDate", invoice.dueDate.toString(Qt::ISODate));
        text("InvoiceTypeCode", QStringLiteral("380"));
        text("Note", invoice.note);
        text("DocumentCurrencyCode", kCurrency);
        // The rules want the buyer's reference; the invoice has no field for it, and its own
        // number is what the customer quotes when paying.
        text("BuyerReference", invoice.number);
    }

    void writeAddress(const char* element, const Party& party) {
        begin(element);
        text("StreetName", party.street);
        text("CityName", party.city);
        text("PostalZone", party.postcode);
        begin("Country");
        text("IdentificationCode", party.countryCode);
        end();
        end();
    }

    void writeParty(const char* role, const Party& party, bool seller) {
        begin(role);
        begin("Party");
        if (!party.endpointId.isEmpty()) {
            withAttribute("EndpointID", "schemeID", party.endpointScheme, party.endpointId);
        }
        begin("PartyName");
        text("Name", party.name);
        end();
        writeAddress("PostalAddress", party);
        if (!party.vatNumber.isEmpty()) {
            begin("PartyTaxScheme");
            text("CompanyID", party.vatNumber);
            begin("TaxScheme");
            text("ID", QStringLiteral("VAT"));
            end();
            end();
        }
        begin("PartyLegalEntity");
        text("RegistrationName", party.name);
        if (seller) {
            withAttribute("CompanyID", "schemeID", QStringLiteral("0106"), party.kvkNumber);
        }
        end();
        if (!party.contactName.isEmpty() || !party.telephone.isEmpty() || !party.email.isEmpty()) {
            begin("Contact");
            text("Name", party.contactName);
            text("Telephone", party.telephone);
            text("ElectronicMail", party.email);
            end();
        }
        end();
        end();
    }

    static bool hasIntraCommunityLines(const Invoice& invoice) {
        return std::any_of(invoice.lines.begin(), invoice.lines.end(), [](const Line& line) {
            return line.tax.category == VatCategory::IntraCommunity;
        });
    }

    // Goods delivered within the EU name the date and the country of delivery; the program
    // knows neither apart from the invoice, so they are the invoice date and the customer's
    // address.
    void writeDelivery(const Invoice& invoice) {
        begin("Delivery");
        text("ActualDeliveryDate", invoice.issueDate.toString(Qt::ISODate));
        begin("DeliveryLocation");
        writeAddress("Address", invoice.buyer);
        end();
        end();
    }

    void writePayment(const Invoice& invoice) {
        begin("PaymentMeans");
        text("PaymentMeansCode", QStringLiteral("58"));  // SEPA credit transfer
        text("PaymentID", invoice.number);
        begin("PayeeFinancialAccount");
        text("ID", invoice.iban);
        end();
        end();
        begin("PaymentTerms");
        text("Note", invoice.paymentTerms);
        end();
    }

    void writeCategory(const char* element, const TaxCategory& tax, bool withReason) {
        const CategoryCodes codes = codesOf(tax.category);
        begin(element);
        text("ID", QLatin1String(codes.id));
        text("Percent", formatNumber(tax.percent));
        // SI-UBL advises against the exemption code; the text says the same.
        if (withReason && peppol()) {
            text("TaxExemptionReasonCode", QLatin1String(codes.exemptionCode));
        }
        if (withReason) {
            text("TaxExemptionReason", QLatin1String(codes.exemptionReason));
        }
        begin("TaxScheme");
        text("ID", QStringLiteral("VAT"));
        end();
        end();
    }

    void writeTaxTotal(const Totals& totals) {
        begin("TaxTotal");
        amount("TaxAmount", totals.vat);
        for (const TaxSubtotal& subtotal : totals.subtotals) {
            begin("TaxSubtotal");
            amount("TaxableAmount", subtotal.taxable);
            amount("TaxAmount", subtotal.vat);
            writeCategory("TaxCategory", subtotal.tax, true);
            end();
        }
        end();
    }

    void writeMonetaryTotal(const Totals& totals) {
        begin("LegalMonetaryTotal");
        amount("LineExtensionAmount", totals.lineExtension);
        amount("TaxExclusiveAmount", totals.lineExtension);
        amount("TaxInclusiveAmount", totals.taxInclusive);
        if (totals.rounding != 0) {
            amount("PayableRoundingAmount", totals.rounding);
        }
        amount("PayableAmount", totals.payable);
        end();
    }

    void writeDiscount(const Line& line) {
        begin("AllowanceCharge");
        text("ChargeIndicator", QStringLiteral("false"));
        if (peppol()) {
            text("AllowanceChargeReasonCode", QStringLiteral("95"));  // discount
        }
        text("AllowanceChargeReason", QStringLiteral("Korting"));
        text("MultiplierFactorNumeric", formatNumber(line.discountPercent));
        amount("Amount", line.discountAmount);
        amount("BaseAmount", line.grossAmount);
        end();
    }

    void writeLine(qsizetype number, const Line& line) {
        begin("InvoiceLine");
        text("ID", QString::number(number));
        withAttribute("InvoicedQuantity", "unitCode", line.unitCode, formatNumber(line.quantity));
        amount("LineExtensionAmount", line.netAmount);
        if (line.discountPercent != 0) {
            writeDiscount(line);
        }
        begin("Item");
        text("Name", line.name);
        if (!line.articleNumber.isEmpty()) {
            begin("SellersItemIdentification");
            text("ID", line.articleNumber);
            end();
        }
        writeCategory("ClassifiedTaxCategory", line.tax, false);
        end();
        begin("Price");
        withAttribute("PriceAmount", "currencyID", kCurrency, formatPrice(line.price));
        end();
        end();
    }

    QXmlStreamWriter xml_;
    Profile profile_;
};

}  // namespace

QByteArray writeInvoice(const Invoice& invoice, Profile profile) {
    QByteArray out;
    Writer(out, profile).write(invoice);
    return out;
}

}  // namespace exchange::ubl
