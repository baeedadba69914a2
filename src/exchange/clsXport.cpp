#include "exchange/clsXport.h"

#include <QFile>
#include <QStandardPaths>
#include <memory>
#include <utility>

#include "base/Error.h"
#include "base/Paths.h"
#include "base/Regional.h"
#include "base/UiService.h"
#include "exchange/Ansi.h"
#include "exchange/AnsiLineReader.h"
#include "exchange/DurableFile.h"
#include "exchange/clsFileSys.h"
#include "records/clsObjFactuur.h"
#include "store/Recordset.h"
#include "store/clsDatabase.h"

namespace {

constexpr QChar kSeparator(';');
constexpr int kProgressStep = 1000;
// Lines stored per transaction: one transaction per line would cost a disk flush per line.
constexpr int kLinesPerTransaction = 2000;

QStringList columnNames(const Recordset& set) {
    QStringList names;
    for (int i = 0; i < set.fieldCount(); ++i) {
        names.append(set.field(i).name);
    }
    return names;
}

// Fills fields with the row's texts, reusing the list's memory from row to row.
void rowTexts(const Recordset& set, QStringList& fields) {
    fields.resize(0);
    for (int i = 0; i < set.fieldCount(); ++i) {
        fields.append(Regional::valueText(set.value(i)));
    }
}

bool sharedConnectionOpen() {
    return gConnectie && gConnectie->state() == Connection::Open;
}

Connection& sharedConnection() {
    clsDatabase database;
    database.MaakConnectie();
    if (!sharedConnectionOpen()) {
        // MaakConnectie has told the user; one more try hands the engine's own reason (a
        // lock, a damaged file) to the caller, or finds the lock gone.
        Connection().open(database.connectionString());
        database.MaakConnectie();
    }
    if (!sharedConnectionOpen()) {
        throw Error(Error::ConnectionClosed, QStringLiteral("clsXport"),
                    QStringLiteral("De verbinding met de database is niet open."));
    }
    return *gConnectie;
}

qint64 rowCount(Connection& connection, const QString& table) {
    const auto set = connection.openReadSet(QStringLiteral("SELECT COUNT(*) FROM ") + table);
    return set->isEOF() ? 0 : set->value(0).toLongLong();
}

bool cancelled(ui::Progress& progress, qint64 done) {
    progress.setValue(done);
    return progress.wasCancelled();
}

QString invoiceOverview() {
    QString text = QStringLiteral("Nummer;Klantnaam;Datum;Totaalprijs;Totaalprijs ex. BTW\r\n");
    const QList<clsObjFactuur> invoices = clsObjFactuur().Lijst(QString());
    for (const clsObjFactuur& invoice : invoices) {
        text += invoice.Nummer() % kSeparator % invoice.Klantnaam() % kSeparator %
                Regional::dateText(invoice.Datum().date().startOfDay()) % kSeparator %
                Regional::currencyText(invoice.TotaalPrijs()) % kSeparator %
                Regional::currencyText(invoice.TotaalPrijsExBTW()) % QStringLiteral("\r\n");
    }
    return text;
}

void reportOverviewError(const Error& error) {
    ui::message(QStringLiteral("Er is een fout opgetreden tijdens het exporteren van de "
                               "gegevens.\r\nError: ") %
                    QString::number(error.number()) % QStringLiteral("\r\nOmschrijving: ") %
                    error.description(),
                ui::kProgramCaption, ui::Icon::Exclamation);
}

// Stores the lines of an import in groups, each group one transaction, so that the rows
// of every line before a refused one are stored and nothing of the refused line is.
class ImportBatch {
public:
    explicit ImportBatch(Connection& connection) : connection_(connection) {
        connection_.beginTrans();
    }
    // Leaving early (a refused line, a cancel) keeps what came before.
    ~ImportBatch() {
        try {
            finish();
        } catch (const Error&) {
            // The error that made us leave is already on its way to the user; what the
            // engine could not commit must not stay open under the next operation.
            rollBack();
        }
    }
    ImportBatch(const ImportBatch&) = delete;
    ImportBatch& operator=(const ImportBatch&) = delete;

