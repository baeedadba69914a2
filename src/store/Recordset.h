#pragma once

#include <QList>
#include <QString>
#include <QVariant>
#include <memory>
#include <optional>

#include "store/Field.h"

class Connection;

// A result set in the two kinds the program uses:
//  - the read set: forward-only and read-only, streamed from the engine;
//  - the updatable set: a client-side copy of the rows, in which rows are added,
//    changed and deleted; Update and Delete write back to the one base table by its key.
// Values are QVariants: Null is an invalid QVariant; Text -> QString, Boolean -> bool,
// Integer/Long -> int, Single -> float, Double -> double, Currency -> Currency,
// DateTime -> QDateTime. Field names are case-insensitive; a name that occurs in two
// tables of a join is reachable as "Table.Column".
// Errors raise Error: 3021 without a current row, 3265 for an unknown field name,
// 13/6/3163 when an assigned value does not fit its column, the engine's code on write.
class Recordset {
public:
    class Impl;
    explicit Recordset(std::unique_ptr<Impl> impl);
    ~Recordset();
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    bool isEOF() const;
    bool isBOF() const;
    void moveNext();
    void moveFirst();  // updatable and hierarchical sets only
    // Rows held; for a read set the rows read so far cannot be counted: -1.
    qsizetype recordCount() const;
    bool isUpdatable() const;

    int fieldCount() const;
    const Field& field(int index) const;
    int fieldIndex(const QString& name) const;  // -1 when there is no such field

    QVariant value(int index) const;
    QVariant value(const QString& name) const;
    // The value as text, as value(index).toString() gives it, without the QVariant between;
    // nothing for Null. Lists of records read their texts this way.
    std::optional<QString> text(int index) const;

    // Updatable sets only.
    void addNew();
    void setValue(int index, const QVariant& value);
    void setValue(const QString& name, const QVariant& value);
    void update();         // writes the current row: insert after addNew, else update
    void deleteCurrent();  // deletes the current row from the base table
    void cancelUpdate();

    // A set built from SHAPE: the child set named in APPEND, holding the rows related to
    // the current row of this set. Valid until this set moves.
    Recordset& child(const QString& name);
    QStringList childNames() const;

    void close();

private:
    std::unique_ptr<Impl> impl_;
};
