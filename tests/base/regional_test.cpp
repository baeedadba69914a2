#include <gtest/gtest.h>

#include <QLocale>

#include "base/Regional.h"

namespace {

class RegionalDutch : public ::testing::Test {
protected:
    void SetUp() override {
        Regional::setLocaleForTests(QLocale(QLocale::Dutch, QLocale::Netherlands));
    }
    void TearDown() override { Regional::setLocaleForTests(QLocale::c()); }
};

TEST_F(RegionalDutch, PlainNumbersUseTheDecimalCommaWithoutGrouping) {
    EXPECT_EQ(Regional::numberText(1234.5), QStringLiteral("1234,5"));
    EXPECT_EQ(Regional::numberText(-0.25), QStringLiteral("-0,25"));
    EXPECT_EQ(Regional::numberText(21), QStringLiteral("21"));
}

TEST_F(RegionalDutch, AmountsAsPlainTextAreExactToFourDecimals) {
    EXPECT_EQ(Regional::currencyNumberText(Currency::fromRaw(12345678)),
              QStringLiteral("1234,5678"));
    EXPECT_EQ(Regional::currencyNumberText(Currency::fromRaw(-15000)), QStringLiteral("-1,5"));
    EXPECT_EQ(Regional::currencyNumberText(Currency::fromRaw(20000)), QStringLiteral("2"));
    EXPECT_EQ(Regional::currencyNumberText(Currency::min()),
              QStringLiteral("-922337203685477,5808"));
}

TEST_F(RegionalDutch, AmountsAsCurrencyHaveSignGroupingAndTwoDecimals) {
    const std::pair<Currency, QString> cases[] = {
        {Currency::fromDouble(1234.5), QStringLiteral("€ 1.234,50")},
        {Currency::fromDouble(-1234.5678), QStringLiteral("€ -1.234,57")},
        {Currency::fromDouble(0.125), QStringLiteral("€ 0,13")},
        {Currency::fromDouble(-0.005), QStringLiteral("€ -0,01")},
        {Currency(), QStringLiteral("€ 0,00")},
        // Less than half a cent below zero shows no sign before the zero.
        {Currency::fromRaw(-49), QStringLiteral("€ 0,00")},
        {Currency::fromDouble(999.995), QStringLiteral("€ 1.000,00")},
        {Currency::fromDouble(100), QStringLiteral("€ 100,00")},
        {Currency::fromDouble(1234567.891), QStringLiteral("€ 1.234.567,89")},
        // Exact at the ends of the range, where a floating-point number has lost the cents.
        {Currency::max(), QStringLiteral("€ 922.337.203.685.477,58")},
        {Currency::min(), QStringLiteral("€ -922.337.203.685.477,58")},
    };
    for (const auto& [amount, text] : cases) {
        EXPECT_EQ(Regional::currencyText(amount), text) << amount.raw();
    }
}

TEST_F(RegionalDutch, DatesShowTheirTimeOnlyWhenTheyHaveOne) {
    EXPECT_EQ(Regional::dateText(QDateTime(QDate(2026, 1, 2), QTime(0, 0))),
              QStringLiteral("02-01-2026"));
    EXPECT_EQ(Regional::dateText(QDateTime(QDate(2026, 1, 2), QTime(9, 5, 7))),
              QStringLiteral("02-01-2026 09:05:07"));
}

TEST(Regional, TheCLocaleFallsBackToDutch) {
    if (QLocale::system().language() != QLocale::C) {
        GTEST_SKIP() << "the system runs a real locale";
    }
    Regional::setLocaleForTests(QLocale::c());
    EXPECT_EQ(Regional::locale().language(), QLocale::Dutch);
    EXPECT_EQ(Regional::decimalSeparator(), QChar(u','));
}

}  // namespace

// Export rows and text fields show every value in the same plain regional text.
TEST_F(RegionalDutch, EveryKindOfValueHasOnePlainText) {
    const std::pair<QVariant, QString> cases[] = {
        {QVariant(), ""},
        {QVariant(QMetaType::fromType<QString>()), ""},
        {QString("tekst"), "tekst"},
        {true, "True"},
        {false, "False"},
        {qint64(-42), "-42"},
        {2.5, "2,5"},
        {QVariant::fromValue(Currency::fromRaw(12345)), "1,2345"},
        {QDateTime(QDate(2024, 3, 7), QTime(0, 0)), "07-03-2024"},
        {QDate(2024, 12, 31), "31-12-2024"},
        {QByteArray("bytes"), "bytes"},
    };
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(Regional::valueText(value), text) << value.typeName();
    }
}

TEST_F(RegionalDutch, AmountsInTheFormOfTwoDecimalsRoundHalvesAwayFromZero) {
    const std::pair<std::int64_t, QString> cases[] = {
        {0, "0,00"},  {125000, "12,50"}, {12345678, "1234,57"}, {-12345678, "-1234,57"},
        {50, "0,01"}, {49, "0,00"},
    };
    for (const auto& [raw, text] : cases) {
        EXPECT_EQ(Regional::amountText(Currency::fromRaw(raw)), text) << raw;
    }
}
