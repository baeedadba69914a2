// The amounts and codes of e-invoices, and the payable amount of a thousand generated
// invoices against their printed total.
#include <gmock/gmock.h>

#include <cmath>
#include <random>

#include "UblFixture.h"
#include "exchange/ubl/UblAmounts.h"
#include "exchange/ubl/UblBuilder.h"
#include "exchange/ubl/UblCodes.h"
#include "exchange/ubl/UblWriter.h"

using namespace exchange::ubl;

namespace {

Currency raw(std::int64_t value) {
    return Currency::fromRaw(value);
}

TEST(UblAmounts, RoundToCentsAndWriteAmountsPricesAndNumbers) {
    const std::pair<std::int64_t, Cents> cents[] = {
        {12345, 123},   {12350, 124}, {12349, 123}, {-12350, -124},
        {-12349, -123}, {50, 1},      {-50, -1},    {49, 0},
        {0, 0},         {1250, 13},   {-1250, -13}, {9999999950, 100000000},
    };
    for (const auto& [value, expected] : cents) {
        EXPECT_EQ(toCents(raw(value)), expected) << value;
    }

    const std::pair<Cents, const char*> amounts[] = {
        {0, "0.00"}, {5, "0.05"}, {-5, "-0.05"}, {-150, "-1.50"}, {123456789, "1234567.89"}};
    for (const auto& [value, text] : amounts) {
        EXPECT_EQ(formatCents(value), text);
    }

    const std::pair<std::int64_t, const char*> prices[] = {
        {126000, "12.60"}, {12345, "1.2345"}, {10, "0.001"}, {500000, "50.00"}, {-1500, "-0.15"}};
    for (const auto& [value, text] : prices) {
        EXPECT_EQ(formatPrice(raw(value)), text);
    }

    const std::pair<double, const char*> numbers[] = {{3, "3"},
                                                      {12.5, "12.5"},
                                                      {0.333, "0.333"},
                                                      {-2.5, "-2.5"},
                                                      {1e-7, "0.0000001"},
                                                      {1e-11, "0"},
                                                      {1.0 / 3, "0.3333333333"},
                                                      {21, "21"}};
    for (const auto& [value, text] : numbers) {
        EXPECT_EQ(formatNumber(value), text);
    }
}

TEST(UblAmounts, TheVatOfACategoryIsItsTaxableAmountTimesTheRateRoundedOnce) {
    struct Case {
        Cents taxable;
        double percent;
        Cents vat;
    };
    const Case cases[] = {
        {50, 21, 11},       // 0.105 goes up
        {-50, 21, -11},     // and down for a credit
        {5, 9, 0},          // 0.0045
        {50, 9, 5},         // 0.045
        {1000, 19.5, 195},  // a rate with a fraction
        {40731, 21, 8554},  // 85.5351
        {0, 21, 0},
        {123456789012, 21, 25925925693},  // 259,259,256.9252 on a very large amount
    };
    for (const Case& c : cases) {
        EXPECT_EQ(vatOf(c.taxable, c.percent), c.vat) << c.taxable;
    }
}

// Lines whose amounts end on half cents: each line rounds up, so the sum of the rounded
// lines runs ahead of the printed total, and only the rounding amount brings the payable
// amount back to what the customer was asked to pay.
TEST(UblAmounts, ThePayableAmountIsThePrintedTotalWithARoundingAmountOnlyWhenNeeded) {
    const TaxCategory s21{VatCategory::Standard, 21};
    const TaxCategory s9{VatCategory::Standard, 9};
    const TaxCategory ae{VatCategory::ReverseCharge, 0};
    struct Case {
        QList<LineAmounts> lines;
        Cents lineExtension, vat, rounding, payable;
    };
    const auto total = [](const QList<LineAmounts>& lines) {
        Currency sum;
        for (const LineAmounts& line : lines) {
            sum += line.net + line.vat;
        }
        return sum;
    };
    const Case cases[] = {
        // Three lines of 0.125 with 21 % (0.02625 -> 0.0262 each to 1/10000): printed
        // total 0.4536 -> 0.45; lines 0.13 x 3 = 0.39, VAT of 0.39 = 0.08: 0.47.
        {{{raw(1250), raw(262), s21}, {raw(1250), raw(262), s21}, {raw(1250), raw(262), s21}},
         39,
         8,
         -2,
         45},
        // Plain amounts need no rounding amount.
        {{{raw(1950000), raw(409500), s21}, {raw(425000), raw(38250), s9}}, 23750, 4478, 0, 28228},
        // Reverse charge carries no VAT; a negative line (a return) subtracts.
        // 10.00 and -3.335 (-3.34): 6.66 against the printed 6.665 -> 6.67.
        {{{raw(100000), raw(0), ae}, {raw(-33350), raw(0), ae}}, 666, 0, 1, 667},
        // A credit on the half cent rounds away from zero, as the printed total does.
        {{{raw(-1250), raw(-262), s21}}, -13, -3, 1, -15},
    };
    for (const Case& c : cases) {
        const Totals totals = computeTotals(c.lines, total(c.lines));
        EXPECT_EQ(totals.lineExtension, c.lineExtension);
        EXPECT_EQ(totals.vat, c.vat);
        EXPECT_EQ(totals.rounding, c.rounding);
        EXPECT_EQ(totals.payable, c.payable);
        EXPECT_EQ(totals.taxInclusive + totals.rounding, totals.payable);
    }
}

TEST(UblCodes, UnitsCountriesVatNumbersAndBankAccounts) {
    const std::pair<const char*, const char*> units[] = {
        {"stuk", "H87"}, {"Stuks", "H87"}, {"uur", "HUR"},  {" Uren ", "HUR"},
        {"kg", "KGM"},   {"KG", "KGM"},    {"doos", "C62"}, {"", "C62"}};
    for (const auto& [eenheid, code] : units) {
        EXPECT_EQ(unitCode(eenheid), code) << eenheid;
    }

    const std::pair<const char*, const char*> countries[] = {{"Nederland", "NL"},
                                                             {"", "NL"},
                                                             {"nl", "NL"},
                                                             {"België", "BE"},
                                                             {"belgie", "BE"},
                                                             {"Tsjechië", "CZ"},
                                                             {"Verenigd Koninkrijk", "GB"},
                                                             {"Zwitserland", "CH"},
                                                             {"Atlantis", ""}};
    for (const auto& [land, code] : countries) {
        EXPECT_EQ(countryCode(land), code) << land;
    }
    EXPECT_TRUE(isEuMember("BE"));
    EXPECT_TRUE(isEuMember("NL"));
    EXPECT_FALSE(isEuMember("GB"));
    EXPECT_FALSE(isEuMember("CH"));

    EXPECT_EQ(normalizedVatNumber("nl 0012.34567.b01", "NL"), "NL001234567B01");
    EXPECT_EQ(normalizedVatNumber("001234567B01", "NL"), "NL001234567B01");
    EXPECT_EQ(normalizedVatNumber("123456789", "GR"), "EL123456789");
    EXPECT_EQ(normalizedVatNumber("  ", "NL"), "");
    EXPECT_EQ(vatEndpointScheme("NL001234567B01"), "9944");
    EXPECT_EQ(vatEndpointScheme("BE0123456789"), "9925");
    EXPECT_EQ(vatEndpointScheme("GB123456789"), "9932");
    EXPECT_EQ(vatEndpointScheme("SE556677889901"), "");
    EXPECT_EQ(vatEndpointScheme(""), "");

    EXPECT_EQ(normalizedIban("NL91 ABNA 0417 1643 00"), "NL91ABNA0417164300");
    EXPECT_EQ(normalizedIban("nl91abna0417164300"), "NL91ABNA0417164300");
    EXPECT_EQ(normalizedIban("BE68539007547034"), "BE68539007547034");
    EXPECT_EQ(normalizedIban("NL92ABNA0417164300"), "");  // a wrong check digit
    EXPECT_EQ(normalizedIban("41.71.64.300"), "");        // an old Dutch account number
    EXPECT_EQ(normalizedIban(""), "");
}

Cents centsOf(const QString& amount) {
    return QString(amount).remove('.').toLongLong();
}

// What the printed invoice shows as its total: the saved total to two decimals.
Cents printedTotal(Currency total) {
    return std::llround(total.raw() / 100.0);
}

// A thousand invoices of 1 to 30 lines with prices to four decimals, fractional and
// negative quantities, odd discounts and both rates, for customers with VAT and at 0 %:
// every e-invoice adds up by the rules and asks the printed total.
class GeneratedInvoices : public UblDatabaseTest {};

TEST_F(GeneratedInvoices, EveryPayableAmountIsThePrintedTotalAndEverySumAddsUp) {
    const qint32 customers[] = {
        addCustomer({"Klant NL", "Nederland", "NL009876543B01"}),
        addCustomer({"Klant verlegd", "Nederland", "NL001122334B01", true}),
        addCustomer({"Klant BE", "België", "BE0123456789", true}),
        addCustomer({"Klant GB", "Verenigd Koninkrijk", "GB123456789", true}),
    };
    std::mt19937 random(20260314);
    const double quantities[] = {1, 2, 3, 0.5, 1.25, 0.333, 7, 12, -1, -2.5, 0.125};
    const double discounts[] = {0, 0, 0, 5, 10, 12.5, 33.333, 50, 100};
    const double rates[] = {21, 9, 0};  // the article's rate class 1, 2 and none
    QList<Currency> prices{Currency()};
    QString script = "BEGIN;";
    for (int a = 1; a <= 300; ++a) {
        prices.append(Currency::fromRaw(std::uniform_int_distribution<int>(1, 500000)(random)));
        script += articleInsert(a, QString("Artikel %1").arg(a), "stuk", prices.last(), a % 3);
    }
    for (int f = 1; f <= 1000; ++f) {
        const qint32 klant = customers[random() % 4];
        QList<Row> lines;
        const int lineCount = 1 + random() % 30;
        for (int l = 0; l < lineCount; ++l) {
            const int artikel = 1 + (f * 7 + l * 11) % 300;  // distinct within an invoice
            const double aantal = quantities[random() % std::size(quantities)];
            const double korting = discounts[random() % std::size(discounts)];
            lines.append({artikel, prices.at(artikel), aantal, korting, rates[(artikel - 1) % 3]});
        }
        script += invoiceRows(f, QString::number(5000 + f), klant, klant != customers[0], lines);
    }
    database.exec(script + "COMMIT;");

    const clsObjInstellingen instellingen = loadSettings();
    int withRoundingAmount = 0;
    for (int f = 1; f <= 1000; ++f) {
        const auto records = loadInvoiceRecords(f);
        ASSERT_TRUE(records);
        const BuiltInvoice built = buildInvoice(*records, instellingen, Profile::Peppol);
        ASSERT_EQ(built.refusal, "");
        const XmlValues xml = readXmlValues(writeInvoice(built.invoice, Profile::Peppol));
        SCOPED_TRACE(xmlValue(xml, "Invoice/ID").toStdString());
        const auto amount = [&](const QString& path) { return centsOf(xmlValue(xml, path)); };
        const auto sum = [&](const QString& path) {
            Cents s = 0;
            for (const QString& v : xmlValuesOf(xml, path)) {
                s += centsOf(v);
            }
            return s;
        };
        const QString totalsPath = "Invoice/LegalMonetaryTotal/";
        const Cents rounding = xml.count(totalsPath + "PayableRoundingAmount")
                                   ? amount(totalsPath + "PayableRoundingAmount")
                                   : 0;
        withRoundingAmount += rounding != 0;
        EXPECT_EQ(amount(totalsPath + "PayableAmount"),
                  printedTotal(records->factuur.TotaalPrijs()));
        EXPECT_EQ(amount(totalsPath + "LineExtensionAmount"),
                  sum("Invoice/InvoiceLine/LineExtensionAmount"));
        EXPECT_EQ(amount("Invoice/TaxTotal/TaxAmount"),
                  sum("Invoice/TaxTotal/TaxSubtotal/TaxAmount"));
        EXPECT_EQ(amount(totalsPath + "TaxInclusiveAmount"),
                  amount(totalsPath + "TaxExclusiveAmount") + amount("Invoice/TaxTotal/TaxAmount"));
        EXPECT_EQ(amount(totalsPath + "PayableAmount"),
                  amount(totalsPath + "TaxInclusiveAmount") + rounding);

        // Each subtotal: the lines of its category and rate, and its VAT within half a cent.
        const QStringList lineIds =
            xmlValuesOf(xml, "Invoice/InvoiceLine/Item/ClassifiedTaxCategory/ID");
        const QStringList linePercents =
            xmlValuesOf(xml, "Invoice/InvoiceLine/Item/ClassifiedTaxCategory/Percent");
        const QStringList lineAmounts = xmlValuesOf(xml, "Invoice/InvoiceLine/LineExtensionAmount");
        const QStringList ids = xmlValuesOf(xml, "Invoice/TaxTotal/TaxSubtotal/TaxCategory/ID");
        const QStringList percents =
            xmlValuesOf(xml, "Invoice/TaxTotal/TaxSubtotal/TaxCategory/Percent");
        const QStringList taxables = xmlValuesOf(xml, "Invoice/TaxTotal/TaxSubtotal/TaxableAmount");
        const QStringList vats = xmlValuesOf(xml, "Invoice/TaxTotal/TaxSubtotal/TaxAmount");
        for (qsizetype s = 0; s < ids.size(); ++s) {
            Cents taxable = 0;
            for (qsizetype l = 0; l < lineIds.size(); ++l) {
                if (lineIds[l] == ids[s] && linePercents[l] == percents[s]) {
                    taxable += centsOf(lineAmounts[l]);
                }
            }
            EXPECT_EQ(centsOf(taxables[s]), taxable);
            EXPECT_NEAR(centsOf(vats[s]), taxable * percents[s].toDouble() / 100, 0.5 + 1e-6);
        }
        // Each line: quantity x net price - discount, within the two cents the rules allow.
        for (const XmlValues& line :
             readInvoiceLines(writeInvoice(built.invoice, Profile::Peppol))) {
            const double gross = xmlValue(line, "InvoicedQuantity").toDouble() *
                                 xmlValue(line, "Price/PriceAmount").toDouble() * 100;
            const Cents discount = line.count("AllowanceCharge/Amount")
                                       ? centsOf(xmlValue(line, "AllowanceCharge/Amount"))
                                       : 0;
            EXPECT_NEAR(gross - discount, centsOf(xmlValue(line, "LineExtensionAmount")), 2.0);
        }
    }
    // The generator reaches the case the rounding amount is there for.
    EXPECT_GT(withRoundingAmount, 0);
}

}  // namespace
