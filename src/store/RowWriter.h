#pragma once

#include <QHash>
#include <QList>
#include <QVariant>
#include <optional>

#include "store/ColumnValues.h"

namespace engine {
class Session;
}

// Writes the rows of one updatable set back to its base table: the table of the fields
// that changed, found by its key (or, without a key in the set, by all its old values).
// The statement for each set of written fields is worked out once per set of rows.
namespace rows {

struct Inserted {
    QString table;
    qint64 key = 0;
};

class Writer {
public:
    explicit Writer(columns::Columns columns) : columns_(std::move(columns)) {}

    Inserted insert(engine::Session& session, const QList<QVariant>& values,
                    const QList<bool>& assigned);
    void update(engine::Session& session, const QList<QVariant>& original,
                const QList<QVariant>& values, const QList<bool>& changed);
    void remove(engine::Session& session, const QList<QVariant>& original);

private:
    // A statement text with the fields bound to its parameters, in order: the written
    // fields from the new values, then the locating fields from the old ones.
    struct Plan {
        QString table;
        QString sql;
        QList<int> written;
        QList<int> locating;
    };

    const Plan& insertPlan(const QList<bool>& assigned);
    const Plan& updatePlan(const QList<bool>& changed);
    const Plan& removePlan();

    columns::Columns columns_;
    QHash<QList<bool>, Plan> inserts_;
    QHash<QList<bool>, Plan> updates_;
    std::optional<Plan> remove_;
};

}  // namespace rows
