#pragma once

#include "base/Currency.h"
#include "records/clsObjArtikel.h"
#include "store/PersistentRecord.h"

// One article on an invoice: one row of ArtikelPerFactuur. Amounts exclude VAT; the VAT
// amount is kept in the column of the invoice's first or second rate.
class clsObjArtikelPerFactuur : public PersistentRecord<clsObjArtikelPerFactuur> {
public:
    // Working values of the invoice editor, not stored: the article's stock when the line
    // was made and whether it may go below zero.
    qint32 Voorraad() const { return m_Voorraad; }
    void setVoorraad(qint32 value) { m_Voorraad = value; }
    bool VoorraadNegatief() const { return m_VoorraadNegatief; }
    void setVoorraadNegatief(bool value) { m_VoorraadNegatief = value; }

    // The line's article, read from the database at every call.
    clsObjArtikel Artikel() const;

    qint32 FactuurArtikelID() const { return m_FactuurArtikelID; }
    void setFactuurArtikelID(qint32 value) { m_FactuurArtikelID = value; }
    // The article key is held in 16 bits; a larger key is error 6.
    qint16 artikelID() const { return m_artikelID; }
    void setArtikelID(qint32 value);
    qint32 FactuurId() const { return m_FactuurId; }
    void setFactuurId(qint32 value) { m_FactuurId = value; }
    double Aantal() const { return m_Aantal; }
    void setAantal(double value) { m_Aantal = value; }
    Currency TotaalPrijs() const { return m_TotaalPrijs; }
    void setTotaalPrijs(Currency value) { m_TotaalPrijs = value; }
    // The line's VAT percentage, fixed when the line is made.
    double BTWTarief() const { return m_BTWTarief; }
    void setBTWTarief(double value) { m_BTWTarief = value; }
    // The first-rate amount unless that is zero, then the second-rate amount.
    Currency BTWBedrag() const;
    // Stores the amount in the column of the rate BTWTarief is, or is nearest to, in the
    // VAT record of the invoice (of the VAT row in use while the line has no invoice).
    void setBTWBedrag(Currency value);
    double Korting() const { return m_Korting; }
    void setKorting(double value) { m_Korting = value; }
    Currency KortingsBedrag() const { return m_KortingsBedrag; }
    void setKortingsBedrag(Currency value) { m_KortingsBedrag = value; }
    Currency Prijs() const { return m_Prijs; }
    void setPrijs(Currency value) { m_Prijs = value; }

    Currency BTWBedragTarief1() const { return m_BTWBedragTarief1; }
    Currency BTWBedragTarief2() const { return m_BTWBedragTarief2; }

    // The line amounts, each computed in double from price, quantity and percentage and
    // rounded once to 1/10000; never derived from one another.
    static Currency lineTotal(Currency prijs, double aantal, double korting);
    static Currency discountAmount(Currency prijs, double aantal, double korting);
    static Currency vatAmount(Currency totaalPrijs, double btwTarief);

private:
    friend class PersistentRecord<clsObjArtikelPerFactuur>;
    static constexpr const char* Table = "ArtikelPerFactuur";
    static constexpr const char* KeyName = "FactuurArtikelID";
    static qint32 clsObjArtikelPerFactuur::*keyMember() {
        return &clsObjArtikelPerFactuur::m_FactuurArtikelID;
    }
    static const persist::Columns<clsObjArtikelPerFactuur>& writeColumns();
    static const persist::Columns<clsObjArtikelPerFactuur>& readColumns();

    qint32 m_Voorraad = 0;
    bool m_VoorraadNegatief = false;
    qint32 m_FactuurArtikelID = 0;
    qint16 m_artikelID = 0;
    qint32 m_FactuurId = 0;
    double m_Aantal = 0;
    Currency m_Prijs;
    Currency m_TotaalPrijs;
    double m_BTWTarief = 0;
    Currency m_BTWBedragTarief1;
    Currency m_BTWBedragTarief2;
    double m_Korting = 0;
    Currency m_KortingsBedrag;
};

// Lists of records move them as plain memory when they grow.
Q_DECLARE_TYPEINFO(clsObjArtikelPerFactuur, Q_RELOCATABLE_TYPE);
