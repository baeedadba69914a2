#include "store/jet/JetMigration.h"

#include <sqlite3.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTemporaryFile>
#include <algorithm>
#include <climits>
#include <cstdio>

#include "base/Error.h"
#include "store/jet/JetReader.h"
#include "store/jet/JetText.h"

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

namespace jet {
namespace {

Error fileError(const QString& what, const QString& path) {
    return Error(75, QStringLiteral("Jet"), QStringLiteral("%1 %2 is mislukt.").arg(what, path));
}

void syncPath(const QString& path, bool folder) {
#ifdef Q_OS_UNIX
    const int fd =
        ::open(QFile::encodeName(path).constData(), folder ? O_RDONLY | O_DIRECTORY : O_RDONLY);
    const bool synced = fd >= 0 && ::fsync(fd) == 0;
    if (fd >= 0) {
        ::close(fd);
    }
    if (!synced) {
        throw fileError(QStringLiteral("Het wegschrijven naar de schijf van"), path);
    }
#endif
}

// QSaveFile writes beside the file and renames over it only after a complete write.
void writeReplacing(const QString& path, const QByteArray& contents) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size() ||
        !file.commit()) {
        throw fileError(QStringLiteral("Het schrijven van"), path);
    }
}

QString freeName(const QString& wanted) {
    QString name = wanted;
    for (int n = 2; QFileInfo::exists(name) || QFileInfo(name).isSymLink(); ++n) {
        name = wanted + QLatin1Char('.') + QString::number(n);
    }
    return name;
}

// A second name for the file that is about to be replaced: a hard link where the file
// system has them, else a flushed copy.
void keepAs(const QString& path, const QString& kept) {
#ifdef Q_OS_UNIX
    if (::link(QFile::encodeName(path).constData(), QFile::encodeName(kept).constData()) == 0) {
        return;
    }
#endif
    if (!QFile::copy(path, kept)) {
        throw fileError(QStringLiteral("Het bewaren van"), path);
    }
    syncPath(kept, false);
}

bool sameFile(const QString& a, const QString& b) {
    const QString canonical = QFileInfo(a).canonicalFilePath();
    return !canonical.isEmpty() && canonical == QFileInfo(b).canonicalFilePath();
}

// Beside the old file, or beside the new one when the old one lies where nothing can be
// written (a CD, a read-only share).
QString besideSource(const QString& source, const QString& target, const QString& suffix) {
    const QFileInfo info(source);
    const QDir folder =
        QFileInfo(info.absolutePath()).isWritable() ? info.dir() : QFileInfo(target).dir();
    return folder.filePath(info.completeBaseName() + suffix);
}

QStringList stockDifferences(const QString& source, const QHash<qint64, qint64>& kept) {
    const QString stockFile = QFileInfo(source).dir().filePath(QStringLiteral("daa.mdb"));
    if (!isJetFile(stockFile) || sameFile(stockFile, source)) {
        return {};
    }
    const QHash<qint64, qint64> other = stockOf(stockFile);
    QList<qint64> articles = kept.keys() + other.keys();
    std::sort(articles.begin(), articles.end());
    articles.erase(std::unique(articles.begin(), articles.end()), articles.end());
    QStringList differences;
    const auto text = [](const QHash<qint64, qint64>& stock, qint64 article) {
        return stock.contains(article) ? QString::number(stock.value(article))
                                       : QStringLiteral("leeg");
    };
    for (qint64 article : articles) {
        if (kept.value(article, LLONG_MIN) != other.value(article, LLONG_MIN)) {
            differences << QStringLiteral("ArtikelID %1: db.daa %2, daa.mdb %3")
                               .arg(article)
                               .arg(text(kept, article), text(other, article));
        }
    }
    return differences;
}

QByteArray orphanCsv(const ConversionResult& conversion) {
    QByteArray csv = csvLine(conversion.orphanHeader);
    for (const QStringList& row : conversion.orphans) {
        csv += csvLine(row);
    }
    return csv;
}

// The old program's daa.mdb received the stock changes; the new db.daa holds them from now
// on, so daa.mdb becomes a link to it, as a new installation has it. The name the old one
// is kept under; empty when there is no old daa.mdb beside target.
QString stockFileToReplace(const QString& target) {
    const QString stockFile = QFileInfo(target).dir().filePath(QStringLiteral("daa.mdb"));
    if (!isJetFile(stockFile) || QFileInfo(stockFile).isSymLink()) {
        return QString();
    }
    return freeName(stockFile + QStringLiteral(".jet"));
}

void replaceStockFile(const QString& target, const QString& keptAs) {
    const QString stockFile = QFileInfo(target).dir().filePath(QStringLiteral("daa.mdb"));
    if (!QFile::rename(stockFile, keptAs)) {
        throw fileError(QStringLiteral("Het bewaren van"), stockFile);
    }
    if (!QFile::link(QFileInfo(target).fileName(), stockFile)) {
        QFile::rename(keptAs, stockFile);
        throw fileError(QStringLiteral("Het vervangen van"), stockFile);
    }
}

}  // namespace

ConversionResult check(const QString& source, const QString& target,
                       const ProgressCallback& progress, const QString& schema) {
    removeLeftovers(target);
    QTemporaryFile scratch(target + QStringLiteral(".XXXXXX.tmp"));
    if (!scratch.open()) {
        throw fileError(QStringLiteral("Het aanmaken van een tijdelijk bestand naast"), target);
    }
    scratch.close();
    return convert(source, scratch.fileName(), progress, schema);
}

