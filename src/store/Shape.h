#pragma once

#include <QList>
#include <QPair>
#include <QString>
#include <memory>
#include <vector>

#include "store/MemorySet.h"

struct sqlite3;

// The data-shaping command: SHAPE {parent} [AS a] APPEND ({child} [AS b] RELATE 'x' TO 'y')
// AS b, where a child may itself be a parenthesised SHAPE command, to any depth.
namespace shape {

struct Append;

struct Command {
    QString sql;
    std::vector<Append> appends;
};

struct Append {
    Command command;
    QList<QPair<QString, QString>> relations;  // parent column, child column
    QString name;
};

bool isShape(const QString& text);
Command parse(const QString& text);

// Runs every query of the command once and relates the rows in memory; only, when given,
// narrows the command's own query as Level::load does.
std::shared_ptr<Level> build(sqlite3* db, const Command& command,
                             const std::optional<Level::Keys>& only = std::nullopt);

}  // namespace shape
