#pragma once

#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

// Reads the tables of an old Access (Jet 4.0) database, the format in which earlier
// versions of the program kept db.daa. Numbers, money, dates and yes/no come straight
// from the row's bytes (money as its exact scaled integer, never through a double, and no
// locale in between); texts through libmdb's decoding. Null and "" are told apart by the
// row's null mask.
namespace jet {

// True when the file starts with the Jet signature (any Jet version).
bool isJetFile(const QString& path);

enum class ColumnKind {
    Boolean,
    Byte,
    Integer,
    Long,
    Money,
    Single,
    Double,
    DateTime,
    Text,
    Other
};

struct Column {
    QString name;
    ColumnKind kind = ColumnKind::Other;
    int maxChars = 0;  // of a text column
};

// One cell of the current row. Money holds the amount times 10000; a date the text
// "yyyy-MM-dd HH:mm:ss"; Byte, Integer, Long and Boolean (1 or 0) a whole number.
struct Value {
    bool isNull = true;
    qint64 whole = 0;
    double real = 0;
    QString text;
};

class Database;

// A forward-only pass over the live rows of one table.
class Table {
public:
    ~Table();
    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;

    const QString& name() const { return name_; }
    const std::vector<Column>& columns() const { return columns_; }
    int indexOf(const QString& column) const;  // -1 when the table has no such column
    // The number of live rows the table's definition announces.
    qint64 announcedRows() const;

    // Moves to the next row; false after the last one.
    bool next();
    const Value& value(int column) const { return values_[column]; }

private:
    friend class Database;
    struct Handle;
    Table(std::unique_ptr<Handle> handle, QString name);
    void readCurrentRow();

    std::unique_ptr<Handle> handle_;
    QString name_;
    std::vector<Column> columns_;
    std::vector<Value> values_;
};

// An open Jet file. Every failure (no Jet file, a damaged one, a missing table) is an
// Error whose description says so in the user's words.
class Database {
public:
    explicit Database(const QString& path);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    QStringList tableNames() const;
    bool hasTable(const QString& name) const;
    // A table stays readable until the next call of open: libmdb reads its catalogue anew
    // for every table and so ends the one before.
    std::unique_ptr<Table> open(const QString& table) const;

private:
    struct Handle;
    std::unique_ptr<Handle> handle_;
    QString path_;
};

}  // namespace jet
