#include "base/Currency.h"

#include <cmath>
#include <limits>

#include "base/Error.h"

namespace {

const QString kSource = QStringLiteral("Currency");

// 2^63 is exactly representable; anything at or beyond it cannot be held.
constexpr double kLimit = 9223372036854775808.0;

std::int64_t checkedScaled(double scaled) {
    if (std::isnan(scaled) || scaled >= kLimit || scaled < -kLimit) {
        throw Error::overflow(kSource);
    }
    return static_cast<std::int64_t>(scaled);
}

}  // namespace

Currency Currency::fromDouble(double value) {
    // nearbyint rounds in the default mode: to nearest, halves to even.
    return Currency(checkedScaled(std::nearbyint(value * Scale)));
}

Currency Currency::fromLong(std::int64_t whole) {
    std::int64_t scaled = 0;
    if (__builtin_mul_overflow(whole, Scale, &scaled)) {
        throw Error::overflow(kSource);
    }
    return Currency(scaled);
}

double Currency::toDouble() const {
    return static_cast<double>(value_) / Scale;
}

Currency Currency::operator+(Currency other) const {
    std::int64_t sum = 0;
    if (__builtin_add_overflow(value_, other.value_, &sum)) {
        throw Error::overflow(kSource);
    }
    return Currency(sum);
}

Currency Currency::operator-(Currency other) const {
    std::int64_t difference = 0;
    if (__builtin_sub_overflow(value_, other.value_, &difference)) {
        throw Error::overflow(kSource);
    }
    return Currency(difference);
}

Currency Currency::operator-() const {
    if (value_ == std::numeric_limits<std::int64_t>::min()) {
        throw Error::overflow(kSource);
    }
    return Currency(-value_);
}

Currency Currency::operator*(double factor) const {
    return fromDouble(toDouble() * factor);
}
