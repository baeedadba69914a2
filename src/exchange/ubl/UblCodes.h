#pragma once

#include <QString>

// The code lists an e-invoice needs, each in one place: units, countries, the electronic
// addresses that go with VAT numbers, and the checks on the numbers a user types.
namespace exchange::ubl {

// The UN/ECE unit code for an article's unit ("stuk" -> "H87"); "C62" (one) for any unit
// not in the list.
QString unitCode(const QString& eenheid);

// The ISO 3166 code of a country as a user writes it ("Nederland", "België", "nl");
// empty when the country is not known. An empty text is the Netherlands: a Dutch
// business leaves the country of its Dutch customers empty.
QString countryCode(const QString& land);
bool isEuMember(const QString& countryCode);

// A VAT number as the network wants it: no spaces or dots, upper case, and the country
// prefix in front when the user left it out ("123456789b01" in NL -> "NL123456789B01").
// Greece writes EL for its VAT numbers.
QString normalizedVatNumber(const QString& typed, const QString& countryCode);

// The Peppol electronic-address scheme of a VAT number (the "NL..." numbers: "9944"),
// empty when its country has none that goes by the VAT number.
QString vatEndpointScheme(const QString& vatNumber);

// An IBAN without spaces, upper case; empty when the text is no valid IBAN (its check
// digits are tested).
QString normalizedIban(const QString& typed);

// A Chamber of Commerce number without spaces or dots.
QString normalizedKvkNumber(const QString& typed);

}  // namespace exchange::ubl
