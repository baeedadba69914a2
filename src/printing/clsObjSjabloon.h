#pragma once

#include <QString>

class FactuurSjabloon;

// Shows invoices in an invoice template. The entry points of the invoice list and the
// settings screen:
//   clsObjSjabloon().ToonFacturen("12,15,16", instellingen.Sjabloon());
// or, with a template made by the caller, OpenSjabloon(ids, template).
class clsObjSjabloon {
public:
    // Opens the invoices of ids (decimal FactuurId values joined by ",") in the template
    // and shows it. Failures are told to the user here.
    void OpenSjabloon(const QString& ids, FactuurSjabloon& report);

    // Makes the template the value of Sjabloon chooses (with the current settings) and opens
    // the invoices in it; for a value that chooses none, says "Factuur sjabloon niet gevonden.".
    void ToonFacturen(const QString& ids, qint16 sjabloon);

    // The invoice command of ids: the invoices, each with its lines and their articles.
    static QString FactuurCommando(const QString& ids);
    // The width message, four lines joined by CR LF.
    static QString PapierBreedteMelding();
};
