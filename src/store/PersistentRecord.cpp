#include "store/PersistentRecord.h"

#include "base/Conversions.h"
#include "base/Error.h"

namespace persist {

namespace {

bool isType(const QVariant& value, QMetaType::Type type) {
    return value.metaType().id() == type;
}

bool isCurrency(const QVariant& value) {
    return value.metaType() == QMetaType::fromType<Currency>();
}

// The value as a number, the way the classic runtime reads one: True is -1, texts in the
// regional notation; anything else is a type mismatch.
double number(const QVariant& value) {
    switch (value.metaType().id()) {
        case QMetaType::Bool:
            return value.toBool() ? -1 : 0;
        case QMetaType::Int:
        case QMetaType::LongLong:
        case QMetaType::Double:
        case QMetaType::Float:
            return value.toDouble();
        case QMetaType::QString:
            return conv::toDouble(value.toString());
        default:
            if (isCurrency(value)) {
                return value.value<Currency>().toDouble();
            }
            throw Error::typeMismatch(QStringLiteral("Record"));
    }
}

}  // namespace

QDateTime zeroDate() {
    // Made once: building a local date asks the system for its time zone.
    static const QDateTime zero(QDate(1899, 12, 30), QTime(0, 0));
    return zero;
}

QString toText(std::optional<QString> value, ReadRule rule) {
    if (!value) {
        return rule == ReadRule::NullAsZeroText ? QStringLiteral("0") : QString();
    }
    return std::move(*value);
}

qint32 toLong(const QVariant& value) {
    if (value.isNull()) {
        return 0;
    }
    if (isType(value, QMetaType::Int)) {
        return value.toInt();
    }
    return conv::toLong(number(value));
}

qint16 toInteger(const QVariant& value, ReadRule rule) {
    if (rule == ReadRule::OneWhenTrue) {
        return toBoolean(value) ? 1 : 0;
    }
    if (value.isNull()) {
        return 0;
    }
    if (isType(value, QMetaType::Int) || isType(value, QMetaType::LongLong)) {
        return conv::toInteger(static_cast<std::int64_t>(value.toLongLong()));
    }
    return conv::toInteger(number(value));
}

bool toBoolean(const QVariant& value) {
    if (value.isNull()) {
        return false;
    }
    if (isType(value, QMetaType::Bool)) {
        return value.toBool();
    }
    return number(value) != 0;
}

double toDouble(const QVariant& value) {
    if (value.isNull()) {
        return 0;
    }
    if (isType(value, QMetaType::Double)) {
        return value.toDouble();
    }
    return number(value);
}

float toSingle(const QVariant& value) {
    if (value.isNull()) {
        return 0;
    }
    if (isType(value, QMetaType::Float)) {
        return value.toFloat();
    }
    return static_cast<float>(number(value));
}

Currency toCurrency(const QVariant& value) {
    if (value.isNull()) {
        return Currency();
    }
    if (isCurrency(value)) {
        return value.value<Currency>();
    }
    return Currency::fromDouble(number(value));
}

QDateTime toDate(const QVariant& value, ReadRule rule) {
    if (value.isNull()) {
        return rule == ReadRule::NullAsNow ? QDateTime::currentDateTime() : zeroDate();
    }
    if (isType(value, QMetaType::QDateTime)) {
        return value.toDateTime();
    }
    if (isType(value, QMetaType::QDate)) {
        return value.toDate().startOfDay();
    }
    const QDateTime parsed = QDateTime::fromString(value.toString(), Qt::ISODate);
    if (!parsed.isValid()) {
        throw Error::typeMismatch(QStringLiteral("Record"));
    }
    return parsed;
}

int requiredFieldIndex(const Recordset& set, const QString& name) {
    const int index = set.fieldIndex(name);
    if (index < 0) {
        throw Error(Error::ItemNotFound, QStringLiteral("Record"),
                    "Kan item " + name +
                        " niet vinden in de verzameling die overeenkomt met de gevraagde naam "
                        "of het gevraagde rangnummer.");
    }
    return index;
}

}  // namespace persist
