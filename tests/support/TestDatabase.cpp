#include "TestDatabase.h"

#include <sqlite3.h>

#include <QFile>
#include <memory>
#include <stdexcept>

#include "store/clsDatabase.h"
#include "store/modDatabase.h"

namespace {

void resetSharedConnections() {
    closeSharedConnections();
    gOdbcPad.clear();
}

struct CloseDatabase {
    void operator()(sqlite3* db) const { sqlite3_close(db); }
};
using Handle = std::unique_ptr<sqlite3, CloseDatabase>;

Handle openExisting(const QString& file, int flags = SQLITE_OPEN_READWRITE) {
    sqlite3* db = nullptr;
    const int rc = sqlite3_open_v2(file.toUtf8().constData(), &db, flags, nullptr);
    Handle handle(db);
    if (rc != SQLITE_OK) {
        throw std::runtime_error("cannot open " + file.toStdString());
    }
    return handle;
}

void check(sqlite3* db, int rc, const QString& sql) {
    if (rc != SQLITE_OK && rc != SQLITE_ROW && rc != SQLITE_DONE) {
        throw std::runtime_error(sql.toStdString() + ": " + sqlite3_errmsg(db));
    }
}

}  // namespace

TestDatabase::TestDatabase() : TestDatabase(schemaScript()) {}

TestDatabase::TestDatabase(const QString& script) {
    resetSharedConnections();
    createFromScript(path(), script);
}

TestDatabase::~TestDatabase() {
    resetSharedConnections();
}

void TestDatabase::linkStockDatabase() const {
    QFile::link("db.daa", file("daa.mdb"));
}

void TestDatabase::exec(const QString& sql, const QString& database) const {
    Handle db = openExisting(database.isEmpty() ? path() : database);
    check(db.get(), sqlite3_exec(db.get(), sql.toUtf8().constData(), nullptr, nullptr, nullptr),
          sql);
}

QVariant TestDatabase::scalar(const QString& sql, const QString& database) const {
    Handle db = openExisting(database.isEmpty() ? path() : database);
    sqlite3_stmt* statement = nullptr;
    check(db.get(), sqlite3_prepare_v2(db.get(), sql.toUtf8().constData(), -1, &statement, nullptr),
          sql);
    std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> guard(statement, sqlite3_finalize);
    const int rc = sqlite3_step(statement);
    check(db.get(), rc, sql);
    if (rc != SQLITE_ROW) {
        return QVariant();
    }
    switch (sqlite3_column_type(statement, 0)) {
        case SQLITE_INTEGER:
            return QVariant(static_cast<qlonglong>(sqlite3_column_int64(statement, 0)));
        case SQLITE_FLOAT:
            return QVariant(sqlite3_column_double(statement, 0));
        case SQLITE_NULL:
            return QVariant();
        default:
            return QVariant(QString::fromUtf8(
                reinterpret_cast<const char*>(sqlite3_column_text(statement, 0))));
    }
}

QString TestDatabase::schemaScript() {
    return QStringLiteral(LINDEBRUG_SCHEMA_SCRIPT);
}

QString TestDatabase::testData(const QString& name) {
    return QStringLiteral(LINDEBRUG_TEST_DATA_DIR) + "/" + name;
}

void TestDatabase::createFromScript(const QString& databaseFile, const QString& scriptFile) {
    QFile script(scriptFile);
    if (!script.open(QIODevice::ReadOnly)) {
        throw std::runtime_error("cannot read " + scriptFile.toStdString());
    }
    Handle db = openExisting(databaseFile, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    const QByteArray sql = script.readAll();
    check(db.get(), sqlite3_exec(db.get(), sql.constData(), nullptr, nullptr, nullptr), scriptFile);
}
