#include "store/SchemaChange.h"

#include <sqlite3.h>

#include "store/Engine.h"
#include "store/SqlLexer.h"

namespace schema {

namespace {

struct TableDefinition {
    QString name;
    QString sql;
};

TableDefinition tableDefinition(sqlite3* db, const QString& table) {
    engine::Statement statement = engine::prepareNative(
        db, QStringLiteral("SELECT name, sql FROM sqlite_master WHERE type='table' AND "
                           "name=?1 COLLATE NOCASE"));
    const QByteArray name = table.toUtf8();
    sqlite3_bind_text(statement.get(), 1, name.constData(), int(name.size()), SQLITE_TRANSIENT);
    if (!statement.step()) {
        throw engine::error(Error::TableNotFound,
                            QStringLiteral("De tabel %1 bestaat niet.").arg(table));
    }
    auto text = [&](int column) {
        return QString::fromUtf8(
            reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), column)));
    };
    return TableDefinition{text(0), text(1)};
}

qint64 singleNumber(sqlite3* db, const QString& sql) {
    engine::Statement statement = engine::prepareNative(db, sql);
    statement.step();
    return sqlite3_column_int64(statement.get(), 0);
}

void requireOrdinaryColumn(sqlite3* db, const TableDefinition& table, const QString& column) {
    int primaryKey = 0;
    if (sqlite3_table_column_metadata(db, nullptr, table.name.toUtf8().constData(),
                                      column.toUtf8().constData(), nullptr, nullptr, nullptr,
                                      &primaryKey, nullptr) != SQLITE_OK) {
        throw engine::itemNotFound(column);
    }
    if (primaryKey != 0) {
        throw engine::error(Error::ReadOnly,
                            QStringLiteral("De sleutelkolom %1 van de tabel %2 kan niet "
                                           "worden gewijzigd.")
                                .arg(column, table.name));
    }
}

void requireValuesFit(sqlite3* db, const TableDefinition& table, const QString& column,
                      int length) {
    const qint64 tooLong =
        singleNumber(db, QStringLiteral("SELECT count(*) FROM %1 WHERE length(%2) > %3")
                             .arg(sql::quotedName(table.name), sql::quotedName(column))
                             .arg(length));
    if (tooLong > 0) {
        throw engine::error(Error::FieldTooSmall,
                            QStringLiteral("Het veld is te klein om de gegevens te bevatten die "
                                           "u wilt toevoegen. Het veld %1 bevat waarden van meer "
                                           "dan %2 tekens.")
                                .arg(column)
                                .arg(length));
    }
}

void rewriteDefinition(sqlite3* db, const TableDefinition& table, const QString& definition) {
    const qint64 version = singleNumber(db, QStringLiteral("PRAGMA schema_version"));
    engine::run(db, QStringLiteral("PRAGMA writable_schema=ON"));
    engine::Statement statement = engine::prepareNative(
        db, QStringLiteral("UPDATE sqlite_master SET sql=?1 WHERE type='table' AND name=?2"));
    const QByteArray text = definition.toUtf8();
    const QByteArray name = table.name.toUtf8();
    sqlite3_bind_text(statement.get(), 1, text.constData(), int(text.size()), SQLITE_TRANSIENT);
    sqlite3_bind_text(statement.get(), 2, name.constData(), int(name.size()), SQLITE_TRANSIENT);
    statement.step();
    // A new schema version makes every connection read the changed definition.
    engine::run(db, QStringLiteral("PRAGMA schema_version=%1").arg(version + 1));
    engine::run(db, QStringLiteral("PRAGMA writable_schema=OFF"));
}

}  // namespace

void alterColumn(sqlite3* db, const jet::Translation& change) {
    const TableDefinition table = tableDefinition(db, change.alterTable);
    const QString& column = change.alterColumn;
    requireOrdinaryColumn(db, table, column);
    const QString definition =
        jet::withColumnType(table.sql, column, change.alterType, change.alterToText);
    if (definition.isEmpty()) {
        // A definition the change cannot be read into is never written over the table's.
        throw engine::error(Error::ReadOnly,
                            QStringLiteral("De kolom %1 van de tabel %2 kan niet worden "
                                           "gewijzigd.")
                                .arg(column, table.name));
    }
    if (change.textLength > 0) {
        requireValuesFit(db, table, column, change.textLength);
    }
    engine::run(db, QStringLiteral("SAVEPOINT alter_column"));
    try {
        rewriteDefinition(db, table, definition);
        if (change.alterToText) {
            engine::run(db, QStringLiteral("UPDATE %1 SET %2=CAST(%2 AS TEXT) WHERE typeof(%2) "
                                           "NOT IN ('text','null')")
                                .arg(sql::quotedName(table.name), sql::quotedName(column)));
        }
        engine::run(db, QStringLiteral("REINDEX %1").arg(sql::quotedName(table.name)));
        engine::run(db, QStringLiteral("RELEASE alter_column"));
    } catch (const Error&) {
        sqlite3_exec(db,
                     "PRAGMA writable_schema=OFF; ROLLBACK TO alter_column; "
                     "RELEASE alter_column",
                     nullptr, nullptr, nullptr);
        throw;
    }
}

}  // namespace schema
