#pragma once

#include <QDateTime>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "store/Field.h"

struct sqlite3_stmt;

// How the engine keeps each kind of value in SQLite and hands it back: yes/no as 1/0,
// money as the amount times 10000, dates as ISO text; and the description of the
// columns of a result.
namespace columns {

struct DeclaredType {
    FieldType type = FieldType::Variant;
    int size = 0;
};

// The kind of a column from its declared (Jet) type; a rowid key is a 32-bit Long.
DeclaredType declaredType(const char* declared, bool rowidKey);

// Reads the values of the rows of a statement, each as its field's kind; Null as an
// invalid QVariant. An expression (Variant) is typed from the value itself.
class Reader {
public:
    QVariant read(sqlite3_stmt* statement, int column, FieldType type);
    // A Text column's value as read gives it, straight as a QString; nothing for Null.
    static std::optional<QString> text(sqlite3_stmt* statement, int column);
    // An Integer or Long column's value in digits, as read gives it and QVariant turns it
    // into text; nothing unless it is stored as a whole number (Null included).
    static std::optional<QString> wholeNumberText(sqlite3_stmt* statement, int column);

private:
    QDateTime dateTime(sqlite3_stmt* statement, int column);

    struct TextHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const {
            return std::hash<std::string_view>()(text);
        }
    };

    // Each distinct date text is worked out once: making a local date and time has the C
    // library look at the time-zone file again, which cost more than the rest of a row.
    std::unordered_map<std::string, QDateTime, TextHash, std::equal_to<>> dates_;
};

// Binds a value already converted to the field's kind.
void bind(sqlite3_stmt* statement, int parameter, const QVariant& value, FieldType type);

// A date as the engine keeps it: "yyyy-MM-dd HH:mm:ss" (or "yyyy-MM-dd", or with a "T");
// invalid when the text is no such date.
QDateTime parseDateTime(QStringView text);

// The fields of a result with the base column each comes from, and a lookup by name
// that is case-insensitive and accepts "Table.Column".
class Columns {
public:
    static Columns of(sqlite3_stmt* statement);

    const QList<Field>& fields() const { return fields_; }
    const QString& origin(int index) const { return origins_[index]; }
    int size() const { return int(fields_.size()); }
    int indexOf(const QString& name) const;

private:
    int find(const QString& name) const;

    QList<Field> fields_;
    QStringList origins_;
    mutable QHash<QString, int> lookups_;
};

}  // namespace columns
