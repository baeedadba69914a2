#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <vector>

#include "ErrorOf.h"
#include "base/Currency.h"
#include "base/Error.h"

namespace {

struct RoundingCase {
    double value;
    std::int64_t raw;
};

class CurrencyRounding : public ::testing::TestWithParam<RoundingCase> {};

TEST_P(CurrencyRounding, RoundsToTheNearestTenThousandthHalvesToEven) {
    EXPECT_EQ(Currency::fromDouble(GetParam().value).raw(), GetParam().raw);
}

INSTANTIATE_TEST_SUITE_P(
    Halves, CurrencyRounding,
    ::testing::Values(RoundingCase{0.00005, 0},           // half, down to even 0
                      RoundingCase{0.00035, 4},           // half, up to even 4
                      RoundingCase{0.12355, 1236},        // half, up to even
                      RoundingCase{0.12345, 1234},        // half, down to even
                      RoundingCase{0.00025, 2},           // half, down to even 2
                      RoundingCase{-0.00035, -4},         // negative half, away from zero to even
                      RoundingCase{-0.00025, -2},         // negative half, toward zero to even
                      RoundingCase{1.23456, 12346},       // not a half: nearest
                      RoundingCase{-1.23454, -12345},     // not a half: nearest
                      RoundingCase{3.7035 * 0.9, 33332},  // 3.33315 -> 3.3332
                      RoundingCase{3.7035 * 0.1, 3704},   // 0.37035 -> 0.3704
                      RoundingCase{0.0, 0}));

TEST(Currency, AdditionAndSubtractionAreExact) {
    Currency sum;
    for (int i = 0; i < 10; ++i) {
        sum += Currency::fromDouble(0.1);
    }
    EXPECT_EQ(sum, Currency::fromLong(1));
    EXPECT_EQ((Currency::fromDouble(3.3332) + Currency::fromDouble(0.3704)).raw(), 37036);
    EXPECT_EQ((Currency::fromDouble(1.5) - Currency::fromDouble(2.25)).raw(), -7500);
    EXPECT_EQ((-Currency::fromDouble(2.5)).raw(), -25000);
}

TEST(Currency, MultiplicationGoesThroughDoubleAndRoundsBack) {
    EXPECT_EQ((Currency::fromDouble(1.2345) * 3).raw(), 37035);
    EXPECT_EQ((Currency::fromDouble(-10) * 0.21).raw(), -21000);
    EXPECT_DOUBLE_EQ(Currency::fromRaw(-12345).toDouble(), -1.2345);
}

TEST(Currency, TheLargestAmountsAreHeldAndOneMoreOverflows) {
    EXPECT_EQ(Currency::max().raw(), INT64_MAX);
    EXPECT_EQ(Currency::fromLong(922337203685477).raw(), 9223372036854770000);
    for (const auto& operation : std::vector<std::function<void()>>{
             [] { Currency::max() + Currency::fromRaw(1); },
             [] { Currency::min() - Currency::fromRaw(1); }, [] { -Currency::min(); },
             [] { Currency::fromLong(922337203685478); }, [] { Currency::fromDouble(1e15); },
             [] { Currency::fromDouble(-1e15); }, [] { Currency::fromDouble(std::nan("")); },
             [] { Currency::fromDouble(9e14) * 2.0; }}) {
        EXPECT_EQ(errorOf(operation), Error::Overflow);
    }
}

}  // namespace
