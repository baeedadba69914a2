#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "printing/ReportLayout.h"

class clsObjKlant;
class clsObjInstellingen;

// Envelopes and sheets of address labels for customers, as report documents that the
// preview shows and from which the user prints or saves a PDF.
namespace adres {

// The customer's address lines in the order they are printed: the contact line as the
// customer list forms it, the company name, the address, postcode and town, and the
// country unless it is "Nederland". Empty lines are left out.
QStringList adresRegels(const clsObjKlant& klant);

struct Envelop {
    QString naam;
    double breedte;  // mm, the envelope lying flat
    double hoogte;
};
// DL (the default) and C5.
const QList<Envelop>& envelopFormaten();

// One envelope per customer: the address MargeBoven mm from the top and MargeLinks mm from
// the left, the company's name and address small at the top left as the return address.
report::Document enveloppen(const QList<clsObjKlant>& klanten, const clsObjInstellingen& bedrijf,
                            const Envelop& formaat);

struct EtiketVel {
    QString naam;
    int kolommen;
    int rijen;
    double breedte;  // mm, of one label
    double hoogte;
    int perVel() const { return kolommen * rijen; }
};
// A4 3 × 8 of 70 × 36 mm (the default), 3 × 7 of 70 × 42.3 mm, 2 × 7 of 99.1 × 38.1 mm.
const QList<EtiketVel>& etiketVellen();

// The customers' labels on A4 sheets, row by row from position eerstePositie (1 is the top
// left label) of the first sheet, so a partly used sheet can be used up.
report::Document etiketten(const QList<clsObjKlant>& klanten, const EtiketVel& vel,
                           int eerstePositie);

}  // namespace adres
