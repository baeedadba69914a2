#pragma once

#include <QString>

// The fixed statement texts of the schema routines and of the direct stock update, built
// by plain concatenation (names are not quoted). They are kept apart from the routines
// that run them so their exact wording can be checked.
namespace sqltext {

QString textColumnLength(const QString& table, const QString& column, qint16 length);
// Kind 1 text, 2 number, 5 yes/no; any other kind gives an empty text: nothing to run.
QString newColumn(const QString& table, const QString& column, qint32 kind, qint16 length);
QString dropColumn(const QString& table, const QString& column);
QString newLookupTable(const QString& name);
// Sets the stock, or adds to it when optellen is true (a negative quantity subtracts).
QString stockUpdate(qint32 artikelId, qint32 aantal, bool optellen);

}  // namespace sqltext
