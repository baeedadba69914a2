#include "store/FieldConversion.h"

#include <QDateTime>
#include <cfloat>
#include <cmath>
#include <optional>

#include "base/Conversions.h"
#include "base/Currency.h"
#include "base/Regional.h"
#include "store/ColumnValues.h"
#include "store/Engine.h"

namespace fields {

namespace {

bool isCurrency(const QVariant& value) {
    return value.metaType() == QMetaType::fromType<Currency>();
}

QString shown(const QVariant& value) {
    if (isCurrency(value)) {
        return Regional::currencyNumberText(value.value<Currency>());
    }
    return value.toString();
}

Error mismatch(const QVariant& value, const Field& field) {
    return engine::error(Error::TypeMismatch,
                         QStringLiteral("Typen komen niet overeen: de waarde '%1' past niet "
                                        "in het veld %2.")
                             .arg(shown(value), field.name));
}

Error overflow(const QVariant& value, const Field& field) {
    return engine::error(Error::Overflow,
                         QStringLiteral("Overloop: de waarde '%1' is te groot voor het veld %2.")
                             .arg(shown(value), field.name));
}

bool isText(const QVariant& value) {
    return value.typeId() == QMetaType::QString;
}

// A whole number in plain digits, the text an import gives most numbers as. It reads the
// same under every regional notation, so it is read without the locale's parser.
std::optional<double> plainDigits(QStringView text) {
    constexpr qsizetype kExactDigits = 15;  // every whole number of 15 digits is a double
    if (text.isEmpty() || text.size() > kExactDigits) {
        return std::nullopt;
    }
    double number = 0;
    for (const QChar c : text) {
        if (c < u'0' || c > u'9') {
            return std::nullopt;
        }
        number = number * 10 + (c.unicode() - u'0');
    }
    return number;
}

// The number of a text in the regional notation; none when it is no number.
std::optional<double> numberOfText(const QString& text) {
    if (const std::optional<double> plain = plainDigits(text)) {
        return plain;
    }
    // Read once: asking first whether it is a number reads the text twice.
    try {
        return conv::toDouble(text);
    } catch (const Error&) {
        return std::nullopt;
    }
}

// The number a value stands for; none for texts that are no number, dates and the like.
std::optional<double> numberOf(const QVariant& value) {
    switch (value.typeId()) {
        case QMetaType::Bool:
            return value.toBool() ? -1.0 : 0.0;
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
        case QMetaType::Short:
        case QMetaType::UShort:
        case QMetaType::Double:
        case QMetaType::Float:
            return value.toDouble();
        case QMetaType::QString:
            return numberOfText(*static_cast<const QString*>(value.constData()));
        default:
            if (isCurrency(value)) {
                return value.value<Currency>().toDouble();
            }
            return std::nullopt;
    }
}

double requireNumber(const QVariant& value, const Field& field) {
    const std::optional<double> number = numberOf(value);
    if (!number) {
        throw mismatch(value, field);
    }
    return *number;
}

QVariant toBoolean(const QVariant& value, const Field& field) {
    if (isText(value)) {
        const QString text = value.toString().trimmed();
        for (const char* word : {"True", "Waar"}) {
            if (text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0) {
                return QVariant(true);
            }
        }
        for (const char* word : {"False", "Onwaar"}) {
            if (text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0) {
                return QVariant(false);
            }
        }
    }
    return QVariant(requireNumber(value, field) != 0);
}

QVariant toWholeNumber(const QVariant& value, const Field& field) {
    const double number = requireNumber(value, field);
    try {
        return QVariant(field.type == FieldType::Integer ? int(conv::toInteger(number))
                                                         : int(conv::toLong(number)));
    } catch (const Error&) {
        throw overflow(value, field);
    }
}

QVariant toSingle(const QVariant& value, const Field& field) {
    const double number = requireNumber(value, field);
    if (std::isfinite(number) && std::fabs(number) > FLT_MAX) {
        throw overflow(value, field);
    }
    return QVariant(float(number));
}

QVariant toCurrency(const QVariant& value, const Field& field) {
    if (isCurrency(value)) {
        return value;
    }
    const double number = requireNumber(value, field);
    try {
        return QVariant::fromValue(Currency::fromDouble(number));
    } catch (const Error&) {
        throw overflow(value, field);
    }
}

QDateTime dateFromText(const QString& text) {
    const QLocale& locale = Regional::locale();
    for (const QString& format :
         {Regional::shortDateFormat(), QStringLiteral("dd-MM-yyyy"), QStringLiteral("d-M-yyyy")}) {
        for (const QString& suffix : {QString(), QStringLiteral(" HH:mm:ss"),
                                      QStringLiteral(" H:mm:ss"), QStringLiteral(" H:mm")}) {
            const QDateTime value = locale.toDateTime(text, format + suffix);
            if (value.isValid()) {
                return value;
            }
        }
    }
    return columns::parseDateTime(text);
}

QVariant toDateTime(const QVariant& value, const Field& field) {
    QDateTime result;
    if (value.typeId() == QMetaType::QDateTime) {
        result = value.toDateTime();
    } else if (value.typeId() == QMetaType::QDate) {
        result = value.toDate().startOfDay();
    } else if (isText(value)) {
        result = dateFromText(value.toString().trimmed());
    }
    if (!result.isValid()) {
        throw mismatch(value, field);
    }
    return QVariant(result);
}

QVariant toText(const QVariant& value, const Field& field) {
    const QString text = Regional::valueText(value);
    if (field.size > 0 && text.size() > field.size) {
        throw engine::error(Error::FieldTooSmall,
                            QStringLiteral("Het veld is te klein om de gegevens te bevatten die "
                                           "u wilt toevoegen. Het veld %1 kan ten hoogste %2 "
                                           "tekens bevatten.")
                                .arg(field.name)
                                .arg(field.size));
    }
    return QVariant(text);
}

}  // namespace

QVariant convert(const QVariant& value, const Field& field) {
    if (!value.isValid()) {
        return QVariant();
    }
    switch (field.type) {
        case FieldType::Text:
            return toText(value, field);
        case FieldType::Boolean:
            return toBoolean(value, field);
        case FieldType::Integer:
        case FieldType::Long:
            return toWholeNumber(value, field);
        case FieldType::Single:
            return toSingle(value, field);
        case FieldType::Double:
            return QVariant(requireNumber(value, field));
        case FieldType::Currency:
            return toCurrency(value, field);
        case FieldType::DateTime:
            return toDateTime(value, field);
        case FieldType::Variant:
            break;
    }
    return value;
}

}  // namespace fields
