#pragma once

#include <QList>
#include <QString>
#include <optional>

#include "exchange/ubl/UblInvoice.h"
#include "records/clsObjArtikel.h"
#include "records/clsObjFactuur.h"
#include "records/clsObjInstellingen.h"

// From the program's records to an e-invoice, or to the reason why there can be none.
namespace exchange::ubl {

// What the program holds of one invoice: the head with its customer and lines, the
// article of each line, and the customer's VAT number (kept beside the customer record).
struct InvoiceRecords {
    clsObjFactuur factuur;
    QList<clsObjArtikel> artikelen;  // one per line, in line order
    QString klantBtwNummer;
};

// Nothing when there is no invoice with this key.
std::optional<InvoiceRecords> loadInvoiceRecords(qint32 factuurId);
// The company settings: the first row of Instellingen.
clsObjInstellingen loadSettings();

// Why these settings cannot make an e-invoice (in Dutch, naming what to fill in);
// empty when they can.
QString settingsRefusal(const clsObjInstellingen& instellingen);

struct BuiltInvoice {
    Invoice invoice;
    QString refusal;  // empty when the invoice is complete
};

// The settings must have passed settingsRefusal.
BuiltInvoice buildInvoice(const InvoiceRecords& records, const clsObjInstellingen& instellingen,
                          Profile profile);

}  // namespace exchange::ubl
