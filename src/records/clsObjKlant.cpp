#include "records/clsObjKlant.h"

using Self = clsObjKlant;

const persist::Columns<Self>& clsObjKlant::writeColumns() {
    static const persist::Columns<Self> columns{
        {"DebiteurNummer", &Self::m_DebiteurNummer},
        {"Bedrijfsnaam", &Self::m_Bedrijfsnaam},
        {"Fax", &Self::m_Fax},
        {"Email", &Self::m_Email},
        {"Voorletters", &Self::m_Voorletters},
        {"Tussenvoegsel", &Self::m_Tussenvoegsel},
        {"Achternaam", &Self::m_Achternaam},
        {"Adres", &Self::m_Adres},
        {"Plaats", &Self::m_Plaats},
        {"Land", &Self::m_Land},
        {"Postcode", &Self::m_Postcode},
        {"Telefoon", &Self::m_Telefoon},
        {"Zichtbaar", &Self::m_Zichtbaar},
        {"BTW", &Self::m_BTW},
        {"Dhr", &Self::m_Dhr},
    };
    return columns;
}

const persist::Columns<Self>& clsObjKlant::readColumns() {
    static const persist::Columns<Self> columns{
        {"KlantID", &Self::m_KlantID},
        {"DebiteurNummer", &Self::m_DebiteurNummer},
        {"Bedrijfsnaam", &Self::m_Bedrijfsnaam},
        {"Email", &Self::m_Email},
        {"Fax", &Self::m_Fax},
        {"Voorletters", &Self::m_Voorletters},
        {"Tussenvoegsel", &Self::m_Tussenvoegsel},
        {"Achternaam", &Self::m_Achternaam},
        {"Adres", &Self::m_Adres},
        {"Plaats", &Self::m_Plaats},
        {"Land", &Self::m_Land},
        {"Postcode", &Self::m_Postcode},
        {"Telefoon", &Self::m_Telefoon},
        {"Zichtbaar", &Self::m_Zichtbaar},
        {"BTW", &Self::m_BTW},
        {"Dhr", &Self::m_Dhr},
    };
    return columns;
}
