#include "controllers/JetMigrationController.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <memory>

#include "base/Error.h"
#include "base/Paths.h"
#include "base/ProgramFolder.h"
#include "base/UiService.h"
#include "store/clsDatabase.h"
#include "store/jet/JetMigration.h"
#include "store/jet/JetReader.h"

namespace JetMigrationController {
namespace {

const QString kCaption = QStringLiteral("Overstappen van een eerdere versie");

QString native(const QString& path) {
    return QDir::toNativeSeparators(path);
}

QString tableLines(const jet::ConversionResult& conversion) {
    QString lines;
    for (const jet::TableCount& table : conversion.tables) {
        lines += QStringLiteral("%1: %2 %3\r\n")
                     .arg(table.table)
                     .arg(table.rows)
                     .arg(table.rows == 1 ? QStringLiteral("rij") : QStringLiteral("rijen"));
    }
    return lines;
}

QString orphanLine(const jet::ConversionResult& conversion, const QString& where) {
    if (conversion.orphans.isEmpty()) {
        return QString();
    }
    return QStringLiteral(
               "\r\n%1 factuurregels hoorden bij een factuur die niet meer bestaat; %2.\r\n")
        .arg(conversion.orphans.size())
        .arg(where);
}

QString summary(const jet::MigrationResult& result) {
    QString text =
        QStringLiteral("De database is omgezet naar het nieuwe formaat.\r\n\r\n") +
        tableLines(result.conversion) +
        orphanLine(result.conversion, QStringLiteral("ze staan in ") + native(result.orphanFile));
    if (!result.stockDifferences.isEmpty()) {
        text += QStringLiteral(
                    "\r\nDe voorraad in daa.mdb wijkt af voor %1 artikelen; het "
                    "programma houdt die van db.daa aan (zie het verslag).\r\n")
                    .arg(result.stockDifferences.size());
    }
    if (!result.keptAs.isEmpty()) {
        text +=
            QStringLiteral("\r\nHet vorige db.daa is bewaard als %1.").arg(native(result.keptAs));
    }
    if (!result.stockFileKeptAs.isEmpty()) {
        text += QStringLiteral(
                    "\r\nHet oude daa.mdb is bewaard als %1; daa.mdb verwijst nu naar "
                    "db.daa.")
                    .arg(native(result.stockFileKeptAs));
    }
    return text + QStringLiteral("\r\nHet verslag staat in %1.").arg(native(result.reportFile));
}

// Progress of the conversion, shown once the number of rows is known.
class ConversionProgress {
public:
    explicit ConversionProgress(bool shown) : shown_(shown) {}

