#include "store/clsDatabase.h"

#include "base/Error.h"
#include "base/Paths.h"
#include "base/ProgramFolder.h"
#include "base/UiService.h"
#include "store/Recordset.h"
#include "store/StatementTexts.h"
#include "store/modDatabase.h"

std::unique_ptr<Connection> gConnectie;

namespace {

// Runs a write on its own transaction; whatever goes wrong is rolled back and handed to
// the caller exactly as it was raised.
template <class Write>
void inTransaction(Write write) {
    gConnectie->beginTrans();
    try {
        write();
        gConnectie->commitTrans();
    } catch (...) {
        try {
            gConnectie->rollbackTrans();
        } catch (...) {
            // The original failure is the one the user must hear about.
        }
        throw;
    }
}

}  // namespace

clsDatabase::clsDatabase()
    : connectionString_("Data Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + DatabasePath() +
                        ";Persist Security Info=False") {}

QString clsDatabase::DatabasePath() {
    return paths::withSeparator(ProgramFolder::path()) + "db.daa";
}

void clsDatabase::NieuweInstance(clsPersistenceClass& record) {
    MaakConnectie();
    auto set = gConnectie->openUpdatableSet(record.GetSelectClause());
    set->addNew();
    record.SetPersistentData(*set);
    inTransaction([&] { set->update(); });
    const QString keyName = record.GetIDNaam();
    if (!keyName.isEmpty()) {
        record.SetID(set->value(keyName).toInt());
    }
}

void clsDatabase::retrieveInstance(clsPersistenceClass& record) {
    auto set = openReadSet(record.GetSelectClause());
    record.CopyData(*set);
}

clsPersistenceClass::Collection clsDatabase::retrieveMultiple(const QString& filter,
                                                              const clsPersistenceClass& record) {
    auto set = openReadSet(record.GetSelectClauseWithFilter(filter));
    clsPersistenceClass::Collection collection;
    record.CopyMultiple(*set, collection);
    return collection;
}

std::unique_ptr<Recordset> clsDatabase::openReadSet(const QString& sql) {
    MaakConnectie();
    return gConnectie->openReadSet(sql);
}

void clsDatabase::DeleteInstance(clsPersistenceClass& record) {
    MaakConnectie();
    auto set = gConnectie->openUpdatableSet(record.GetSelectClause());
    record.SetPersistentData(*set);
    inTransaction([&] { set->deleteCurrent(); });
}

void clsDatabase::UpdateInstance(clsPersistenceClass& record) {
    MaakConnectie();
    auto set = gConnectie->openUpdatableSet(record.GetSelectClause());
    record.SetPersistentData(*set);
    inTransaction([&] { set->update(); });
}

std::unique_ptr<Recordset> clsDatabase::ExecuteQuery(const QString& sql) {
    MaakConnectie();
    return gConnectie->openUpdatableSet(sql);
}

void clsDatabase::SluitConnectie() {}

void clsDatabase::SluitDBConnectie() {}

void clsDatabase::GeefVersie() {}

void clsDatabase::MaakConnectie() {
    try {
        if (!gConnectie) {
            gConnectie = std::make_unique<Connection>();
            gConnectie->setProvider("MSDataShape");
        }
        if (gConnectie->state() == Connection::Closed) {
            gConnectie->open(connectionString_, QString(), QString());
        }
    } catch (const Error& error) {
        // The caller carries on and fails at its own first use of the closed connection.
        ui::message("Error " + QString::number(error.number()) + " (" + error.description() +
                    ") in procedure MaakConnectie of Class Module clsDatabase");
    }
}

void clsDatabase::ZetTekstKolomLengte(const QString& table, const QString& column, qint16 length) {
    MaakConnectie();
    runIgnoringErrors(sqltext::textColumnLength(table, column, length));
}

void clsDatabase::NieuweKolom(const QString& table, const QString& column, qint32 kind,
                              qint16 length) {
    MaakConnectie();
    const QString sql = sqltext::newColumn(table, column, kind, length);
    if (!sql.isEmpty()) {
        runIgnoringErrors(sql);
    }
}

void clsDatabase::VerwijderKolom(const QString& table, const QString& column) {
    MaakConnectie();
    runIgnoringErrors(sqltext::dropColumn(table, column));
}

void clsDatabase::NieuweTabel(const QString& name) {
    MaakConnectie();
    runIgnoringErrors(sqltext::newLookupTable(name));
}

void clsDatabase::runIgnoringErrors(const QString& sql) {
    // Schema changes are attempted at every start; a change already made fails, and
    // that failure is the expected outcome, not something to report.
    try {
        gConnectie->execute(sql);
    } catch (const std::exception&) {
    }
}

void closeSharedConnections() {
    if (gConnectie) {
        gConnectie->close();
    }
    if (gOdbcConnectie) {
        gOdbcConnectie->close();
    }
}
