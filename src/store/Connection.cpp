#include "store/Connection.h"

#include <sqlite3.h>

#include <QFileInfo>

#include "store/Engine.h"
#include "store/MemorySet.h"
#include "store/ReadSet.h"
#include "store/SchemaChange.h"
#include "store/Session.h"
#include "store/Shape.h"

namespace {

// Every committed row must be in the file itself (a byte copy is a complete backup), and
// the relation between invoices and their lines is kept by the engine.
void configure(sqlite3* db) {
    sqlite3_busy_timeout(db, 2000);
    engine::run(db, QStringLiteral("PRAGMA journal_mode=DELETE"));
    engine::run(db, QStringLiteral("PRAGMA synchronous=FULL"));
    engine::run(db, QStringLiteral("PRAGMA foreign_keys=ON"));
    // Reading the schema is what tells a database from any other file.
    engine::run(db, QStringLiteral("SELECT count(*) FROM sqlite_master"));
}

QString savepoint(int depth) {
    return QStringLiteral("nested_%1").arg(depth);
}

}  // namespace

QString databasePathFromConnectionString(const QString& connectionString) {
    for (const QString& part : connectionString.split(u';')) {
        const qsizetype equals = part.indexOf(u'=');
        if (equals < 0) {
            continue;
        }
        const QString key = part.left(equals).trimmed();
        if (key.compare(QLatin1String("Data Source"), Qt::CaseInsensitive) == 0 ||
            key.compare(QLatin1String("DBQ"), Qt::CaseInsensitive) == 0) {
            return part.mid(equals + 1).trimmed();
        }
    }
    return QString();
}

Connection::Connection() = default;

Connection::~Connection() = default;

void Connection::open(const QString& connectionString, const QString&, const QString&) {
    if (session_) {
        throw engine::error(Error::ConnectionAlreadyOpen,
                            QStringLiteral("De verbinding met de database is al geopend."));
    }
    const QString path = databasePathFromConnectionString(connectionString);
    if (path.isEmpty()) {
        throw engine::error(Error::InvalidPath, QStringLiteral("De verbindingsgegevens noemen geen "
                                                               "databasebestand."));
    }
    if (!QFileInfo(path).isFile()) {
        throw engine::error(Error::DatabaseFileNotFound,
                            QStringLiteral("Kan het databasebestand '%1' niet vinden.").arg(path));
    }
    sqlite3* raw = nullptr;
    // A connection is used from one thread only: SQLite need not take its lock around every
    // call, which for a list is a lock and an unlock for each value read.
    const int rc = sqlite3_open_v2(path.toUtf8().constData(), &raw,
                                   SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    auto session = std::make_shared<engine::Session>(raw);
    try {
        if (rc != SQLITE_OK) {
            engine::fail(raw, rc);
        }
        configure(raw);
    } catch (const Error& error) {
        throw Error(error.number(), error.source(),
                    QStringLiteral("Het bestand '%1' kan niet als database worden geopend: %2")
                        .arg(path, error.description()));
    }
    session_ = std::move(session);
    transactionDepth_ = 0;
}

void Connection::close() {
    session_.reset();
    transactionDepth_ = 0;
}

Connection::State Connection::state() const {
    return session_ ? Open : Closed;
}

QString Connection::filePath() const {
    sqlite3* db = handle();
    return db ? QString::fromUtf8(sqlite3_db_filename(db, "main")) : QString();
}

qint64 Connection::execute(const QString& sql) {
    sqlite3* db = requireOpen();
    const jet::Translation translation = engine::translate(db, sql);
    if (translation.isAlterColumn()) {
        schema::alterColumn(db, translation);
        return 0;
    }
    engine::Statement statement = engine::prepareNative(db, translation.sql);
    while (statement.step()) {
    }
    return sqlite3_stmt_readonly(statement.get()) ? 0 : sqlite3_changes64(db);
}

std::unique_ptr<Recordset> Connection::openReadSet(const QString& sql) {
    sqlite3* db = requireOpen();
    if (shape::isShape(sql)) {
        return std::make_unique<Recordset>(
            MemorySet::allRows(shape::build(db, shape::parse(sql)), session_, false));
    }
    return std::make_unique<Recordset>(ReadSet::start(engine::prepare(db, sql)));
}

std::unique_ptr<Recordset> Connection::openUpdatableSet(const QString& sql) {
    sqlite3* db = requireOpen();
    std::shared_ptr<Level> level =
        shape::isShape(sql) ? shape::build(db, shape::parse(sql)) : Level::load(db, sql);
    return std::make_unique<Recordset>(MemorySet::allRows(std::move(level), session_, true));
}

void Connection::beginTrans() {
    sqlite3* db = requireOpen();
    engine::run(db, transactionDepth_ == 0
                        ? QStringLiteral("BEGIN")
                        : QStringLiteral("SAVEPOINT ") + savepoint(transactionDepth_));
    ++transactionDepth_;
}

void Connection::commitTrans() {
    sqlite3* db = requireOpen();
    if (transactionDepth_ == 0) {
        throw engine::error(Error::NoTransaction,
                            QStringLiteral("Er is geen transactie begonnen die kan worden "
                                           "doorgevoerd."));
    }
    const int depth = transactionDepth_ - 1;
    engine::run(
        db, depth == 0 ? QStringLiteral("COMMIT") : QStringLiteral("RELEASE ") + savepoint(depth));
    transactionDepth_ = depth;
}

void Connection::rollbackTrans() {
    sqlite3* db = requireOpen();
    if (transactionDepth_ == 0) {
        throw engine::error(Error::NoTransaction,
                            QStringLiteral("Er is geen transactie begonnen die kan worden "
                                           "teruggedraaid."));
    }
    const int depth = transactionDepth_ - 1;
    transactionDepth_ = depth;
    if (sqlite3_get_autocommit(db) != 0) {
        // The engine has already ended the transaction itself (after a failed commit).
        transactionDepth_ = 0;
    } else if (depth == 0) {
        engine::run(db, QStringLiteral("ROLLBACK"));
    } else {
        engine::run(db, QStringLiteral("ROLLBACK TO ") + savepoint(depth));
        engine::run(db, QStringLiteral("RELEASE ") + savepoint(depth));
    }
}

bool Connection::inTransaction() const {
    return session_ && sqlite3_get_autocommit(session_->db()) == 0;
}

qint64 Connection::lastInsertId() const {
    return session_ ? sqlite3_last_insert_rowid(session_->db()) : 0;
}

sqlite3* Connection::handle() const {
    return session_ ? session_->db() : nullptr;
}

sqlite3* Connection::requireOpen() const {
    if (!session_) {
        throw engine::error(Error::ConnectionClosed,
                            QStringLiteral("De bewerking is niet toegestaan: de "
                                           "verbinding met de database is gesloten."));
    }
    return session_->db();
}
