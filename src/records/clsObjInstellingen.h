#pragma once

#include <QString>

#include "store/PersistentRecord.h"

// The company's own details and the printing preferences: the one row of Instellingen.
class clsObjInstellingen : public PersistentRecord<clsObjInstellingen> {
public:
    // 1: the program makes no sounds.
    qint16 NoSound() const { return m_NoSound; }
    void setNoSound(qint16 value) { m_NoSound = value; }
    float FontSize() const { return m_FontSize; }
    void setFontSize(float value) { m_FontSize = value; }
    const QString& FontName() const { return m_FontName; }
    void setFontName(const QString& value) { m_FontName = value; }
    qint16 BetaalTermijn() const { return m_BetaalTermijn; }
    void setBetaalTermijn(qint16 value) { m_BetaalTermijn = value; }
    const QString& Email() const { return m_Email; }
    void setEmail(const QString& value) { m_Email = value; }
    const QString& WebSite() const { return m_WebSite; }
    void setWebSite(const QString& value) { m_WebSite = value; }
    // The invoice template, as its position in the settings screen's list.
    qint16 Sjabloon() const { return m_Sjabloon; }
    void setSjabloon(qint16 value) { m_Sjabloon = value; }
    const QString& Logo() const { return m_Logo; }
    void setLogo(const QString& value) { m_Logo = value; }
    qint32 InstellingenId() const { return m_InstellingenId; }
    void setInstellingenId(qint32 value) { m_InstellingenId = value; }
    const QString& Bedrijfsnaam() const { return m_Bedrijfsnaam; }
    void setBedrijfsnaam(const QString& value) { m_Bedrijfsnaam = value; }
    const QString& Adres() const { return m_Adres; }
    void setAdres(const QString& value) { m_Adres = value; }
    const QString& Postcode() const { return m_Postcode; }
    void setPostcode(const QString& value) { m_Postcode = value; }
    const QString& Plaats() const { return m_Plaats; }
    void setPlaats(const QString& value) { m_Plaats = value; }
    const QString& Land() const { return m_Land; }
    void setLand(const QString& value) { m_Land = value; }
    const QString& Telefoonnummer() const { return m_Telefoonnummer; }
    void setTelefoonnummer(const QString& value) { m_Telefoonnummer = value; }
    const QString& Faxnummer() const { return m_Faxnummer; }
    void setFaxnummer(const QString& value) { m_Faxnummer = value; }
    const QString& Banknaam() const { return m_Banknaam; }
    void setBanknaam(const QString& value) { m_Banknaam = value; }
    const QString& Banknummer() const { return m_Banknummer; }
    void setBanknummer(const QString& value) { m_Banknummer = value; }
    const QString& BTWNummer() const { return m_BTWNummer; }
    void setBTWNummer(const QString& value) { m_BTWNummer = value; }
    const QString& KVKNummer() const { return m_KVKNummer; }
    void setKVKNummer(const QString& value) { m_KVKNummer = value; }
    const QString& Opmerking() const { return m_Opmerking; }
    void setOpmerking(const QString& value) { m_Opmerking = value; }
    // Envelope and invoice margins in whole millimetres.
    qint16 MargeLinks() const { return m_MargeLinks; }
    void setMargeLinks(qint16 value) { m_MargeLinks = value; }
    qint16 MargeBoven() const { return m_MargeBoven; }
    void setMargeBoven(qint16 value) { m_MargeBoven = value; }
    qint16 MargeFactuurBoven() const { return m_MargeFactuurBoven; }
    void setMargeFactuurBoven(qint16 value) { m_MargeFactuurBoven = value; }
    qint16 MargeFactuurOnder() const { return m_MargeFactuurOnder; }
    void setMargeFactuurOnder(qint16 value) { m_MargeFactuurOnder = value; }

private:
    friend class PersistentRecord<clsObjInstellingen>;
    static constexpr const char* Table = "Instellingen";
    static constexpr const char* KeyName = "InstellingenId";
    static qint32 clsObjInstellingen::*keyMember() { return &clsObjInstellingen::m_InstellingenId; }
    static const persist::Columns<clsObjInstellingen>& writeColumns();
    static const persist::Columns<clsObjInstellingen>& readColumns();

    qint16 m_NoSound = 0;
    float m_FontSize = 0;
    QString m_FontName;
    qint16 m_BetaalTermijn = 0;
    QString m_Email;
    QString m_WebSite;
    qint16 m_Sjabloon = 0;
    QString m_Logo;
    qint32 m_InstellingenId = 0;
    QString m_Bedrijfsnaam;
    QString m_Adres;
    QString m_Postcode;
    QString m_Plaats;
    QString m_Land;
    QString m_Telefoonnummer;
    QString m_Faxnummer;
    QString m_Banknaam;
    QString m_Banknummer;
    QString m_BTWNummer;
    QString m_KVKNummer;
    QString m_Opmerking;
    qint16 m_MargeLinks = 0;
    qint16 m_MargeBoven = 0;
    qint16 m_MargeFactuurBoven = 0;
    qint16 m_MargeFactuurOnder = 0;
};

// Lists of records move them as plain memory when they grow.
Q_DECLARE_TYPEINFO(clsObjInstellingen, Q_RELOCATABLE_TYPE);
