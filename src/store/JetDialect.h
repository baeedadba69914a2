#pragma once

#include <QString>
#include <QStringList>

// Translates the program's Jet SQL into SQLite's, touching only what SQLite does not
// understand: True/False, "..." string literals, + between texts (knowing which columns
// hold text, so "Voorletters + Achternaam" joins texts), the Jet type names and the
// ADD COLUMN / ALTER COLUMN forms of DDL. Raises Error when the text holds more than one
// statement. SQLite has no statement for ALTER COLUMN: it is handed back for the
// connection to carry out.
namespace jet {

class ColumnTypes {
public:
    virtual ~ColumnTypes() = default;
    // True when a column of this name in one of the named tables holds text. 'tables' is
    // the qualifier of a qualified name, else every word of the statement.
    virtual bool isText(const QStringList& tables, const QString& column) const = 0;
};

struct Translation {
    // SQLite's text of the statement; empty for ALTER COLUMN.
    QString sql;
    // ALTER TABLE <table> ALTER COLUMN <column> <type>, the type in SQLite's terms;
    // textLength is the n of a Text(n), else 0.
    QString alterTable, alterColumn, alterType;
    bool alterToText = false;
    int textLength = 0;

    bool isAlterColumn() const { return !alterTable.isEmpty(); }
};

Translation translateStatement(const QString& sql, const ColumnTypes& columns);

// The CREATE TABLE text 'createSql' with the type of 'column' replaced (its other
// constraints kept, its collation made to fit the new type); empty when the table has no
// such column.
QString withColumnType(const QString& createSql, const QString& column, const QString& type,
                       bool isText);

}  // namespace jet