    void lineStored() {
        if (++pending_ < kLinesPerTransaction) {
            return;
        }
        connection_.commitTrans();
        connection_.beginTrans();
        pending_ = 0;
    }

    void finish() {
        if (connection_.inTransaction()) {
            connection_.commitTrans();
        }
    }

private:
    void rollBack() noexcept {
        try {
            if (connection_.inTransaction()) {
                connection_.rollbackTrans();
            }
        } catch (const Error&) {
            // Nothing more to undo with.
        }
    }

    Connection& connection_;
    int pending_ = 0;
};

// Field i goes to column i + 1: the key, column 0, is the engine's. An empty field leaves
// its column alone, so a trailing ";" changes nothing even on a full line.
void storeLine(Recordset& set, const QStringList& fields, qint64 lineNumber) {
    set.addNew();
    try {
        for (int i = 0; i < fields.size(); ++i) {
            if (fields[i].isEmpty()) {
                continue;
            }
            if (i + 1 >= set.fieldCount()) {
                throw Error(
                    Error::ItemNotFound, QStringLiteral("clsXport"),
                    QStringLiteral("Regel %1 heeft meer velden dan de tabel kolommen heeft.")
                        .arg(lineNumber));
            }
            set.setValue(i + 1, fields[i]);
        }
        set.update();
    } catch (...) {
        set.cancelUpdate();
        throw;
    }
}

}  // namespace

QString failureText(const Error& error) {
    if (error.source() == QLatin1String("SQLite") && (error.number() == 5 || error.number() == 6)) {
        return QStringLiteral("De database is in gebruik door een ander programma (%1).")
            .arg(error.description());
    }
    return error.description();
}

bool clsXport::Xport(const QString& table, const QString& extension, QString& folder,
                     const QString& fileName) {
    failure_.clear();
    if (table == QLatin1String("onbekend")) {
        return fail(QStringLiteral("Onbekend register."));
    }
    folder = paths::withSeparator(folder);
    const QString path =
        folder + (fileName.isEmpty() ? table : fileName) + QLatin1Char('.') + extension;
    // A file that is there is replaced only by a whole new one (see exportTable), so the
    // user's Ja does not remove it first.
    if (clsFileSys().FileExists(path)) {
        const ui::Answer answer = ui::message(
            QStringLiteral("Het bestand ") + path + QStringLiteral(" bestaat al. Verwijderen?"),
            QStringLiteral("Bestand verwijderen"), ui::Icon::Question, ui::Buttons::YesNo,
            ui::Answer::Yes);
        if (answer != ui::Answer::Yes) {
            return fail(QStringLiteral("Het bestaande bestand %1 is gehouden.").arg(path));
        }
    }
    durable::removeLeftovers(folder);
    if (table == QLatin1String("FactArt")) {
        return exportInvoiceOverview(path);
    }
    const QString kind = extension.toLower();
    if (kind != QLatin1String("csv") && kind != QLatin1String("zip")) {
        return fail(QStringLiteral("Onbekende bestandssoort: ") + extension);
    }
    return exportTable(table, path);
}

bool clsXport::fail(const QString& reason) {
    failure_ = reason;
    return false;
}

