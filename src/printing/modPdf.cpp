#include "printing/modPdf.h"

#include <QDir>
#include <functional>

#include "base/Error.h"
#include "base/UiService.h"
#include "printing/FactuurSjabloon.h"
#include "printing/ReportRenderer.h"
#include "printing/clsObjSjabloon.h"
#include "printing/modInstellingen.h"
#include "printing/modOverzicht.h"
#include "store/Recordset.h"
#include "store/clsDatabase.h"
#include "store/clsFoutCodeVertaler.h"

namespace {

const QString kCaption = QStringLiteral("Opslaan als PDF");

// The FactuurId of each invoice number; empty when one is no number or no invoice has it.
QStringList factuurIds(const QStringList& nummers) {
    QStringList ids;
    for (const QString& nummer : nummers) {
        bool ok = false;
        const qint32 value = nummer.toInt(&ok);
        std::unique_ptr<Recordset> set;
        if (ok)
            set = clsDatabase().openReadSet(
                QStringLiteral("SELECT FactuurID FROM Factuur WHERE Nummer=") +
                QString::number(value));
        if (!set || set->isEOF()) {
            ui::message(QStringLiteral("Factuur ") + nummer + QStringLiteral(" bestaat niet."),
                        kCaption, ui::Icon::Exclamation);
            return {};
        }
        ids.append(QString::number(set->value(0).toInt()));
    }
    return ids;
}

bool publish(const report::Document& document, const QString& path) {
    if (!report::writePdf(document, path)) {
        ui::message(QStringLiteral("Het bestand ") + QDir::toNativeSeparators(path) +
                        QStringLiteral(" kon niet worden opgeslagen."),
                    kCaption, ui::Icon::Exclamation);
        return false;
    }
    ui::message(QStringLiteral("Opgeslagen als ") + QDir::toNativeSeparators(path) + u'.', kCaption,
                ui::Icon::Information);
    return true;
}

bool trapped(const std::function<bool()>& work) {
    try {
        return work();
    } catch (const Error& error) {
        ui::message(clsFoutCodeVertaler().GebruikerMelding(error),
                    QStringLiteral("KORVANE LINDEBRUG"), ui::Icon::Exclamation);
        return false;
    }
}

}  // namespace

bool FacturenAlsPdf(const QStringList& nummers, const QString& path) {
    return trapped([&] {
        const clsObjInstellingen instellingen = huidigeInstellingen();
        auto sjabloon = maakSjabloon(instellingen.Sjabloon(), instellingen);
        if (!sjabloon) {
            ui::message(QStringLiteral("Factuur sjabloon niet gevonden."),
                        QStringLiteral("Factuur sjabloon openen"), ui::Icon::Information);
            return false;
        }
        const QStringList ids = factuurIds(nummers);
        if (ids.isEmpty())
            return false;
        sjabloon->setDataSource(std::shared_ptr<Recordset>(
            gConnectie->openUpdatableSet(clsObjSjabloon::FactuurCommando(ids.join(u',')))));
        sjabloon->SetLogo(instellingen.Logo());
        sjabloon->SetVrijeTekst(instellingen.Opmerking());
        return publish(sjabloon->document(), path);
    });
}

bool OverzichtAlsPdf(qint16 keuze, const QString& path) {
    return trapped([&] {
        DataReport overzicht(keuze == 1 ? QStringLiteral("repArtikelen")
                                        : QStringLiteral("repKlanten"));
        ToonOverzicht(overzicht, keuze, true);
        return publish(overzicht.document(), path);
    });
}
