#include "store/ColumnValues.h"

#include <sqlite3.h>

#include <QDateTime>
#include <QStringEncoder>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <new>

#include "base/Currency.h"

namespace columns {

namespace {

struct TypeName {
    QLatin1String name;
    FieldType type;
    bool hasLength = false;  // TEXT(n) and its kin; a memo has no length
};

const QList<TypeName>& typeNames() {
    static const QList<TypeName> names{
        {QLatin1String("TEXT"), FieldType::Text, true},
        {QLatin1String("VARCHAR"), FieldType::Text, true},
        {QLatin1String("CHAR"), FieldType::Text, true},
        {QLatin1String("CHARACTER"), FieldType::Text, true},
        {QLatin1String("STRING"), FieldType::Text, true},
        {QLatin1String("ALPHANUMERIC"), FieldType::Text, true},
        {QLatin1String("NVARCHAR"), FieldType::Text, true},
        {QLatin1String("MEMO"), FieldType::Text},
        {QLatin1String("LONGTEXT"), FieldType::Text},
        {QLatin1String("LONGCHAR"), FieldType::Text},
        {QLatin1String("NOTE"), FieldType::Text},
        {QLatin1String("NTEXT"), FieldType::Text},
        {QLatin1String("YESNO"), FieldType::Boolean},
        {QLatin1String("BIT"), FieldType::Boolean},
        {QLatin1String("LOGICAL"), FieldType::Boolean},
        {QLatin1String("LOGICAL1"), FieldType::Boolean},
        {QLatin1String("BOOLEAN"), FieldType::Boolean},
        {QLatin1String("INTEGER"), FieldType::Integer},
        {QLatin1String("SHORT"), FieldType::Integer},
        {QLatin1String("SMALLINT"), FieldType::Integer},
        {QLatin1String("INTEGER2"), FieldType::Integer},
        {QLatin1String("BYTE"), FieldType::Integer},
        {QLatin1String("LONG"), FieldType::Long},
        {QLatin1String("INT"), FieldType::Long},
        {QLatin1String("INTEGER4"), FieldType::Long},
        {QLatin1String("COUNTER"), FieldType::Long},
        {QLatin1String("AUTOINCREMENT"), FieldType::Long},
        {QLatin1String("SINGLE"), FieldType::Single},
        {QLatin1String("REAL"), FieldType::Single},
        {QLatin1String("FLOAT4"), FieldType::Single},
        {QLatin1String("IEEESINGLE"), FieldType::Single},
        {QLatin1String("DOUBLE"), FieldType::Double},
        {QLatin1String("NUMBER"), FieldType::Double},
        {QLatin1String("FLOAT"), FieldType::Double},
        {QLatin1String("FLOAT8"), FieldType::Double},
        {QLatin1String("IEEEDOUBLE"), FieldType::Double},
        {QLatin1String("NUMERIC"), FieldType::Double},
        {QLatin1String("DECIMAL"), FieldType::Double},
        {QLatin1String("CURRENCY"), FieldType::Currency},
        {QLatin1String("MONEY"), FieldType::Currency},
        {QLatin1String("DATETIME"), FieldType::DateTime},
        {QLatin1String("DATE"), FieldType::DateTime},
        {QLatin1String("TIME"), FieldType::DateTime},
        {QLatin1String("TIMESTAMP"), FieldType::DateTime},
    };
    return names;
}

QString textOf(sqlite3_stmt* statement, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return QString::fromUtf8(text, sqlite3_column_bytes(statement, column));
}

// The value as SQLite holds it, for expressions and for values a column's kind cannot hold.
QVariant plain(sqlite3_stmt* statement, int column, int storage) {
    switch (storage) {
        case SQLITE_INTEGER: {
            const qint64 number = sqlite3_column_int64(statement, column);
            if (number >= std::numeric_limits<int>::min() &&
                number <= std::numeric_limits<int>::max()) {
                return QVariant(int(number));
            }
            return QVariant(qlonglong(number));
        }
        case SQLITE_FLOAT:
            return QVariant(sqlite3_column_double(statement, column));
        case SQLITE_BLOB: {
            const auto* data = static_cast<const char*>(sqlite3_column_blob(statement, column));
            return QVariant(QByteArray(data, sqlite3_column_bytes(statement, column)));
        }
        default:
            return QVariant(textOf(statement, column));
    }
}

bool isNumber(int storage) {
    return storage == SQLITE_INTEGER || storage == SQLITE_FLOAT;
}

int twoDigits(QStringView text, qsizetype at) {
    return (text[at].unicode() - '0') * 10 + (text[at + 1].unicode() - '0');
}

bool digitsAt(QStringView text, std::initializer_list<qsizetype> positions) {
    for (qsizetype at : positions) {
        if (at >= text.size() || !text[at].isDigit()) {
            return false;
        }
    }
    return true;
}

// The text as UTF-8 in a buffer SQLite takes over: encoded once, never copied again (UTF-16
// handed over is copied, then translated into a second buffer).
void bindText(sqlite3_stmt* statement, int parameter, QStringView text) {
    QStringEncoder encoder(QStringEncoder::Utf8, QStringConverter::Flag::Stateless);
    // One byte more, so that even the empty text has a buffer and stays a text, not Null.
    // Plain malloc: SQLite's own allocator takes a lock and keeps count on every call.
    auto* buffer = static_cast<char*>(std::malloc(encoder.requiredSpace(text.size()) + 1));
    if (buffer == nullptr) {
        throw std::bad_alloc();
    }
    const char* end = encoder.appendToBuffer(buffer, text);
    sqlite3_bind_text64(statement, parameter, buffer, sqlite3_uint64(end - buffer), std::free,
                        SQLITE_UTF8);
}

// Dates sort and compare as text in this form, and SQLite's date functions read it.
QString dateTimeText(const QDateTime& value) {
    return value.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

}  // namespace

DeclaredType declaredType(const char* declared, bool rowidKey) {
    DeclaredType result;
    if (declared == nullptr) {
        return result;
    }
    const QByteArray upper = QByteArray(declared).trimmed().toUpper();
    qsizetype end = 0;
    while (end < upper.size() && (std::isalnum(static_cast<unsigned char>(upper[end])))) {
        ++end;
    }
    const QLatin1String word(upper.constData(), end);
    for (const TypeName& name : typeNames()) {
        if (name.name != word) {
            continue;
        }
        result.type = name.type == FieldType::Integer && rowidKey ? FieldType::Long : name.type;
        const qsizetype open = upper.indexOf('(', end);
        if (name.hasLength && open >= 0) {
            const qsizetype close = upper.indexOf(')', open);
            result.size = upper.mid(open + 1, close - open - 1).trimmed().toInt();
        }
        break;
    }
    return result;
}

QVariant Reader::read(sqlite3_stmt* statement, int column, FieldType type) {
    const int storage = sqlite3_column_type(statement, column);
    if (storage == SQLITE_NULL) {
        return QVariant();
    }
    switch (type) {
        case FieldType::Text:
            return QVariant(textOf(statement, column));
        case FieldType::Boolean:
            if (isNumber(storage)) {
                return QVariant(sqlite3_column_double(statement, column) != 0);
            }
            break;
        case FieldType::Integer:
        case FieldType::Long:
            if (storage == SQLITE_INTEGER) {
                return QVariant(int(sqlite3_column_int64(statement, column)));
            }
            if (storage == SQLITE_FLOAT) {
                return QVariant(int(std::nearbyint(sqlite3_column_double(statement, column))));
            }
            break;
        case FieldType::Single:
            if (isNumber(storage)) {
                return QVariant(float(sqlite3_column_double(statement, column)));
            }
            break;
        case FieldType::Double:
            if (isNumber(storage)) {
                return QVariant(sqlite3_column_double(statement, column));
            }
            break;
        case FieldType::Currency:
            if (storage == SQLITE_INTEGER) {
                return QVariant::fromValue(
                    Currency::fromRaw(sqlite3_column_int64(statement, column)));
            }
            if (storage == SQLITE_FLOAT) {
                return QVariant::fromValue(Currency::fromRaw(
                    qint64(std::nearbyint(sqlite3_column_double(statement, column)))));
            }
            break;
        case FieldType::DateTime:
            if (storage == SQLITE_TEXT) {
                const QDateTime value = dateTime(statement, column);
                if (value.isValid()) {
                    return QVariant(value);
                }
            }
            break;
        case FieldType::Variant:
            break;
    }
    return plain(statement, column, storage);
}

std::optional<QString> Reader::text(sqlite3_stmt* statement, int column) {
    if (sqlite3_column_type(statement, column) == SQLITE_NULL) {
        return std::nullopt;
    }
    return textOf(statement, column);
}

std::optional<QString> Reader::wholeNumberText(sqlite3_stmt* statement, int column) {
    if (sqlite3_column_type(statement, column) != SQLITE_INTEGER) {
        return std::nullopt;
    }
    return QString::number(int(sqlite3_column_int64(statement, column)));
}

QDateTime Reader::dateTime(sqlite3_stmt* statement, int column) {
    // Enough for every day of decades of invoices; texts with times of day may not all fit.
    constexpr std::size_t kKnownDates = 20000;
    const std::string_view text(
        reinterpret_cast<const char*>(sqlite3_column_text(statement, column)),
        std::size_t(sqlite3_column_bytes(statement, column)));
    const auto known = dates_.find(text);
    if (known != dates_.end()) {
        return known->second;
    }
    QDateTime value = parseDateTime(QString::fromUtf8(text.data(), qsizetype(text.size())));
    if (dates_.size() < kKnownDates) {
        dates_.emplace(text, value);
    }
    return value;
}

void bind(sqlite3_stmt* statement, int parameter, const QVariant& value, FieldType type) {
    if (!value.isValid()) {
        sqlite3_bind_null(statement, parameter);
        return;
    }
    if (type == FieldType::Currency || value.metaType() == QMetaType::fromType<Currency>()) {
        sqlite3_bind_int64(statement, parameter, value.value<Currency>().raw());
        return;
    }
    switch (value.typeId()) {
        case QMetaType::Bool:
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
        case QMetaType::Short:
        case QMetaType::UShort:
            sqlite3_bind_int64(statement, parameter, value.toLongLong());
            return;
        case QMetaType::Double:
        case QMetaType::Float:
            sqlite3_bind_double(statement, parameter, value.toDouble());
            return;
        case QMetaType::QDateTime:
            bindText(statement, parameter, dateTimeText(value.toDateTime()));
            return;
        case QMetaType::QByteArray: {
            const QByteArray data = value.toByteArray();
            sqlite3_bind_blob(statement, parameter, data.constData(), int(data.size()),
                              SQLITE_TRANSIENT);
            return;
        }
        case QMetaType::QString:
            bindText(statement, parameter, *static_cast<const QString*>(value.constData()));
            return;
        default:
            bindText(statement, parameter, value.toString());
    }
}

QDateTime parseDateTime(QStringView text) {
    // yyyy-MM-dd, optionally followed by a blank or "T" and HH:mm[:ss]
    if (text.size() < 10 || !digitsAt(text, {0, 1, 2, 3, 5, 6, 8, 9}) || text[4] != u'-' ||
        text[7] != u'-') {
        return QDateTime::fromString(text.toString(), Qt::ISODate);
    }
    const QDate date(twoDigits(text, 0) * 100 + twoDigits(text, 2), twoDigits(text, 5),
                     twoDigits(text, 8));
    QTime time(0, 0);
    if (text.size() >= 16 && (text[10] == u' ' || text[10] == u'T') &&
        digitsAt(text, {11, 12, 14, 15}) && text[13] == u':') {
        const bool seconds = text.size() >= 19 && text[16] == u':' && digitsAt(text, {17, 18});
        time = QTime(twoDigits(text, 11), twoDigits(text, 14), seconds ? twoDigits(text, 17) : 0);
    } else if (text.size() != 10) {
        return QDateTime::fromString(text.toString(), Qt::ISODate);
    }
    return QDateTime(date, time);
}

Columns Columns::of(sqlite3_stmt* statement) {
    Columns result;
    sqlite3* db = sqlite3_db_handle(statement);
    const int count = sqlite3_column_count(statement);
    for (int i = 0; i < count; ++i) {
        Field field;
        field.name = QString::fromUtf8(sqlite3_column_name(statement, i));
        const char* table = sqlite3_column_table_name(statement, i);
        const char* origin = sqlite3_column_origin_name(statement, i);
        const char* declared = sqlite3_column_decltype(statement, i);
        int primaryKey = 0;
        int autoIncrement = 0;
        if (table != nullptr && origin != nullptr) {
            sqlite3_table_column_metadata(db, sqlite3_column_database_name(statement, i), table,
                                          origin, nullptr, nullptr, nullptr, &primaryKey,
                                          &autoIncrement);
            field.table = QString::fromUtf8(table);
        }
        const bool rowidKey =
            primaryKey != 0 && declared != nullptr && qstricmp(declared, "INTEGER") == 0;
        const DeclaredType type = declaredType(declared, rowidKey);
        field.type = type.type;
        field.size = type.size;
        field.primaryKey = primaryKey != 0;
        field.autoIncrement = autoIncrement != 0;
        result.fields_.append(field);
        result.origins_.append(origin != nullptr ? QString::fromUtf8(origin) : QString());
    }
    return result;
}

int Columns::indexOf(const QString& name) const {
    const auto cached = lookups_.constFind(name);
    if (cached != lookups_.constEnd()) {
        return *cached;
    }
    const int index = find(name);
    lookups_.insert(name, index);
    return index;
}

int Columns::find(const QString& name) const {
    for (int i = 0; i < size(); ++i) {
        if (fields_[i].name.compare(name, Qt::CaseInsensitive) == 0) {
            return i;
        }
    }
    const qsizetype dot = name.lastIndexOf(u'.');
    if (dot <= 0) {
        return -1;
    }
    auto bare = [](QString part) {
        part = part.trimmed();
        if (part.startsWith(u'[') && part.endsWith(u']')) {
            part = part.mid(1, part.size() - 2);
        }
        return part;
    };
    const QString table = bare(name.left(dot));
    const QString column = bare(name.mid(dot + 1));
    for (int i = 0; i < size(); ++i) {
        if (fields_[i].table.compare(table, Qt::CaseInsensitive) == 0 &&
            (origins_[i].compare(column, Qt::CaseInsensitive) == 0 ||
             fields_[i].name.compare(column, Qt::CaseInsensitive) == 0)) {
            return i;
        }
    }
    return -1;
}

}  // namespace columns
