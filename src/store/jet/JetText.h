#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include "store/jet/JetReader.h"

// Values of an old file as text, for the lines set apart and the report.
namespace jet {

// An amount times 10000 as exact text with four decimals and a point: "-12.3400".
QString moneyText(qint64 scaled);

// A cell as text: Null as nothing, money as moneyText, yes/no as 1 or 0, a real as the
// shortest text that reads back as the same number.
QString valueText(const Column& column, const Value& value);

// One line of a ";"-separated file with CR LF; a field holding ";", a quote or a line
// break is quoted, its quotes doubled.
QByteArray csvLine(const QStringList& fields);

}  // namespace jet
