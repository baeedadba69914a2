#pragma once

#include <QStringList>
#include <QVariant>

#include "store/ColumnValues.h"
#include "store/Recordset.h"

// What each kind of result set provides behind Recordset. The base holds the fields; the
// operations only the updatable set supports refuse by default.
class Recordset::Impl {
public:
    explicit Impl(columns::Columns columns) : columns_(std::move(columns)) {}
    virtual ~Impl() = default;

    const columns::Columns& columns() const { return columns_; }

    virtual bool isEOF() const = 0;
    virtual bool isBOF() const = 0;
    virtual void moveNext() = 0;
    virtual void moveFirst() = 0;
    virtual qsizetype recordCount() const = 0;
    virtual bool isUpdatable() const { return false; }
    virtual QVariant value(int index) const = 0;
    virtual std::optional<QString> text(int index) const;
    virtual void close() = 0;

    virtual void addNew();
    virtual void setValue(int index, const QVariant& value);
    virtual void update();
    virtual void deleteCurrent();
    virtual void cancelUpdate();

    virtual Recordset& child(const QString& name);
    virtual QStringList childNames() const { return {}; }

private:
    columns::Columns columns_;
};
