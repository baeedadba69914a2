#include "store/modDatabase.h"

#include "base/ProgramFolder.h"
#include "store/StatementTexts.h"

QString gOdbcPad;
std::unique_ptr<Connection> gOdbcConnectie;

namespace {

QString odbcConnectieString;

}  // namespace

void UpdateVoorraad(qint32 artikelId, qint32 aantal, bool optellen) {
    if (!OpenOdbcConnectie()) {
        return;
    }
    gOdbcConnectie->execute(sqltext::stockUpdate(artikelId, aantal, optellen));
}

bool OpenOdbcConnectie() {
    try {
        if (!gOdbcConnectie || gOdbcConnectie->state() == Connection::Closed) {
            // A closed connection is replaced, not reopened: it may still name a file
            // that a restore has swapped underneath it.
            gOdbcConnectie = std::make_unique<Connection>();
            gOdbcConnectie->open(GeefOdbcConnectieString(), QString(), QString());
        }
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

QString GeefOdbcConnectieString() {
    if (gOdbcPad.isEmpty()) {
        // Always a separator, even after a folder that already ends in one.
        ZetOdbcPad(ProgramFolder::path() + "/daa.mdb");
    }
    return odbcConnectieString;
}

void ZetOdbcPad(const QString& pad) {
    gOdbcPad = pad;
    odbcConnectieString = BouwOdbcConnectieString();
}

QString BouwOdbcConnectieString() {
    return "DRIVER={Microsoft Access Driver (*.mdb)};DBQ=" + gOdbcPad + ";UID=sa;PWD=;";
}