MigrationResult migrate(const QString& source, const QString& target,
                        const ProgressCallback& progress, const QString& schema) {
    removeLeftovers(target);
    QTemporaryFile converted(target + QStringLiteral(".XXXXXX.tmp"));
    if (!converted.open()) {
        throw fileError(QStringLiteral("Het aanmaken van een tijdelijk bestand naast"), target);
    }
    converted.close();

    MigrationResult result;
    result.conversion = convert(source, converted.fileName(), progress, schema);
    result.stockDifferences = stockDifferences(source, result.conversion.stock);
    if (!result.conversion.orphans.isEmpty()) {
        result.orphanFile =
            besideSource(source, target, QStringLiteral("-regels-zonder-factuur.csv"));
        writeReplacing(result.orphanFile, orphanCsv(result.conversion));
    }
    result.reportFile = besideSource(source, target, QStringLiteral("-omzetverslag.txt"));
    const bool inPlace = sameFile(source, target);
    if (QFileInfo::exists(target)) {
        result.keptAs =
            freeName(target + (inPlace ? QStringLiteral(".jet") : QStringLiteral(".vorige")));
    }
    if (inPlace) {
        result.stockFileKeptAs = stockFileToReplace(target);
    }
    writeReplacing(result.reportFile, reportText(source, result).toUtf8());

    // The new database is the user's as the old one was: the same permissions, writable.
    const QFileInfo replaced(QFileInfo::exists(target) ? target : source);
    converted.setPermissions(replaced.permissions() | QFileDevice::ReadOwner |
                             QFileDevice::WriteOwner);
    syncPath(converted.fileName(), false);
    if (!result.keptAs.isEmpty()) {
        keepAs(target, result.keptAs);
    }
    if (!result.stockFileKeptAs.isEmpty()) {
        replaceStockFile(target, result.stockFileKeptAs);
    }
    if (std::rename(QFile::encodeName(converted.fileName()).constData(),
                    QFile::encodeName(target).constData()) != 0) {
        // Back to how it was: the kept name was only a second one, daa.mdb a rename.
        if (!result.stockFileKeptAs.isEmpty()) {
            const QString stockFile = QFileInfo(target).dir().filePath(QStringLiteral("daa.mdb"));
            QFile::remove(stockFile);
            QFile::rename(result.stockFileKeptAs, stockFile);
        }
        QFile::remove(result.keptAs);
        throw fileError(QStringLiteral("Het vervangen van"), target);
    }
    converted.setAutoRemove(false);
    syncPath(QFileInfo(target).absolutePath(), true);
    return result;
}

void removeLeftovers(const QString& target) {
    const QFileInfo info(target);
    const QStringList names =
        info.dir().entryList({info.fileName() + QStringLiteral(".??????.tmp")}, QDir::Files);
    for (const QString& name : names) {
        QFile::remove(info.dir().filePath(name));
    }
}

qint64 invoiceCount(const QString& database) {
    sqlite3* db = nullptr;
    qint64 count = -1;
    if (sqlite3_open_v2(QFile::encodeName(database).constData(), &db, SQLITE_OPEN_READONLY,
                        nullptr) == SQLITE_OK) {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(db, "SELECT COUNT(*) FROM Factuur", -1, &statement, nullptr) ==
                SQLITE_OK &&
            sqlite3_step(statement) == SQLITE_ROW) {
            count = sqlite3_column_int64(statement, 0);
        }
        sqlite3_finalize(statement);
    }
    sqlite3_close(db);
    return count;
}

QString reportText(const QString& source, const MigrationResult& result) {
    QString text =
        QStringLiteral("Omgezet: %1 (%2)\r\n\r\nRijen per tabel:\r\n")
            .arg(QDir::toNativeSeparators(source),
                 QDateTime::currentDateTime().toString(QStringLiteral("dd-MM-yyyy HH:mm")));
    for (const TableCount& table : result.conversion.tables) {
        text += QStringLiteral("  %1: %2\r\n").arg(table.table, -20).arg(table.rows);
    }
    if (!result.keptAs.isEmpty()) {
        text += QStringLiteral("\r\nHet vorige db.daa is bewaard als %1.\r\n")
                    .arg(QDir::toNativeSeparators(result.keptAs));
    }
    if (!result.orphanFile.isEmpty()) {
        text += QStringLiteral(
                    "\r\n%1 factuurregels hoorden bij een factuur die niet meer "
                    "bestaat; ze staan in %2.\r\n")
                    .arg(result.conversion.orphans.size())
                    .arg(QDir::toNativeSeparators(result.orphanFile));
    }
    if (!result.stockFileKeptAs.isEmpty()) {
        text += QStringLiteral(
                    "\r\nHet oude daa.mdb is bewaard als %1; daa.mdb verwijst nu naar "
                    "db.daa.\r\n")
                    .arg(QDir::toNativeSeparators(result.stockFileKeptAs));
    }
    if (!result.stockDifferences.isEmpty()) {
        text += QStringLiteral(
            "\r\nDe voorraad in daa.mdb wijkt af van die in db.daa; het "
            "programma houdt die van db.daa aan (die het oude programma "
            "liet zien):\r\n");
        for (const QString& line : result.stockDifferences) {
            text += QStringLiteral("  ") + line + QStringLiteral("\r\n");
        }
    }
    return text;
}

}  // namespace jet
