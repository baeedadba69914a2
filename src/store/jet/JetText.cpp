#include "store/jet/JetText.h"

#include <QLocale>

namespace jet {

QString moneyText(qint64 scaled) {
    const bool negative = scaled < 0;
    // Through unsigned so that the most negative amount has a magnitude too.
    const quint64 magnitude = negative ? 0 - quint64(scaled) : quint64(scaled);
    return QStringLiteral("%1%2.%3")
        .arg(negative ? QStringLiteral("-") : QString())
        .arg(magnitude / 10000)
        .arg(magnitude % 10000, 4, 10, QLatin1Char('0'));
}

QString valueText(const Column& column, const Value& value) {
    if (value.isNull) {
        return QString();
    }
    switch (column.kind) {
        case ColumnKind::Money:
            return moneyText(value.whole);
        case ColumnKind::Single:
        case ColumnKind::Double:
            return QString::number(value.real, 'g', QLocale::FloatingPointShortest);
        case ColumnKind::Boolean:
        case ColumnKind::Byte:
        case ColumnKind::Integer:
        case ColumnKind::Long:
            return QString::number(value.whole);
        default:
            return value.text;
    }
}

QByteArray csvLine(const QStringList& fields) {
    QStringList quoted;
    for (QString field : fields) {
        if (field.contains(QLatin1Char(';')) || field.contains(QLatin1Char('"')) ||
            field.contains(QLatin1Char('\n')) || field.contains(QLatin1Char('\r'))) {
            field.replace(QLatin1Char('"'), QStringLiteral("\"\""));
            field = QLatin1Char('"') + field + QLatin1Char('"');
        }
        quoted << field;
    }
    return quoted.join(QLatin1Char(';')).toUtf8() + "\r\n";
}

}  // namespace jet
