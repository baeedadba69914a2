#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>
#include <QVariant>

#include "base/Currency.h"

// The user's regional settings: the system locale, or Dutch (nl_NL) when the system
// runs the C/POSIX locale. Every number, amount and date shown, exported or imported
// goes through here.
class Regional {
public:
    static const QLocale& locale();
    static void setLocaleForTests(const QLocale& locale);  // restores the default when C

    static QChar decimalSeparator();
    static QString shortDateFormat();

    // The plain default text of a value: no grouping, no currency sign, the regional
    // decimal separator ("1234,5"); dates in the short date form, with the time only
    // where there is one.
    static QString numberText(double value);
    static QString currencyNumberText(const Currency& amount);
    static QString dateText(const QDateTime& value);
    // Any value as that plain default text: Null as an empty text, yes/no as
    // "True"/"False", amounts without their sign, texts as they are.
    static QString valueText(const QVariant& value);

    // An amount in the form "0.00": two decimals with the regional separator, no grouping,
    // no sign ("1234,50").
    static QString amountText(const Currency& amount);
    // A money amount as the regional currency format: sign, grouping and two decimals
    // ("€ 1.234,56", "€ -1.234,56" in Dutch).
    static QString currencyText(const Currency& amount);
};
