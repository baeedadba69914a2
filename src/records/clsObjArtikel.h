#pragma once

#include <QString>

#include "base/Currency.h"
#include "store/PersistentRecord.h"

// An article or hour rate that can be put on an invoice line: one row of Artikel.
class clsObjArtikel : public PersistentRecord<clsObjArtikel> {
public:
    bool GeenVoorraad() const { return m_GeenVoorraad; }
    void setGeenVoorraad(bool value) { m_GeenVoorraad = value; }
    qint32 artikelID() const { return m_artikelID; }
    void setArtikelID(qint32 value) { m_artikelID = value; }
    bool Negatief() const { return m_Negatief; }
    void setNegatief(bool value) { m_Negatief = value; }
    const QString& Nummer() const { return m_Nummer; }
    void setNummer(const QString& value) { m_Nummer = value; }
    const QString& Omschrijving() const { return m_Omschrijving; }
    void setOmschrijving(const QString& value) { m_Omschrijving = value; }
    Currency Prijs() const { return m_Prijs; }
    void setPrijs(Currency value) { m_Prijs = value; }
    qint32 Voorraad() const { return m_Voorraad; }
    void setVoorraad(qint32 value) { m_Voorraad = value; }
    const QString& Eenheid() const { return m_Eenheid; }
    void setEenheid(const QString& value) { m_Eenheid = value; }
    // 1 the first VAT rate, 2 the second, anything else no VAT.
    qint16 BTWTarief() const { return m_BTWTarief; }
    void setBTWTarief(qint16 value) { m_BTWTarief = value; }
    bool Zichtbaar() const { return m_Zichtbaar; }
    void setZichtbaar(bool value) { m_Zichtbaar = value; }

private:
    friend class PersistentRecord<clsObjArtikel>;
    static constexpr const char* Table = "Artikel";
    static constexpr const char* KeyName = "ArtikelID";
    static qint32 clsObjArtikel::*keyMember() { return &clsObjArtikel::m_artikelID; }
    static const persist::Columns<clsObjArtikel>& writeColumns();
    static const persist::Columns<clsObjArtikel>& readColumns();

    QString m_Nummer;
    QString m_Omschrijving;
    Currency m_Prijs;
    QString m_Eenheid;
    qint16 m_BTWTarief = 0;
    bool m_Zichtbaar = false;
    bool m_Negatief = false;
    bool m_GeenVoorraad = false;
    qint32 m_Voorraad = 0;
    qint32 m_artikelID = 0;
};

// Lists of records move them as plain memory when they grow.
Q_DECLARE_TYPEINFO(clsObjArtikel, Q_RELOCATABLE_TYPE);
