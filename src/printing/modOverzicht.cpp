#include "printing/modOverzicht.h"

#include "printing/DataReport.h"
#include "store/clsDatabase.h"

std::shared_ptr<Recordset>& gOverzichtSet() {
    static std::shared_ptr<Recordset> set;
    return set;
}

bool& gVerbergOverzicht() {
    static bool hide = false;
    return hide;
}

void ToonOverzicht(DataReport& report, qint16 keuze, bool verbergen) {
    gVerbergOverzicht() = verbergen;
    const QString* query = keuze == 1   ? &kArtikelOverzichtQuery
                           : keuze == 3 ? &kKlantOverzichtQuery
                                        : nullptr;
    if (query) {
        clsDatabase().MaakConnectie();
        report.setVisible(false);
        gOverzichtSet() = std::shared_ptr<Recordset>(gConnectie->openUpdatableSet(*query));
        report.setVisible(true);
        report.setDataSource(gOverzichtSet());
        report.Show();
        if (gVerbergOverzicht()) {
            report.setVisible(false);
        }
    }
    gVerbergOverzicht() = false;
}
