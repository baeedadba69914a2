#pragma once

#include <QMetaType>
#include <QString>
#include <compare>
#include <cstdint>

// The money type: the amount times 10000 in a signed 64-bit integer.
// Addition and subtraction are exact. Anything mixed with a double goes through
// double and comes back rounded to the nearest 1/10000, halves to even; nothing is
// ever rounded to whole cents. Overflow raises error 6.
class Currency {
public:
    static constexpr std::int64_t Scale = 10000;

    constexpr Currency() = default;
    static constexpr Currency fromRaw(std::int64_t scaled) { return Currency(scaled); }
    static Currency fromDouble(double value);  // halves to even; error 6 when out of range
    static Currency fromLong(std::int64_t whole);

    constexpr std::int64_t raw() const { return value_; }
    double toDouble() const;

    Currency operator+(Currency other) const;  // error 6 on overflow
    Currency operator-(Currency other) const;
    Currency operator-() const;
    Currency& operator+=(Currency other) { return *this = *this + other; }
    Currency& operator-=(Currency other) { return *this = *this - other; }
    Currency operator*(double factor) const;  // through double, rounded back

    constexpr auto operator<=>(const Currency&) const = default;
    constexpr bool isZero() const { return value_ == 0; }

    static Currency max() { return Currency(INT64_MAX); }
    static Currency min() { return Currency(INT64_MIN); }

private:
    constexpr explicit Currency(std::int64_t scaled) : value_(scaled) {}
    std::int64_t value_ = 0;
};

Q_DECLARE_METATYPE(Currency)
