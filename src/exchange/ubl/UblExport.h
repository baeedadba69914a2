#pragma once

#include <QList>
#include <QString>

#include "exchange/ubl/UblInvoice.h"

namespace exchange::ubl {

// "E-factuur (UBL)" for the selected invoices: checks that every invoice can become a
// valid e-invoice (and says in Dutch what is missing when one cannot, writing nothing),
// asks for a folder, writes one <Nummer>.xml per invoice there, asking before it replaces
// a file, and ends with a message naming the folder. True when every file was written.
bool exportInvoices(const QList<qint32>& factuurIds, Profile profile = Profile::Peppol);

// The same for the invoices with these numbers, as a script names them; an unknown number
// is reported and nothing is written.
bool exportInvoiceNumbers(const QList<qint64>& nummers, Profile profile);

}  // namespace exchange::ubl
