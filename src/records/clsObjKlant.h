#pragma once

#include <QString>

#include "store/PersistentRecord.h"

// A customer: one row of Klant. Rows are hidden, never deleted, so that invoices keep
// the customer they were written for.
class clsObjKlant : public PersistentRecord<clsObjKlant> {
public:
    const QString& Bedrijfsnaam() const { return m_Bedrijfsnaam; }
    void setBedrijfsnaam(const QString& value) { m_Bedrijfsnaam = value; }
    const QString& Fax() const { return m_Fax; }
    void setFax(const QString& value) { m_Fax = value; }
    const QString& Email() const { return m_Email; }
    void setEmail(const QString& value) { m_Email = value; }
    // True: the customer is invoiced at 0% VAT.
    bool BTW() const { return m_BTW; }
    void setBTW(bool value) { m_BTW = value; }
    const QString& Voorletters() const { return m_Voorletters; }
    void setVoorletters(const QString& value) { m_Voorletters = value; }
    // True "Dhr.", false "Mevr.".
    bool Dhr() const { return m_Dhr; }
    void setDhr(bool value) { m_Dhr = value; }
    const QString& Tussenvoegsel() const { return m_Tussenvoegsel; }
    void setTussenvoegsel(const QString& value) { m_Tussenvoegsel = value; }
    qint32 KlantID() const { return m_KlantID; }
    void setKlantID(qint32 value) { m_KlantID = value; }
    qint32 DebiteurNummer() const { return m_DebiteurNummer; }
    void setDebiteurNummer(qint32 value) { m_DebiteurNummer = value; }
    const QString& Achternaam() const { return m_Achternaam; }
    void setAchternaam(const QString& value) { m_Achternaam = value; }
    const QString& Adres() const { return m_Adres; }
    void setAdres(const QString& value) { m_Adres = value; }
    const QString& Postcode() const { return m_Postcode; }
    void setPostcode(const QString& value) { m_Postcode = value; }
    const QString& Plaats() const { return m_Plaats; }
    void setPlaats(const QString& value) { m_Plaats = value; }
    const QString& Land() const { return m_Land; }
    void setLand(const QString& value) { m_Land = value; }
    const QString& Telefoon() const { return m_Telefoon; }
    void setTelefoon(const QString& value) { m_Telefoon = value; }
    bool Zichtbaar() const { return m_Zichtbaar; }
    void setZichtbaar(bool value) { m_Zichtbaar = value; }

private:
    friend class PersistentRecord<clsObjKlant>;
    static constexpr const char* Table = "Klant";
    static constexpr const char* KeyName = "KlantID";
    static qint32 clsObjKlant::*keyMember() { return &clsObjKlant::m_KlantID; }
    static const persist::Columns<clsObjKlant>& writeColumns();
    static const persist::Columns<clsObjKlant>& readColumns();

    QString m_Bedrijfsnaam;
    QString m_Fax;
    QString m_Email;
    bool m_BTW = false;
    QString m_Voorletters;
    bool m_Dhr = false;
    QString m_Tussenvoegsel;
    qint32 m_KlantID = 0;
    qint32 m_DebiteurNummer = 0;
    QString m_Achternaam;
    QString m_Adres;
    QString m_Postcode;
    QString m_Plaats;
    QString m_Land;
    QString m_Telefoon;
    bool m_Zichtbaar = false;
};

// Lists of records move them as plain memory when they grow.
Q_DECLARE_TYPEINFO(clsObjKlant, Q_RELOCATABLE_TYPE);
