#include "records/clsObjInstellingen.h"

using Self = clsObjInstellingen;
using persist::ReadRule;

const persist::Columns<Self>& clsObjInstellingen::writeColumns() {
    static const persist::Columns<Self> columns{
        {"Bedrijfsnaam", &Self::m_Bedrijfsnaam},
        {"Adres", &Self::m_Adres},
        {"Postcode", &Self::m_Postcode},
        {"Plaats", &Self::m_Plaats},
        {"Land", &Self::m_Land},
        {"Telefoonnummer", &Self::m_Telefoonnummer},
        {"Faxnummer", &Self::m_Faxnummer},
        {"Banknaam", &Self::m_Banknaam},
        {"Banknummer", &Self::m_Banknummer},
        {"BTWNummer", &Self::m_BTWNummer},
        {"KVKNummer", &Self::m_KVKNummer},
        {"Opmerking", &Self::m_Opmerking},
        {"Logo", &Self::m_Logo},
        {"Email", &Self::m_Email},
        {"Website", &Self::m_WebSite},
        {"BetaalTermijn", &Self::m_BetaalTermijn},
        {"Sjabloon", &Self::m_Sjabloon},
        {"MargeLinks", &Self::m_MargeLinks},
        {"MargeBoven", &Self::m_MargeBoven},
        {"MargeFactuurBoven", &Self::m_MargeFactuurBoven},
        {"MargeFactuurOnder", &Self::m_MargeFactuurOnder},
        // A settings row without a font has always read as the font "0".
        {"FontName", &Self::m_FontName, ReadRule::NullAsZeroText},
        {"FontSize", &Self::m_FontSize},
        // The 16-bit value itself goes into the yes/no column; it reads back as 1 or 0.
        {"NoSound", &Self::m_NoSound, ReadRule::OneWhenTrue},
    };
    return columns;
}

const persist::Columns<Self>& clsObjInstellingen::readColumns() {
    static const persist::Columns<Self> columns =
        persist::keyThen<Self>({"InstellingenId", &Self::m_InstellingenId}, writeColumns());
    return columns;
}
