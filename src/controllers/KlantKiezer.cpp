#include "base/Error.h"
#include "controllers/clsContrFactuurBewerken.h"

// The customer register is not part of this build yet: choosing a customer says so.
std::unique_ptr<IKlantKiezer> programKlantKiezer() {
    throw Error(Error::InvalidOperation, QStringLiteral("KlantKiezer"),
                QStringLiteral("Het kiezen van een klant is in deze versie nog niet beschikbaar."));
}
