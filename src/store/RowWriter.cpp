#include "store/RowWriter.h"

#include <sqlite3.h>

#include "store/Engine.h"
#include "store/Session.h"
#include "store/SqlLexer.h"

namespace rows {

namespace {

// The one base table of the given fields (all fields of the set when none is given).
QString baseTable(const columns::Columns& columns, const QList<bool>& chosen) {
    const bool any = chosen.contains(true);
    QString table;
    for (int i = 0; i < columns.size(); ++i) {
        const QString& own = columns.fields()[i].table;
        if ((any && !chosen[i]) || own.isEmpty()) {
            continue;
        }
        if (!table.isEmpty() && table.compare(own, Qt::CaseInsensitive) != 0) {
            throw engine::error(Error::ReadOnly,
                                QStringLiteral("Kan niet bijwerken: de gegevens horen bij "
                                               "meer dan één tabel."));
        }
        table = own;
    }
    if (table.isEmpty()) {
        throw engine::notUpdatable();
    }
    return table;
}

QList<int> fieldsOf(const columns::Columns& columns, const QString& table) {
    QList<int> result;
    for (int i = 0; i < columns.size(); ++i) {
        if (columns.fields()[i].table.compare(table, Qt::CaseInsensitive) == 0) {
            result.append(i);
        }
    }
    return result;
}

// The fields that find the row again: its key, or every field of the table when the set
// does not hold the key.
QList<int> locatingFields(const columns::Columns& columns, const QString& table) {
    const QList<int> all = fieldsOf(columns, table);
    QList<int> keys;
    for (int i : all) {
        if (columns.fields()[i].primaryKey) {
            keys.append(i);
        }
    }
    return keys.isEmpty() ? all : keys;
}

QString whereClause(const columns::Columns& columns, const QList<int>& locating) {
    QStringList conditions;
    for (int i : locating) {
        conditions.append(sql::quotedName(columns.origin(i)) + QStringLiteral(" IS ?"));
    }
    return QStringLiteral(" WHERE ") + conditions.join(QStringLiteral(" AND "));
}

void bindAll(sqlite3_stmt* statement, int first, const columns::Columns& columns,
             const QList<int>& indexes, const QList<QVariant>& values) {
    int parameter = first;
    for (int i : indexes) {
        columns::bind(statement, parameter++, values[i], columns.fields()[i].type);
    }
}

void runChanging(sqlite3* db, engine::Session::Use& statement) {
    statement.step();
    if (sqlite3_changes(db) == 0) {
        throw engine::error(Error::RecordChanged,
                            QStringLiteral("Het record is niet meer gevonden: het is "
                                           "gewijzigd of verwijderd nadat het werd "
                                           "gelezen."));
    }
}

}  // namespace

Inserted Writer::insert(engine::Session& session, const QList<QVariant>& values,
                        const QList<bool>& assigned) {
    const Plan& plan = insertPlan(assigned);
    engine::Session::Use statement = session.statement(plan.sql);
    bindAll(statement.get(), 1, columns_, plan.written, values);
    statement.step();
    return Inserted{plan.table, sqlite3_last_insert_rowid(session.db())};
}

void Writer::update(engine::Session& session, const QList<QVariant>& original,
                    const QList<QVariant>& values, const QList<bool>& changed) {
    if (!changed.contains(true)) {
        return;
    }
    const Plan& plan = updatePlan(changed);
    engine::Session::Use statement = session.statement(plan.sql);
    bindAll(statement.get(), 1, columns_, plan.written, values);
    bindAll(statement.get(), int(plan.written.size()) + 1, columns_, plan.locating, original);
    runChanging(session.db(), statement);
}

void Writer::remove(engine::Session& session, const QList<QVariant>& original) {
    const Plan& plan = removePlan();
    engine::Session::Use statement = session.statement(plan.sql);
    bindAll(statement.get(), 1, columns_, plan.locating, original);
    runChanging(session.db(), statement);
}

const Writer::Plan& Writer::insertPlan(const QList<bool>& assigned) {
    const auto found = inserts_.constFind(assigned);
    if (found != inserts_.constEnd()) {
        return *found;
    }
    Plan plan;
    plan.table = baseTable(columns_, assigned);
    QStringList names;
    for (int i : fieldsOf(columns_, plan.table)) {
        if (assigned[i]) {
            plan.written.append(i);
            names.append(sql::quotedName(columns_.origin(i)));
        }
    }
    plan.sql = QStringLiteral("INSERT INTO ") + sql::quotedName(plan.table);
    if (plan.written.isEmpty()) {
        plan.sql += QStringLiteral(" DEFAULT VALUES");
    } else {
        plan.sql += QStringLiteral(" (") + names.join(u',') + QStringLiteral(") VALUES (") +
                    QStringList(names.size(), QStringLiteral("?")).join(u',') + u')';
    }
    return *inserts_.insert(assigned, std::move(plan));
}

const Writer::Plan& Writer::updatePlan(const QList<bool>& changed) {
    const auto found = updates_.constFind(changed);
    if (found != updates_.constEnd()) {
        return *found;
    }
    Plan plan;
    plan.table = baseTable(columns_, changed);
    QStringList assignments;
    for (int i = 0; i < columns_.size(); ++i) {
        if (changed[i]) {
            plan.written.append(i);
            assignments.append(sql::quotedName(columns_.origin(i)) + QStringLiteral("=?"));
        }
    }
    plan.locating = locatingFields(columns_, plan.table);
    plan.sql = QStringLiteral("UPDATE ") + sql::quotedName(plan.table) + QStringLiteral(" SET ") +
               assignments.join(u',') + whereClause(columns_, plan.locating);
    return *updates_.insert(changed, std::move(plan));
}

const Writer::Plan& Writer::removePlan() {
    if (!remove_) {
        Plan plan;
        plan.table = baseTable(columns_, QList<bool>(columns_.size(), false));
        plan.locating = locatingFields(columns_, plan.table);
        plan.sql = QStringLiteral("DELETE FROM ") + sql::quotedName(plan.table) +
                   whereClause(columns_, plan.locating);
        remove_ = std::move(plan);
    }
    return *remove_;
}

}  // namespace rows
