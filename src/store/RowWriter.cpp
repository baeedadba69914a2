#include "store/RowWriter.h"

#include <sqlite3.h>

#include "store/Engine.h"
#include "store/SqlLexer.h"

namespace rows {

namespace {

// The one base table of the given fields (all fields of the set when none is given).
QString baseTable(const columns::Columns& columns, const QList<bool>& chosen) {
    const bool any = chosen.contains(true);
    QString table;
    for (int i = 0; i < columns.size(); ++i) {
        const QString& own = columns.fields()[i].table;
        if ((any && !chosen[i]) || own.isEmpty()) {
            continue;
        }
        if (!table.isEmpty() && table.compare(own, Qt::CaseInsensitive) != 0) {
            throw engine::error(3027, QStringLiteral("Kan niet bijwerken: de gegevens horen bij "
                                                     "meer dan één tabel."));
        }
        table = own;
    }
    if (table.isEmpty()) {
        throw engine::notUpdatable();
    }
    return table;
}

QList<int> fieldsOf(const columns::Columns& columns, const QString& table) {
    QList<int> result;
    for (int i = 0; i < columns.size(); ++i) {
        if (columns.fields()[i].table.compare(table, Qt::CaseInsensitive) == 0) {
            result.append(i);
        }
    }
    return result;
}

// The fields that find the row again: its key, or every field of the table when the set
// does not hold the key.
QList<int> locatingFields(const columns::Columns& columns, const QString& table) {
    const QList<int> all = fieldsOf(columns, table);
    QList<int> keys;
    for (int i : all) {
        if (columns.fields()[i].primaryKey) {
            keys.append(i);
        }
    }
    return keys.isEmpty() ? all : keys;
}

QString whereClause(const columns::Columns& columns, const QList<int>& locating) {
    QStringList conditions;
    for (int i : locating) {
        conditions.append(sql::quotedName(columns.origin(i)) + QStringLiteral(" IS ?"));
    }
    return QStringLiteral(" WHERE ") + conditions.join(QStringLiteral(" AND "));
}

void bindAll(sqlite3_stmt* statement, int first, const columns::Columns& columns,
             const QList<int>& indexes, const QList<QVariant>& values) {
    int parameter = first;
    for (int i : indexes) {
        columns::bind(statement, parameter++, values[i], columns.fields()[i].type);
    }
}

void runChanging(sqlite3* db, engine::Statement& statement) {
    statement.step();
    if (sqlite3_changes(db) == 0) {
        throw engine::error(3197, QStringLiteral("Het record is niet meer gevonden: het is "
                                                 "gewijzigd of verwijderd nadat het werd "
                                                 "gelezen."));
    }
}

}  // namespace

Inserted insert(sqlite3* db, const columns::Columns& columns, const QList<QVariant>& values,
                const QList<bool>& assigned) {
    const QString table = baseTable(columns, assigned);
    QList<int> written;
    QStringList names;
    for (int i : fieldsOf(columns, table)) {
        if (assigned[i]) {
            written.append(i);
            names.append(sql::quotedName(columns.origin(i)));
        }
    }
    QString text = QStringLiteral("INSERT INTO ") + sql::quotedName(table);
    if (written.isEmpty()) {
        text += QStringLiteral(" DEFAULT VALUES");
    } else {
        text += QStringLiteral(" (") + names.join(u',') + QStringLiteral(") VALUES (") +
                QStringList(names.size(), QStringLiteral("?")).join(u',') + u')';
    }
    engine::Statement statement = engine::prepareNative(db, text);
    bindAll(statement.get(), 1, columns, written, values);
    statement.step();
    return Inserted{table, sqlite3_last_insert_rowid(db)};
}

void update(sqlite3* db, const columns::Columns& columns, const QList<QVariant>& original,
            const QList<QVariant>& values, const QList<bool>& changed) {
    if (!changed.contains(true)) {
        return;
    }
    const QString table = baseTable(columns, changed);
    QList<int> written;
    QStringList assignments;
    for (int i = 0; i < columns.size(); ++i) {
        if (changed[i]) {
            written.append(i);
            assignments.append(sql::quotedName(columns.origin(i)) + QStringLiteral("=?"));
        }
    }
    const QList<int> locating = locatingFields(columns, table);
    engine::Statement statement = engine::prepareNative(
        db, QStringLiteral("UPDATE ") + sql::quotedName(table) + QStringLiteral(" SET ") +
                assignments.join(u',') + whereClause(columns, locating));
    bindAll(statement.get(), 1, columns, written, values);
    bindAll(statement.get(), int(written.size()) + 1, columns, locating, original);
    runChanging(db, statement);
}

void remove(sqlite3* db, const columns::Columns& columns, const QList<QVariant>& original) {
    const QString table = baseTable(columns, QList<bool>(columns.size(), false));
    const QList<int> locating = locatingFields(columns, table);
    engine::Statement statement =
        engine::prepareNative(db, QStringLiteral("DELETE FROM ") + sql::quotedName(table) +
                                      whereClause(columns, locating));
    bindAll(statement.get(), 1, columns, locating, original);
    runChanging(db, statement);
}

}  // namespace rows
