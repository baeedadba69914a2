#include "exchange/ubl/UblAmounts.h"

#include <algorithm>
#include <cmath>

namespace exchange::ubl {
namespace {

// a / b rounded to the nearest whole number, halves away from zero; b > 0.
template <class T>
T divideRounded(T a, T b) {
    const T quotient = a / b;
    const T remainder = a % b;
    if (2 * (remainder < 0 ? -remainder : remainder) < b) {
        return quotient;
    }
    return a < 0 ? quotient - 1 : quotient + 1;
}

QString trimmedDecimals(QString text, int keep) {
    const qsizetype point = text.indexOf(QLatin1Char('.'));
    if (point < 0) {
        return text;
    }
    qsizetype end = text.size();
    while (end > point + 1 + keep && text.at(end - 1) == QLatin1Char('0')) {
        --end;
    }
    if (end == point + 1) {
        --end;
    }
    text.truncate(end);
    return text;
}

}  // namespace

Cents toCents(Currency amount) {
    return divideRounded<std::int64_t>(amount.raw(), Currency::Scale / 100);
}

QString formatCents(Cents amount) {
    const Cents whole = amount / 100;
    const Cents cents = amount < 0 ? -(amount % 100) : amount % 100;
    const QString sign = amount < 0 && whole == 0 ? QStringLiteral("-") : QString();
    return sign + QString::number(whole) + QLatin1Char('.') +
           QStringLiteral("%1").arg(cents, 2, 10, QLatin1Char('0'));
}

QString formatPrice(Currency price) {
    const std::int64_t raw = price.raw();
    const std::int64_t magnitude = raw < 0 ? -raw : raw;
    const QString text =
        (raw < 0 ? QStringLiteral("-") : QString()) + QString::number(magnitude / Currency::Scale) +
        QLatin1Char('.') +
        QStringLiteral("%1").arg(magnitude % Currency::Scale, 4, 10, QLatin1Char('0'));
    return trimmedDecimals(text, 2);
}

QString formatNumber(double value) {
    QString text = trimmedDecimals(QString::number(value, 'f', 10), 0);
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

Cents vatOf(Cents taxable, double percent) {
    // The rate to 1/10000 of a percent, so that the product is exact.
    const auto rate = static_cast<__int128>(std::llround(percent * 10000));
    return static_cast<Cents>(divideRounded<__int128>(taxable * rate, 1000000));
}

// Where the cents come from, and why the payable amount needs no more than one rounding
// amount:
//  - every line amount is rounded to the cent on its own, and the invoice's line total is
//    the sum of those (the rules compare these sums exactly);
//  - the VAT of each category is computed on the category's taxable amount, as the rules
//    prescribe and as the receiver's bookkeeping recomputes it, not added up from the VAT
//    the program keeps per line: a sum of per-line VAT can drift by a cent for every few
//    lines, and the receiver would report the difference;
//  - the printed invoice shows the total including VAT that the program saved, to four
//    decimals, rounded to the cent. That is what the customer pays, so the payable amount
//    is exactly that. The sums above can differ from it by the cents the separate roundings
//    make; only then does the difference go into PayableRoundingAmount, which the rules
//    provide for this (payable = total including VAT + rounding amount).
Totals computeTotals(const QList<LineAmounts>& lines, Currency invoiceTotal) {
    Totals totals;
    for (const LineAmounts& line : lines) {
        const Cents net = toCents(line.net);
        totals.lineNet.append(net);
        totals.lineExtension += net;
        auto subtotal = std::find_if(totals.subtotals.begin(), totals.subtotals.end(),
                                     [&](const TaxSubtotal& s) { return s.tax == line.tax; });
        if (subtotal == totals.subtotals.end()) {
            totals.subtotals.append(TaxSubtotal{line.tax, net, 0});
        } else {
            subtotal->taxable += net;
        }
    }
    for (TaxSubtotal& subtotal : totals.subtotals) {
        subtotal.vat = vatOf(subtotal.taxable, subtotal.tax.percent);
        totals.vat += subtotal.vat;
    }
    totals.taxInclusive = totals.lineExtension + totals.vat;
    totals.payable = toCents(invoiceTotal);
    totals.rounding = totals.payable - totals.taxInclusive;
    return totals;
}

}  // namespace exchange::ubl
