#pragma once

#include <QDateTime>
#include <QList>
#include <QString>
#include <QVariant>
#include <memory>
#include <optional>
#include <type_traits>
#include <variant>
#include <vector>

#include "base/Currency.h"
#include "store/Recordset.h"
#include "store/clsDatabase.h"
#include "store/clsPersistenceClass.h"

// The record protocol written once. A record class derives from PersistentRecord<itself>
// and names only its table, its key and its columns; the fourteen operations follow from
// that. The class provides, and lets PersistentRecord<Derived> reach as a friend:
//   static constexpr const char* Table, KeyName;
//   static qint32 Derived::* keyMember();
//   static const persist::Columns<Derived>& writeColumns();  // in the order they are written
//   static const persist::Columns<Derived>& readColumns();   // in the order they are read
namespace persist {

// Every column reads Null as its kind's empty value (0, "", False, the zero date), except
// where a record has always read it differently.
enum class ReadRule {
    Plain,
    NullAsZeroText,  // a Null text reads "0": the number 0 turned into text
    NullAsNow,       // a Null date reads as the present date and time
    OneWhenTrue,     // a yes/no column read into a number: 1 when True, 0 otherwise
};

// The date a date field holds before anything is put into it.
QDateTime zeroDate();

QString toText(std::optional<QString> value, ReadRule rule);
qint32 toLong(const QVariant& value);
qint16 toInteger(const QVariant& value, ReadRule rule);
bool toBoolean(const QVariant& value);
double toDouble(const QVariant& value);
float toSingle(const QVariant& value);
Currency toCurrency(const QVariant& value);
QDateTime toDate(const QVariant& value, ReadRule rule);

// The position of a column in a set; error 3265 when the set has no such column.
int requiredFieldIndex(const Recordset& set, const QString& name);

template <class R>
class Column {
public:
    // The kind of a column follows from the field it fills: String, Long, Integer, Boolean,
    // Double, Single, Currency or Date.
    using Member = std::variant<QString R::*, qint32 R::*, qint16 R::*, bool R::*, double R::*,
                                float R::*, Currency R::*, QDateTime R::*>;

    Column(const char* name, Member member, ReadRule rule = ReadRule::Plain)
        : name_(QString::fromLatin1(name)), member_(member), rule_(rule) {}

    const QString& name() const { return name_; }

    // The value of field index of the current row of set into its member of record.
    void read(R& record, const Recordset& set, int index) const {
        std::visit([&](auto member) { fill(record.*member, set, index); }, member_);
    }

    QVariant write(const R& record) const {
        return std::visit(
            [&](auto member) -> QVariant {
                const auto& field = record.*member;
                if constexpr (std::is_same_v<std::decay_t<decltype(field)>, qint16>) {
                    return QVariant(static_cast<int>(field));
                } else {
                    return QVariant::fromValue(field);
                }
            },
            member_);
    }

private:
    // Texts come straight from the set: most of a list's values are texts.
    void fill(QString& field, const Recordset& set, int index) const {
        field = toText(set.text(index), rule_);
    }
    template <class T>
    void fill(T& field, const Recordset& set, int index) const {
        field = convert(set.value(index), &field);
    }

    qint32 convert(const QVariant& v, const qint32*) const { return toLong(v); }
    qint16 convert(const QVariant& v, const qint16*) const { return toInteger(v, rule_); }
    bool convert(const QVariant& v, const bool*) const { return toBoolean(v); }
    double convert(const QVariant& v, const double*) const { return toDouble(v); }
    float convert(const QVariant& v, const float*) const { return toSingle(v); }
    Currency convert(const QVariant& v, const Currency*) const { return toCurrency(v); }
    QDateTime convert(const QVariant& v, const QDateTime*) const { return toDate(v, rule_); }

