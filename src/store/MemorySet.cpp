#include "store/MemorySet.h"

#include <sqlite3.h>

#include "base/Currency.h"
#include "store/Engine.h"
#include "store/FieldConversion.h"
#include "store/Session.h"

namespace {

// The same number reads the same whatever its kind, so a Long relates to an Integer.
QString keyPart(const QVariant& value) {
    switch (value.typeId()) {
        case QMetaType::QString:
            return u's' + value.toString().toCaseFolded();
        case QMetaType::Int:
        case QMetaType::LongLong:
        case QMetaType::Bool:
            return u'n' + QString::number(value.toLongLong());
        case QMetaType::Double:
        case QMetaType::Float: {
            const double number = value.toDouble();
            const auto whole = qint64(number);
            return whole == number ? u'n' + QString::number(whole)
                                   : u'n' + QString::number(number, 'g', 17);
        }
        default:
            if (value.metaType() == QMetaType::fromType<Currency>()) {
                return u'c' + QString::number(value.value<Currency>().raw());
            }
            return u'v' + value.toString();
    }
}

// SQLite's text of a query narrowed to the rows whose column holds one of the keys.
QString narrowed(sqlite3_stmt* query, const Level::Keys& only) {
    QString sql = QString::fromUtf8(sqlite3_sql(query)).trimmed();
    while (sql.endsWith(u';')) {
        sql.chop(1);
    }
    QStringList keys;
    keys.reserve(only.values.size());
    for (const qint64 key : only.values) {
        keys.append(QString::number(key));
    }
    return QStringLiteral("SELECT * FROM (\n") + sql + QStringLiteral("\n) WHERE \"") +
           QString(only.column).replace(u'"', QStringLiteral("\"\"")) + QStringLiteral("\" IN (") +
           keys.join(u',') + u')';
}

}  // namespace

std::shared_ptr<Level> Level::load(sqlite3* db, const QString& jetSql,
                                   const std::optional<Keys>& only) {
    engine::Statement statement = engine::prepare(db, jetSql);
    auto level = std::make_shared<Level>();
    // Described after the first step, when a schema changed elsewhere has been read.
    bool onRow = statement.step();
    level->columns = columns::Columns::of(statement.get());
    if (only) {
        // The narrowed query shows the same fields; through it SQLite would rename a name
        // that two joined tables share, so the fields stay described from the query itself.
        statement = engine::prepareNative(db, narrowed(statement.get(), *only));
        onRow = statement.step();
    }
    const QList<Field>& fields = level->columns.fields();
    columns::Reader reader;
    for (; onRow; onRow = statement.step()) {
        Row row;
        row.values.reserve(fields.size());
        for (int i = 0; i < fields.size(); ++i) {
            row.values.append(reader.read(statement.get(), i, fields[i].type));
        }
        level->rows.append(std::move(row));
    }
    return level;
}

std::optional<QString> Level::relationKey(const QList<QVariant>& values,
                                          const QList<int>& columns) {
    QString key;
    for (int column : columns) {
        if (!values[column].isValid()) {
            return std::nullopt;
        }
        key += keyPart(values[column]) + u'\x1f';
    }
    return key;
}

MemorySet::MemorySet(std::shared_ptr<Level> level, QList<int> rows,
                     std::weak_ptr<engine::Session> session, bool updatable)
    : Impl(level->columns),
      level_(std::move(level)),
      session_(std::move(session)),
      updatable_(updatable),
      writer_(columns()) {
    show(std::move(rows));
}

std::unique_ptr<MemorySet> MemorySet::allRows(std::shared_ptr<Level> level,
                                              std::weak_ptr<engine::Session> session,
                                              bool updatable) {
    QList<int> rows(level->rows.size());
    for (int i = 0; i < rows.size(); ++i) {
        rows[i] = i;
    }
    return std::make_unique<MemorySet>(std::move(level), std::move(rows), std::move(session),
                                       updatable);
}

void MemorySet::show(QList<int> rows) {
    view_ = std::move(rows);
    liveRows_ = 0;
    for (int row : view_) {
        liveRows_ += level_->rows[row].deleted ? 0 : 1;
    }
    edit_ = Edit::None;
    position_ = 0;
    skipDeleted();
}

bool MemorySet::isEOF() const {
    return edit_ != Edit::Adding && position_ >= view_.size();
}

void MemorySet::moveNext() {
    finishEdit();
    if (isEOF()) {
        throw engine::noCurrentRecord();
    }
    ++position_;
    skipDeleted();
}

void MemorySet::moveFirst() {
    finishEdit();
    position_ = 0;
    skipDeleted();
}

