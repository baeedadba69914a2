#pragma once

#include <QList>
#include <QVariant>

#include "store/ColumnValues.h"

struct sqlite3;

// Writes one row of an updatable set back to its base table: the table of the fields
// that changed, found by its key (or, without a key in the set, by all its old values).
namespace rows {

struct Inserted {
    QString table;
    qint64 key = 0;
};

Inserted insert(sqlite3* db, const columns::Columns& columns, const QList<QVariant>& values,
                const QList<bool>& assigned);
void update(sqlite3* db, const columns::Columns& columns, const QList<QVariant>& original,
            const QList<QVariant>& values, const QList<bool>& changed);
void remove(sqlite3* db, const columns::Columns& columns, const QList<QVariant>& original);

}  // namespace rows
