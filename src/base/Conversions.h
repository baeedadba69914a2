#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <cstdint>

// The runtime conversions the whole program relies on, with their classic semantics.
namespace conv {

// Rounds to the nearest whole number, halves to even (2.5 -> 2, 3.5 -> 4, -2.5 -> -2).
double roundHalfEven(double value);

// CLng / CInt: round halves to even; error 6 (Overflow) outside the 32- or 16-bit range.
std::int32_t toLong(double value);
std::int16_t toInteger(double value);
std::int16_t toInteger(std::int64_t value);

// CDbl of a text: a number in the regional notation (decimal separator of the regional
// settings; grouping separators allowed, leading/trailing blanks ignored, a leading sign).
// Error 13 (Type mismatch) when the text is not a number.
double toDouble(const QString& text);

// IsNumeric: true when toDouble would succeed.
bool isNumeric(const QString& text);

// Val: the leading number of a text, read with "." as the decimal point whatever the
// region ("12abc" -> 12, "2.5x" -> 2.5, "abc" -> 0, " 7" -> 7).
double leadingNumber(const QString& text);

// Dates as "dd-mm-yyyy" text and back; an invalid text gives an invalid date.
QString toDateText(const QDate& date);
QDate fromDateText(const QString& text);

}  // namespace conv