    jet::ProgressCallback callback() {
        return [this](qint64 done, qint64 total) {
            if (!shown_) {
                return true;
            }
            if (!progress_) {
                progress_ = ui::service().progress(
                    QStringLiteral("db.daa omzetten naar het nieuwe formaat"), total);
            }
            progress_->setValue(done);
            return !progress_->wasCancelled();
        };
    }

private:
    bool shown_;
    std::unique_ptr<ui::Progress> progress_;
};

bool migrate(const QString& oldFile, bool showProgress) {
    const QString target = clsDatabase::DatabasePath();
    // Nothing of the program may hold the file that is about to be replaced.
    closeSharedConnections();
    try {
        ConversionProgress progress(showProgress);
        const jet::MigrationResult result = jet::migrate(oldFile, target, progress.callback());
        ui::message(summary(result), kCaption, ui::Icon::Information);
        return true;
    } catch (const Error& error) {
        ui::message(QStringLiteral("%1 kon niet worden omgezet.\r\n\r\n%2\r\n\r\n"
                                   "Er is niets veranderd: %3 is gebleven zoals het was.")
                        .arg(native(oldFile), error.description(), native(target)),
                    kCaption, ui::Icon::Critical);
        return false;
    }
}

bool check(const QString& oldFile) {
    try {
        const jet::ConversionResult result = jet::check(oldFile, clsDatabase::DatabasePath());
        ui::message(
            QStringLiteral("%1 is zonder verlies om te zetten.\r\n\r\n").arg(native(oldFile)) +
                tableLines(result) +
                orphanLine(result, QStringLiteral("bij het omzetten komen ze in een "
                                                  "apart bestand")),
            kCaption, ui::Icon::Information);
        return true;
    } catch (const Error& error) {
        ui::message(QStringLiteral("%1 kan niet worden omgezet.\r\n\r\n%2")
                        .arg(native(oldFile), error.description()),
                    kCaption, ui::Icon::Critical);
        return false;
    }
}

// A database with invoices is replaced only when the user says so.
bool mayReplace(const QString& oldFile) {
    const QString target = clsDatabase::DatabasePath();
    const qint64 invoices = jet::invoiceCount(target);
    if (invoices <= 0 ||
        QFileInfo(oldFile).canonicalFilePath() == QFileInfo(target).canonicalFilePath()) {
        return true;
    }
    const ui::Answer answer =
        ui::message(QStringLiteral("%1 bevat al %2 facturen. Wilt u die database vervangen door de "
                                   "gegevens uit %3? De huidige wordt bewaard als db.daa.vorige.")
                        .arg(native(target))
                        .arg(invoices)
                        .arg(native(oldFile)),
                    kCaption, ui::Icon::Exclamation, ui::Buttons::YesNo, ui::Answer::No);
    if (answer == ui::Answer::Yes) {
        return true;
    }
    ui::message(QStringLiteral("Er is niets veranderd."), kCaption, ui::Icon::Information);
    return false;
}

// libmdb trusts the page maps of the file; a badly damaged file can make it crash. At
// start-up, where a crash would stop the program at every start, the file is therefore read
// once by lindebrug-cli in a process of its own. Without lindebrug-cli beside the program
// the conversion reads it directly.
enum class Reading { Survived, Crashed, Cancelled };

Reading readInOwnProcess(const QString& database) {
    const QString cli =
        paths::withSeparator(ProgramFolder::path()) + QStringLiteral("lindebrug-cli");
    if (!QFileInfo(cli).isExecutable()) {
        return Reading::Survived;
    }
    QProcess check;
    check.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    check.start(cli, {QStringLiteral("omzetten"), QStringLiteral("--controle"), database});
    const std::unique_ptr<ui::Progress> progress =
        ui::service().progress(QStringLiteral("db.daa controleren"), 0);
    // A progress without an end: each step only shows that the work goes on.
    for (qint64 step = 1; !check.waitForFinished(100) && check.state() != QProcess::NotRunning;
         ++step) {
        progress->setValue(step);
        if (progress->wasCancelled()) {
            check.kill();
            check.waitForFinished();
            jet::removeLeftovers(database);
            return Reading::Cancelled;
        }
    }
    if (check.exitStatus() == QProcess::NormalExit && check.error() != QProcess::Crashed) {
        return Reading::Survived;
    }
    jet::removeLeftovers(database);
    return Reading::Crashed;
}

}  // namespace

bool bringOverOldDatabase() {
    const QString database = clsDatabase::DatabasePath();
    if (!jet::isJetFile(database)) {
        return true;
    }
    const ui::Answer answer = ui::message(
        QStringLiteral("db.daa is gemaakt door een eerdere versie van Lindebrug en staat nog in "
                       "het oude formaat (Access). Het programma kan er pas mee werken als het "
                       "is omgezet.\r\n\r\nWilt u db.daa nu omzetten? Het oorspronkelijke "
                       "bestand blijft bewaard als db.daa.jet."),
        kCaption, ui::Icon::Question, ui::Buttons::YesNo, ui::Answer::Yes);
    if (answer != ui::Answer::Yes) {
        ui::message(QStringLiteral("Lindebrug kan niet werken met een database in het oude "
                                   "formaat. Het programma wordt afgesloten; db.daa is niet "
                                   "veranderd."),
                    kCaption, ui::Icon::Exclamation);
        return false;
    }
    switch (readInOwnProcess(database)) {
        case Reading::Survived:
            return migrate(database, true);
        case Reading::Crashed:
            ui::message(QStringLiteral("db.daa is zo beschadigd dat het niet kan worden gelezen. "
                                       "Er is niets veranderd; Lindebrug wordt afgesloten."),
                        kCaption, ui::Icon::Critical);
            return false;
        case Reading::Cancelled:
            ui::message(QStringLiteral("Het omzetten is afgebroken. Er is niets veranderd; "
                                       "Lindebrug wordt afgesloten."),
                        kCaption, ui::Icon::Exclamation);
            return false;
    }
    return false;
}

bool convertCommand(const QString& oldFile, bool checkOnly) {
    if (!jet::isJetFile(oldFile)) {
        ui::message(QFileInfo::exists(oldFile)
                        ? QStringLiteral("%1 is geen database van een eerdere versie "
                                         "(Access-formaat).")
                              .arg(native(oldFile))
                        : QStringLiteral("%1 bestaat niet.").arg(native(oldFile)),
                    kCaption, ui::Icon::Critical);
        return false;
    }
    if (checkOnly) {
        return check(oldFile);
    }
    return mayReplace(oldFile) && migrate(oldFile, false);
}

}  // namespace JetMigrationController
