#pragma once

#include <QString>
#include <QStringList>

#include "store/jet/JetConversion.h"

// Brings an old Access db.daa over as a whole: converts it beside the target, checks the
// result, writes the lines set apart and a report beside the old file, keeps the file
// that is replaced, and only then gives the new database the target's name (flushed, then
// renamed, then the folder flushed). Until that rename the target is untouched: an Error
// or an interruption at any earlier moment leaves it as it was.
namespace jet {

struct MigrationResult {
    ConversionResult conversion;
    QString keptAs;      // where the replaced target was kept; empty when there was none
    QString orphanFile;  // the invoice lines set apart; empty when there were none
    QString reportFile;
    QStringList stockDifferences;  // per article where daa.mdb's stock differs
    QString stockFileKeptAs;       // the old daa.mdb, replaced by a link to the new db.daa
};

// Converts into a temporary file beside target and removes it again: nothing changes.
ConversionResult check(const QString& source, const QString& target,
                       const ProgressCallback& progress = {},
                       const QString& schema = programSchema());

MigrationResult migrate(const QString& source, const QString& target,
                        const ProgressCallback& progress = {},
                        const QString& schema = programSchema());

// Removes the temporary files a conversion into target left when it was killed.
void removeLeftovers(const QString& target);

// The number of invoices in a database of the current format; -1 when the file is none.
qint64 invoiceCount(const QString& database);

// The report written beside the old file.
QString reportText(const QString& source, const MigrationResult& result);

}  // namespace jet
