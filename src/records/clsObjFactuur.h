#pragma once

#include <QDateTime>
#include <QList>
#include <QString>
#include <memory>

#include "base/Currency.h"
#include "records/clsObjArtikelPerFactuur.h"
#include "records/clsObjKlant.h"
#include "store/PersistentRecord.h"

// An invoice head: one row of Factuur, with its customer and its lines.
class clsObjFactuur : public PersistentRecord<clsObjFactuur> {
public:
    // Klant becomes the stored customer of KlantID.
    void LaadKlant();
    // ArtikelenPerFactuur becomes the stored lines of this invoice (none while unsaved).
    void LaadArtikelenPerFactuur();
    // Writes the head, brings the stored lines in line with ArtikelenPerFactuur and writes
    // the totals of the lines as stored. Needs Klant, Nummer, Datum and BTWId set.
    void OpslaanFactuur();

    const QList<clsObjArtikelPerFactuur>& ArtikelenPerFactuur() const { return m_Artikelen; }
    QList<clsObjArtikelPerFactuur>& ArtikelenPerFactuur() { return m_Artikelen; }
    void setArtikelenPerFactuur(const QList<clsObjArtikelPerFactuur>& value) {
        m_Artikelen = value;
    }
    const clsObjKlant& Klant() const;
    void setKlant(const clsObjKlant& value);
    qint32 FactuurId() const { return m_FactuurId; }
    void setFactuurId(qint32 value) { m_FactuurId = value; }
    const QString& Nummer() const { return m_Nummer; }
    void setNummer(const QString& value) { m_Nummer = value; }
    const QDateTime& Datum() const { return m_Datum; }
    void setDatum(const QDateTime& value) { m_Datum = value; }
    qint32 KlantID() const { return m_KlantID; }
    void setKlantID(qint32 value) { m_KlantID = value; }
    const QString& Klantnaam() const { return m_Klantnaam; }
    void setKlantnaam(const QString& value) { m_Klantnaam = value; }
    // Including VAT.
    Currency TotaalPrijs() const { return m_TotaalPrijs; }
    void setTotaalPrijs(Currency value) { m_TotaalPrijs = value; }
    Currency TotaalPrijsExBTW() const { return m_TotaalPrijsExBTW; }
    void setTotaalPrijsExBTW(Currency value) { m_TotaalPrijsExBTW = value; }
    qint32 BTWId() const { return m_BTWId; }
    void setBTWId(qint32 value) { m_BTWId = value; }

private:
    friend class PersistentRecord<clsObjFactuur>;
    static constexpr const char* Table = "Factuur";
    static constexpr const char* KeyName = "FactuurID";
    static qint32 clsObjFactuur::*keyMember() { return &clsObjFactuur::m_FactuurId; }
    static const persist::Columns<clsObjFactuur>& writeColumns();
    static const persist::Columns<clsObjFactuur>& readColumns();

    void OpslaanArtikelenPerFactuur();
    void removeStoredLine(const clsObjArtikelPerFactuur& stored) const;
    void updateStoredLine(clsObjArtikelPerFactuur stored,
                          const clsObjArtikelPerFactuur& edited) const;
    void insertLine(const clsObjArtikelPerFactuur& edited) const;

    QList<clsObjArtikelPerFactuur> m_Artikelen;
    // Held apart and shared by copies: the list of every invoice makes 100,000 heads that
    // never load their customer, and a customer is most of the size of a head.
    std::shared_ptr<const clsObjKlant> m_Klant;
    qint32 m_FactuurId = 0;
    QString m_Nummer;
    QDateTime m_Datum = persist::zeroDate();
    qint32 m_KlantID = 0;
    QString m_Klantnaam;
    Currency m_TotaalPrijs;
    Currency m_TotaalPrijsExBTW;
    qint32 m_BTWId = 0;
};

// Lists of records move them as plain memory when they grow.
Q_DECLARE_TYPEINFO(clsObjFactuur, Q_RELOCATABLE_TYPE);
