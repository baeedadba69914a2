#pragma once

#include <QList>
#include <QString>
#include <cstdint>

#include "base/Currency.h"

// The amounts of an e-invoice. The program keeps amounts to 1/10000; an e-invoice carries
// whole cents, and its rules add them up to the cent. Every amount is rounded here, once.
namespace exchange::ubl {

using Cents = std::int64_t;

// To whole cents, halves away from zero: the two decimals a printed invoice shows.
Cents toCents(Currency amount);

// "1234.50", "-0.05": an amount as the e-invoice writes it.
QString formatCents(Cents amount);
// A price: its four decimals, without trailing zeros past the second ("12.60", "1.2345").
QString formatPrice(Currency price);
// A quantity or a percentage: up to ten decimals, without trailing zeros ("3", "12.5"); so
// many that quantity x price stays within a cent of the line even at large prices.
QString formatNumber(double value);

enum class VatCategory {
    Standard,        // S: the line's own rate
    ReverseCharge,   // AE: a Dutch business customer pays the VAT ("btw verlegd")
    IntraCommunity,  // K: a business customer in another EU country
    Export,          // G: a customer outside the EU
    ZeroRated,       // Z: no VAT on the line for any other reason
};

struct TaxCategory {
    VatCategory category = VatCategory::Standard;
    double percent = 0;
    bool operator==(const TaxCategory&) const = default;
};

// One line as the program stored it: its amount after discount and its VAT, to 1/10000.
struct LineAmounts {
    Currency net;
    Currency vat;
    TaxCategory tax;
};

struct TaxSubtotal {
    TaxCategory tax;
    Cents taxable = 0;
    Cents vat = 0;
};

struct Totals {
    QList<Cents> lineNet;          // per line, in line order
    QList<TaxSubtotal> subtotals;  // per category and rate, in order of first use
    Cents lineExtension = 0;
    Cents vat = 0;
    Cents taxInclusive = 0;
    Cents rounding = 0;
    Cents payable = 0;
};

// The VAT of a category: its taxable amount times the rate, rounded to the cent.
Cents vatOf(Cents taxable, double percent);

// The totals of an invoice whose total including VAT, as the program saved and printed it,
// is invoiceTotal.
Totals computeTotals(const QList<LineAmounts>& lines, Currency invoiceTotal);

}  // namespace exchange::ubl
