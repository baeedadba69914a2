#include "records/clsObjFactuur.h"

#include <algorithm>

using Self = clsObjFactuur;
using persist::ReadRule;

namespace {

// Lines are matched to stored rows by their article alone: an invoice holds an article
// at most once.
const clsObjArtikelPerFactuur* lineOfArticle(const QList<clsObjArtikelPerFactuur>& lines,
                                             qint16 artikelID) {
    const auto found = std::find_if(lines.begin(), lines.end(), [&](const auto& line) {
        return line.artikelID() == artikelID;
    });
    return found == lines.end() ? nullptr : &*found;
}

}  // namespace

const clsObjKlant& clsObjFactuur::Klant() const {
    static const clsObjKlant none;
    return m_Klant ? *m_Klant : none;
}

void clsObjFactuur::setKlant(const clsObjKlant& value) {
    m_Klant = std::make_shared<const clsObjKlant>(value);
}

void clsObjFactuur::LaadKlant() {
    auto klant = std::make_shared<clsObjKlant>();
    klant->setKlantID(m_KlantID);
    klant->Ophalen();
    m_Klant = std::move(klant);
}

void clsObjFactuur::LaadArtikelenPerFactuur() {
    m_Artikelen =
        m_FactuurId == 0
            ? QList<clsObjArtikelPerFactuur>()
            : clsObjArtikelPerFactuur().Lijst("FactuurId=" + QString::number(m_FactuurId));
}

void clsObjFactuur::OpslaanFactuur() {
    m_KlantID = Klant().KlantID();
    m_Klantnaam = Klant().Bedrijfsnaam();
    if (m_FactuurId != 0) {
        Bijwerken();
    } else {
        Opslaan();
    }
    OpslaanArtikelenPerFactuur();

    Currency inclusive;
    Currency exclusive;
    for (const auto& line : m_Artikelen) {
        inclusive += line.TotaalPrijs() + line.BTWBedrag();
        exclusive += line.TotaalPrijs();
    }
    m_TotaalPrijs = inclusive;
    m_TotaalPrijsExBTW = exclusive;
    Bijwerken();
}

void clsObjFactuur::OpslaanArtikelenPerFactuur() {
    const QList<clsObjArtikelPerFactuur> edited = m_Artikelen;
    LaadArtikelenPerFactuur();
    const QList<clsObjArtikelPerFactuur> stored = m_Artikelen;

    for (const auto& storedLine : stored) {
        if (const auto* editedLine = lineOfArticle(edited, storedLine.artikelID())) {
            updateStoredLine(storedLine, *editedLine);
        } else {
            removeStoredLine(storedLine);
        }
    }
    for (const auto& editedLine : edited) {
        if (!lineOfArticle(stored, editedLine.artikelID())) {
            insertLine(editedLine);
        }
    }
    LaadArtikelenPerFactuur();
}

void clsObjFactuur::removeStoredLine(const clsObjArtikelPerFactuur& stored) const {
    auto rows =
        clsObjArtikelPerFactuur().Lijst("FactuurId=" + QString::number(m_FactuurId) +
                                        " AND ArtikelId=" + QString::number(stored.artikelID()));
    if (!rows.isEmpty()) {
        rows.first().Verwijderen();
    }
}

// The stored row takes the quantity and discount of the edited line; its own price and
// VAT percentage stay as they were when it was first saved.
void clsObjFactuur::updateStoredLine(clsObjArtikelPerFactuur stored,
                                     const clsObjArtikelPerFactuur& edited) const {
    stored.setAantal(edited.Aantal());
    stored.setKorting(edited.Korting());
    stored.setTotaalPrijs(
        clsObjArtikelPerFactuur::lineTotal(edited.Prijs(), edited.Aantal(), edited.Korting()));
    stored.setKortingsBedrag(
        clsObjArtikelPerFactuur::discountAmount(edited.Prijs(), edited.Aantal(), edited.Korting()));
    if (!Klant().BTW()) {
        stored.setBTWBedrag(
            clsObjArtikelPerFactuur::vatAmount(stored.TotaalPrijs(), stored.BTWTarief()));
    }
    stored.Bijwerken();
}

void clsObjFactuur::insertLine(const clsObjArtikelPerFactuur& edited) const {
    clsObjArtikelPerFactuur line;
    line.setFactuurId(m_FactuurId);
    line.setArtikelID(edited.artikelID());
    line.setAantal(edited.Aantal());
    line.setBTWTarief(edited.BTWTarief());
    line.setKorting(edited.Korting());
    line.setPrijs(edited.Prijs());
    // The VAT is taken from the line amount the editor worked out, and already holds the
    // invoice key, so the column follows the invoice's own VAT record.
    line.setBTWBedrag(Klant().BTW() ? Currency()
                                    : clsObjArtikelPerFactuur::vatAmount(edited.TotaalPrijs(),
                                                                         edited.BTWTarief()));
    line.setTotaalPrijs(
        clsObjArtikelPerFactuur::lineTotal(edited.Prijs(), edited.Aantal(), edited.Korting()));
    line.setKortingsBedrag(
        clsObjArtikelPerFactuur::discountAmount(edited.Prijs(), edited.Aantal(), edited.Korting()));
    line.Opslaan();
}

const persist::Columns<Self>& clsObjFactuur::writeColumns() {
    static const persist::Columns<Self> columns{
        {"Nummer", &Self::m_Nummer, ReadRule::NullAsZeroText},
        {"Datum", &Self::m_Datum, ReadRule::NullAsNow},
        {"KlantId", &Self::m_KlantID},
        {"Klantnaam", &Self::m_Klantnaam},
        {"TotaalPrijs", &Self::m_TotaalPrijs},
        {"TotaalPrijsexbtw", &Self::m_TotaalPrijsExBTW},
        {"BTWId", &Self::m_BTWId},
    };
    return columns;
}

const persist::Columns<Self>& clsObjFactuur::readColumns() {
    static const persist::Columns<Self> columns =
        persist::keyThen<Self>({"FactuurID", &Self::m_FactuurId}, writeColumns());
    return columns;
}
