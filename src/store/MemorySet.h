#pragma once

#include <QHash>
#include <map>
#include <memory>
#include <optional>

#include "store/RecordsetImpl.h"
#include "store/RowWriter.h"

struct sqlite3;
namespace engine {
class Session;
}

// The rows of one query held in memory, with the child levels of a SHAPE command related
// to them. Shared by a set and the child views made from it.
struct Level {
    struct Row {
        QList<QVariant> values;
        bool deleted = false;
    };
    struct Relation {
        QString name;
        QList<int> parentColumns;
        QList<int> childColumns;
        std::shared_ptr<Level> child;
        QHash<QString, QList<int>> groups;  // related value(s) -> rows of the child level
    };

    columns::Columns columns;
    QList<Row> rows;
    QList<Relation> relations;

    // Whole-number keys a column's value must be one of.
    struct Keys {
        QString column;
        QList<qint64> values;
    };

    // Runs a query of the program's SQL and keeps all its rows; with keys given only the rows
    // whose column holds one of them, the fields described as the query has them.
    static std::shared_ptr<Level> load(sqlite3* db, const QString& jetSql,
                                       const std::optional<Keys>& only = std::nullopt);
    // The value(s) a relation matches on, as one key; none when one of them is Null.
    static std::optional<QString> relationKey(const QList<QVariant>& values,
                                              const QList<int>& columns);
};

// The client-side set: rows in memory, changed through an edit buffer and written back
// row by row. Also the set of each level of a SHAPE command, and the child view that
// shows the rows related to the current row of its parent.
class MemorySet : public Recordset::Impl {
public:
    MemorySet(std::shared_ptr<Level> level, QList<int> rows, std::weak_ptr<engine::Session> session,
              bool updatable);
    static std::unique_ptr<MemorySet> allRows(std::shared_ptr<Level> level,
                                              std::weak_ptr<engine::Session> session,
                                              bool updatable);

    bool isEOF() const override;
    bool isBOF() const override { return recordCount() == 0 && edit_ != Edit::Adding; }
    void moveNext() override;
    void moveFirst() override;
    qsizetype recordCount() const override { return liveRows_; }
    bool isUpdatable() const override { return updatable_; }
    QVariant value(int index) const override;
    void close() override;

    void addNew() override;
    void setValue(int index, const QVariant& value) override;
    void update() override;
    void deleteCurrent() override;
    void cancelUpdate() override;

    Recordset& child(const QString& name) override;
    QStringList childNames() const override;

private:
    enum class Edit { None, Editing, Adding };

    void show(QList<int> rows);
    void skipDeleted();
    void finishEdit();
    void requireUpdatable() const;
    Level::Row& currentRow() const;
    std::shared_ptr<engine::Session> session() const;
    void takeNewKey(const QString& table, qint64 key);

    std::shared_ptr<Level> level_;
    QList<int> view_;
    qsizetype position_ = 0;
    qsizetype liveRows_ = 0;
    std::weak_ptr<engine::Session> session_;
    bool updatable_;
    rows::Writer writer_;

    Edit edit_ = Edit::None;
    QList<QVariant> buffer_;
    QList<bool> changed_;

    struct Child {
        std::unique_ptr<Recordset> set;
        MemorySet* rows;
    };
    std::map<qsizetype, Child> children_;
};
