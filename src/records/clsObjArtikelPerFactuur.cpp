#include "records/clsObjArtikelPerFactuur.h"

#include <cmath>

#include "base/Conversions.h"
#include "records/clsObjBTW.h"
#include "records/clsObjFactuur.h"

using Self = clsObjArtikelPerFactuur;

namespace {

clsObjBTW vatRecordOfInvoice(qint32 factuurId) {
    if (factuurId == 0) {
        return clsObjBTW::rowInUse();
    }
    clsObjFactuur factuur;
    factuur.SetID(factuurId);
    factuur.Ophalen();
    clsObjBTW btw;
    btw.SetID(factuur.BTWId());
    btw.Ophalen();
    return btw;
}

}  // namespace

clsObjArtikel clsObjArtikelPerFactuur::Artikel() const {
    clsObjArtikel artikel;
    artikel.SetID(m_artikelID);
    artikel.Ophalen();
    return artikel;
}

void clsObjArtikelPerFactuur::setArtikelID(qint32 value) {
    m_artikelID = conv::toInteger(static_cast<std::int64_t>(value));
}

Currency clsObjArtikelPerFactuur::BTWBedrag() const {
    return m_BTWBedragTarief1.isZero() ? m_BTWBedragTarief2 : m_BTWBedragTarief1;
}

void clsObjArtikelPerFactuur::setBTWBedrag(Currency value) {
    const clsObjBTW btw = vatRecordOfInvoice(m_FactuurId);
    // An exact match decides; otherwise the nearer rate, and halfway counts as the first.
    const bool firstRate = m_BTWTarief == btw.BTW1() ||
                           (m_BTWTarief != btw.BTW2() && std::abs(m_BTWTarief - btw.BTW2()) >=
                                                             std::abs(m_BTWTarief - btw.BTW1()));
    m_BTWBedragTarief1 = firstRate ? value : Currency();
    m_BTWBedragTarief2 = firstRate ? Currency() : value;
}

Currency clsObjArtikelPerFactuur::lineTotal(Currency prijs, double aantal, double korting) {
    return Currency::fromDouble((prijs.toDouble() * aantal) * ((100 - korting) / 100));
}

Currency clsObjArtikelPerFactuur::discountAmount(Currency prijs, double aantal, double korting) {
    return Currency::fromDouble((prijs.toDouble() * aantal) * (korting / 100));
}

Currency clsObjArtikelPerFactuur::vatAmount(Currency totaalPrijs, double btwTarief) {
    return Currency::fromDouble(totaalPrijs.toDouble() * (btwTarief / 100));
}

const persist::Columns<Self>& clsObjArtikelPerFactuur::writeColumns() {
    static const persist::Columns<Self> columns{
        {"FactuurId", &Self::m_FactuurId},
        {"ArtikelId", &Self::m_artikelID},
        {"Aantal", &Self::m_Aantal},
        {"Prijs", &Self::m_Prijs},
        {"TotaalPrijs", &Self::m_TotaalPrijs},
        {"BTWTarief", &Self::m_BTWTarief},
        {"BTWBedragTarief1", &Self::m_BTWBedragTarief1},
        {"BTWBedragTarief2", &Self::m_BTWBedragTarief2},
        {"Korting", &Self::m_Korting},
        {"Kortingsbedrag", &Self::m_KortingsBedrag},
    };
    return columns;
}

const persist::Columns<Self>& clsObjArtikelPerFactuur::readColumns() {
    static const persist::Columns<Self> columns =
        persist::keyThen<Self>({"FactuurArtikelID", &Self::m_FactuurArtikelID}, writeColumns());
    return columns;
}
