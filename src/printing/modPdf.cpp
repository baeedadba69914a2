#include "printing/modPdf.h"

#include <QDir>
#include <QHash>
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

// The FactuurId of each invoice number, in one query; empty when one is no number or no
// invoice has it.
QStringList factuurIds(const QStringList& nummers) {
    QStringList numbers;
    for (const QString& nummer : nummers) {
        bool ok = false;
        numbers.append(QString::number(nummer.toInt(&ok)));
        if (!ok) {
            numbers.last() = QString();
        }
    }
    QHash<QString, QString> ids;
    const QString valid = numbers.join(u',').split(u',', Qt::SkipEmptyParts).join(u',');
    if (!valid.isEmpty()) {
        const auto set = clsDatabase().openReadSet(
            QStringLiteral("SELECT Nummer, FactuurID FROM Factuur WHERE Nummer IN (") + valid +
            u')');
        for (; !set->isEOF(); set->moveNext()) {
            ids.insert(set->value(0).toString(), set->value(1).toString());
        }
    }
    QStringList result;
    for (qsizetype i = 0; i < nummers.size(); ++i) {
        if (!ids.contains(numbers[i]) || numbers[i].isEmpty()) {
            ui::message(QStringLiteral("Factuur ") + nummers[i] + QStringLiteral(" bestaat niet."),
                        kCaption, ui::Icon::Exclamation);
            return {};
        }
        result.append(ids.value(numbers[i]));
    }
    return result;
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
        ui::message(clsFoutCodeVertaler().GebruikerMelding(error), ui::kProgramCaption,
                    ui::Icon::Exclamation);
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
        if (ids.isEmpty()) {
            return false;
        }
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