// The lines go to a temporary file that takes the name only when every line, the close
// and the flush to the disk succeeded: a full disk or a kill leaves the old file (or none).
bool clsXport::exportTable(const QString& table, const QString& path) {
    const QString temporary = durable::temporaryNameFor(path);
    const auto failed = [&](const QString& reason) {
        QFile::remove(temporary);
        return fail(reason);
    };
    try {
        clsFileSys files;
        files.setBestandsNaam(temporary);
        Connection& connection = sharedConnection();
        const qint64 rows = rowCount(connection, table);
        const auto set = connection.openReadSet(QStringLiteral("SELECT * FROM ") + table);
        if (set->isEOF()) {
            return fail(QStringLiteral("De tabel %1 is leeg.").arg(table));
        }
        const auto progress =
            ui::service().progress(QStringLiteral("Exporteren van ") + table, rows);
        files.MaakRegel(columnNames(*set), kSeparator);
        QStringList fields;
        fields.reserve(set->fieldCount());
        for (qint64 done = 0; !set->isEOF(); set->moveNext()) {
            rowTexts(*set, fields);
            files.MaakRegel(fields, kSeparator);
            if (++done % kProgressStep == 0 && cancelled(*progress, done)) {
                return failed(QStringLiteral("De export is afgebroken."));
            }
        }
        files.Sluiten();
        if (!durable::syncFile(temporary)) {
            return failed(durable::systemReason(QStringLiteral("Kan niet vastleggen"), path));
        }
        return durable::publish(temporary, path, &failure_);
    } catch (const Error& error) {
        return failed(failureText(error).replace(temporary, path));
    }
}

bool clsXport::exportInvoiceOverview(const QString& path) {
    try {
        const QString text = invoiceOverview() + QStringLiteral("\r\n");
        durable::PublishedFile file(path);
        if (!file.open() || !file.write(ansi::encode(text)) || !file.commit()) {
            throw Error(Error::PathFileAccess, QStringLiteral("clsXport"), file.failure());
        }
        return true;
    } catch (const Error& error) {
        reportOverviewError(error);
        return fail(error.description());
    }
}

QString clsXport::BrowseForFolder(const QString& prompt) {
    return ui::service().chooseFolder(prompt);
}

QString clsXport::GetSpecialfolder(int id) {
    static const std::pair<int, QStandardPaths::StandardLocation> kFolders[] = {
        {0x00, QStandardPaths::DesktopLocation},     {0x02, QStandardPaths::ApplicationsLocation},
        {0x05, QStandardPaths::DocumentsLocation},   {0x0D, QStandardPaths::MusicLocation},
        {0x0E, QStandardPaths::MoviesLocation},      {0x10, QStandardPaths::DesktopLocation},
        {0x14, QStandardPaths::FontsLocation},       {0x1A, QStandardPaths::GenericConfigLocation},
        {0x1C, QStandardPaths::GenericDataLocation}, {0x20, QStandardPaths::GenericCacheLocation},
        {0x27, QStandardPaths::PicturesLocation},    {0x28, QStandardPaths::HomeLocation},
    };
    for (const auto& [csidl, location] : kFolders) {
        if (csidl == id) {
            return QStandardPaths::writableLocation(location);
        }
    }
    return QString();
}

bool clsXport::Mport(const QString& table, const QString& path) {
    failure_.clear();
    if (table.isEmpty()) {
        return fail(QStringLiteral("Geen tabel gekozen."));
    }
    if (!clsFileSys().FileExists(path)) {
        return fail(QStringLiteral("Het bestand %1 bestaat niet.").arg(path));
    }
    Connection& connection = sharedConnection();
    clsDatabase database;
    const auto set = database.ExecuteQuery(QStringLiteral("SELECT * FROM ") + table +
                                           QStringLiteral(" WHERE 1=2"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return fail(QStringLiteral("Kan %1 niet lezen: %2").arg(path, file.errorString()));
    }
    const auto progress =
        ui::service().progress(QStringLiteral("Importeren in ") + table, file.size());
    AnsiLineReader reader(file);
    ImportBatch batch(connection);
    QString line;
    for (qint64 lineNumber = 1; reader.readLine(line); ++lineNumber) {
        const QStringList fields = line.split(kSeparator);
        if (fields.size() >= 2) {
            storeLine(*set, fields, lineNumber);
            batch.lineStored();
        }
        if (lineNumber % kProgressStep == 0 && cancelled(*progress, reader.position())) {
            return fail(
                QStringLiteral("Het importeren is afgebroken na regel %1.").arg(lineNumber));
        }
    }
    batch.finish();
    set->close();
    return true;
}
