#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

// Converts an old Access (Jet) db.daa into a new database made from the program's schema:
// every row of the six tables with its key, money exact, Null kept apart from "", texts
// as Unicode. Invoice lines whose invoice is gone are set apart (the new database keeps
// lines only with their invoice). A value the new schema cannot hold stops the conversion
// with an Error naming the table, the row's key and the column: nothing is ever cut.
namespace jet {

struct TableCount {
    QString table;
    qint64 rows = 0;  // rows in the new database
};

struct ConversionResult {
    QList<TableCount> tables;     // in the order they were converted
    QStringList orphanHeader;     // the columns of the invoice lines set apart
    QList<QStringList> orphans;   // those lines, as text
    QHash<qint64, qint64> stock;  // Voorraad per ArtikelID, Null left out
};

// done of total rows; false stops the conversion (an Error with number 32755 follows).
using ProgressCallback = std::function<bool(qint64 done, qint64 total)>;

// The program's own schema, resources/schema.sql.
QString programSchema();

// The tables in the order they are converted: what invoices refer to comes first.
const QStringList& convertedTables();

// Writes the new database into target (an empty or absent file) from the Jet file at
// source, then reads it back and checks it: the row count of every table and the sums of
// Factuur.TotaalPrijs and ArtikelPerFactuur.TotaalPrijs must equal what was read. The
// target is complete and closed on return; on an Error it holds nothing of use.
ConversionResult convert(const QString& source, const QString& target,
                         const ProgressCallback& progress = {},
                         const QString& schema = programSchema());

// Voorraad per ArtikelID of the Artikel table of a Jet file (the old program's daa.mdb).
QHash<qint64, qint64> stockOf(const QString& jetFile);

}  // namespace jet
