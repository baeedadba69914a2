#pragma once

#include <QByteArray>

#include "exchange/ubl/UblInvoice.h"

namespace exchange::ubl {

// The UBL 2.1 Invoice document of an invoice, in UTF-8, in the element order the UBL
// schema prescribes.
QByteArray writeInvoice(const Invoice& invoice, Profile profile);

}  // namespace exchange::ubl
