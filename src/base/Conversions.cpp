#include "base/Conversions.h"

#include <cmath>
#include <limits>

#include "base/Error.h"
#include "base/Regional.h"

namespace conv {

namespace {

const QString kSource = QStringLiteral("Conversie");

template <typename T>
T roundedInRange(double value) {
    const double rounded = roundHalfEven(value);
    if (std::isnan(rounded) || rounded < std::numeric_limits<T>::min() ||
        rounded > std::numeric_limits<T>::max()) {
        throw Error::overflow(kSource);
    }
    return static_cast<T>(rounded);
}

// Reads a number in the regional notation: optional sign, digits with optional grouping
// separators, one decimal separator, an optional exponent. Blanks around it are allowed.
bool parseRegional(const QString& text, double& result) {
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty()) {
        return false;
    }
    const QLocale& locale = Regional::locale();
    bool ok = false;
    result = locale.toDouble(trimmed, &ok);
    if (ok) {
        return true;
    }
    // A leading "+" or a value without grouping in odd places: try the plain C form only
    // when the regional decimal separator is the point, so "1,5" never reads as 15.
    if (locale.decimalPoint() == QStringLiteral(".")) {
        result = QLocale::c().toDouble(trimmed, &ok);
    }
    return ok;
}

}  // namespace

double roundHalfEven(double value) {
    return std::nearbyint(value);
}

std::int32_t toLong(double value) {
    return roundedInRange<std::int32_t>(value);
}

std::int16_t toInteger(double value) {
    return roundedInRange<std::int16_t>(value);
}

std::int16_t toInteger(std::int64_t value) {
    if (value < std::numeric_limits<std::int16_t>::min() ||
        value > std::numeric_limits<std::int16_t>::max()) {
        throw Error::overflow(kSource);
    }
    return static_cast<std::int16_t>(value);
}

double toDouble(const QString& text) {
    double result = 0;
    if (!parseRegional(text, result)) {
        throw Error::typeMismatch(kSource);
    }
    return result;
}

bool isNumeric(const QString& text) {
    double ignored = 0;
    return parseRegional(text, ignored);
}

double leadingNumber(const QString& text) {
    // Val skips blanks anywhere in the number and stops at the first other character.
    QString number;
    bool seenPoint = false;
    bool seenDigit = false;
    for (const QChar c : text) {
        if (c == u' ' || c == u'\t') {
            continue;
        }
        if ((c == u'-' || c == u'+') && number.isEmpty()) {
            number.append(c);
        } else if (c.isDigit() && c.unicode() < 128) {
            number.append(c);
            seenDigit = true;
        } else if (c == u'.' && !seenPoint) {
            number.append(c);
            seenPoint = true;
        } else {
            break;
        }
    }
    if (!seenDigit) {
        return 0;
    }
    return QLocale::c().toDouble(number);
}

QString toDateText(const QDate& date) {
    return date.toString(QStringLiteral("dd-MM-yyyy"));
}

QDate fromDateText(const QString& text) {
    return QDate::fromString(text.trimmed(), QStringLiteral("dd-MM-yyyy"));
}

}  // namespace conv
