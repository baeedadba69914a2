#include "printing/modInstellingen.h"

#include "base/Error.h"

clsObjInstellingen huidigeInstellingen() {
    const QList<clsObjInstellingen> rows = clsObjInstellingen().Lijst(QString());
    if (rows.isEmpty()) {
        throw Error::subscriptOutOfRange(QStringLiteral("Instellingen"));
    }
    return rows.first();
}
