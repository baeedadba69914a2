#pragma once

#include <QList>
#include <QString>
#include <memory>

class Recordset;

// The record protocol: every business record loads and stores itself through these
// fourteen operations, in this order. The common implementation is PersistentRecord.
class clsPersistenceClass {
public:
    using Collection = QList<std::shared_ptr<clsPersistenceClass>>;

    virtual ~clsPersistenceClass() = default;

    virtual void SluitConnectie() = 0;
    virtual void Bijwerken() = 0;
    virtual void Verwijderen() = 0;
    virtual qint32 GetID() const = 0;
    virtual void SetID(qint32 id) = 0;
    virtual void Opslaan() = 0;
    virtual void Ophalen() = 0;
    virtual Collection OphalenLijst(const QString& filter) = 0;
    virtual QString GetSelectClause() const = 0;
    virtual QString GetSelectClauseWithFilter(const QString& filter) const = 0;
    virtual void SetPersistentData(Recordset& set) const = 0;
    virtual void CopyData(Recordset& set) = 0;
    virtual void CopyMultiple(Recordset& set, Collection& collection) const = 0;
    virtual QString GetIDNaam() const = 0;
};
