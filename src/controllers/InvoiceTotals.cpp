#include "controllers/InvoiceTotals.h"

#include <algorithm>

#include "base/Regional.h"
#include "records/clsObjArtikelPerFactuur.h"

namespace {

const clsObjArtikelPerFactuur* storedLine(const QList<clsObjArtikelPerFactuur>& stored,
                                          qint16 artikelID) {
    const auto found = std::find_if(stored.begin(), stored.end(), [&](const auto& line) {
        return line.artikelID() == artikelID;
    });
    return found == stored.end() ? nullptr : &*found;
}

void addVat(QList<std::pair<double, Currency>>& perRate, double rate, Currency amount) {
    const auto found = std::lower_bound(
        perRate.begin(), perRate.end(), rate,
        [](const std::pair<double, Currency>& entry, double value) { return entry.first < value; });
    if (found != perRate.end() && found->first == rate) {
        found->second += amount;
    } else {
        perRate.insert(found, {rate, amount});
    }
}

}  // namespace

// Mirrors the saving of the lines: a line of an article that is stored already is written
// over that row, keeping the row's VAT percentage (and its VAT amounts for a customer
// without VAT); any other line is inserted with its own percentage.
InvoiceTotals InvoiceTotals::of(const QList<clsObjArtikelPerFactuur>& lines,
                                const QList<clsObjArtikelPerFactuur>& stored,
                                bool zeroVatCustomer) {
    InvoiceTotals totals;
    for (const clsObjArtikelPerFactuur& line : lines) {
        const Currency amount =
            clsObjArtikelPerFactuur::lineTotal(line.Prijs(), line.Aantal(), line.Korting());
        const clsObjArtikelPerFactuur* row = storedLine(stored, line.artikelID());
        const double rate = row ? row->BTWTarief() : line.BTWTarief();
        Currency vat;
        if (!zeroVatCustomer) {
            vat = clsObjArtikelPerFactuur::vatAmount(row ? amount : line.TotaalPrijs(), rate);
        } else if (row) {
            vat = row->BTWBedrag();
        }
        totals.exclusive += amount;
        totals.inclusive += amount + vat;
        addVat(totals.vatPerRate, rate, vat);
    }
    return totals;
}

QList<std::pair<QString, QString>> InvoiceTotals::texts() const {
    QList<std::pair<QString, QString>> rows;
    rows.append({QStringLiteral("Totaal excl. BTW"), Regional::currencyText(exclusive)});
    for (const auto& [rate, amount] : vatPerRate) {
        rows.append({QStringLiteral("BTW ") + Regional::numberText(rate) + u'%',
                     Regional::currencyText(amount)});
    }
    rows.append({QStringLiteral("Totaal incl. BTW"), Regional::currencyText(inclusive)});
    return rows;
}
