#include <gtest/gtest.h>

#include <QLocale>

#include "ErrorOf.h"
#include "base/Conversions.h"
#include "base/Error.h"
#include "base/Regional.h"

namespace {

TEST(Conversions, WholeNumbersRoundHalvesToEvenInBothDirections) {
    const std::pair<double, int> cases[] = {{0.5, 0},   {1.5, 2},    {2.5, 2},
                                            {3.5, 4},   {-0.5, 0},   {-1.5, -2},
                                            {-2.5, -2}, {2.4999, 2}, {2.5001, 3}};
    for (const auto& [value, expected] : cases) {
        SCOPED_TRACE(value);
        EXPECT_EQ(conv::toLong(value), expected);
        EXPECT_EQ(conv::toInteger(value), expected);
    }
}

TEST(Conversions, WholeNumbersOverflowOutsideTheirRange) {
    EXPECT_EQ(conv::toLong(2147483647.0), 2147483647);
    EXPECT_EQ(conv::toLong(-2147483648.0), -2147483648);
    EXPECT_EQ(conv::toLong(2147483647.4), 2147483647);
    EXPECT_EQ(conv::toInteger(32767.0), 32767);
    EXPECT_EQ(conv::toInteger(-32768.0), -32768);
    EXPECT_EQ(conv::toInteger(std::int64_t{-32768}), -32768);
    for (const auto& operation : std::vector<std::function<void()>>{
             [] { conv::toLong(2147483647.5); },  // rounds to 2^31
             [] { conv::toLong(-2147483649.0); }, [] { conv::toInteger(32767.5); },
             [] { conv::toInteger(-32769.0); }, [] { conv::toInteger(std::int64_t{32768}); },
             [] { conv::toLong(std::nan("")); }}) {
        EXPECT_EQ(errorOf(operation), Error::Overflow);
    }
}

struct NumberText {
    const char* locale;
    const char* text;
    double value;
};

class RegionalNumbers : public ::testing::TestWithParam<NumberText> {
protected:
    void TearDown() override { Regional::setLocaleForTests(QLocale::c()); }
};

TEST_P(RegionalNumbers, ReadTextWithTheRegionalDecimalSeparator) {
    Regional::setLocaleForTests(QLocale(QString::fromLatin1(GetParam().locale)));
    const QString text = QString::fromUtf8(GetParam().text);
    EXPECT_TRUE(conv::isNumeric(text));
    EXPECT_DOUBLE_EQ(conv::toDouble(text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    DutchAndEnglish, RegionalNumbers,
    ::testing::Values(NumberText{"nl_NL", "1,5", 1.5}, NumberText{"nl_NL", "1.234,56", 1234.56},
                      NumberText{"nl_NL", "-12,25", -12.25}, NumberText{"nl_NL", " 7 ", 7},
                      NumberText{"en_US", "1.5", 1.5}, NumberText{"en_US", "1,234.56", 1234.56},
                      NumberText{"en_US", "-0.25", -0.25}));

TEST(Conversions, TextThatIsNotANumberIsATypeMismatch) {
    Regional::setLocaleForTests(QLocale(QLocale::Dutch, QLocale::Netherlands));
    for (const char* text : {"", "   ", "abc", "12abc", "1,2,3", "€ 5"}) {
        SCOPED_TRACE(text);
        EXPECT_FALSE(conv::isNumeric(QString::fromUtf8(text)));
        EXPECT_EQ(errorOf([&] { conv::toDouble(QString::fromUtf8(text)); }), Error::TypeMismatch);
    }
    Regional::setLocaleForTests(QLocale::c());
}

TEST(Conversions, LeadingNumberReadsWhatComesFirst) {
    const std::pair<const char*, double> cases[] = {
        {"12abc", 12}, {"abc", 0},     {"", 0},     {" 7", 7}, {"2.5x", 2.5},
        {"-3", -3},    {"4.1.2", 4.1}, {"1 2", 12}, {"0", 0},  {"-", 0}};
    for (const auto& [text, expected] : cases) {
        SCOPED_TRACE(text);
        EXPECT_DOUBLE_EQ(conv::leadingNumber(QString::fromUtf8(text)), expected);
    }
}

TEST(Conversions, DatesGoToAndFromDayMonthYearText) {
    EXPECT_EQ(conv::toDateText(QDate(2026, 11, 5)), QStringLiteral("05-11-2026"));
    EXPECT_EQ(conv::fromDateText(QStringLiteral("29-02-2024")), QDate(2024, 2, 29));
    EXPECT_FALSE(conv::fromDateText(QStringLiteral("31-02-2024")).isValid());
    EXPECT_FALSE(conv::fromDateText(QStringLiteral("2024-02-01")).isValid());
}

}  // namespace
