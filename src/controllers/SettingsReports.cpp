#include "controllers/clsContrInstellingen.h"
#include "printing/DataReport.h"
#include "printing/clsObjSjabloon.h"
#include "printing/modOverzicht.h"

namespace {

// The overview selectors of the report engine.
constexpr qint16 kArtikelOverzicht = 1;
constexpr qint16 kKlantOverzicht = 3;

void toonOverzicht(const QString& report, qint16 keuze) {
    // A shown report keeps what it shows: the report object itself may go.
    DataReport overzicht(report);
    ToonOverzicht(overzicht, keuze, false);
}

}  // namespace

SettingsReports SettingsReports::program() {
    return {
        [](qint32 factuurID, qint16 sjabloon) {
            clsObjSjabloon().ToonFacturen(QString::number(factuurID), sjabloon);
        },
        [] { toonOverzicht(QStringLiteral("repKlanten"), kKlantOverzicht); },
        [] { toonOverzicht(QStringLiteral("repArtikelen"), kArtikelOverzicht); },
    };
}
