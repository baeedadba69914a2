#include "exchange/DatabaseFile.h"

#include <sqlite3.h>

#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include "exchange/DurableFile.h"
#include "exchange/FileCopy.h"

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace dbfile {
namespace {

// Another process that saves holds its lock for milliseconds; one that imports commits
// every few thousand lines. Both are waited for this long before we give up.
constexpr int kBusyMilliseconds = 5000;

const char* const kProgramTables[] = {"Artikel", "ArtikelPerFactuur", "BTW",
                                      "Factuur", "Instellingen",      "Klant"};

bool fail(QString* reason, const QString& text) {
    if (reason) {
        *reason = text;
    }
    return false;
}

QString engineReason(int code, const QString& message) {
    switch (code & 0xff) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return QStringLiteral("De database is in gebruik door een ander programma.");
        case SQLITE_FULL:
            return QStringLiteral("De schijf is vol.");
        case SQLITE_NOTADB:
            return QStringLiteral("Het bestand is geen database.");
        case SQLITE_CORRUPT:
            return QStringLiteral("De database is beschadigd (%1).").arg(message);
        default:
            return QStringLiteral("Fout %1 van de database: %2").arg(code).arg(message);
    }
}

// One connection of our own, past the program's engine: the work here is on whole files.
class Database {
public:
    Database() = default;
    ~Database() { sqlite3_close_v2(db_); }
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    bool open(const QString& path, int flags) {
        rc_ = sqlite3_open_v2(path.toUtf8().constData(), &db_, flags, nullptr);
        if (db_) {
            sqlite3_busy_timeout(db_, kBusyMilliseconds);
        }
        return rc_ == SQLITE_OK;
    }
    // Runs sql to its end; the first column of every row is added to values when given.
    bool run(const char* sql, QStringList* values = nullptr) {
        sqlite3_stmt* statement = nullptr;
        rc_ = sqlite3_prepare_v2(db_, sql, -1, &statement, nullptr);
        while (rc_ == SQLITE_OK && (rc_ = sqlite3_step(statement)) == SQLITE_ROW) {
            if (values) {
                values->append(QString::fromUtf8(
                    reinterpret_cast<const char*>(sqlite3_column_text(statement, 0))));
            }
            rc_ = SQLITE_OK;
        }
        if (rc_ == SQLITE_DONE) {
            rc_ = SQLITE_OK;
        }
        const int finished = sqlite3_finalize(statement);
        if (rc_ == SQLITE_OK) {
            rc_ = finished;
        }
        return rc_ == SQLITE_OK;
    }
    bool quickCheck(QString* reason) {
        QStringList result;
        if (!run("PRAGMA quick_check", &result)) {
            return fail(reason, this->reason());
        }
        if (result != QStringList{QStringLiteral("ok")}) {
            return fail(reason, QStringLiteral("De database is beschadigd: ") +
                                    result.mid(0, 3).join(QStringLiteral("; ")));
        }
        return true;
    }
    bool close() {
        rc_ = sqlite3_close(db_);
        if (rc_ == SQLITE_OK) {
            db_ = nullptr;
        }
        return rc_ == SQLITE_OK;
    }
    int code() const { return rc_; }
    QString reason() const {
        return engineReason(rc_, db_ ? QString::fromUtf8(sqlite3_errmsg(db_))
                                     : QString::fromUtf8(sqlite3_errstr(rc_)));
    }
    sqlite3* get() const { return db_; }

private:
    sqlite3* db_ = nullptr;
    int rc_ = SQLITE_OK;
};

// The backup written and checked under the temporary name. The copy is of the file's bytes,
// taken inside a read transaction: its first read plays back a hot journal a crash left,
// and its shared lock keeps every other writer from changing the file until the copy is
// done, so the bytes are one committed state. (The copy's own descriptor is closed only
// after the bytes are copied: closing it gives up the process's locks on the file.)
bool writeCheckedCopy(const QString& database, const QString& temporary, const QString& target,
                      const QString& progressTitle, QString* reason) {
    Database source;
    // Writable, so that a hot journal can be played back before we read.
    if (!source.open(database, SQLITE_OPEN_READWRITE) || !source.run("BEGIN") ||
        !source.run("SELECT count(*) FROM sqlite_master")) {
        return fail(reason, source.reason());
    }
    if (!filecopy::copyToTemporary(database, temporary, target, progressTitle, reason)) {
        return false;
    }
    source.run("COMMIT");
    durable::step("check");
    Database copy;
    if (!copy.open(temporary, SQLITE_OPEN_READONLY)) {
        return fail(reason, copy.reason());
    }
    return copy.quickCheck(reason);
}

// The database about to be replaced, kept as <name>.vorige: a second name for the same
// file where the file system allows, a copy otherwise.
bool keepPrevious(const QString& database, QString* reason) {
    if (!QFileInfo::exists(database)) {
        return true;
    }
    const QString previous = previousName(database);
    const QString temporary = durable::temporaryNameFor(previous);
    durable::step("previous");
    bool linked = false;
#ifdef Q_OS_UNIX
    linked = ::link(QFile::encodeName(database).constData(),
                    QFile::encodeName(temporary).constData()) == 0;
#endif
    if (!linked && !filecopy::copyToTemporary(database, temporary, previous, QString(), reason)) {
        return false;
    }
    if (::rename(QFile::encodeName(temporary).constData(),
                 QFile::encodeName(previous).constData()) != 0) {
        fail(reason, durable::systemReason(QStringLiteral("Kan niet hernoemen naar"), previous));
        QFile::remove(temporary);
        return false;
    }
    return true;
}

}  // namespace

