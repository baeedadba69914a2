#include "printing/ValueFormat.h"

#include <QDateTime>

#include "base/Regional.h"

namespace report {

namespace {

// Groups of three digits from the right, joined by ".".
QString groupedWhole(quint64 whole) {
    QString digits = QString::number(whole);
    for (qsizetype at = digits.size() - 3; at > 0; at -= 3) {
        digits.insert(at, u'.');
    }
    return digits;
}

Currency toCurrency(const QVariant& value) {
    if (value.canConvert<Currency>() && value.userType() == qMetaTypeId<Currency>()) {
        return value.value<Currency>();
    }
    return Currency::fromDouble(value.toDouble());
}

QString numberText(double value) {
    QString text = QString::number(value, 'f', 2);
    while (text.contains(u'.') && (text.endsWith(u'0') || text.endsWith(u'.'))) {
        text.chop(1);
    }
    if (text == QLatin1String("-0")) {
        text = QStringLiteral("0");
    }
    return text.replace(u'.', u',');
}

}  // namespace

QString amountText(Currency amount) {
    const std::int64_t raw = amount.raw();
    // The raw value is the amount times 10000: cents are raw / 100, halves away from zero.
    const quint64 magnitude = raw < 0 ? quint64(0) - quint64(raw) : quint64(raw);
    const quint64 cents = (magnitude + 50) / 100;
    const QString text = QStringLiteral("€ ") + groupedWhole(cents / 100) + u',' +
                         QStringLiteral("%1").arg(cents % 100, 2, 10, QChar(u'0'));
    return raw < 0 && cents > 0 ? u'-' + text : text;
}

QString formatValue(const QVariant& value, Format format) {
    if (!value.isValid() || value.isNull()) {
        return QString();
    }
    switch (format) {
        case Format::Amount:
            return amountText(toCurrency(value));
        case Format::Number:
            return numberText(value.toDouble());
        case Format::Percent:
            return numberText(value.toDouble()) + u'%';
        case Format::Date:
            return value.toDateTime().date().toString(QStringLiteral("dd-MM-yyyy"));
        case Format::Text:
            break;
    }
    switch (value.userType()) {
        case QMetaType::Double:
        case QMetaType::Float:
            return Regional::numberText(value.toDouble());
        case QMetaType::QDateTime:
            return Regional::dateText(value.toDateTime());
        case QMetaType::Bool:
            return value.toBool() ? QStringLiteral("Waar") : QStringLiteral("Onwaar");
        default:
            if (value.userType() == qMetaTypeId<Currency>()) {
                return Regional::currencyNumberText(value.value<Currency>());
            }
            return value.toString();
    }
}

}  // namespace report
