#pragma once

#include <sqlite3.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>
#include <QVariant>

#include "Files.h"
#include "TestDatabase.h"

// The old Access files of tests/data/jet and the rows they must give, as the JSON beside
// each one lists them.
namespace jettest {

inline QString fixture(const QString& name) {
    return TestDatabase::testData(QStringLiteral("jet/") + name);
}

inline QJsonObject expectedTables(const QString& json) {
    return QJsonDocument::fromJson(readBytes(fixture(json))).object().value("tables").toObject();
}

// The expected tables less one invoice and its lines.
inline QJsonObject withoutInvoice(QJsonObject tables, int invoice) {
    for (const QString table : {"Factuur", "ArtikelPerFactuur"}) {
        QJsonObject object = tables.value(table).toObject();
        QJsonArray kept;
        for (const QJsonValue row : object.value("rows").toArray()) {
            if (row.toObject().value("FactuurID").toInt() != invoice) {
                kept.append(row);
            }
        }
        object["rows"] = kept;
        object["rowCount"] = kept.size();
        tables[table] = object;
    }
    return tables;
}

// "-12.3400" as the whole number of ten-thousandths, read as decimal text.
inline qint64 scaledMoney(const QString& text) {
    const QStringList parts = text.split('.');
    const qint64 whole = parts[0].toLongLong();
    const qint64 fraction = parts.value(1).leftJustified(4, '0').toLongLong();
    return whole * 10000 + (text.startsWith('-') ? -fraction : fraction);
}

// Every cell of a converted database against the expected tables: one text per cell that
// differs, naming table, key and column.
inline QStringList differences(const QString& database, const QJsonObject& tables) {
    QStringList found;
    sqlite3* db = nullptr;
    sqlite3_open_v2(database.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr);
    for (auto it = tables.begin(); it != tables.end(); ++it) {
        const QJsonObject table = it.value().toObject();
        const QString key = table.value("key").toString();
        QStringList names;
        QStringList types;
        for (const QJsonValue column : table.value("columns").toArray()) {
            names << column.toObject().value("name").toString();
            types << column.toObject().value("type").toString();
        }
        const QString sql =
            QString("SELECT %1 FROM %2 ORDER BY %3").arg(names.join(','), it.key(), key);
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(db, sql.toUtf8().constData(), -1, &statement, nullptr) !=
            SQLITE_OK) {
            found << it.key() + ": " + sqlite3_errmsg(db);
            continue;
        }
        const QJsonArray rows = table.value("rows").toArray();
        int row = 0;
        for (; sqlite3_step(statement) == SQLITE_ROW; ++row) {
            if (row >= rows.size()) {
                continue;
            }
            const QJsonObject expected = rows[row].toObject();
            for (int c = 0; c < names.size(); ++c) {
                const QJsonValue want = expected.value(names[c]);
                const int type = sqlite3_column_type(statement, c);
                const QString text = QString::fromUtf8(
                    reinterpret_cast<const char*>(sqlite3_column_text(statement, c)));
                bool same;
                if (want.isNull()) {
                    same = type == SQLITE_NULL;
                } else if (types[c] == "CURRENCY") {
                    same = type == SQLITE_INTEGER &&
                           sqlite3_column_int64(statement, c) == scaledMoney(want.toString());
                } else if (types[c] == "DOUBLE" || types[c] == "SINGLE") {
                    same = type != SQLITE_NULL &&
                           sqlite3_column_double(statement, c) == want.toDouble();
                } else if (types[c] == "YESNO") {
                    same = type == SQLITE_INTEGER &&
                           sqlite3_column_int(statement, c) == (want.toBool() ? 1 : 0);
                } else if (want.isString()) {
                    same = type == SQLITE_TEXT && text == want.toString();
                } else {
                    same = type == SQLITE_INTEGER &&
                           sqlite3_column_int64(statement, c) == want.toInteger();
                }
                if (!same) {
                    found << QString("%1 %2=%3 %4: %5 instead of %6")
                                 .arg(it.key(), key, expected.value(key).toVariant().toString(),
                                      names[c], type == SQLITE_NULL ? "Null" : text,
                                      QString::fromUtf8(QJsonDocument(QJsonArray{want})
                                                            .toJson(QJsonDocument::Compact)));
                }
            }
        }
        if (row != rows.size()) {
            found << QString("%1: %2 rows instead of %3").arg(it.key()).arg(row).arg(rows.size());
        }
        sqlite3_finalize(statement);
    }
    sqlite3_close(db);
    return found;
}

}  // namespace jettest