    QString name_;
    Member member_;
    ReadRule rule_;
};

template <class R>
using Columns = std::vector<Column<R>>;

// The read list of a record that reads its key first and then the columns in the order it
// writes them.
template <class R>
Columns<R> keyThen(Column<R> key, const Columns<R>& written) {
    Columns<R> columns{std::move(key)};
    columns.insert(columns.end(), written.begin(), written.end());
    return columns;
}

// Reads rows of one set into records; the columns are looked up once for the whole set.
template <class R>
class RowReader {
public:
    RowReader(const Recordset& set, const Columns<R>& columns) : set_(set), columns_(columns) {
        indexes_.reserve(columns.size());
        for (const auto& column : columns) {
            indexes_.push_back(requiredFieldIndex(set, column.name()));
        }
    }

    void read(R& record) const {
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            columns_[i].read(record, set_, indexes_[i]);
        }
    }

    // Every row from the current one to the end, in set order, each read into the record
    // place() makes where it will stay: a record moved after reading costs a copy of every
    // field and a second allocation.
    template <class Place>
    void readRemaining(Recordset& set, Place place) const {
        while (!set.isEOF()) {
            read(place());
            set.moveNext();
        }
    }

private:
    const Recordset& set_;
    const Columns<R>& columns_;
    std::vector<int> indexes_;
};

}  // namespace persist

template <class Derived>
class PersistentRecord : public clsPersistenceClass {
public:
    void SluitConnectie() override { clsDatabase().SluitConnectie(); }
    void Bijwerken() override { clsDatabase().UpdateInstance(*this); }
    void Verwijderen() override { clsDatabase().DeleteInstance(*this); }
    qint32 GetID() const override { return self().*Derived::keyMember(); }
    void SetID(qint32 id) override { self().*Derived::keyMember() = id; }

    // Inserts only: a stored record is written with Bijwerken.
    void Opslaan() override {
        if (GetID() == 0) {
            clsDatabase().NieuweInstance(*this);
        }
    }

    void Ophalen() override { clsDatabase().retrieveInstance(*this); }

    Collection OphalenLijst(const QString& filter) override {
        return clsDatabase().retrieveMultiple(filter, *this);
    }

    QString GetSelectClause() const override {
        return QStringLiteral("SELECT * FROM ") + Derived::Table + " WHERE " + Derived::KeyName +
               "=" + QString::number(GetID());
    }

    QString GetSelectClauseWithFilter(const QString& filter) const override {
        QString sql = QStringLiteral("SELECT * FROM ") + Derived::Table;
        if (!filter.isEmpty()) {
            sql += " WHERE " + filter;
        }
        return sql;
    }

    // Every column of the write list, empty texts as empty texts; the key never.
    void SetPersistentData(Recordset& set) const override {
        for (const auto& column : Derived::writeColumns()) {
            set.setValue(column.name(), column.write(self()));
        }
    }

    // Without a current row the record keeps its values.
    void CopyData(Recordset& set) override {
        if (!set.isEOF()) {
            reader(set).read(self());
        }
    }

    void CopyMultiple(Recordset& set, Collection& collection) const override {
        if (set.isEOF()) {
            return;
        }
        reader(set).readRemaining(set, [&]() -> Derived& {
            auto record = std::make_shared<Derived>();
            Derived& placed = *record;
            collection.append(std::move(record));
            return placed;
        });
    }

    QString GetIDNaam() const override { return QString::fromLatin1(Derived::KeyName); }

    // OphalenLijst with records of this class, in the order of the select text.
    QList<Derived> Lijst(const QString& filter) const {
        auto set = clsDatabase().openReadSet(GetSelectClauseWithFilter(filter));
        QList<Derived> list;
        if (!set->isEOF()) {
            reader(*set).readRemaining(*set, [&]() -> Derived& { return list.emplaceBack(); });
        }
        return list;
    }

private:
    static persist::RowReader<Derived> reader(const Recordset& set) {
        return persist::RowReader<Derived>(set, Derived::readColumns());
    }
    const Derived& self() const { return static_cast<const Derived&>(*this); }
    Derived& self() { return static_cast<Derived&>(*this); }
};
