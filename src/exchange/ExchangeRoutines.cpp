#include "exchange/ExchangeRoutines.h"

#include <QDate>
#include <QFile>
#include <memory>

#include "base/Error.h"
#include "base/Paths.h"
#include "base/ProgramFolder.h"
#include "base/UiService.h"
#include "exchange/DatabaseFile.h"
#include "exchange/DurableFile.h"
#include "exchange/clsFileSys.h"
#include "exchange/clsXport.h"
#include "store/Recordset.h"
#include "store/clsDatabase.h"

namespace exchange {
namespace {

void tell(const QString& text, const QString& caption, ui::Icon icon, const QString& details) {
    ui::Message message{text, caption, icon};
    message.details = details;
    ui::service().message(message);
}

QString backupTarget(const QString& folder) {
    return paths::withSeparator(folder) +
           QDate::currentDate().toString(QStringLiteral("ddMMyyyy")) + QStringLiteral("db.bu1");
}

// False when the user keeps the existing backup. On Ja the old backup stays until the new
// one is whole: a backup that fails (a full disk) must not cost the user the one he had.
bool mayReplace(const QString& target) {
    if (!clsFileSys().FileExists(target)) {
        return true;
    }
    return ui::message(QStringLiteral("Bestand bestaat! Overschrijven?"), ui::kProgramCaption,
                       ui::Icon::None, ui::Buttons::YesNo, ui::Answer::Yes) == ui::Answer::Yes;
}

bool copyDatabaseTo(const QString& target) {
    if (!mayReplace(target)) {
        return false;
    }
    QString reason;
    const bool made = dbfile::backup(clsDatabase::DatabasePath(), target,
                                     QStringLiteral("Backup maken"), &reason);
    tell(made ? QStringLiteral("Backup gelukt!") : QStringLiteral("Backup niet gelukt!"),
         ui::kProgramCaption, ui::Icon::Information, reason);
    return made;
}

}  // namespace

QString exportBaseName(const QString& toolName) {
    static const std::pair<QLatin1String, QLatin1String> kTools[] = {
        {QLatin1String("tlExpKlanten"), QLatin1String("klant")},
        {QLatin1String("tlExpArtikelen"), QLatin1String("artikel")},
        {QLatin1String("tlExpTarieven"), QLatin1String("tarief")},
        {QLatin1String("tlExpArtikelfacturen"), QLatin1String("FactArt")},
        {QLatin1String("tlExpUurfacturen"), QLatin1String("FactUur")},
    };
    for (const auto& [tool, baseName] : kTools) {
        if (toolName == tool) {
            return baseName;
        }
    }
    return QStringLiteral("onbekend");
}

bool exportRegister(const QString& baseName, const QString& extension) {
    clsXport xport;
    QString folder = xport.BrowseForFolder(QStringLiteral("Map voor export aanwijzen"));
    if (folder.isEmpty()) {
        return false;
    }
    if (extension == QLatin1String("csv") &&
        xport.Xport(baseName, QStringLiteral("csv"), folder, QString())) {
        ui::message(QStringLiteral("Export van ") + baseName +
                        QStringLiteral(" naar csv gelukt. Het bestand is opgeslagen\r\nals ") +
                        folder + baseName + QStringLiteral(".csv"),
                    QStringLiteral("Export gelukt"), ui::Icon::Information);
        return true;
    }
    tell(QStringLiteral("Export naar csv-bestand mislukt!"), QStringLiteral("Export mislukt"),
         ui::Icon::Information, xport.failure());
    return false;
}

void reportImportFailure(const QString& reason) {
    tell(QStringLiteral("Importeren vanuit bestand mislukt!"), QStringLiteral("Importeren mislukt"),
         ui::Icon::Information, reason);
}

bool importTable(const QString& table) {
    const QString path = ui::service().openFile(
        QStringLiteral("Kies te importeren bestand"),
        QStringLiteral("tekstbestanden|*.txt|csv-bestanden|*.csv"), ProgramFolder::path());
    if (path.isEmpty()) {
        return false;
    }
    clsXport xport;
    QString reason;
    try {
        if (!xport.Mport(table, path)) {
            reason = xport.failure();
        }
    } catch (const Error& error) {
        reason = failureText(error);
    }
    if (!reason.isEmpty()) {
        reportImportFailure(reason);
        return false;
    }
    ui::message(QStringLiteral("Importeren van ") + table + QStringLiteral("  gelukt"),
                QStringLiteral("Importeren gelukt"));
    return true;
}

QString importHelpText(const QString& table) {
    clsDatabase database;
    database.MaakConnectie();
    const auto set = database.ExecuteQuery(QStringLiteral("SELECT * FROM ") + table +
                                           QStringLiteral(" WHERE 1=2"));
    // Meant to drop the last ";", the test looks at the line break instead, so the list
    // keeps its final ";" as users have always seen it.
    QString fields;
    for (int i = 1; i < set->fieldCount(); ++i) {
        const QString& name = set->field(i).name;
        if (!name.contains(QLatin1String("extra"), Qt::CaseInsensitive)) {
            fields += name + QStringLiteral(";\r\n");
        }
    }
    return QStringLiteral(
               "Voor de gekozen tabel moet het te importeren bestand de volgende "
               "velden bevatten. Elk veld moet worden afgesloten met een puntkomma, "
               "maar kan eventueel leeg zijn, dus ';;;'\r\n") +
           fields;
}

bool backup() {
    try {
        const QString folder =
            ui::service().chooseFolder(QStringLiteral("Kies map voor de backup"));
        if (folder.isEmpty()) {
            return false;
        }
        return copyDatabaseTo(backupTarget(folder));
    } catch (const Error& error) {
        ui::message(QStringLiteral("Fout opgetreden : ") + error.description(),
                    ui::kProgramCaption);
        return false;
    }
}

void removeLeftovers() {
    durable::removeLeftovers(ProgramFolder::path());
}

bool restore(RestoreCheck check) {
    const QString source = ui::service().openFile(QStringLiteral("Kies backup bestand"),
                                                  QStringLiteral("bu1-bestanden|*.bu1"), QString());
    if (source.isEmpty()) {
        return false;
    }
    QString reason;
    if (check == RestoreCheck::ProgramDatabaseOnly && !dbfile::isProgramDatabase(source, &reason)) {
        tell(QStringLiteral("Het bestand ") + source +
                 QStringLiteral(" is geen backup van Lindebrug; de database is niet vervangen."),
             ui::kProgramCaption, ui::Icon::Critical, reason);
        return false;
    }
    const QString database = clsDatabase::DatabasePath();
    closeSharedConnections();
    const bool restored =
        dbfile::restore(source, database, QStringLiteral("Backup terugzetten"), &reason);
    if (!restored && check == RestoreCheck::ProgramDatabaseOnly) {
        tell(QStringLiteral("Terugzetten van de backup mislukt; de database is niet vervangen."),
             ui::kProgramCaption, ui::Icon::Critical, reason);
    }
    // Open it again straight away, so that every screen reads the restored data; a file
    // that is not a database is reported here by the connection.
    clsDatabase().MaakConnectie();
    return restored;
}

}  // namespace exchange
