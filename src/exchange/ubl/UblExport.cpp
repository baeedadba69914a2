#include "exchange/ubl/UblExport.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QStringList>

#include "base/Error.h"
#include "base/UiService.h"
#include "exchange/DurableFile.h"
#include "exchange/ubl/UblBuilder.h"
#include "exchange/ubl/UblWriter.h"
#include "store/clsFoutCodeVertaler.h"

namespace exchange::ubl {
namespace {

const QString kCaption = QStringLiteral("E-factuur (UBL)");

void reportError(const Error& error) {
    ui::message(clsFoutCodeVertaler().GebruikerMelding(error), ui::kProgramCaption,
                ui::Icon::Exclamation);
}

struct Document {
    QString fileName;
    QByteArray contents;
};

// The reasons one under the other; a message box stays readable with the first ten.
QString summary(QStringList refusals) {
    constexpr qsizetype kShown = 10;
    const qsizetype more = refusals.size() - kShown;
    if (more > 0) {
        refusals.resize(kShown);
        refusals.append(more == 1 ? QStringLiteral("En nog 1 factuur.")
                                  : QStringLiteral("En nog %1 facturen.").arg(more));
    }
    return refusals.join(QStringLiteral("\r\n"));
}

// Every invoice made into its document before anything is written: one that cannot be
// made stops the whole export, so a user never has to sort out which files are new.
bool makeDocuments(const QList<qint32>& factuurIds, Profile profile, QList<Document>& documents) {
    const clsObjInstellingen instellingen = loadSettings();
    const QString settingsProblem = settingsRefusal(instellingen);
    if (!settingsProblem.isEmpty()) {
        ui::message(settingsProblem, kCaption, ui::Icon::Exclamation);
        return false;
    }
    QStringList refusals;
    QSet<QString> fileNames;
    // A long selection takes a while; the progress keeps the window alive and can stop it.
    const auto progress =
        ui::service().progress(QStringLiteral("E-facturen maken"), factuurIds.size());
    for (qsizetype i = 0; i < factuurIds.size(); ++i) {
        progress->setValue(i);
        if (progress->wasCancelled()) {
            return false;
        }
        const qint32 id = factuurIds.at(i);
        const std::optional<InvoiceRecords> records = loadInvoiceRecords(id);
        if (!records) {
            refusals.append(QStringLiteral("De factuur met sleutel %1 bestaat niet meer.").arg(id));
            continue;
        }
        const BuiltInvoice built = buildInvoice(*records, instellingen, profile);
        const QString fileName = built.invoice.number + QStringLiteral(".xml");
        // Two invoices of one number would end up in one file.
        if (built.refusal.isEmpty() && fileNames.contains(fileName)) {
            refusals.append(QStringLiteral("Er zijn twee facturen met nummer %1. Geef een van "
                                           "beide een ander nummer.")
                                .arg(built.invoice.number));
        } else if (built.refusal.isEmpty()) {
            documents.append({fileName, writeInvoice(built.invoice, profile)});
        } else {
            refusals.append(built.refusal);
        }
        fileNames.insert(fileName);
    }
    if (refusals.isEmpty()) {
        return true;
    }
    ui::message(QStringLiteral("Er zijn geen e-facturen gemaakt.\r\n") + summary(refusals),
                kCaption, ui::Icon::Exclamation);
    return false;
}

bool mayReplace(const QString& path) {
    return !QFileInfo::exists(path) ||
           ui::message(QStringLiteral("Bestand %1 bestaat! Overschrijven?").arg(path),
                       ui::kProgramCaption, ui::Icon::None, ui::Buttons::YesNo,
                       ui::Answer::Yes) == ui::Answer::Yes;
}

QString countOf(qsizetype n) {
    return n == 1 ? QStringLiteral("1 e-factuur") : QStringLiteral("%1 e-facturen").arg(n);
}

bool writeDocuments(const QList<Document>& documents, const QString& folder) {
    qsizetype written = 0;
    qsizetype kept = 0;
    for (const Document& document : documents) {
        const QString path = QDir(folder).filePath(document.fileName);
        if (!mayReplace(path)) {
            ++kept;
            continue;
        }
        durable::PublishedFile file(path);
        if (!file.open() || !file.write(document.contents) || !file.commit()) {
            ui::message(QStringLiteral("Het bestand %1 kon niet worden geschreven. %2 opgeslagen "
                                       "in de map %3.")
                            .arg(path, countOf(written), QDir::toNativeSeparators(folder)),
                        kCaption, ui::Icon::Exclamation);
            return false;
        }
        ++written;
    }
    QString text = countOf(written) + QStringLiteral(" opgeslagen in de map ") +
                   QDir::toNativeSeparators(folder) + QLatin1Char('.');
    if (kept > 0) {
        text +=
            kept == 1
                ? QStringLiteral("\r\n1 bestaand bestand is niet overschreven.")
                : QStringLiteral("\r\n%1 bestaande bestanden zijn niet overschreven.").arg(kept);
    }
    ui::message(text, kCaption, ui::Icon::Information);
    return kept == 0;
}

}  // namespace

bool exportInvoices(const QList<qint32>& factuurIds, Profile profile) {
    if (factuurIds.isEmpty()) {
        ui::message(QStringLiteral("Er is geen factuur geselecteerd."), kCaption,
                    ui::Icon::Information);
        return false;
    }
    try {
        QList<Document> documents;
        if (!makeDocuments(factuurIds, profile, documents)) {
            return false;
        }
        const QString folder =
            ui::service().chooseFolder(QStringLiteral("Kies de map voor de e-facturen"));
        if (folder.isEmpty()) {
            return false;
        }
        if (!QFileInfo(folder).isDir()) {
            ui::message(QStringLiteral("De map %1 bestaat niet.").arg(folder), kCaption,
                        ui::Icon::Exclamation);
            return false;
        }
        return writeDocuments(documents, folder);
    } catch (const Error& error) {
        reportError(error);
        return false;
    }
}

bool exportInvoiceNumbers(const QList<qint64>& nummers, Profile profile) {
    QList<qint32> ids;
    try {
        for (const qint64 nummer : nummers) {
            const QList<clsObjFactuur> found =
                clsObjFactuur().Lijst(QStringLiteral("Nummer=") + QString::number(nummer));
            if (found.isEmpty()) {
                ui::message(QStringLiteral("Factuur %1 bestaat niet.").arg(nummer), kCaption,
                            ui::Icon::Exclamation);
                return false;
            }
            ids.append(found.first().FactuurId());
        }
    } catch (const Error& error) {
        reportError(error);
        return false;
    }
    return exportInvoices(ids, profile);
}

}  // namespace exchange::ubl
