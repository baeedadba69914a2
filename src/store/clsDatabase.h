#pragma once

#include <QString>
#include <memory>

#include "store/Connection.h"
#include "store/clsPersistenceClass.h"

// The one process-wide connection to db.daa, opened on first use, never closed by the
// program (only a restore closes and reopens it).
extern std::unique_ptr<Connection> gConnectie;

// Generic record access and the schema routines. Short-lived: the record classes make
// one per operation; all of them work on gConnectie.
class clsDatabase {
public:
    clsDatabase();

    void NieuweInstance(clsPersistenceClass& record);
    void retrieveInstance(clsPersistenceClass& record);
    clsPersistenceClass::Collection retrieveMultiple(const QString& filter,
                                                     const clsPersistenceClass& record);
    void DeleteInstance(clsPersistenceClass& record);
    void UpdateInstance(clsPersistenceClass& record);
    std::unique_ptr<Recordset> ExecuteQuery(const QString& sql);
    // The forward-only read set of a select text, on the connection opened when needed.
    std::unique_ptr<Recordset> openReadSet(const QString& sql);
    void SluitConnectie();
    void SluitDBConnectie();
    void GeefVersie();
    void MaakConnectie();
    void ZetTekstKolomLengte(const QString& table, const QString& column, qint16 length);
    void NieuweKolom(const QString& table, const QString& column, qint32 kind, qint16 length);
    void VerwijderKolom(const QString& table, const QString& column);
    void NieuweTabel(const QString& name);

    const QString& connectionString() const { return connectionString_; }

    // The program folder + separator (unless it ends in one) + "db.daa".
    static QString DatabasePath();

private:
    void runIgnoringErrors(const QString& sql);

    QString connectionString_;
};

// Closes both connections (db.daa and daa.mdb) so the file can be replaced; the next
// database operation opens them again.
void closeSharedConnections();