QString previousName(const QString& database) {
    return database + QStringLiteral(".vorige");
}

QString journalName(const QString& database) {
    return database + QStringLiteral("-journal");
}

bool backup(const QString& database, const QString& target, const QString& progressTitle,
            QString* reason) {
    durable::removeLeftovers(QFileInfo(target).absolutePath());
    const QString temporary = durable::temporaryNameFor(target);
    if (!writeCheckedCopy(database, temporary, target, progressTitle, reason)) {
        QFile::remove(temporary);
        return false;
    }
    return durable::publish(temporary, target, reason);
}

bool settleJournal(const QString& database, QString* reason) {
    const QString journal = journalName(database);
    if (!QFileInfo::exists(journal)) {
        return true;
    }
    {
        Database old;
        // Taking the write lock plays a hot journal back, and tells a journal that a
        // living writer still uses (which we must not touch) from a stale one.
        if (old.open(database, SQLITE_OPEN_READWRITE)) {
            if (old.run("BEGIN IMMEDIATE")) {
                old.run("ROLLBACK");
            } else if ((old.code() & 0xff) == SQLITE_BUSY || (old.code() & 0xff) == SQLITE_LOCKED) {
                return fail(reason, old.reason());
            }
        }
    }
    // Whatever is left belongs to no database we could read: it must not meet the next.
    durable::step("journal");
    if (QFileInfo::exists(journal) && !QFile::remove(journal)) {
        return fail(reason, durable::systemReason(QStringLiteral("Kan niet verwijderen"), journal));
    }
    return true;
}

bool restore(const QString& source, const QString& database, const QString& progressTitle,
             QString* reason) {
    durable::removeLeftovers(QFileInfo(database).absolutePath());
    const QString temporary = durable::temporaryNameFor(database);
    if (!filecopy::copyToTemporary(source, temporary, database, progressTitle, reason)) {
        return false;
    }
    if (!settleJournal(database, reason) || !keepPrevious(database, reason)) {
        QFile::remove(temporary);
        return false;
    }
    return durable::publish(temporary, database, reason);
}

bool isProgramDatabase(const QString& path, QString* reason) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return fail(reason, durable::systemReason(QStringLiteral("Kan niet lezen uit"), path));
    }
    if (file.size() == 0) {
        return fail(reason, QStringLiteral("Het bestand is leeg."));
    }
    if (file.read(16) != QByteArray("SQLite format 3\0", 16)) {
        return fail(reason, QStringLiteral("Het bestand is geen database."));
    }
    file.close();
    Database database;
    QStringList tables;
    if (!database.open(path, SQLITE_OPEN_READONLY) ||
        !database.run("SELECT name FROM sqlite_master WHERE type='table'", &tables)) {
        return fail(reason, database.reason());
    }
    QStringList missing;
    for (const char* table : kProgramTables) {
        if (!tables.contains(QLatin1String(table), Qt::CaseInsensitive)) {
            missing.append(QLatin1String(table));
        }
    }
    if (!missing.isEmpty()) {
        return fail(reason, QStringLiteral("De database mist de tabellen van Lindebrug: ") +
                                missing.join(QStringLiteral(", ")) + QLatin1Char('.'));
    }
    return database.quickCheck(reason);
}

}  // namespace dbfile