void MemorySet::skipDeleted() {
    while (position_ < view_.size() && level_->rows[view_[position_]].deleted) {
        ++position_;
    }
}

QVariant MemorySet::value(int index) const {
    if (edit_ == Edit::Adding || (edit_ == Edit::Editing && changed_[index])) {
        return buffer_[index];
    }
    return currentRow().values[index];
}

void MemorySet::close() {
    children_.clear();
    show({});
}

void MemorySet::addNew() {
    requireUpdatable();
    finishEdit();
    edit_ = Edit::Adding;
    buffer_ = QList<QVariant>(columns().size());
    changed_.fill(false, columns().size());
}

void MemorySet::setValue(int index, const QVariant& value) {
    requireUpdatable();
    const Field& field = columns().fields()[index];
    if (field.table.isEmpty()) {
        throw engine::error(Error::FieldNotUpdatable,
                            QStringLiteral("Het veld %1 kan niet worden bijgewerkt: het "
                                           "is geen kolom van een tabel.")
                                .arg(field.name));
    }
    QVariant converted = fields::convert(value, field);
    if (edit_ == Edit::None) {
        buffer_ = currentRow().values;
        changed_.fill(false, columns().size());
        edit_ = Edit::Editing;
    }
    buffer_[index] = std::move(converted);
    changed_[index] = true;
}

void MemorySet::update() {
    if (edit_ == Edit::Adding) {
        const rows::Inserted inserted = writer_.insert(*session(), buffer_, changed_);
        takeNewKey(inserted.table, inserted.key);
        level_->rows.append(Level::Row{buffer_});
        view_.append(int(level_->rows.size() - 1));
        position_ = view_.size() - 1;
        ++liveRows_;
    } else if (edit_ == Edit::Editing) {
        Level::Row& row = currentRow();
        writer_.update(*session(), row.values, buffer_, changed_);
        row.values = buffer_;
    }
    edit_ = Edit::None;
}

void MemorySet::takeNewKey(const QString& table, qint64 key) {
    for (int i = 0; i < columns().size(); ++i) {
        const Field& field = columns().fields()[i];
        if (field.primaryKey && field.type == FieldType::Long && !changed_[i] &&
            field.table.compare(table, Qt::CaseInsensitive) == 0) {
            buffer_[i] = QVariant(int(key));
        }
    }
}

void MemorySet::deleteCurrent() {
    requireUpdatable();
    const bool unsaved = edit_ == Edit::Adding;
    cancelUpdate();
    if (unsaved) {
        return;  // the new row never reached the table
    }
    Level::Row& row = currentRow();
    writer_.remove(*session(), row.values);
    row.deleted = true;
    --liveRows_;
}

void MemorySet::cancelUpdate() {
    edit_ = Edit::None;
    buffer_.clear();
    changed_.clear();
}

Recordset& MemorySet::child(const QString& name) {
    for (qsizetype i = 0; i < level_->relations.size(); ++i) {
        const Level::Relation& relation = level_->relations[i];
        if (relation.name.compare(name, Qt::CaseInsensitive) != 0) {
            continue;
        }
        const std::optional<QString> key =
            Level::relationKey(currentRow().values, relation.parentColumns);
        const QList<int> related = key ? relation.groups.value(*key) : QList<int>();
        auto found = children_.find(i);
        if (found == children_.end()) {
            auto rows = std::make_unique<MemorySet>(relation.child, related, session_, updatable_);
            MemorySet* view = rows.get();
            found = children_.emplace(i, Child{std::make_unique<Recordset>(std::move(rows)), view})
                        .first;
        } else {
            found->second.rows->show(related);
        }
        return *found->second.set;
    }
    throw engine::itemNotFound(name);
}

QStringList MemorySet::childNames() const {
    QStringList names;
    for (const Level::Relation& relation : level_->relations) {
        names.append(relation.name);
    }
    return names;
}

void MemorySet::finishEdit() {
    if (edit_ != Edit::None) {
        update();
    }
}

void MemorySet::requireUpdatable() const {
    if (!updatable_) {
        throw engine::notUpdatable();
    }
}

Level::Row& MemorySet::currentRow() const {
    if (position_ >= view_.size() || level_->rows[view_[position_]].deleted) {
        throw engine::noCurrentRecord();
    }
    return level_->rows[view_[position_]];
}

std::shared_ptr<engine::Session> MemorySet::session() const {
    std::shared_ptr<engine::Session> session = session_.lock();
    if (!session) {
        throw engine::error(Error::ConnectionClosed,
                            QStringLiteral("De bewerking is niet toegestaan: de "
                                           "verbinding met de database is gesloten."));
    }
    return session;
}
