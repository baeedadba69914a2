#include "records/clsObjArtikel.h"

using Self = clsObjArtikel;

const persist::Columns<Self>& clsObjArtikel::writeColumns() {
    static const persist::Columns<Self> columns{
        {"Nummer", &Self::m_Nummer},
        {"Omschrijving", &Self::m_Omschrijving},
        {"Eenheid", &Self::m_Eenheid},
        {"Prijs", &Self::m_Prijs},
        {"Voorraad", &Self::m_Voorraad},
        {"BTWTarief", &Self::m_BTWTarief},
        {"NegVoorToestaan", &Self::m_Negatief},
        {"Zichtbaar", &Self::m_Zichtbaar},
        {"GeenVoorraad", &Self::m_GeenVoorraad},
    };
    return columns;
}

const persist::Columns<Self>& clsObjArtikel::readColumns() {
    static const persist::Columns<Self> columns{
        {"ArtikelID", &Self::m_artikelID},       {"Nummer", &Self::m_Nummer},
        {"Omschrijving", &Self::m_Omschrijving}, {"Eenheid", &Self::m_Eenheid},
        {"Voorraad", &Self::m_Voorraad},         {"Prijs", &Self::m_Prijs},
        {"NegVoorToestaan", &Self::m_Negatief},  {"BTWTarief", &Self::m_BTWTarief},
        {"Zichtbaar", &Self::m_Zichtbaar},       {"GeenVoorraad", &Self::m_GeenVoorraad},
    };
    return columns;
}
