#pragma once

#include <QString>

// What a column of the database holds, taken from its declared (Jet) type name.
enum class FieldType {
    Text,      // TEXT(n), MEMO: QString
    Boolean,   // YESNO: bool
    Integer,   // INTEGER (16-bit): int
    Long,      // LONG, AUTOINCREMENT/COUNTER (32-bit): int
    Single,    // SINGLE: float
    Double,    // DOUBLE, NUMBER: double
    Currency,  // CURRENCY, stored as the amount times 10000: Currency
    DateTime,  // DATETIME, stored as ISO text: QDateTime
    Variant,   // an expression without a declared type: whatever the engine returns
};

struct Field {
    QString name;   // as the statement names it (alias or column)
    QString table;  // base table, empty for an expression
    FieldType type = FieldType::Variant;
    int size = 0;  // maximum length of a TEXT(n) column, 0 when unlimited
    bool autoIncrement = false;
    bool primaryKey = false;
};
