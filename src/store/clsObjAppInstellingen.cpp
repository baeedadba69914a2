#include "store/clsObjAppInstellingen.h"

#include <QFile>
#include <QFileInfo>

#include "store/clsDatabase.h"

bool clsObjAppInstellingen::DatabaseNietOpAlleenLezen() {
    const QString path = clsDatabase::DatabasePath();
    const QFileInfo info(path);
    if (!info.exists() || info.isDir()) {
        return false;
    }
    // A database copied from a read-only medium must become writable; when that fails the
    // first write reports it, so the outcome is not looked at here.
    QFile::setPermissions(path, QFile::permissions(path) | QFile::ReadOwner | QFile::WriteOwner |
                                    QFile::ReadUser | QFile::WriteUser);
    return true;
}

void clsObjAppInstellingen::AanpassenDatabase() {
    clsDatabase database;
    database.NieuweKolom("Artikel", "GeenVoorraad", 5, 1);
    database.NieuweKolom("Instellingen", "NoSound", 5, 1);
}
