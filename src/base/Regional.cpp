#include "base/Regional.h"

#include <optional>

namespace {

QLocale defaultLocale() {
    const QLocale system = QLocale::system();
    if (system.language() == QLocale::C) {
        return QLocale(QLocale::Dutch, QLocale::Netherlands);
    }
    return system;
}

std::optional<QLocale>& current() {
    static std::optional<QLocale> locale;
    return locale;
}

QLocale plainNumbers(const QLocale& base) {
    QLocale locale = base;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale;
}

}  // namespace

const QLocale& Regional::locale() {
    if (!current()) {
        current() = defaultLocale();
    }
    return *current();
}

void Regional::setLocaleForTests(const QLocale& locale) {
    current() = locale.language() == QLocale::C ? defaultLocale() : locale;
}

QChar Regional::decimalSeparator() {
    return locale().decimalPoint().at(0);
}

QString Regional::shortDateFormat() {
    return locale().dateFormat(QLocale::ShortFormat);
}

QString Regional::numberText(double value) {
    return plainNumbers(locale()).toString(value, 'g', 15);
}

QString Regional::currencyNumberText(const Currency& amount) {
    // Exact, from the scaled integer: up to four decimals, trailing zeros dropped.
    const std::int64_t raw = amount.raw();
    const bool negative = raw < 0;
    const quint64 magnitude = negative ? 0 - static_cast<quint64>(raw) : static_cast<quint64>(raw);
    QString text = QString::number(magnitude / Currency::Scale);
    QString fraction = QStringLiteral("%1").arg(magnitude % Currency::Scale, 4, 10, QChar(u'0'));
    while (fraction.endsWith(u'0')) {
        fraction.chop(1);
    }
    if (!fraction.isEmpty()) {
        text += decimalSeparator() + fraction;
    }
    return negative ? QStringLiteral("-") + text : text;
}

QString Regional::dateText(const QDateTime& value) {
    QString text = locale().toString(value.date(), shortDateFormat());
    if (value.time() != QTime(0, 0)) {
        text += u' ' + value.time().toString(QStringLiteral("HH:mm:ss"));
    }
    return text;
}

namespace {

// The amount's size in whole cents, halves away from zero, from the exact amount.
quint64 wholeCents(const Currency& amount) {
    const std::int64_t raw = amount.raw();
    const quint64 magnitude = raw < 0 ? 0 - static_cast<quint64>(raw) : static_cast<quint64>(raw);
    return (magnitude + 50) / 100;
}

double roundedToCents(const Currency& amount) {
    const double cents = static_cast<double>(wholeCents(amount)) / 100.0;
    return amount.raw() < 0 ? -cents : cents;
}

}  // namespace

QString Regional::amountText(const Currency& amount) {
    return plainNumbers(locale()).toString(roundedToCents(amount), 'f', 2);
}

QString Regional::currencyText(const Currency& amount) {
    const QLocale& regional = locale();
    if (regional.language() != QLocale::Dutch) {
        return regional.toCurrencyString(roundedToCents(amount), regional.currencySymbol(), 2);
    }
    // The Dutch form of the desktop's regional settings: "€ 1.234,56", "€ -1.234,56". Made
    // from the whole cents in one buffer, without a detour through a floating-point number
    // and its conversion to text: a list of every invoice shows one amount per invoice.
    const quint64 cents = wholeCents(amount);
    const QString whole = QString::number(cents / 100);
    const QString group = regional.groupSeparator();
    QString text;
    text.reserve(whole.size() * (1 + group.size()) + 8);
    text += regional.currencySymbol();
    text += u' ';
    if (amount.raw() < 0 && cents > 0) {
        text += regional.negativeSign();
    }
    for (qsizetype i = 0; i < whole.size(); ++i) {
        if (i > 0 && (whole.size() - i) % 3 == 0) {
            text += group;
        }
        text += whole[i];
    }
    text += regional.decimalPoint();
    text += QChar(u'0' + int(cents % 100 / 10));
    text += QChar(u'0' + int(cents % 10));
    return text;
}

QString Regional::valueText(const QVariant& value) {
    if (value.isNull()) {
        return QString();
    }
    switch (value.typeId()) {
        case QMetaType::QString:
            return *static_cast<const QString*>(value.constData());
        case QMetaType::Bool:
            return value.toBool() ? QStringLiteral("True") : QStringLiteral("False");
        case QMetaType::Float:
        case QMetaType::Double:
            return numberText(value.toDouble());
        case QMetaType::QDateTime:
            return dateText(value.toDateTime());
        case QMetaType::QDate:
            return dateText(value.toDate().startOfDay());
        case QMetaType::QByteArray:
            return QString::fromUtf8(value.toByteArray());
        default:
            if (value.metaType() == QMetaType::fromType<Currency>()) {
                return currencyNumberText(value.value<Currency>());
            }
            return value.toString();
    }
}
