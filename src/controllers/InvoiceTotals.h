#pragma once

#include <QList>
#include <QString>
#include <utility>

#include "base/Currency.h"

class clsObjArtikelPerFactuur;

// The totals of an invoice as saving it will store them, worked out from the lines being
// edited by the same Currency rules: what the editor shows below the grid is what the
// invoice gets.
struct InvoiceTotals {
    Currency exclusive;  // the sum of the line amounts
    Currency inclusive;  // the same plus all VAT
    // The VAT per percentage, lowest percentage first.
    QList<std::pair<double, Currency>> vatPerRate;

    // lines: the lines in memory; stored: the lines of the invoice as stored, whose VAT
    // percentage a line of the same article keeps; zeroVatCustomer: the customer is
    // invoiced without VAT, so new lines get none and stored lines keep theirs.
    static InvoiceTotals of(const QList<clsObjArtikelPerFactuur>& lines,
                            const QList<clsObjArtikelPerFactuur>& stored, bool zeroVatCustomer);

    // Caption and regional currency text per total: excluding VAT, each VAT rate,
    // including VAT.
    QList<std::pair<QString, QString>> texts() const;
};
