#pragma once

#include <QString>
#include <QVariant>

#include "base/Currency.h"
#include "printing/ReportModel.h"

namespace report {

// The amount format of every report, "€" #.##0,00: a literal euro sign, a blank, "." between
// thousands, "," before exactly two decimals; a negative amount starts with its minus sign
// ("-€ 12,50"). Halves of a cent round away from zero, as the format always has.
QString amountText(Currency amount);

// A bound value shown in a format; Null shows nothing.
QString formatValue(const QVariant& value, Format format);

}  // namespace report
