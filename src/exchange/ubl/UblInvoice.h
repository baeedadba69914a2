#pragma once

#include <QDate>
#include <QList>
#include <QString>

#include "base/Currency.h"
#include "exchange/ubl/UblAmounts.h"

// One invoice as an e-invoice carries it: the parties with the identifiers the network
// addresses them by, the lines with their VAT category, and the totals in whole cents.
namespace exchange::ubl {

// Peppol BIS Billing 3.0 is what the Peppol network and most bookkeeping programs take;
// SI-UBL 2.0 (NLCIUS) is what some Dutch public bodies still ask for.
enum class Profile { Peppol, NlCius };

struct Party {
    QString name;
    QString street;
    QString postcode;
    QString city;
    QString countryCode;  // ISO 3166 alpha-2
    QString vatNumber;    // with its country prefix; empty when there is none
    QString endpointScheme;
    QString endpointId;  // empty when the party has no electronic address
    QString kvkNumber;   // the seller's Chamber of Commerce number
    QString contactName;
    QString telephone;
    QString email;
};

struct Line {
    QString name;
    QString articleNumber;
    QString unitCode;
    double quantity = 0;
    Currency price;  // net unit price, never negative: a negative price turns the quantity
    double discountPercent = 0;
    Cents grossAmount = 0;     // quantity x price
    Cents discountAmount = 0;  // gross - net; only when discountPercent is not 0
    Cents netAmount = 0;
    TaxCategory tax;
};

struct Invoice {
    QString number;
    QDate issueDate;
    QDate dueDate;
    QString paymentTerms;
    QString note;  // the free text printed on every invoice; may be empty
    Party seller;
    Party buyer;
    QString iban;
    QList<Line> lines;
    Totals totals;
};

}  // namespace exchange::ubl
